#include "platform/Conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/ErrorOf.h"
#include "support/GermanLocale.h"

namespace blattwart::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

class ConversionsTest : public testing::Test {
  protected:
    GermanLocale locale;
};

TEST_F(ConversionsTest, RoundsHalvesToEvenAndRefusesWhatDoesNotFit) {
    const std::pair<double, std::int16_t> cases[] = {
        {0.5, 0}, {1.5, 2}, {2.5, 2}, {-2.5, -2}, {2.51, 3}, {32767.4, 32767}, {-32768.5, -32768}};
    for (const auto& [number, rounded] : cases) EXPECT_EQ(rounded, toInt16(number)) << number;
    for (const double number : {32767.5, -32768.6, infinity, std::nan("")}) {
        EXPECT_EQ(errorNumber::overflow, errorOf([&] { return toInt16(number); })) << number;
    }
    EXPECT_EQ(-2147483647 - 1, toInt32(-2147483648.4));
    EXPECT_EQ(errorNumber::overflow, errorOf([] { return toInt32(2147483647.5); }));
}

TEST_F(ConversionsTest, TakesTheLeadingNumberOfAText) {
    const std::pair<const wchar_t*, double> cases[] = {{L"", 0},
                                                       {L"abc", 0},
                                                       {L"12abc", 12},
                                                       {L"  1 2 3x", 123},
                                                       {L"-1.5.7", -1.5},
                                                       {L"+.5", 0.5},
                                                       {L"1,5", 1},
                                                       {L"1e3", 1000},
                                                       {L"1e", 1},
                                                       {L"1e+x", 1},
                                                       {L"-", 0},
                                                       {L".", 0},
                                                       {L"e5", 0},
                                                       {L"7.", 7},
                                                       {L"1e999", infinity},
                                                       {L"1e-999", 0},
                                                       {L"-1e999", -infinity}};
    for (const auto& [text, number] : cases) EXPECT_EQ(number, numericPrefix(text)) << text;
}

TEST_F(ConversionsTest, ReadsBackItsOwnPlainNumbers) {
    for (const float number : {0.0F, -1234.5F, 0.1F, 16777216.0F, 1e20F, 1e-40F, 3.4e38F}) {
        const std::wstring text = plainText(number);
        EXPECT_EQ(std::wstring::npos, text.find(L'e')) << testing::PrintToString(text);
        EXPECT_EQ(number, static_cast<float>(plainNumber(text))) << testing::PrintToString(text);
    }
    EXPECT_EQ(L"1200.5", plainText(1200.5F));
    EXPECT_EQ(12.5, plainNumber(L" 12,5 "));
    for (const wchar_t* text : {L"", L" ", L"-", L"12x", L"1 2", L"1.2.3", L"nan", L"inf", L"0x10"}) {
        EXPECT_EQ(errorNumber::typeMismatch, errorOf([&] { return plainNumber(text); })) << text;
    }
    EXPECT_EQ(errorNumber::overflow, errorOf([] { return plainNumber(L"1e999"); }));
}

TEST_F(ConversionsTest, ReadsNumbersAsAGermanUserWritesThem) {
    const std::pair<const wchar_t*, double> cases[] = {
        {L"12", 12},     {L" -1,5 ", -1.5}, {L"1.234.567,25", 1234567.25},
        {L"1234", 1234}, {L",5", 0.5},      {L"+7,", 7}};
    for (const auto& [text, number] : cases) EXPECT_EQ(number, userNumber(text, locale)) << text;
    for (const wchar_t* text : {L"", L"1.5", L"1.2345", L".123", L"1234.567", L"1,2,3", L"1,234.5", L"1e3",
                                L"--1", L"+-1", L"-", L",", L"zwei", L"1 2"}) {
        EXPECT_EQ(errorNumber::typeMismatch, errorOf([&] { return userNumber(text, locale); })) << text;
    }
}

TEST_F(ConversionsTest, FormatsTwoDecimalsRoundedAwayFromZero) {
    const std::pair<double, const wchar_t*> cases[] = {{0, L"0,00"},        {2, L"2,00"},
                                                       {0.125, L"0,13"},    {-0.125, L"-0,13"},
                                                       {1.005, L"1,01"},    {0.995, L"1,00"},
                                                       {-0.001, L"0,00"},   {0.05, L"0,05"},
                                                       {420, L"420,00"},    {1e15, L"1000000000000000,00"},
                                                       {0.004999, L"0,00"}, {99.99999, L"100,00"}};
    for (const auto& [number, text] : cases) EXPECT_EQ(text, formatTwoDecimals(number, locale)) << number;
    EXPECT_EQ(errorNumber::overflow, errorOf([&] { return formatTwoDecimals(1e308, locale); }));
}

TEST_F(ConversionsTest, ConvertsWhatHostAndDatabaseGive) {
    const std::pair<Value, double> numbers[] = {{std::uint8_t{200}, 200},
                                                {std::int16_t{-3}, -3},
                                                {std::int64_t{1} << 40, 1099511627776.0},
                                                {0.5F, 0.5},
                                                {true, -1},
                                                {Currency{12500}, 1.25},
                                                {Date{2.5}, 2.5},
                                                {L" 1,5", 1.5}};
    for (const auto& [value, number] : numbers) EXPECT_EQ(number, toDouble(value, locale));
    const Value noNumbers[] = {Value(), Null{}, L"", L"1A", ShortArray{1}, ObjectPtr()};
    for (const Value& value : noNumbers) {
        EXPECT_EQ(errorNumber::typeMismatch, errorOf([&] { return toDouble(value, locale); }));
    }
    EXPECT_EQ(errorNumber::overflow, errorOf([&] { return toInt16(Value(70000), locale); }));

    const std::pair<Value, const wchar_t*> texts[] = {{Value(), L""},
                                                      {L"A1", L"A1"},
                                                      {21, L"21"},
                                                      {0.1, L"0,1"},
                                                      {0.1F, L"0,1"},
                                                      {-2.0, L"-2"},
                                                      {std::uint8_t{65}, L"65"},
                                                      {Currency{-5}, L"-0,0005"}};
    for (const auto& [value, text] : texts) EXPECT_EQ(text, toText(value, locale));
    for (const Value& value : {Value(Null{}), Value(true), Value(DoubleArray{1})}) {
        EXPECT_EQ(errorNumber::typeMismatch, errorOf([&] { return toText(value, locale); }));
    }
    EXPECT_EQ(errorNumber::objectNotSet, errorOf([] { return toObject(Value(ObjectPtr())); }));
}

}  // namespace
}  // namespace blattwart::test
