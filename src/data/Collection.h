#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/RuntimeError.h"

namespace blattwart {

/// Shared elements in the order of their insertion, looked up by position, counted from 1, or by the key that
/// they were added under. Keys are numbers written as text, so they are compared exactly. An unknown key and
/// a position outside the collection throw RuntimeError (invalid call).
template <class T>
class Collection {
  public:
    using Element = std::shared_ptr<T>;

    /// Appends an element; "" for no key. Throws RuntimeError (duplicate key) when the key is taken.
    Element Add(Element element, const std::wstring& key = {}) {
        if (!key.empty() && !byKey_.try_emplace(key, element).second) {
            throw RuntimeError(errorNumber::duplicateKey,
                               L"Dieser Schlüssel ist bereits einem Element dieser Auflistung zugeordnet.");
        }
        elements_.push_back(element);
        keys_.push_back(key);
        return element;
    }

    Element Item(const std::wstring& key) const {
        const auto element = byKey_.find(key);
        if (element == byKey_.end()) throwInvalidCall();
        return element->second;
    }
    Element Item(std::int32_t position) const { return elements_[indexOf(position)]; }

    std::int32_t Count() const { return static_cast<std::int32_t>(elements_.size()); }

    void Remove(const std::wstring& key) {
        if (!byKey_.contains(key)) throwInvalidCall();
        removeAt(static_cast<std::size_t>(std::ranges::find(keys_, key) - keys_.begin()));
    }
    void Remove(std::int32_t position) { removeAt(indexOf(position)); }

    void Clear() {
        elements_.clear();
        keys_.clear();
        byKey_.clear();
    }

    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

  private:
    [[noreturn]] static void throwInvalidCall() {
        throw RuntimeError(errorNumber::invalidCall, L"Ungültiger Prozeduraufruf oder ungültiges Argument");
    }

    std::size_t indexOf(std::int32_t position) const {
        if (position < 1 || position > Count()) throwInvalidCall();
        return static_cast<std::size_t>(position) - 1;
    }

    void removeAt(std::size_t index) {
        if (!keys_[index].empty()) byKey_.erase(keys_[index]);
        const auto offset = static_cast<std::ptrdiff_t>(index);
        elements_.erase(elements_.begin() + offset);
        keys_.erase(keys_.begin() + offset);
    }

    std::vector<Element> elements_;
    std::vector<std::wstring> keys_;  // of the elements at the same index
    std::unordered_map<std::wstring, Element> byKey_;
};

}  // namespace blattwart
