#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace blattwart {

/// A key opened by Registry::openKey; 0 when opening failed.
using RegistryKey = std::uintptr_t;

enum class RegistryRoot { currentUser, localMachine };

/// The registry as its ANSI functions give it, byte for byte. Results are system error codes, 0 for success.
class Registry {
  public:
    static constexpr std::uint32_t queryValueAccess = 1;
    static constexpr std::uint32_t setValueAccess = 2;
    static constexpr std::uint32_t textType = 1;            ///< REG_SZ
    static constexpr std::uint32_t expandableTextType = 2;  ///< REG_EXPAND_SZ
    static constexpr std::uint32_t numberType = 4;          ///< REG_DWORD
    static constexpr std::int32_t success = 0;

    virtual ~Registry() = default;

    virtual std::int32_t openKey(RegistryRoot root, const std::string& path, std::uint32_t access,
                                 RegistryKey& key) = 0;
    /// Reads a value into the buffer. `size` is the buffer's size in bytes before and the value's after; a
    /// value that does not fit leaves the buffer untouched.
    virtual std::int32_t queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                                    std::span<char> buffer, std::uint32_t& size) = 0;
    virtual std::int32_t setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                  std::span<const char> data) = 0;
    virtual std::int32_t closeKey(RegistryKey key) = 0;
    /// An expandable text with the values of its variables ("%SystemRoot%"); unknown ones stay.
    virtual std::wstring expanded(const std::wstring& text) = 0;
};

}  // namespace blattwart
