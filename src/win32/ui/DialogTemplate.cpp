#include "win32/ui/DialogTemplate.h"

#include <cstdlib>
#include <span>

#include "win32/base/SystemError.h"
#include "win32/ui/Fonts.h"

namespace blattwart {

namespace {

constexpr std::size_t headerWords = 13;  // of an extended template, up to the menu
constexpr std::size_t fontWords = 3;     // size, weight, italic and character set, up to the name of the font
constexpr int pointsPerInch = 72;

std::span<const WORD> resource(int id) {
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(5));  // RT_DIALOG
    const HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
    const auto* words = loaded ? static_cast<const WORD*>(LockResource(loaded)) : nullptr;
    if (!words) throwSystemError();
    return {words, SizeofResource(nullptr, found) / sizeof(WORD)};
}

/// The place behind a text, or behind the number that stands for one.
std::size_t behindText(std::span<const WORD> words, std::size_t place) {
    if (words[place] == 0xFFFF) return place + 2;
    while (words[place] != 0) ++place;
    return place + 1;
}

/// Controls begin on double words.
std::size_t aligned(std::size_t place) {
    return place + place % 2;
}

}  // namespace

DialogTemplate::DialogTemplate(int id) {
    const std::span<const WORD> words = resource(id);
    std::size_t font = headerWords;
    for (int text = 0; text < 3; ++text) font = behindText(words, font);  // menu, window class, caption
    const std::size_t controls = aligned(behindText(words, font + fontWords));

    LOGFONTW wanted{};
    GetObjectW(messageFont(USER_DEFAULT_SCREEN_DPI).get(), sizeof wanted, &wanted);
    const int points = MulDiv(std::abs(wanted.lfHeight), pointsPerInch, USER_DEFAULT_SCREEN_DPI);
    words_.assign(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(font));
    words_.push_back(static_cast<WORD>(points));
    words_.push_back(static_cast<WORD>(wanted.lfWeight));
    words_.push_back(MAKEWORD(wanted.lfItalic, wanted.lfCharSet));
    for (const wchar_t* letter = wanted.lfFaceName; *letter; ++letter) words_.push_back(*letter);
    words_.push_back(0);
    words_.resize(aligned(words_.size()));
    words_.insert(words_.end(), words.begin() + static_cast<std::ptrdiff_t>(controls), words.end());
}

}  // namespace blattwart
