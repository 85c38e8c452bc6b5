#include "support/FakeRegistry.h"

#include <algorithm>

namespace blattwart::test {

namespace {

/// Names of keys and values are looked up without regard to case.
std::string folded(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return text;
}

}  // namespace

void FakeRegistry::store(RegistryRoot root, const std::string& path, const std::string& name, Entry entry) {
    keys_[{root, folded(path)}][folded(name)] = std::move(entry);
}

void FakeRegistry::storeText(RegistryRoot root, const std::string& path, const std::string& name,
                             const std::string& text) {
    store(root, path, name, {textType, text + '\0'});
}

const FakeRegistry::Entry* FakeRegistry::find(RegistryRoot root, const std::string& path,
                                              const std::string& name) const {
    const auto key = keys_.find({root, folded(path)});
    if (key == keys_.end()) return nullptr;
    const auto entry = key->second.find(folded(name));
    return entry == key->second.end() ? nullptr : &entry->second;
}

std::int32_t FakeRegistry::openKey(RegistryRoot root, const std::string& path, std::uint32_t access,
                                   RegistryKey& key) {
    key = 0;
    if (fails(L"Registry.openKey")) return accessDenied;
    if (!keys_.contains({root, folded(path)})) return fileNotFound;
    if ((access & setValueAccess) && !writable) return accessDenied;
    key = ++lastHandle_;
    handles_.try_emplace(key, Handle{{root, folded(path)}, access});
    return success;
}

std::int32_t FakeRegistry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                                      std::span<char> buffer, std::uint32_t& size) {
    if (fails(L"Registry.queryValue")) return accessDenied;
    if (const std::int32_t error = check(key, queryValueAccess)) return error;
    const auto& values = keys_[handles_.at(key).path];
    const auto value = values.find(folded(name));
    if (value == values.end()) return fileNotFound;
    const std::string& bytes = value->second.bytes;
    const std::size_t room = std::min<std::size_t>(size, buffer.size());
    type = value->second.type;
    size = static_cast<std::uint32_t>(bytes.size());
    if (bytes.size() > room) return moreData;
    std::ranges::copy(bytes, buffer.begin());
    // A text without a NUL gets one behind it where there is room, but does not count it.
    if (type == textType && !bytes.empty() && bytes.back() != '\0' && bytes.size() < room) {
        buffer[bytes.size()] = '\0';
    }
    return success;
}

std::int32_t FakeRegistry::setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                    std::span<const char> data) {
    if (fails(L"Registry.setValue")) return accessDenied;
    if (const std::int32_t error = check(key, setValueAccess)) return error;
    keys_[handles_.at(key).path][folded(name)] = {type, std::string(data.begin(), data.end())};
    return success;
}

std::int32_t FakeRegistry::closeKey(RegistryKey key) {
    // A close that is told to fail still closes.
    const bool failing = fails(L"Registry.closeKey");
    return handles_.erase(key) == 0 ? invalidHandle : failing ? accessDenied : success;
}

std::int32_t FakeRegistry::check(RegistryKey key, std::uint32_t right) const {
    const auto handle = handles_.find(key);
    if (handle == handles_.end()) return invalidHandle;
    return handle->second.access & right ? success : accessDenied;
}

std::wstring FakeRegistry::expanded(const std::wstring& text) {
    constexpr std::wstring_view variable = L"%SystemRoot%";
    std::wstring result = text;
    if (const auto place = result.find(variable); place != std::wstring::npos)
        result.replace(place, variable.size(), L"C:\\Windows");
    return result;
}

}  // namespace blattwart::test
