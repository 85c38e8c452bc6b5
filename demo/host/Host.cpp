#include "demo/host/Host.h"

#include <algorithm>

#include "demo/dxf/Text.h"
#include "demo/host/ApplicationObject.h"
#include "demo/host/HostError.h"

namespace demo {

Host::Host(HostOptions options, Disk disk)
    : options_(std::move(options)), disk_(std::move(disk)), macros_(*this) {}

blattwart::ObjectPtr Host::application() {
    return std::make_shared<ApplicationObject>(shared_from_this());
}

DocumentPtr Host::activeDocument() const {
    return lastUsed_.empty() ? nullptr : lastUsed_.back();
}

DocumentPtr Host::findDocument(const std::wstring& fullName) const {
    const auto found = std::ranges::find_if(
        documents_, [&](const auto& document) { return sameName(document->fullName(), fullName); });
    return found == documents_.end() ? nullptr : *found;
}

DocumentPtr Host::openFile(const std::wstring& path, bool readOnly) {
    if (!disk_.exists(path)) throw hostError::make(hostError::fileError, options_.language);
    readOnly = readOnly || disk_.isReadOnly(path) || findDocument(path);
    try {
        DocumentPtr document = add(disk_.load(path), folderOf(path), fileNameOf(path));
        if (readOnly) document->setReadOnly();
        return document;
    } catch (const blattwart::RuntimeError&) {
        throw hostError::make(hostError::foreignDrawing, options_.language);
    }
}

DocumentPtr Host::newDocument(const std::wstring& templateFile) {
    Drawing drawing =
        templateFile.empty() ? Drawing::createEmpty() : disk_.load(templatePath(templateFile, L".dwt"));
    const std::wstring stem = options_.language == Language::german ? L"Zeichnung" : L"Drawing";
    return add(std::move(drawing), L"", stem + std::to_wstring(++newDrawings_) + L".dwg");
}

DocumentPtr Host::addDocument(const std::wstring& folder, const std::wstring& name, Drawing drawing) {
    return add(std::move(drawing), folder, name);
}

DocumentPtr Host::addDocument(const std::wstring& folder, const std::wstring& name,
                              const std::vector<std::wstring>& layouts) {
    Drawing drawing = Drawing::createEmpty();
    if (!layouts.empty()) {
        Layout& first = *drawing.activePaperLayout();
        drawing.renameLayout(first, layouts.front());
        for (std::size_t i = 1; i < layouts.size(); ++i) drawing.addLayout(layouts[i]);
        drawing.setCurrentLayout(first);
    }
    return add(std::move(drawing), folder, name);
}

DocumentPtr Host::add(Drawing drawing, const std::wstring& folder, const std::wstring& name) {
    auto document =
        std::make_shared<OpenDocument>(*this, ++documentNumber_, std::move(drawing), folder, name);
    documents_.push_back(document);
    lastUsed_.push_back(document);
    return document;
}

void Host::activate(const DocumentPtr& document) {
    const auto found = std::ranges::find(lastUsed_, document);
    if (found != lastUsed_.end()) std::rotate(found, found + 1, lastUsed_.end());
}

void Host::close(const DocumentPtr& document) {
    const DocumentPtr kept = document->shared_from_this();
    std::erase(documents_, kept);
    std::erase(lastUsed_, kept);
    kept->close();
}

void Host::quit() {
    while (!documents_.empty()) close(documents_.back());
    dialog_.reset();
    visible_ = false;
    ended_ = true;
}

void Host::sendCommand(const DocumentPtr& document, const std::wstring& text) {
    activate(document);
    typedTexts_.push_back({document->folder() + L"\\" + document->name(), text, filedia_});
    document->commandLine().type(text);
}

void Host::endDialog(std::optional<std::wstring> answer) {
    if (!dialog_) return;
    // The answer may close the document whose command asked.
    const std::vector<DocumentPtr> kept = documents_;
    const Dialog ended = std::move(*dialog_);
    dialog_.reset();
    ended.answer(std::move(answer));
}

std::wstring Host::templatePath(const std::wstring& file, const std::wstring& extension) const {
    std::wstring path = file;
    if (!isAbsolute(path)) {
        const bool separated = options_.templateFolder.ends_with(L'\\');
        path = options_.templateFolder + (separated ? L"" : L"\\") + path;
    }
    if (fileNameOf(path).find(L'.') == std::wstring::npos) path += extension;
    return path;
}

HostPtr makeHost(HostOptions options, Disk disk) {
    return std::make_shared<Host>(std::move(options), std::move(disk));
}

}  // namespace demo
