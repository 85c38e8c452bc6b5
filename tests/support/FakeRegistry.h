#pragma once

#include <functional>
#include <map>
#include <utility>

#include "platform/Registry.h"

namespace blattwart::test {

/// A registry that answers as the ANSI functions of Windows do, byte for byte.
class FakeRegistry : public Registry {
  public:
    static constexpr std::int32_t fileNotFound = 2;
    static constexpr std::int32_t accessDenied = 5;
    static constexpr std::int32_t invalidHandle = 6;
    static constexpr std::int32_t moreData = 234;

    struct Entry {
        std::uint32_t type = textType;
        std::string bytes;
        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// Stores the bytes as they are; makes the key when it is missing.
    void store(RegistryRoot root, const std::string& path, const std::string& name, Entry entry);
    /// Stores a text with its terminating NUL.
    void storeText(RegistryRoot root, const std::string& path, const std::string& name,
                   const std::string& text);
    /// The stored value, or null.
    const Entry* find(RegistryRoot root, const std::string& path, const std::string& name) const;

    bool writable = true;  ///< false: opening for writing is denied, as for plain users
    /// Asked before each call, by its name; true denies it.
    std::function<bool(std::wstring_view call)> fails = [](std::wstring_view) { return false; };
    std::size_t openKeys() const { return handles_.size(); }

    std::int32_t openKey(RegistryRoot root, const std::string& path, std::uint32_t access,
                         RegistryKey& key) override;
    std::int32_t queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                            std::span<char> buffer, std::uint32_t& size) override;
    std::int32_t setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                          std::span<const char> data) override;
    std::int32_t closeKey(RegistryKey key) override;
    /// Knows "%SystemRoot%" only.
    std::wstring expanded(const std::wstring& text) override;

  private:
    using Path = std::pair<RegistryRoot, std::string>;
    struct Handle {
        Path path;
        std::uint32_t access;
    };

    /// Success, or why a call on the key with this right fails.
    std::int32_t check(RegistryKey key, std::uint32_t right) const;

    std::map<Path, std::map<std::string, Entry>> keys_;
    std::map<RegistryKey, Handle> handles_;
    RegistryKey lastHandle_ = 0;
};

}  // namespace blattwart::test
