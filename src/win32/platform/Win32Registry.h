#pragma once

#include "platform/Registry.h"

namespace blattwart {

class Win32Registry : public Registry {
  public:
    std::int32_t openKey(RegistryRoot root, const std::string& path, std::uint32_t access,
                         RegistryKey& key) override;
    std::int32_t queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                            std::span<char> buffer, std::uint32_t& size) override;
    std::int32_t setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                          std::span<const char> data) override;
    std::int32_t closeKey(RegistryKey key) override;
    std::wstring expanded(const std::wstring& text) override;
};

}  // namespace blattwart
