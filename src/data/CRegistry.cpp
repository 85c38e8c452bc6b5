#include "data/CRegistry.h"

#include <algorithm>

namespace blattwart {

std::wstring CRegistry::read(const wchar_t* name) {
    valueName_ = name;
    ReadValue();
    return CutAtNul(valueText_);
}

void CRegistry::write(const wchar_t* name, const std::wstring& text) {
    valueName_ = name;
    valueText_ = text;
    WriteValue();
}

std::wstring CRegistry::CutAtNul(const std::wstring& text) {
    const std::size_t nul = text.find(L'\0');
    return nul == std::wstring::npos ? std::wstring() : text.substr(0, nul);
}

void CRegistry::ReadValue() {
    RegistryKey key = 0;
    registry_.openKey(RegistryRoot::localMachine, keyPath_, Registry::queryValueAccess, key);
    std::string buffer(256, ' ');
    auto size = static_cast<std::uint32_t>(buffer.size());
    std::uint32_t type = Registry::textType;
    registry_.queryValue(key, locale_.toAnsi(valueName_), type, buffer, size);
    // The whole buffer, not the read size: blanks without a NUL tell a value that could not be read.
    valueText_ = locale_.fromAnsi(buffer);
    registry_.closeKey(key);
}

void CRegistry::WriteValue() {
    RegistryKey key = 0;
    registry_.openKey(RegistryRoot::localMachine, keyPath_, Registry::setValueAccess, key);
    // As many bytes as the text has characters, without a NUL: readers add it. Windows would store a NUL that
    // it finds behind the data, hence the blank.
    const std::string bytes = locale_.toAnsi(valueText_) + ' ';
    const std::span data = std::span(bytes).first(std::min(bytes.size() - 1, valueText_.size()));
    registry_.setValue(key, locale_.toAnsi(valueName_), Registry::textType, data);
    registry_.closeKey(key);
}

}  // namespace blattwart
