#include "demo/host/LayoutCommand.h"

#include <array>

#include "demo/dxf/Text.h"
#include "demo/host/Commands.h"
#include "demo/host/HostError.h"

namespace demo {

struct LayoutCommand::Option {
    const wchar_t* english;
    const wchar_t* german;
    void (LayoutCommand::*run)();
};

void LayoutCommand::start() {
    ask(PromptKind::word,
        L"Layoutoption eingeben [Kopieren/Löschen/Neu/Vorlage/Umbenennen/SIchals/SEtzen/?] <setzen>:",
        L"Enter layout option [Copy/Delete/New/Template/Rename/SAveas/Set/?] <set>:", L"_Set",
        &LayoutCommand::chooseOption);
}

void LayoutCommand::chooseOption(const std::wstring& typed) {
    static constexpr std::array options{
        Option{L"Copy", L"Kopieren", &LayoutCommand::copy},
        Option{L"Delete", L"Löschen", &LayoutCommand::remove},
        Option{L"New", L"Neu", &LayoutCommand::add},
        Option{L"Template", L"Vorlage", &LayoutCommand::insert},
        Option{L"Rename", L"Umbenennen", &LayoutCommand::rename},
        Option{L"SAveas", L"SIchals", &LayoutCommand::saveAs},
        Option{L"Set", L"SEtzen", &LayoutCommand::set},
        Option{L"?", L"?", &LayoutCommand::list},
    };
    for (const Option& option : options) {
        if (isKeyword(typed, option.english, option.german, host_.options().language)) {
            (this->*option.run)();
            return;
        }
    }
    document_.commandLine().show(inLanguage(L"Ungültiges Optionsschlüsselwort.", L"Invalid option keyword."));
    start();
}

void LayoutCommand::copy() {
    ask(PromptKind::line, L"Name des zu kopierenden Layouts eingeben:", L"Enter name of layout to copy:",
        currentName(), &LayoutCommand::copySource);
}

void LayoutCommand::copySource(const std::wstring& name) {
    source_ = document_.layoutName(named(name));
    ask(PromptKind::line, L"Layoutnamen für Kopie eingeben:", L"Enter layout name for copy:",
        document_.drawing().uniqueLayoutName(source_), &LayoutCommand::copyTarget);
}

void LayoutCommand::copyTarget(const std::wstring& name) {
    document_.drawing().copyLayout(named(source_), name);
    document_.setModified();
}

void LayoutCommand::remove() {
    ask(PromptKind::line, L"Namen des zu löschenden Layouts eingeben:", L"Enter name of layout to delete:",
        currentName(), &LayoutCommand::removeNamed);
}

void LayoutCommand::removeNamed(const std::wstring& name) {
    document_.drawing().deleteLayout(named(name));
    document_.setModified();
}

void LayoutCommand::add() {
    const Drawing& drawing = document_.drawing();
    ask(PromptKind::line, L"Namen für neues Layout eingeben:", L"Enter new Layout name:",
        drawing.uniqueLayoutName(L"Layout" + std::to_wstring(drawing.layouts().size())),
        &LayoutCommand::addNamed);
}

void LayoutCommand::addNamed(const std::wstring& name) {
    document_.drawing().addLayout(name);
    document_.setModified();
}

void LayoutCommand::rename() {
    ask(PromptKind::line, L"Umzubenennendes Layout eingeben:", L"Enter layout to rename:", currentName(),
        &LayoutCommand::renameSource);
}

void LayoutCommand::renameSource(const std::wstring& name) {
    source_ = document_.layoutName(named(name));
    ask(PromptKind::line, L"Neuen Layoutnamen eingeben:", L"Enter new layout name:", source_,
        &LayoutCommand::renameTarget);
}

void LayoutCommand::renameTarget(const std::wstring& name) {
    document_.drawing().renameLayout(named(source_), name);
    document_.setModified();
}

void LayoutCommand::set() {
    ask(PromptKind::line, L"Layout, das aktuell werden soll:", L"Enter layout to make current:",
        currentName(), &LayoutCommand::setNamed);
}

void LayoutCommand::setNamed(const std::wstring& name) {
    document_.show(named(name));
}

void LayoutCommand::list() {
    for (const Layout* layout : document_.drawing().layouts()) {
        document_.commandLine().show(document_.layoutName(*layout));
    }
}

void LayoutCommand::insert() {
    askFile(DialogKind::openFile, L"Namen der Vorlagendatei eingeben:", L"Enter name of template file:",
            &LayoutCommand::insertFrom);
}

void LayoutCommand::insertFrom(const std::wstring& file) {
    template_ = host_.disk().load(host_.templatePath(file, L".dwt"));
    std::wstring names;
    for (const Layout* layout : template_->layouts()) {
        if (!layout->isModel()) names += (names.empty() ? L"" : L",") + layout->name();
    }
    if (host_.filedia() != 0) {
        const wchar_t* text = inLanguage(L"Layout(s) einfügen", L"Insert Layout(s)");
        askByDialog(DialogKind::chooseLayouts, text, names, &LayoutCommand::insertNamed);
    } else {
        ask(PromptKind::line, L"Layoutname(n) eingeben oder [*]:", L"Enter layout name(s) or [*]:", names,
            &LayoutCommand::insertNamed);
    }
}

void LayoutCommand::insertNamed(const std::wstring& names) {
    std::vector<std::wstring> wanted;
    std::size_t begin = 0;
    while (names != L"*" && begin <= names.size()) {
        const std::size_t end = std::min(names.find(L',', begin), names.size());
        wanted.push_back(names.substr(begin, end - begin));
        begin = end + 1;
    }
    document_.drawing().importLayouts(*template_, wanted);
    document_.setModified();
}

void LayoutCommand::saveAs() {
    const Layout* last = document_.drawing().activePaperLayout();
    ask(PromptKind::line, L"Layout in Vorlage speichern:", L"Enter layout to save to template:",
        last ? last->name() : L"", &LayoutCommand::saveSource);
}

void LayoutCommand::saveSource(const std::wstring& name) {
    source_ = document_.layoutName(named(name));
    askFile(DialogKind::saveFile, L"Namen der Vorlagendatei eingeben:", L"Enter name of template file:",
            &LayoutCommand::saveTarget);
}

void LayoutCommand::saveTarget(const std::wstring& file) {
    file_ = host_.templatePath(file, L".dwt");
    if (!host_.disk().exists(file_)) {
        writeTemplate();
        return;
    }
    ask(PromptKind::word, L"Die Datei ist bereits vorhanden. Überschreiben? [Ja/Nein] <N>:",
        L"The file already exists. Overwrite? [Yes/No] <N>:", L"_No", &LayoutCommand::saveConfirmed);
}

void LayoutCommand::saveConfirmed(const std::wstring& answer) {
    const Language language = host_.options().language;
    if (isKeyword(answer, L"Yes", L"Ja", language)) {
        writeTemplate();
    } else if (!isKeyword(answer, L"No", L"Nein", language)) {
        saveTarget(file_);
    }
}

void LayoutCommand::writeTemplate() {
    host_.disk().save(document_.drawing().templateOf(named(source_)), file_);
}

void LayoutCommand::ask(PromptKind kind, const wchar_t* german, const wchar_t* english,
                        const std::wstring& fallback, Answer next) {
    document_.commandLine().ask(
        {kind, inLanguage(german, english), fallback,
         [self = shared_from_this(), next](const std::wstring& answer) { (self.get()->*next)(answer); }});
}

void LayoutCommand::askFile(DialogKind kind, const wchar_t* german, const wchar_t* english, Answer next) {
    if (host_.filedia() != 0) {
        askByDialog(kind, inLanguage(german, english), L"", next);
    } else {
        ask(PromptKind::path, german, english, L"", next);
    }
}

void LayoutCommand::askByDialog(DialogKind kind, const std::wstring& text, const std::wstring& proposal,
                                Answer next) {
    document_.commandLine().askByDialog(
        {kind, text, proposal, [self = shared_from_this(), next](std::optional<std::wstring> answer) {
             (self.get()->*next)(*answer);
         }});
}

const wchar_t* LayoutCommand::inLanguage(const wchar_t* german, const wchar_t* english) const {
    return host_.options().language == Language::german ? german : english;
}

std::wstring LayoutCommand::currentName() const {
    return document_.layoutName(document_.drawing().currentLayout());
}

Layout& LayoutCommand::named(const std::wstring& name) const {
    Layout* layout = document_.findLayout(name);
    if (!layout) throw hostError::make(hostError::keyNotFound, host_.options().language);
    return *layout;
}

}  // namespace demo
