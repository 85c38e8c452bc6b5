// Everything that the user can do, with each of its calls to the host, the database, the registry, the files
// and the settings failing once. The calls are found by a first run in which nothing fails, the operations
// from the table of commands, so that new ones are covered by themselves.

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "Operations.h"
#include "Picture.h"
#include "Scenarios.h"

namespace blattwart::test {
namespace {

using demo::Moment;

/// Which calls fail in one run of an operation.
struct Fault {
    std::size_t call = 0;
    Moment moment = Moment::before;
    bool hostGone = false;
    std::size_t second = 0;  // another call that fails, too; 0 for none
};

/// What a run may leave behind, found in the run in which nothing failed.
struct CleanRun {
    std::vector<demo::RecordedCall> calls;
    std::array<std::set<std::wstring>, 6> states;  // of the host, one set for each part
    std::map<std::wstring, std::set<std::wstring>> stored;
    std::size_t boxes = 0;
    std::size_t questions = 0;
};

class FaultSweep : public Operations {
  protected:
    FaultSweep() {
        const auto fails = [this](std::wstring_view call) { return calls.strikes(call); };
        world.registry.fails = world.files.fails = world.settings.fails = fails;
        // As few rows as show everything.
        useDatabase(std::wstring(demo::sampleRows()) +
                    L"DELETE FROM Typen WHERE TypenId > 1; DELETE FROM Bloecke WHERE blockId > 1;");
        // Whoever is told that AutoCAD does not answer may try again; here he does not.
        const auto start = [this](LayoutDialog& dialog) {
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
        presenter.inPlanliste = [this](frmPlanliste& list) {
            presenter.dialog.goOn();
            std::vector<ListItem*> rows;
            for (int i = 0; i < list.lvPlan.count(); ++i)
                if (list.lvPlan.row(i).column(2) == L"Plan.dwg") rows.push_back(&list.lvPlan.row(i));
            list.lvPlan.userSelects(rows, nullptr);
            // Who is told that something failed does not go on here.
            presenter.dialog.press({.key = Shortcut::enter}, &list.lvPlan);
            if (world.messages.shown.empty())
                presenter.dialog.press({.key = L'S', .control = true}, &list.lvPlan);
            if (world.messages.shown.empty()) list.cmdCsv.userClicks();
            presenter.dialog.goOn();
            presenter.dialog.close();
        };
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
        presenter.inInfo = [](frmInfo& dialog) {
            dialog.cmdSysInfo.userClicks();
            dialog.cmdOK.userClicks();
        };
    }

    /// Once the user has come back to a host that lives.
    virtual void expectSettingsAreBack() {}

    virtual std::vector<Action> allActions() {
        const auto always = [](frmMain&) { return true; };
        std::vector<Action> all = actions();
        all.push_back({L"return", [this](frmMain&) { leaveAndReturn(); }, always});
        all.push_back({L"return to other drawings",
                       [this](frmMain&) {
                           host().activate(document(L"Haus.dwg"));
                           host().openFile(L"C:\\Vorlagen\\Plan A3.dwt");
                           leaveAndReturn();
                       },
                       always});
        all.push_back({L"swap in the plan list, and back", [this](frmMain&) { swapInPlanList(); },
                       [](frmMain& form) { return form.item(L"mnuPlanList").enabled(); }});
        all.push_back({L"order and plot in the plan list", [this](frmMain&) { orderAndPlot(); },
                       [](frmMain& form) { return form.item(L"mnuPlanList").enabled(); }});
        all.push_back({L"start",
                       [this](frmMain&) {
                           main = std::make_unique<basMain>(world.platform, presenter);
                           EXPECT_TRUE(start());
                       },
                       always});
        return all;
    }

    /// Two layouts of each of two drawings change their names with one another, and back.
    void swapInPlanList() {
        const demo::DocumentPtr house = document(L"Haus.dwg");
        if (!house->findLayout(L"Blatt 2")) house->drawing().addLayout(L"Blatt 2");
        const auto user = std::exchange(presenter.inPlanliste, [this](frmPlanliste& list) { swap(list); });
        form().item(L"mnuPlanList").click();
        presenter.inPlanliste = user;
    }

    void swap(frmPlanliste& list) {
        presenter.dialog.goOn();
        list.lvPlan.setSortKey(0);
        list.lvPlan.setSortOrder(SortOrder::descending);
        std::vector<ListItem*> rows;
        for (int i = 0; i < list.lvPlan.count(); ++i)
            if (list.lvPlan.row(i).text().starts_with(L"Blatt")) rows.push_back(&list.lvPlan.row(i));
        list.lvPlan.userSelects(rows, nullptr);
        if (rows.size() == 4) list.cmdUmbenennen.userClicks();
        presenter.dialog.goOn();
        if (list.lblStatus.text() == L"4 Layouts umbenannt.") list.cmdRueckgaengig.userClicks();
        presenter.dialog.goOn();
        presenter.dialog.close();
    }

    void orderAndPlot() {
        const auto user = std::exchange(presenter.inPlanliste, [this](frmPlanliste& list) {
            presenter.dialog.goOn();
            std::vector<ListItem*> rows;
            for (int i = 0; i < list.lvPlan.count(); ++i)
                if (list.lvPlan.row(i).column(2) == L"Plan.dwg") rows.push_back(&list.lvPlan.row(i));
            list.lvPlan.userSelects(rows, nullptr);
            for (Button* button : {&list.cmdReihenfolge, &list.cmdPdf, &list.cmdRueckgaengig}) {
                if (world.messages.shown.empty()) button->userClicks();
                presenter.dialog.goOn();
            }
            presenter.dialog.close();
        });
        form().item(L"mnuPlanList").click();
        presenter.inPlanliste = user;
    }

    // Preparing

    void prepare(const Place& place) {
        forgetPlots();
        if (!main->fMainForm || !isAsPrepared(place)) {
            std::filesystem::remove(host().disk().realPath(L"C:\\Vorlagen\\Neu.dwt"));
            for (const wchar_t* file : {L"C:\\Vorlagen\\Plan A3.dwt", L"C:\\Vorlagen\\Rahmen.dwg"}) {
                world.files.forget(file);
                world.files.add(file);
            }
            restart();
            host().options().writePlot = [this](const std::wstring& file, const std::string& bytes) {
                world.files.fill(file, {bytes.begin(), bytes.end()});
                return true;
            };
            for (const auto& open : host().documents()) open->setModified();
            go(place);
            prepared_ = {place.attached ? place.node : L"", wholeState()};
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
        before_ = stored();
        calls.clear();
    }

    void forgetPlots() {
        const std::vector<std::wstring> files = world.files.all();
        for (const std::wstring& file : files)
            if (file.find(L".pdf") != std::wstring::npos) world.files.forget(file);
    }

    bool isAsPrepared(const Place& place) {
        if (!place.attached || place.node != prepared_.first || !tree().find(place.node)) return false;
        go(place);
        return wholeState() == prepared_.second;
    }

    void go(const Place& place) {
        if (!place.attached) {
            calls.clear();
            calls.goneFrom(1);
            world.messages.answer(MessageAnswer::yes);
            leaveAndReturn();
            calls.heal();
        }
        click(place.node);
        selectInList(place.items);
    }

    // Looking

    /// What an operation may change in the host and in the library.
    std::array<std::wstring, 6> hostParts() {
        std::array<std::wstring, 6> parts;
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
            if (file.find(L".pdf") == std::wstring::npos) files += file + L"|";
        for (const std::wstring& text : typed()) typedTexts += text;
        other = host().dialog() ? L"dialog" : L"";
        return parts;
    }

    std::map<std::wstring, std::wstring> stored() {
        std::map<std::wstring, std::wstring> all(world.settings.values.begin(), world.settings.values.end());
        if (const auto* value = world.registry.find(RegistryRoot::localMachine, registryKey, "LM_Beenden"))
            all[L"LM_Beenden"] = std::wstring(value->bytes.begin(), value->bytes.end());
        return all;
    }

    std::wstring wholeState() {
        std::wstring state = treeText() + picture(form());
        for (const std::wstring& part : hostParts()) state += L"\n" + part;
        return state;
    }

    /// The picture of a program just started on the same world, with the same node and entries selected.
    std::wstring freshPicture() {
        std::vector<std::wstring> path;
        for (const TreeNode* node = tree().selected(); node; node = node->parent())
            path.push_back(node->text());
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
        std::vector<ListItem*> selected;
        for (int i = 0; i < window.lvListView.count(); ++i)
            if (std::ranges::find(items, window.lvListView.row(i).text()) != items.end())
                selected.push_back(&window.lvListView.row(i));
        window.lvListView.userSelects(selected, selected.empty() ? nullptr : selected.front());
        return picture(window);
    }

    // Doing

    void perform(const Action& action) {
        presenter.dialog.closed = false;
        EXPECT_TRUE(ignoringErrors([&] {
            action.run(form());
            const std::wstring name = L"Neu";
            if (tree().editedNode()) tree().userEndsLabelEdit(&name);
            if (list().editedItem()) list().userEndsLabelEdit(&name);
        })) << "an error has reached the border to the system";
    }

    CleanRun cleanRun(const Action& action) {
        CleanRun clean;
        const auto look = [&](std::size_t) {
            const auto parts = hostParts();
            for (std::size_t i = 0; i < parts.size(); ++i) clean.states.at(i).insert(parts.at(i));
        };
        look(0);
        calls.beforeCall(look);
        perform(action);
        calls.beforeCall({});
        look(0);
        clean.calls = calls.calls();
        for (const auto& [name, value] : stored()) clean.stored[name].insert(value);
        for (const auto& [name, value] : before_) clean.stored[name].insert(value);
        clean.boxes = world.messages.shown.size();
        clean.questions = questions();
        return clean;
    }

    std::size_t questions() {
        return static_cast<std::size_t>(std::ranges::count_if(world.messages.shown, [](const ShownBox& box) {
            return box.buttons == MessageButtons::yesNo && !box.text.starts_with(L"Soll AutoCAD gestartet") &&
                   box.text.find(L"Soll der Rest") == std::wstring::npos;
        }));
    }

    void inject(const Fault& fault) {
        // Of a call whose answer is lost the user has grown tired: it is cancelled.
        const auto number =
            static_cast<std::int32_t>(fault.moment == Moment::before ? 0x80020009 : 0x80010002);
        if (fault.hostGone) {
            calls.goneFrom(fault.call, fault.moment);
        } else {
            calls.failAt(fault.call, RuntimeError(number, L"Fehler"), fault.moment);
        }
        if (fault.second) calls.failAt(fault.second, RuntimeError(number, L"Fehler"));
    }

    void expectRightAfter(const Fault& fault, const CleanRun& clean) {
        const auto parts = hostParts();
        // A host that seems not to run is started, as another one.
        const bool started = std::ranges::any_of(calls.calls(), [](const demo::RecordedCall& call) {
            return call.ofHost && call.kind == demo::RecordedCall::Kind::create;
        });
        // Who cannot be told to open no page setup opens it.
        for (std::size_t i = 0; i < parts.size() - (opensDialogs ? 1 : 0) && !started; ++i)
            EXPECT_TRUE(clean.states.at(i).contains(parts.at(i)))
                << i << ": " << testing::PrintToString(parts.at(i));
        for (const auto& [name, value] : stored()) {
            // The columns are remembered whenever the list changes its kind; what a host is owed until it has it.
            if (name.starts_with(L"ColOrder") || name == L"PlanRestore") continue;
            EXPECT_TRUE(clean.stored.contains(name) && clean.stored.at(name).contains(value))
                << testing::PrintToString(name);
        }
        // What the host still takes is put back.
        EXPECT_TRUE(fault.hostGone || started || parts[0].find(L"BLATTWART$") == std::wstring::npos);
        // Where the active drawing is not known, the user is asked whether to go to the one he wants.
        EXPECT_LE(questions(), std::max<std::size_t>(clean.questions, 1));
        expectFewMessages(clean.boxes + (fault.second ? 2 : 1));
        EXPECT_TRUE(presenter.dialogsShown == 0 || presenter.dialog.closed);
        EXPECT_EQ(world.registry.openKeys(), 0U);
        EXPECT_EQ(world.readings.begun, world.readings.ended);
        EXPECT_EQ(tree().editedNode(), nullptr);
        EXPECT_EQ(tree().find(L"D0"), nullptr);
        if (!fault.hostGone && !fault.second) {
            EXPECT_EQ(host().filedia(), 1);
            EXPECT_EQ(host().options().profile->backgroundPlot, 2);
        }
    }

    /// The operation tells its failure, the refresh behind it its own; none does so twice. That the host is
    /// to be started is a question, not a failure.
    void expectFewMessages(std::size_t most) {
        std::vector<std::wstring> texts = world.messages.texts();
        std::erase_if(texts, [](const std::wstring& text) {
            return text.starts_with(L"Soll AutoCAD gestartet") || text.ends_with(L" starten?");
        });
        for (const wchar_t* text : {L"Geladene AutoCAD-Zeichnungen können nicht ermittelt werden!",
                                    L"Vorlagen-Ordner kann nicht gelesen werden!"}) {
            const auto ofRefresh = std::ranges::find(texts, text);
            if (ofRefresh != texts.end()) texts.erase(ofRefresh);
        }
        EXPECT_LE(texts.size(), most) << testing::PrintToString(texts);
    }

    void expectRightOnReturn() {
        calls.heal();
        world.messages.clear();
        if (host().dialog()) host().cancelDialog();
        leaveAndReturn();
        EXPECT_TRUE(world.messages.shown.empty()) << testing::PrintToString(world.messages.shown);
        EXPECT_EQ(calls.deadObjects(), 0U);
        EXPECT_EQ(host().filedia(), 1);
        expectSettingsAreBack();
        const auto parts = hostParts();
        std::wstring key = parts[0] + parts[1] + parts[3];
        for (const TreeNode* node = tree().selected(); node; node = node->parent())
            key += L"/" + node->text();
        for (const ListItem* item : list().selectedItems()) key += L"," + item->text();
        std::wstring& expected = freshPictures_[key];
        if (expected.empty()) expected = freshPicture();
        EXPECT_EQ(picture(form()), expected);
    }

    void sweep(const Place& place, const Action& action, const CleanRun& clean, const Fault& fault) {
        SCOPED_TRACE(
            testing::PrintToString(action.name) + " at " + testing::PrintToString(place.node) + ", call " +
            std::to_string(fault.call) + " " + nameOf(clean, fault.call) +
            (fault.hostGone ? ", host gone" : "") + (fault.moment == Moment::after ? ", answer lost" : "") +
            (fault.second ? " and " + std::to_string(fault.second) + nameOf(clean, fault.second) : ""));
        if (failures() > failuresAtStart_) return;
        prepare(place);
        inject(fault);
        perform(action);
        expectRightAfter(fault, clean);
        expectRightOnReturn();
        ++runs_;
    }

    static std::string nameOf(const CleanRun& clean, std::size_t call) {
        if (call > clean.calls.size()) return "";
        return testing::PrintToString(clean.calls[call - 1].className + L"." + clean.calls[call - 1].name);
    }

    /// Whether a call is new: reached by an action after the same two calls before it, it would fail in the
    /// same way again. The database is read in one way, whoever asks for it.
    bool isNew(const Action& action, const CleanRun& clean, std::size_t number) {
        const auto nameAt = [&](std::size_t at) {
            return at == 0 ? L"" : clean.calls[at - 1].className + L"." + clean.calls[at - 1].name;
        };
        using Kind = demo::RecordedCall::Kind;
        const demo::RecordedCall& call = clean.calls[number - 1];
        const bool ofDatabase = !call.ofHost && call.kind != Kind::other;
        std::wstring surroundings = ofDatabase ? L"" : action.name;
        for (std::size_t at = number > 2 ? number - 2 : 0; at <= number; ++at)
            surroundings += L" " + nameAt(at);
        return swept_.insert(surroundings).second;
    }

    /// Calls `visit` for every action at every place where it is offered, until one of its runs fails.
    void forEveryOperation(const std::function<void(const Place&, const Action&, const CleanRun&)>& visit) {
        for (const Action& action : allActions()) {
            bool offered = false;
            failuresAtStart_ = failures();
            for (const Place& place : places()) {
                prepare(place);
                if (!action.offered(form())) continue;
                offered = true;
                const CleanRun clean = cleanRun(action);
                visit(place, action, clean);
                if (failures() > failuresAtStart_) break;
            }
            EXPECT_TRUE(offered) << testing::PrintToString(action.name) << " is offered nowhere";
        }
    }

    void everyCallFailsOnce();
    void theHostGoesAtEveryCall();

    static int failures() {
        return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
    }

    bool opensDialogs = false;  ///< the host does, at layouts that are shown first
    std::pair<std::wstring, std::wstring> prepared_;
    std::map<std::wstring, std::wstring> before_;
    std::map<std::wstring, std::wstring> freshPictures_;
    std::set<std::wstring> swept_;
    int failuresAtStart_ = 0;
    int runs_ = 0;
};

/// Of a reading nothing is left when its answer is lost, so that it need not be lost separately.
bool acts(const demo::RecordedCall& call) {
    using Kind = demo::RecordedCall::Kind;
    return call.ofHost && (call.kind == Kind::put || (call.kind == Kind::call && call.name != L"Item"));
}

void FaultSweep::everyCallFailsOnce() {
    forEveryOperation([this](const Place& place, const Action& action, const CleanRun& clean) {
        for (std::size_t n = 1; n <= clean.calls.size(); ++n) {
            if (!isNew(action, clean, n)) continue;
            sweep(place, action, clean, {.call = n});
            if (acts(clean.calls[n - 1])) sweep(place, action, clean, {.call = n, .moment = Moment::after});
        }
    });
    RecordProperty("runs", runs_);
}

void FaultSweep::theHostGoesAtEveryCall() {
    forEveryOperation([this](const Place& place, const Action& action, const CleanRun& clean) {
        for (std::size_t n = 1; n <= clean.calls.size(); ++n) {
            const demo::RecordedCall& call = clean.calls[n - 1];
            if (!call.ofHost || !isNew(action, clean, n)) continue;
            sweep(place, action, clean, {.call = n, .hostGone = true});
            if (acts(call))
                sweep(place, action, clean, {.call = n, .moment = Moment::after, .hostGone = true});
        }
    });
    RecordProperty("runs", runs_);
}

TEST_F(FaultSweep, EveryCallFailsOnce) {
    everyCallFailsOnce();
}

TEST_F(FaultSweep, TheHostGoesAtEveryCall) {
    theHostGoesAtEveryCall();
}

TEST_F(FaultSweep, TwoCallsOfTheShortOperationsFail) {
    constexpr std::size_t longest = 6;
    forEveryOperation([this](const Place& place, const Action& action, const CleanRun& clean) {
        if (clean.calls.size() > longest) return;
        for (std::size_t n = 1; n <= clean.calls.size(); ++n) {
            if (!isNew(action, clean, n)) continue;
            // The first failure may lead to calls that were not made before.
            for (std::size_t m = n + 1; m <= clean.calls.size() + 2; ++m)
                sweep(place, action, clean, {.call = n, .second = m});
        }
    });
    RecordProperty("runs", runs_);
}

/// What is done otherwise with a newer host without the macro project, whose layouts open the page setup.
class FaultSweepWithoutTarvix : public FaultSweep {
  protected:
    FaultSweepWithoutTarvix() {
        demo::HostOptions options = demo::ofRelease(L"24.3");
        options.vbaInstalled = false;
        options.profile->showsPageSetup = true;
        useHost(options);
        restart();
        opensDialogs = true;
        presenter.inErstellen = [this](frmErstellen& dialog) {
            dialog.cmdStart.userClicks();
            if (!presenter.dialog.closed) dialog.cmdCancel.userClicks();
        };
    }

    std::vector<Action> allActions() override {
        std::vector<Action> all;
        for (const wchar_t* item : {L"mnuFileDelete", L"mnuCreate", L"mnuRelease(24.3)"})
            all.push_back({item, [item](frmMain& form) { form.item(item).click(); },
                           [item](frmMain& form) { return form.item(item).enabled(); }});
        return all;
    }
    void expectSettingsAreBack() override { EXPECT_TRUE(host().options().profile->showsPageSetup); }
};

TEST_F(FaultSweepWithoutTarvix, EveryCallFailsOnce) {
    everyCallFailsOnce();
}

TEST_F(FaultSweepWithoutTarvix, TheHostGoesAtEveryCall) {
    theHostGoesAtEveryCall();
}

}  // namespace
}  // namespace blattwart::test
