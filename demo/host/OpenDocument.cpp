#include "demo/host/OpenDocument.h"

#include <algorithm>

#include "demo/dxf/Text.h"
#include "demo/host/Host.h"
#include "demo/host/HostError.h"

namespace demo {

OpenDocument::OpenDocument(Host& host, std::int32_t number, Drawing drawing, std::wstring folder,
                           std::wstring name)
    : host_(host),
      number_(number),
      drawing_(std::make_unique<Drawing>(std::move(drawing))),
      folder_(std::move(folder)),
      name_(std::move(name)),
      commandLine_(host, *this) {}

void OpenDocument::close() {
    drawing_.reset();
}

void OpenDocument::save() {
    if (!titled() || readOnly_) throw hostError::make(hostError::fileError, host_.options().language);
    if (!host_.disk().exists(folder_)) host_.disk().makeFolder(folder_);
    host_.disk().save(*drawing_, fullName());
    modified_ = false;
    shownAnew_ = false;
}

void OpenDocument::saveAs(const std::wstring& path) {
    const std::wstring name = fileNameOf(path);
    const std::wstring file = name.find(L'.') == std::wstring::npos ? path + L".dwg" : path;
    host_.disk().save(*drawing_, file);
    folder_ = folderOf(file);
    name_ = fileNameOf(file);
    modified_ = false;
    shownAnew_ = false;
    readOnly_ = false;
}

void OpenDocument::show(Layout& layout) {
    const bool asks = host_.options().profile->showsPageSetup && !layout.isModel() && !layout.sheetViewport();
    drawing_->setCurrentLayout(layout);
    shownAnew_ = true;
    if (asks) host_.showDialog({DialogKind::message, L"Seiteneinrichtung", layout.name(), [](auto) {}});
}

std::int16_t OpenDocument::changes() const {
    return static_cast<std::int16_t>((modified_ ? 1 : 0) | (shownAnew_ ? 24 : 0));
}

std::int32_t OpenDocument::tabNumber(const Layout& layout) const {
    const auto put = tabNumbers_.find(layout.handle());
    return put == tabNumbers_.end() ? layout.tabOrder() : put->second;
}

void OpenDocument::putTabNumber(Layout& layout, std::int32_t number) {
    const HostOptions& options = host_.options();
    if (options.tabNumbers == TabNumbers::shift) {
        drawing_->setTabOrder(layout, number);
        return;
    }
    const auto layouts = drawing_->layouts();
    const bool taken = std::ranges::any_of(
        layouts, [&](const Layout* other) { return other != &layout && tabNumber(*other) == number; });
    if (number < 1 || layout.isModel() || (taken && options.tabNumbers == TabNumbers::refuse))
        throw hostError::make(hostError::invalidInput, options.language);
    tabNumbers_[layout.handle()] = number;
}

std::wstring OpenDocument::layoutName(const Layout& layout) const {
    return layout.isModel() ? host_.options().modelName : layout.name();
}

Layout* OpenDocument::findLayout(std::wstring_view name) const {
    if (sameName(name, host_.options().modelName)) return &drawing_->modelLayout();
    Layout* layout = drawing_->findLayout(name);
    return layout && !layout->isModel() ? layout : nullptr;
}

std::vector<Layout*> OpenDocument::layoutsByName() const {
    std::vector<std::pair<std::wstring, Layout*>> named;
    for (Layout* layout : drawing_->layouts()) named.emplace_back(folded(layoutName(*layout)), layout);
    std::ranges::sort(named, {}, &std::pair<std::wstring, Layout*>::first);
    std::vector<Layout*> layouts;
    layouts.reserve(named.size());
    for (const auto& [name, layout] : named) layouts.push_back(layout);
    return layouts;
}

std::int32_t OpenDocument::objectNumber(Handle handle) {
    const auto found = numbers_.find(handle);
    if (found != numbers_.end()) return found->second;
    const std::int32_t number = host_.nextObjectNumber();
    numbers_.emplace(handle, number);
    handles_.emplace(number, handle);
    return number;
}

Handle OpenDocument::objectOfNumber(std::int32_t number) const {
    const auto found = handles_.find(number);
    return found == handles_.end() ? 0 : found->second;
}

}  // namespace demo
