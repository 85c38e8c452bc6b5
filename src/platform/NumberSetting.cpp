#include "platform/NumberSetting.h"

#include "platform/Conversions.h"
#include "platform/RuntimeError.h"

namespace blattwart {

double numberSetting(const Settings& settings, std::wstring_view key, std::wstring_view defaultText) {
    const std::wstring text = settings.get(key, defaultText);
    try {
        return plainNumber(text);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), L"Die gespeicherte Einstellung „" + std::wstring(key) +
                                               L"“ ist keine Zahl: „" + text + L"“.\n\nGespeichert unter:\n" +
                                               settings.location(key));
    }
}

}  // namespace blattwart
