#include "win32/ui/NativeMenu.h"

#include <algorithm>
#include <string>

namespace blattwart {

namespace {

std::wstring captionOf(const MenuItem& item) {
    const std::wstring shortcut = item.shortcut().key != 0 ? L"\t" + item.shortcut().text() : std::wstring();
    return item.caption() + shortcut;
}

void clear(HMENU menu) {
    while (DeleteMenu(menu, 0, MF_BYPOSITION)) {
    }
}

bool endsWithSeparator(HMENU menu) {
    const int count = GetMenuItemCount(menu);
    return count == 0 ||
           (GetMenuState(menu, static_cast<UINT>(count - 1), MF_BYPOSITION) & MF_SEPARATOR) != 0;
}

}  // namespace

NativeMenu::NativeMenu(MenuItem& root, int firstCommand, Menu menu)
    : firstCommand_(firstCommand), menu_(std::move(menu)) {
    number(root);
    fill(menu_.get(), root);
}

void NativeMenu::number(MenuItem& menu) {
    for (const auto& item : menu.items()) {
        items_.push_back(item.get());
        number(*item);
    }
}

void NativeMenu::opening(HMENU popup) {
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_MENUDATA;
    GetMenuInfo(popup, &info);
    auto* menu = reinterpret_cast<MenuItem*>(info.dwMenuData);
    if (std::find(items_.begin(), items_.end(), menu) == items_.end()) return;
    clear(popup);
    fill(popup, *menu);
}

/// Separators stand between visible items only.
void NativeMenu::fill(HMENU popup, MenuItem& menu) {
    for (const auto& item : menu.items()) {
        if (!item->visible() || (item->isSeparator() && endsWithSeparator(popup))) continue;
        append(popup, *item);
    }
    const int count = GetMenuItemCount(popup);
    if (count > 0 && endsWithSeparator(popup)) DeleteMenu(popup, static_cast<UINT>(count - 1), MF_BYPOSITION);
}

void NativeMenu::append(HMENU popup, MenuItem& item) {
    if (item.isSeparator()) {
        AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        return;
    }
    const UINT state =
        (item.enabled() ? MF_ENABLED : MF_GRAYED) | (item.checked() ? MF_CHECKED : MF_UNCHECKED);
    const std::wstring caption = captionOf(item);
    if (item.items().empty()) {
        const auto place = std::find(items_.begin(), items_.end(), &item) - items_.begin();
        const auto command = static_cast<UINT>(firstCommand_ + place);
        AppendMenuW(popup, MF_STRING | state, command, caption.c_str());
        if (item.isDefault()) SetMenuDefaultItem(popup, command, FALSE);
        if (item.isChoice() && item.checked())
            CheckMenuRadioItem(popup, command, command, command, MF_BYCOMMAND);
        return;
    }
    const HMENU inner = CreatePopupMenu();
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_MENUDATA;
    info.dwMenuData = reinterpret_cast<ULONG_PTR>(&item);
    SetMenuInfo(inner, &info);
    fill(inner, item);
    AppendMenuW(popup, MF_POPUP | state, reinterpret_cast<UINT_PTR>(inner), caption.c_str());
}

MenuItem* NativeMenu::item(int command) const {
    const auto place = static_cast<std::size_t>(command - firstCommand_);
    return command >= firstCommand_ && place < items_.size() ? items_[place] : nullptr;
}

MenuItem* NativeMenu::item(const Shortcut& shortcut) const {
    const auto found = std::find_if(items_.begin(), items_.end(), [&](const MenuItem* item) {
        // Commands for different nodes share a key; at most one of them is enabled.
        return item->enabled() && item->shortcut() == shortcut;
    });
    return shortcut.key == 0 || found == items_.end() ? nullptr : *found;
}

MenuItem* chooseFromMenu(HWND owner, MenuItem& menu, POINT place) {
    constexpr int firstCommand = 1;
    const NativeMenu popup(menu, firstCommand, Menu(CreatePopupMenu()));
    const int command =
        TrackPopupMenuEx(popup.handle(), TPM_RIGHTBUTTON | TPM_RETURNCMD, place.x, place.y, owner, nullptr);
    return popup.item(command);
}

}  // namespace blattwart
