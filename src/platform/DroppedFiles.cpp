#include "platform/DroppedFiles.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace blattwart {

namespace {

/// The system's header, all in 32-bit numbers: where the paths begin, a point, whether the point is outside
/// of the client area, whether the paths are wide.
struct ListHeader {
    std::uint32_t begin;
    std::int32_t x;
    std::int32_t y;
    std::int32_t nonClient;
    std::int32_t wide;
};

/// Characters of two bytes; the list need not be aligned for them.
std::wstring wideText(std::span<const char> bytes) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char16_t character = 0;
        std::memcpy(&character, &bytes[i], sizeof character);
        text.push_back(static_cast<wchar_t>(character));
    }
    return text;
}

}  // namespace

std::vector<std::wstring> droppedFiles(std::span<const char> list, const Locale& locale) {
    ListHeader header{};
    if (list.size() < sizeof header) return {};
    std::memcpy(&header, list.data(), sizeof header);
    if (header.begin > list.size()) return {};
    const std::span paths = list.subspan(header.begin);
    const std::wstring text = header.wide ? wideText(paths) : locale.fromAnsi({paths.data(), paths.size()});

    std::vector<std::wstring> files;
    for (std::size_t begin = 0; begin < text.size() && text[begin] != L'\0';) {
        const std::size_t end = std::min(text.find(L'\0', begin), text.size());
        files.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return files;
}

std::wstring droppedText(std::span<const char> text, const Locale& locale) {
    const auto end = std::ranges::find(text, '\0');
    return locale.fromAnsi({text.data(), static_cast<std::size_t>(end - text.begin())});
}

}  // namespace blattwart
