#include "platform/NumberSetting.h"

#include "platform/Conversions.h"
#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

template <class Conversion>
auto converted(const Settings& settings, std::wstring_view key, std::wstring_view defaultText,
               Conversion conversion) {
    const std::wstring text = settings.get(key, defaultText);
    try {
        return conversion(plainNumber(text));
    } catch (const RuntimeError& error) {
        const std::wstring fault =
            error.number() == errorNumber::overflow ? L"“ ist zu groß: „" : L"“ ist keine Zahl: „";
        throw RuntimeError(error.number(), L"Die gespeicherte Einstellung „" + std::wstring(key) + fault +
                                               text + L"“.\n\nGespeichert unter:\n" + settings.location(key));
    }
}

}  // namespace

float realSetting(const Settings& settings, std::wstring_view key, std::wstring_view defaultText) {
    return converted(settings, key, defaultText, toFloat);
}

std::int32_t wholeSetting(const Settings& settings, std::wstring_view key, std::wstring_view defaultText) {
    return converted(settings, key, defaultText, [](double number) { return toInt32(number); });
}

}  // namespace blattwart
