#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/RuntimeError.h"

namespace blattwart {

struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view key) const noexcept {
        return std::hash<std::wstring_view>()(key);
    }
};

/// What a control holds by key; looked up without making a string.
template <class T>
using KeyMap = std::unordered_map<std::wstring, T, KeyHash, std::equal_to<>>;

[[noreturn]] inline void throwDuplicateKey() {
    throw RuntimeError(errorNumber::duplicateKey, L"Der Schlüssel ist bereits vergeben.");
}

[[noreturn]] inline void throwElementNotFound() {
    throw RuntimeError(errorNumber::elementNotFound, L"Das Element wurde nicht gefunden.");
}

[[noreturn]] inline void throwInvalidCall() {
    throw RuntimeError(errorNumber::invalidCall, L"Ungültiger Aufruf oder ungültiges Argument.");
}

}  // namespace blattwart
