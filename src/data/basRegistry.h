#pragma once

#include <cstdint>
#include <string>

#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Registry.h"

namespace blattwart {

/// What the program asks of the machine-wide settings. Nothing is kept between calls and nothing fails.
class basRegistry {
  public:
    basRegistry(Registry& registry, const Locale& locale, const Files& files)
        : registry_(registry), locale_(locale), files_(files) {}

    /// Full path of the definition database: as set, unchecked, or "Tarvix.mdb" beside the program.
    std::wstring GetDatabasePath() const;
    /// 1 when the program is to end together with the host, 0 when it stays. 1 when nothing usable is set.
    std::int16_t GetAutoEnd() const;
    void SetAutoEnd(std::int16_t autoEnd) const;

  private:
    Registry& registry_;
    const Locale& locale_;
    const Files& files_;
};

}  // namespace blattwart
