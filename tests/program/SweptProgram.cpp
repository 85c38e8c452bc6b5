#include "SweptProgram.h"

#include <algorithm>

namespace blattwart::test {

namespace {

bool always(frmMain&) {
    return true;
}

/// A plotted file, or an older one that is set aside meanwhile.
bool isPlot(const std::wstring& file) {
    return file.find(L".pdf") != std::wstring::npos;
}

}  // namespace

SweptProgram::SweptProgram() {
    const auto fails = [this](std::wstring_view call) { return calls.strikes(call); };
    world.registry.fails = world.files.fails = world.settings.fails = fails;
    // As few rows as show everything.
    useDatabase(std::wstring(demo::sampleRows()) +
                L"DELETE FROM Typen WHERE TypenId > 1; DELETE FROM Bloecke WHERE blockId > 1;");
    useDialogs();
    usePlanListDialogs();
}

void SweptProgram::useDialogs() {
    // Whoever is told that AutoCAD does not answer may try again; here he does not.
    const auto start = [this](auto& dialog) {
        dialog.cmdStart.userClicks();
        if (!presenter.dialog.closed) dialog.cmdCancel.userClicks();
    };
    presenter.inKopieren = [start](frmKopieren& dialog) {
        dialog.txtLayout.setText(L"Neu");
        dialog.txtAnzahl.setText(L"2");
        start(dialog);
    };
    presenter.inUmbenennen = [start](frmUmbenennen& dialog) {
        dialog.txtLayout.setText(L"Neu");
        start(dialog);
    };
    presenter.inErstellen = start;
    presenter.inInfo = [](frmInfo& dialog) {
        dialog.cmdSysInfo.userClicks();
        dialog.cmdOK.userClicks();
    };
}

void SweptProgram::usePlanListDialogs() {
    presenter.inPlanliste = [this](frmPlanliste& list) { renameSaveAndExport(list); };
    presenter.inPlanUmbenennen = [](frmPlanUmbenennen& dialog) {
        dialog.txtMuster.setText(L"Blatt <Nr>");
        dialog.txtStellen.setText(L"1");
        dialog.cmdUmbenennen.userClicks();
    };
    presenter.inPlanReihenfolge = [](frmPlanReihenfolge& dialog) {
        dialog.lvLayouts.userSelects({&dialog.lvLayouts.row(0)}, nullptr);
        dialog.cmdUnten.userClicks();
        dialog.cmdOK.userClicks();
    };
    presenter.inPlanPdf = [this](frmPlanPdf& dialog) {
        dialog.txtOrdner.setText(L"C:\\Vorlagen");
        dialog.txtOrdner.events.validate();
        if (!dialog.chkAndere.checked()) dialog.chkAndere.userClicks();
        dialog.cmdPlotten.userClicks();
        presenter.dialog.goOn();
    };
}

std::vector<Action> SweptProgram::allActions() {
    std::vector<Action> all = actions();
    all.push_back({L"return", [this](frmMain&) { leaveAndReturn(); }, always});
    all.push_back({L"return to other drawings",
                   [this](frmMain&) {
                       host().activate(document(L"Haus.dwg"));
                       host().openFile(L"C:\\Vorlagen\\Plan A3.dwt");
                       leaveAndReturn();
                   },
                   always});
    Action swap =
        inPlanList(L"swap in the plan list, and back", [this](frmPlanliste& list) { swapAndUndo(list); });
    swap.run = [this, run = swap.run](frmMain& form) {
        const demo::DocumentPtr house = document(L"Haus.dwg");
        if (!house->findLayout(L"Blatt 2")) house->drawing().addLayout(L"Blatt 2");
        run(form);
    };
    all.push_back(std::move(swap));
    all.push_back(
        inPlanList(L"order and plot in the plan list", [this](frmPlanliste& list) { orderAndPlot(list); }));
    all.push_back({L"start", [this](frmMain&) { EXPECT_TRUE(startAgain()); }, always});
    return all;
}

Action SweptProgram::inPlanList(std::wstring name, std::function<void(frmPlanliste&)> user) {
    const auto run = [this, user = std::move(user)](frmMain& form) {
        const auto usual = std::exchange(presenter.inPlanliste, [this, user](frmPlanliste& list) {
            presenter.dialog.goOn();
            user(list);
            presenter.dialog.close();
        });
        form.item(L"mnuPlanList").click();
        presenter.inPlanliste = usual;
    };
    return {std::move(name), run, [](frmMain& form) { return form.item(L"mnuPlanList").enabled(); }};
}

void SweptProgram::selectPlan(frmPlanliste& list) {
    selectRows(list.lvPlan, [](const ListItem& row) { return row.column(2) == L"Plan.dwg"; });
}

void SweptProgram::renameSaveAndExport(frmPlanliste& list) {
    presenter.dialog.goOn();
    selectPlan(list);
    // Who is told that something failed does not go on here.
    presenter.dialog.press({.key = Shortcut::enter}, &list.lvPlan);
    if (world.messages.shown.empty()) presenter.dialog.press({.key = L'S', .control = true}, &list.lvPlan);
    if (world.messages.shown.empty()) list.cmdCsv.userClicks();
    presenter.dialog.goOn();
    presenter.dialog.close();
}

/// Two layouts of each of two drawings change their names with one another, and back.
void SweptProgram::swapAndUndo(frmPlanliste& list) {
    list.lvPlan.setSortKey(0);
    list.lvPlan.setSortOrder(SortOrder::descending);
    const std::size_t selected =
        selectRows(list.lvPlan, [](const ListItem& row) { return row.text().starts_with(L"Blatt"); });
    if (selected == 4) list.cmdUmbenennen.userClicks();
    presenter.dialog.goOn();
    if (list.lblStatus.text() == L"4 Layouts umbenannt.") list.cmdRueckgaengig.userClicks();
    presenter.dialog.goOn();
}

void SweptProgram::orderAndPlot(frmPlanliste& list) {
    selectPlan(list);
    for (Button* button : {&list.cmdReihenfolge, &list.cmdPdf, &list.cmdRueckgaengig}) {
        if (world.messages.shown.empty()) button->userClicks();
        presenter.dialog.goOn();
    }
}

void SweptProgram::prepare(const Place& place) {
    forgetPlots();
    if (!main->fMainForm || !isAsPrepared(place)) {
        restoreFiles();
        restart();
        host().options().writePlot = [this](const std::wstring& file, const std::string& bytes) {
            world.files.fill(file, {bytes.begin(), bytes.end()});
            return true;
        };
        for (const auto& open : host().documents()) open->setModified();
        goTo(place);
        preparedNode_ = place.attached ? place.node : L"";
        preparedState_ = wholeState();
    }
    host().forgetTypedTexts();
    ignoringErrors([this] { host().macros().load(L"Tarvix.dvb"); });
    world.messages.clear();
    for (int i = 0; i < 3; ++i) world.messages.answer(MessageAnswer::yes);
    world.fileDialogs.chosen = L"C:\\Vorlagen\\Plan A3.dwt";
    presenter.dialogsShown = 0;
    world.settings.values.clear();
    world.registry.storeText(RegistryRoot::localMachine, registryKey, "LM_Beenden", "1");
    form().MnuOptAutoCheck();
    storedBefore = stored();
    calls.clear();
}

void SweptProgram::restoreFiles() {
    std::filesystem::remove(host().disk().realPath(L"C:\\Vorlagen\\Neu.dwt"));
    for (const wchar_t* file : {L"C:\\Vorlagen\\Plan A3.dwt", L"C:\\Vorlagen\\Rahmen.dwg"}) {
        world.files.forget(file);
        world.files.add(file);
    }
}

void SweptProgram::forgetPlots() {
    const std::vector<std::wstring> files = world.files.all();
    for (const std::wstring& file : files)
        if (isPlot(file)) world.files.forget(file);
}

bool SweptProgram::isAsPrepared(const Place& place) {
    if (!place.attached || place.node != preparedNode_ || !tree().find(place.node)) return false;
    goTo(place);
    return wholeState() == preparedState_;
}

void SweptProgram::goTo(const Place& place) {
    if (!place.attached) {
        calls.clear();
        calls.goneFrom(1);
        world.messages.answer(MessageAnswer::yes);
        leaveAndReturn();
        calls.heal();
    }
    go(form(), place);
}

void SweptProgram::perform(const Action& action) {
    presenter.dialog.closed = false;
    EXPECT_TRUE(ignoringErrors([&] {
        action.run(form());
        endEdit(form(), L"Neu");  // after a start in another form
    })) << "an error has reached the border to the system";
}

std::size_t SweptProgram::questions() {
    std::vector<std::wstring> asked = world.messages.questions();
    std::erase_if(asked, [](const std::wstring& text) {
        return text.starts_with(L"Soll AutoCAD gestartet") ||
               text.find(L"Soll der Rest") != std::wstring::npos;
    });
    return asked.size();
}

SweptProgram::HostParts SweptProgram::hostParts() {
    HostParts parts;
    auto& [drawings, current, unsaved, files, typedTexts, other] = parts;
    if (const auto active = host().activeDocument()) current = active->name();
    for (const auto& open : host().documents()) {
        drawings += open->fullName() + L"(" + layoutsOf(open->drawing()) + L")";
        current += L"|" + open->drawing().currentLayout().name();
        unsaved += open->modified() ? L'1' : L'0';
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
        if (entry.is_regular_file()) files += entry.path().filename().wstring() + L"|";
    for (const std::wstring& file : world.files.all())
        if (!isPlot(file)) files += file + L"|";
    for (const Typed& each : typed()) typedTexts += each.drawing + std::to_wstring(each.filedia) + each.text;
    other = host().dialog() ? L"dialog" : L"";
    return parts;
}

std::map<std::wstring, std::wstring> SweptProgram::stored() {
    std::map<std::wstring, std::wstring> all(world.settings.values.begin(), world.settings.values.end());
    if (const auto* value = world.registry.find(RegistryRoot::localMachine, registryKey, "LM_Beenden"))
        all[L"LM_Beenden"] = std::wstring(value->bytes.begin(), value->bytes.end());
    return all;
}

std::wstring SweptProgram::wholeState() {
    std::wstring state = treeText() + picture(form());
    for (const std::wstring& part : hostParts()) state += L"\n" + part;
    return state;
}

std::wstring SweptProgram::freshPicture() {
    std::vector<std::wstring> path;
    for (const TreeNode* node = tree().selected(); node; node = node->parent()) path.push_back(node->text());
    std::vector<std::wstring> items;
    for (const ListItem* item : list().selectedItems()) items.push_back(item->text());

    TestPlatform other(demo);
    other.installations = world.installations;
    other.files = world.files;
    other.files.fails = [](std::wstring_view) { return false; };
    other.registry.storeText(RegistryRoot::localMachine, registryKey, "DefDB",
                             (folder.path() / "Tarvix.mdb").string());
    FakePresenter otherPresenter(other.desktop);
    basMain fresh(other.platform, otherPresenter);
    if (!fresh.Main()) return L"does not start";
    frmMain& window = *fresh.fMainForm;
    const std::vector<TreeNode*>* nodes = &window.tvTreeView.roots();
    TreeNode* found = nullptr;
    for (; !path.empty(); path.pop_back()) {
        const auto node = std::ranges::find(*nodes, path.back(), &TreeNode::text);
        if (node == nodes->end()) return L"has no " + path.back();
        found = *node;
        nodes = &found->children();
    }
    window.tvTreeView.userClicks(*found);
    selectRows(window.lvListView,
               [&](const ListItem& row) { return std::ranges::find(items, row.text()) != items.end(); });
    return picture(window);
}

}  // namespace blattwart::test
