#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Locale.h"
#include "platform/Value.h"

/// The one place where texts become numbers and numbers texts. Rounding to whole numbers is half to even.
/// Conversions throw RuntimeError with errorNumber::typeMismatch or errorNumber::overflow.
namespace blattwart {

std::int16_t toInt16(double number);
std::int32_t toInt32(double number);
float toFloat(double number);

/// The leading decimal number of a text: blanks are skipped, sign, fraction (with a point) and exponent are
/// read as far as they go; 0 when there is none, infinity when it is beyond all doubles. Never fails.
double numericPrefix(std::wstring_view text);

/// Reads a whole text as a number in plain notation, as the settings hold it: sign, digits, a point or a
/// comma before the fraction, exponent, blanks around it. Throws type mismatch on anything else.
double plainNumber(std::wstring_view text);
/// A number in plain notation, with a point, as short as it reads back the same.
std::wstring plainText(float number);

/// Reads a number as the user writes it: the locale's decimal separator, thousands separators between groups
/// of three digits, blanks around it. Throws type mismatch on anything else, so "1.5" is refused where the
/// point separates thousands, and not taken for 15.
double userNumber(std::wstring_view text, const Locale& locale);

/// Two decimals with the locale's separator, rounded half away from zero.
std::wstring formatTwoDecimals(double number, const Locale& locale);

/// Values of the host and of the database. Numbers and texts as the user writes them convert, true is -1;
/// null, empty (but for `toText`), arrays and objects are type mismatches.
std::int16_t toInt16(const Value& value, const Locale& locale);
std::int32_t toInt32(const Value& value, const Locale& locale);
double toDouble(const Value& value, const Locale& locale);
bool toBool(const Value& value);
/// Empty gives "", numbers their shortest text with the locale's decimal separator; null, bool and date are
/// type mismatches.
std::wstring toText(const Value& value, const Locale& locale);
/// The object in the value; throws errorNumber::objectNotSet when there is none.
ObjectPtr toObject(const Value& value);

}  // namespace blattwart
