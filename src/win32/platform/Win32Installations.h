#pragma once

#include "platform/Installations.h"

namespace blattwart {

/// Looks into both views of the registry: 64-bit hosts stand in one of them, 32-bit ones in the other.
class Win32Installations : public Installations {
  public:
    std::vector<InstalledProduct> products() override;
    std::wstring classOf(const std::wstring& programName) override;
    bool hasServer(const std::wstring& classId) override;
};

}  // namespace blattwart
