// Lists of files and texts that other programs drop: nothing is read behind their ends.
#include "Input.h"
#include "platform/DroppedFiles.h"

using namespace blattwart;
using fuzz::require;

namespace {

constexpr std::size_t headerSize = 20;

/// The list that a well-behaved program makes of the files, in wide characters.
std::string listOf(const std::vector<std::wstring>& files) {
    std::string list(headerSize, '\0');
    list.front() = headerSize;
    list.back() = 1;
    const auto append = [&list](wchar_t c) {
        list.push_back(static_cast<char>(c & 0xFF));
        list.push_back(static_cast<char>(c >> 8 & 0xFF));
    };
    for (const std::wstring& file : files) {
        for (const wchar_t c : file) append(c);
        append(0);
    }
    append(0);
    return list;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A copy of the exact size, so that reading behind its end is found.
    const std::vector<char> list(data, data + size);
    const test::GermanLocale locale;
    const std::vector<std::wstring> files = droppedFiles(list, locale);
    std::size_t characters = 0;
    for (const std::wstring& file : files) {
        require(!file.empty(), "no file without a name");
        require(file.find(L'\0') == std::wstring::npos, "a file ends at its NUL");
        characters += file.size();
    }
    require(characters <= size, "no more characters than bytes");
    require(droppedFiles(listOf(files), locale) == files, "a list is read as it was made");
    require(droppedText(list, locale).find(L'\0') == std::wstring::npos, "a text ends at its NUL");
    return 0;
}
