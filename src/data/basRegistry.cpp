#include "data/basRegistry.h"

#include "data/CRegistry.h"
#include "platform/Conversions.h"
#include "platform/RuntimeError.h"

namespace blattwart {

std::wstring basRegistry::GetDatabasePath() const {
    const std::wstring path = CRegistry(registry_, locale_).TX_DefDB();
    return path.empty() ? files_.applicationFolder() + L"\\Tarvix.mdb" : path;
}

std::int16_t basRegistry::GetAutoEnd() const {
    std::int16_t autoEnd = 1;
    const std::wstring text = CRegistry(registry_, locale_).TX_LM_Beenden();
    // A number beyond 16 bits leaves the default.
    if (!text.empty()) ignoringErrors([&] { autoEnd = toInt16(numericPrefix(text)); });
    return autoEnd;
}

void basRegistry::SetAutoEnd(std::int16_t autoEnd) const {
    CRegistry(registry_, locale_).TX_LM_Beenden(std::to_wstring(autoEnd));
}

}  // namespace blattwart
