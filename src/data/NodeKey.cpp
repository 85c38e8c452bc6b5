#include "data/NodeKey.h"

#include <limits>

namespace blattwart {

namespace {

constexpr std::wstring_view letters = L"AZLBD";  // of the kinds in their order, without none

std::int32_t numberIn(std::wstring_view digits) {
    std::int64_t number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9') return 0;
        number = number * 10 + (digit - L'0');
        if (number > std::numeric_limits<std::int32_t>::max()) return 0;
    }
    return static_cast<std::int32_t>(number);
}

}  // namespace

std::wstring kindLetter(NodeKind kind) {
    if (kind == NodeKind::none) return {};
    return std::wstring(1, letters[static_cast<std::size_t>(kind) - 1]);
}

NodeKey NodeKey::parse(std::wstring_view text) {
    const std::size_t place = text.empty() ? std::wstring_view::npos : letters.find(text.front());
    if (place == std::wstring_view::npos) return {};
    return NodeKey(static_cast<NodeKind>(place + 1), numberIn(text.substr(1)));
}

std::wstring NodeKey::text() const {
    return isRoot() || kind_ == NodeKind::none ? kindLetter(kind_)
                                               : kindLetter(kind_) + std::to_wstring(number_);
}

}  // namespace blattwart
