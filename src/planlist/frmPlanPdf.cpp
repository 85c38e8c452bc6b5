#include "planlist/frmPlanPdf.h"

#include <algorithm>

#include "planlist/PlanExport.h"

namespace blattwart {

namespace {

constexpr const wchar_t* patternSetting = L"PlanPdfPattern";
constexpr const wchar_t* otherSetting = L"PlanPdfOther";
constexpr const wchar_t* usualPattern = L"<Zeichnung>-<Layout>";

std::wstring folderPart(const std::wstring& file) {
    return file.substr(0, file.find_last_of(L'\\'));
}

}  // namespace

PdfChoice storedPdfChoice(const Settings& settings) {
    PdfChoice choice;
    choice.pattern = usualPattern;
    ignoringErrors([&] {
        choice.pattern = settings.get(patternSetting, usualPattern);
        choice.otherDevices = settings.get(otherSetting, L"0") == L"1";
    });
    return choice;
}

frmPlanPdf::frmPlanPdf(PlanList& plan, PdfRun& run, std::vector<int> rows, PdfChoice& choice,
                       basHTMLHelp& help, Platform& platform)
    : lvLayouts(platform.locale),
      plan_(plan),
      run_(run),
      rows_(std::move(rows)),
      choice_(choice),
      help_(help),
      platform_(platform) {
    lvLayouts.setMode(ListViewMode::details);
    for (const auto& [header, width] : {std::pair{L"Layout", 1700.0F}, std::pair{L"Zeichnung", 1700.0F},
                                        std::pair{L"Datei", 2900.0F}, std::pair{L"Ergebnis", 4000.0F}})
        lvLayouts.addColumn(header, width);
    lvLayouts.setColumnPositions({1, 0, 2, 3});
    txtOrdner.setText(choice.folder);
    txtName.setText(choice.pattern);
    chkAndere.setChecked(choice.otherDevices);
    txtName.events.change = txtOrdner.events.change = [this] { takeFields(); };
    txtOrdner.events.validate = [this] {
        lookAtFolders();
        return false;
    };
    chkAndere.events.click = [this] {
        choice_.otherDevices = chkAndere.checked();
        lookAtFolders();
    };
    cmdDurchsuchen.events.click = [this] { cmdDurchsuchen_Click(); };
    cmdPlotten.events.click = [this] { cmdPlotten_Click(); };
    cmdOrdner.events.click = [this] { cmdOrdner_Click(); };
    cmdCancel.events.click = [this] { cancel(); };
    lookAtFolders();
}

Label* frmPlanPdf::workLabel() {
    return run_.running() ? nullptr : &lblStatus;
}

const Button* frmPlanPdf::interruptButton() const {
    return run_.running() ? &cmdCancel : nullptr;
}

void frmPlanPdf::opened() {
    window().setFocus(lvLayouts);
}

/// A run is ended and the host put back first; while a call waits, none can be made.
void frmPlanPdf::unload() {
    if (!run_.running()) return;
    run_.stop();
    if (platform_.gate.callPending()) return;
    while (run_.step()) {
    }
}

void frmPlanPdf::showHelp() {
    help_.ShowHelpTopic(helpTopic::makePdf);
}

std::function<void()> frmPlanPdf::commandOf(const Shortcut& key, const Control* focused) {
    if (key == Shortcut{.key = Shortcut::escape}) return [this] { cancel(); };
    if (focused == &lvLayouts && key == Shortcut{.key = L'C', .control = true}) return [this] { copy(); };
    return {};
}

void frmPlanPdf::takeFields() {
    choice_ = {txtOrdner.text(), txtName.text(), chkAndere.checked()};
    // A folder is looked at once it is typed.
    if (choice_.folder.empty()) return lookAtFolders();
    plan();
}

/// Whether its device makes no PDF files, and is not replaced.
bool frmPlanPdf::isLeftOut(int row) const {
    const PlanList::Place place = plan_.find(row);
    return !place || !(choice_.otherDevices || makesPdf(*place.row));
}

bool frmPlanPdf::makesPdf(const PlanRow& row) const {
    return isPdfDevice(row.device.value_or(L""), platform_.locale);
}

/// Of the layouts that are plotted; the others keep no name from them.
std::vector<PdfName> frmPlanPdf::fileNames() const {
    std::vector<int> rows;
    std::ranges::copy_if(rows_, std::back_inserter(rows), [this](int row) { return !isLeftOut(row); });
    return pdfNames(plan_, rows, choice_.folder, choice_.pattern, platform_.locale);
}

void frmPlanPdf::lookAtFolders() {
    for (const PdfName& name : fileNames())
        if (name.conflict.empty()) folderOf(folderPart(name.file));
    plan();
}

/// Asked once for each folder: a share that is not there may take its time.
const frmPlanPdf::Folder& frmPlanPdf::folderOf(const std::wstring& path) {
    const auto [known, isNew] = folders_.try_emplace(platform_.locale.upperCase(path));
    Folder& folder = known->second;
    if (!isNew) return folder;
    if (!platform_.files.silent({path}).empty()) {
        folder.conflict = L"Der Ordner antwortet nicht.";
    } else if (!platform_.files.folderExists(path)) {
        folder.conflict = L"Der Ordner ist nicht vorhanden.";
    } else {
        ignoringErrors([&] {
            for (const std::wstring& file : platform_.files.list(path + L"\\*.pdf"))
                folder.files.insert(platform_.locale.upperCase(file));
        });
    }
    return folder;
}

void frmPlanPdf::plan() {
    reported_ = false;
    sheets_.clear();
    const std::vector<PdfName> names = fileNames();
    for (auto name = names.begin(); const int row : rows_)
        sheets_.push_back(isLeftOut(row) ? Sheet{{row, {}, false}, {}, true} : sheetOf(*name++));
    show();
}

frmPlanPdf::Sheet frmPlanPdf::sheetOf(const PdfName& name) const {
    Sheet sheet{{name.row, name.file, !makesPdf(*plan_.find(name.row).row)}, name.conflict};
    if (!sheet.conflict.empty()) return sheet;
    // While a folder is being typed nobody is asked.
    const auto folder = folders_.find(platform_.locale.upperCase(folderPart(name.file)));
    if (folder == folders_.end()) return sheet;
    sheet.conflict = folder->second.conflict;
    const std::wstring file = name.file.substr(folderPart(name.file).size() + 1);
    sheet.exists = folder->second.files.contains(platform_.locale.upperCase(file));
    return sheet;
}

std::wstring frmPlanPdf::textOf(const Sheet& sheet) const {
    if (run_.running() || reported_) {
        if (run_.isAt(sheet.plan.row)) return L"wird geplottet …";
        const auto result = run_.results().find(sheet.plan.row);
        if (result != run_.results().end()) return result->second;
    }
    if (sheet.leftOut) return L"wird nicht geplottet: Plotgerät ist kein PDF-Gerät";
    if (!sheet.conflict.empty()) return sheet.conflict;
    if (sheet.exists) return L"Datei vorhanden";
    return sheet.plan.byPdfDevice ? L"über DWG To PDF.pc3" : L"bereit";
}

void frmPlanPdf::show() {
    {
        const Update<ListView> update(lvLayouts);
        lvLayouts.clear();
        for (const Sheet& sheet : sheets_) {
            const PlanList::Place place = plan_.find(sheet.plan.row);
            if (!place) continue;
            ListItem& item = lvLayouts.add(PlanList::keyOf(sheet.plan.row), place.row->name);
            item.setColumn(2, place.drawing->shownName);
            item.setColumn(3, sheet.plan.file.substr(sheet.plan.file.rfind(L'\\') + 1));
            item.setColumn(4, textOf(sheet));
        }
    }
    showState();
}

bool frmPlanPdf::possible() const {
    const auto conflicts = [](const Sheet& sheet) { return !sheet.conflict.empty(); };
    const auto comes = [](const Sheet& sheet) { return !sheet.leftOut; };
    return std::ranges::any_of(sheets_, comes) && std::ranges::none_of(sheets_, conflicts);
}

void frmPlanPdf::showState() {
    const bool running = run_.running();
    for (Control* control : {static_cast<Control*>(&txtOrdner), static_cast<Control*>(&txtName),
                             static_cast<Control*>(&chkAndere), static_cast<Control*>(&cmdDurchsuchen)})
        control->setEnabled(!running);
    cmdPlotten.setEnabled(!running && !reported_ && possible());
    cmdOrdner.setEnabled(!running && !targetFolder().empty());
    cmdCancel.setText(running ? L"Anhalten" : reported_ ? L"Schließen" : L"Abbrechen");
    lblStatus.setText(statusText());
}

std::wstring frmPlanPdf::statusText() const {
    if (run_.running() || reported_) return run_.statusText();
    const auto conflicts = std::ranges::count_if(sheets_, [](const Sheet& s) { return !s.conflict.empty(); });
    const auto plotted = std::ranges::count_if(sheets_, [](const Sheet& s) { return !s.leftOut; });
    std::wstring text =
        std::to_wstring(plotted) + (plotted == 1 ? L" Layout wird geplottet" : L" Layouts werden geplottet");
    if (conflicts > 0)
        text += L", " + std::to_wstring(conflicts) + (conflicts == 1 ? L" Konflikt" : L" Konflikte");
    return text;
}

std::wstring frmPlanPdf::targetFolder() {
    if (!choice_.folder.empty()) return choice_.folder;
    const auto sheet = std::ranges::find_if(sheets_, [](const Sheet& s) { return !s.plan.file.empty(); });
    return sheet == sheets_.end() ? L"" : folderPart(sheet->plan.file);
}

void frmPlanPdf::cmdDurchsuchen_Click() {
    const auto folder = platform_.fileDialogs.folder(L"Ordner für die PDF-Dateien", txtOrdner.text());
    if (!folder) return;
    txtOrdner.setText(*folder);
    lookAtFolders();
}

void frmPlanPdf::cmdPlotten_Click() {
    folders_.clear();
    lookAtFolders();
    if (!possible()) return;
    ignoringErrors([&] {
        platform_.settings.set(patternSetting, choice_.pattern);
        platform_.settings.set(otherSetting, choice_.otherDevices ? L"1" : L"0");
    });
    const auto existing = std::ranges::count_if(sheets_, [](const Sheet& sheet) { return sheet.exists; });
    bool replace = false;
    if (existing > 0) {
        const std::wstring question =
            (existing == 1 ? L"1 Datei ist" : std::to_wstring(existing) + L" Dateien sind") +
            L" schon vorhanden.\n\nJa: Dateien überschreiben.\nNein: diese Layouts überspringen.\nAbbrechen: "
            L"nichts plotten.";
        const MessageAnswer answer = platform_.messages.show(
            question, applicationTitle, MessageButtons::yesNoCancel, MessageIcon::question);
        if (answer != MessageAnswer::yes && answer != MessageAnswer::no) return;
        replace = answer == MessageAnswer::yes;
    }
    std::vector<PdfSheet> sheets;
    for (const Sheet& sheet : sheets_)
        if (!sheet.leftOut) sheets.push_back(sheet.plan);
    run_.begin(sheets, replace);
    window().stepLater();
    show();
}

void frmPlanPdf::step() {
    if (!run_.running()) return;
    const bool more = run_.step();
    if (more) {
        window().stepLater();
        return show();
    }
    reported_ = true;
    show();
    window().forgetEscape();
    const std::wstring message = run_.message();
    if (!message.empty()) platform_.messages.warn(message);
}

void frmPlanPdf::cmdOrdner_Click() {
    try {
        platform_.process.start(L"explorer.exe " + targetFolder());
    } catch (const RuntimeError& error) {
        platform_.messages.warn(L"Der Ordner kann nicht geöffnet werden: " + error.description());
    }
}

void frmPlanPdf::interrupt() {
    if (!run_.running()) return;
    run_.stop();
    lblStatus.setText(statusText());
}

void frmPlanPdf::cancel() {
    if (!run_.running()) return window().close();
    interrupt();
}

void frmPlanPdf::copy() {
    const PlanTable table = planTable(lvLayouts);
    ignoringErrors([&] { platform_.clipboard.put(clipboardText(table), clipboardHtml(table)); });
}

}  // namespace blattwart
