#include "controls/Menu.h"

namespace blattwart {

namespace {

constexpr std::uint16_t f12 = 0x7B;

std::wstring keyName(std::uint16_t key) {
    if (key == Shortcut::enter) return L"Eingabe";
    if (key == Shortcut::del) return L"Entf";
    if (key == Shortcut::up) return L"Auf";
    if (key == Shortcut::down) return L"Ab";
    if (key >= Shortcut::f1 && key <= f12) return L"F" + std::to_wstring(key - Shortcut::f1 + 1);
    return std::wstring(1, static_cast<wchar_t>(key));
}

}  // namespace

std::wstring Shortcut::text() const {
    if (key == 0) return {};
    return std::wstring(control ? L"Strg+" : L"") + (alt ? L"Alt+" : L"") + keyName(key);
}

MenuItem& MenuItem::add(std::wstring name, std::wstring caption, Shortcut shortcut) {
    return *items_.emplace_back(std::make_unique<MenuItem>(std::move(name), std::move(caption), shortcut));
}

}  // namespace blattwart
