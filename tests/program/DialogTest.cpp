#include <algorithm>
#include <set>

#include "Program.h"

namespace blattwart::test {
namespace {

/// Two drawings, the second active: Z1 with L2 "Blatt 10", L3 "Blatt 2", L4 "Übersicht"; Z5 with L6
/// "Grundriss".
class Dialogs : public Program {
  protected:
    Dialogs() {
        host().addDocument(L"C:\\Haus 1", L"Plan.dwg", {L"Blatt 2", L"Blatt 10", L"Übersicht"});
        host().addDocument(L"C:\\Haus 2", L"Größe.dwg", {L"Grundriss"});
        start();
        host().forgetTypedTexts();
    }
    demo::DocumentPtr plan() { return host().findDocument(L"C:\\Haus 1\\Plan.dwg"); }
    bool hasLayout(const std::wstring& name) { return plan()->findLayout(name) != nullptr; }
    void select(const std::vector<std::wstring>& names) {
        selectRows(list(), [&](const ListItem& row) { return std::ranges::count(names, row.text()) > 0; });
    }
    /// Copies "Übersicht" of the first drawing, from its node in the tree.
    void copy(const std::wstring& name, const std::wstring& number) {
        presenter.inKopieren = [=](frmKopieren& form) {
            form.txtLayout.setText(name);
            form.txtAnzahl.setText(number);
            form.cmdStart.userClicks();
        };
        click(L"L4");
        choose(L"mnuEditCopy");
    }
    void rename(const std::vector<std::wstring>& layouts, const std::wstring& name,
                const std::wstring& number) {
        presenter.inUmbenennen = [=](frmUmbenennen& form) {
            form.txtLayout.setText(name);
            form.txtAnzahl.setText(number);
            form.cmdStart.userClicks();
        };
        click(L"Z1");
        select(layouts);
        choose(L"mnuFileRename");
    }
};

using Copying = Dialogs;

TEST_F(Copying, ProposesWhatIsSelected) {
    std::vector<std::wstring> seen;
    presenter.inKopieren = [&](frmKopieren& form) {
        seen = {form.txtDokument.text(), form.txtQuelle.text(), form.txtLayout.text()};
        EXPECT_TRUE(form.cmdStart.enabled());
        form.cmdCancel.userClicks();
    };
    click(L"L2");
    form().item(L"popCopy").click();
    EXPECT_EQ(seen, (std::vector<std::wstring>{L"Plan.dwg", L"Blatt 10", L"Kopie von Blatt 10"}));
    EXPECT_TRUE(presenter.dialog.closed);

    click(L"Z5");
    form().tbToolBar.userClicks(L"Copy");
    EXPECT_EQ(world.messages.shown.size(), 1U) << "no layout is selected";
    select({L"Grundriss"});
    form().tbToolBar.userClicks(L"Copy");
    EXPECT_EQ(seen, (std::vector<std::wstring>{L"Größe.dwg", L"Grundriss", L"Kopie von Grundriss"}));
    EXPECT_EQ(presenter.dialogsShown, 2);
    EXPECT_TRUE(host().typedTexts().empty());
    for (const wchar_t* key : {L"A", L"B", L"D7"}) {
        click(key);
        EXPECT_FALSE(form().item(L"mnuEditCopy").enabled());
    }
}

TEST_F(Copying, ChecksNameAndNumberOnLeavingAndOnStart) {
    enum Field { none, name, number, numberOnStart };
    struct Case {
        std::wstring name;
        std::wstring number;
        Field refused;
        std::wstring message;
    };
    const std::wstring noNumber = L"Eingabe ist ungültig!";
    const std::wstring wrongNumber = L"Ungültige Anzahl!";
    const std::wstring tooLarge = L"Die Anzahl ist zu groß! Es sind höchstens 32767 möglich.";
    const std::wstring wrongName = L"Eingabe enthält ungültige Zeichen!";
    click(L"L2");
    for (const Case& c : std::vector<Case>{{L"Plan", L"3", none, L""},
                                           {L"Plan", L" 1.000 ", none, L""},
                                           {L"Plan", L"2,0", none, L""},
                                           {L"Plan", L"32767", none, L""},
                                           {L"Plan", L"32768", numberOnStart, tooLarge},
                                           {L"Plan", L"1000000000000", numberOnStart, tooLarge},
                                           {L"Plan", L"zwei", number, noNumber},
                                           {L"Plan", L"2.5", number, noNumber},
                                           {L"Plan", L"2,5", number, wrongNumber},
                                           {L"Plan", L"0", number, wrongNumber},
                                           {L"Plan", L"-1", number, wrongNumber},
                                           {L"A1/A2", L"1", name, wrongName},
                                           {L"Wo?", L"0", name, wrongName}}) {
        SCOPED_TRACE(testing::PrintToString(c.name + L"; " + c.number));
        world.messages.clear();
        presenter.inKopieren = [&](frmKopieren& form) {
            form.txtLayout.setText(c.name);
            form.txtAnzahl.setText(c.number);
            EXPECT_EQ(form.txtLayout.events.validate(), c.refused == name);
            EXPECT_EQ(form.txtAnzahl.events.validate(), c.refused == number || c.number == L"0");
            if (c.refused == none) return;
            world.messages.clear();
            form.cmdStart.userClicks();
            EXPECT_EQ(world.messages.shown, std::vector<ShownBox>{told(c.message)});
            EXPECT_EQ(presenter.dialog.focus, c.refused == name ? &form.txtLayout : &form.txtAnzahl);
            EXPECT_FALSE(presenter.dialog.closed);
        };
        choose(L"mnuEditCopy");
        EXPECT_EQ(world.messages.shown.empty(), c.refused == none);
    }
    EXPECT_TRUE(host().typedTexts().empty());
}

TEST_F(Copying, StartsOnlyWithNameAndNumberAndEndsWithTheProgram) {
    presenter.inKopieren = [&](frmKopieren& form) {
        for (TextBox* field : {&form.txtLayout, &form.txtAnzahl}) {
            const std::wstring text = field->text();
            field->setText(L"");
            EXPECT_FALSE(form.cmdStart.enabled());
            form.cmdStart.userClicks();
            field->setText(text);
            EXPECT_TRUE(form.cmdStart.enabled());
        }
        EXPECT_FALSE(presenter.dialog.closed);
        this->form().Form_Unload();
        EXPECT_TRUE(presenter.dialog.closed);
    };
    click(L"L2");
    choose(L"mnuEditCopy");
    EXPECT_TRUE(host().typedTexts().empty());
}

TEST_F(Copying, NumbersAsManyAsWantedFromTheFirstFreeOne) {
    struct Case {
        const wchar_t* name;
        const wchar_t* number;
        std::vector<std::wstring> made;
    };
    for (const Case& c : std::vector<Case>{{L"Plan", L"1", {L"Plan"}},
                                           {L"plan", L"1", {L"plan1"}},
                                           {L"Plan", L"1", {L"Plan2"}},
                                           {L" Plan ", L"1", {L"Plan 1"}},
                                           {L"  ", L"1", {L"1"}},
                                           {L"Plan", L"3", {L"Plan3", L"Plan4", L"Plan5"}},
                                           {L"Neu", L"2", {L"Neu1", L"Neu2"}}}) {
        const std::size_t before = plan()->drawing().layouts().size();
        copy(c.name, c.number);
        for (const std::wstring& name : c.made) EXPECT_TRUE(hasLayout(name));
        EXPECT_EQ(plan()->drawing().layouts().size(), before + c.made.size());
        EXPECT_EQ(plan()->drawing().currentLayout().name(), c.made.front());
        EXPECT_TRUE(presenter.dialog.closed);
    }
    // A command that is running refuses the input: nothing that was typed into the dialog is lost.
    plan()->commandLine().type(L"LAYOUT\r");
    host().activate(host().findDocument(L"C:\\Haus 2\\Größe.dwg"));
    main->autoCAD.fetchActiveDocument();
    copy(L"Neu", L"1");
    EXPECT_FALSE(presenter.dialog.closed);
    EXPECT_EQ(main->autoCAD.GetActiveDrawingName(), L"C:\\Haus 2\\Größe.dwg");
    EXPECT_FALSE(hasLayout(L"Neu"));
    EXPECT_EQ(world.messages.shown,
              std::vector{told(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!")});
    world.messages.clear();
    plan()->commandLine().type(L"\x1b");
    plan()->drawing().deleteLayout(*plan()->findLayout(L"Plan4"));
    copy(L"Plan", L"2");
    EXPECT_TRUE(hasLayout(L"Plan4"));
    EXPECT_TRUE(hasLayout(L"Plan6"));
    EXPECT_TRUE(world.messages.shown.empty());
    // Esc ends it; the first copy becomes the current one all the same.
    world.readings.escAfter = 1;
    copy(L"Esc", L"5");
    world.readings.escAfter = 1000;
    EXPECT_TRUE(hasLayout(L"Esc2"));
    EXPECT_FALSE(hasLayout(L"Esc3"));
    EXPECT_EQ(plan()->drawing().currentLayout().name(), L"Esc1");
    refresh();

    // The drawing was not the active one. Its node shows the copies, the current one bold.
    EXPECT_EQ(host().activeDocument(), plan());
    EXPECT_EQ(main->autoCAD.GetActiveDrawingName(), L"C:\\Haus 1\\Plan.dwg");
    EXPECT_EQ(tree().selected()->key(), L"L4");
    const std::wstring text = treeText();
    EXPECT_NE(text.find(L"Esc1*\n"), std::wstring::npos);
    EXPECT_NE(text.find(L"Plan6\n"), std::wstring::npos);
}

TEST_F(Copying, KeepsToItsDrawing) {
    // Refreshed meanwhile, and something else selected: still the drawing of the beginning.
    presenter.inKopieren = [&](frmKopieren& form) {
        tree().select(tree().node(L"Z5"));
        refresh();
        form.cmdStart.userClicks();
    };
    click(L"L4");
    choose(L"mnuEditCopy");
    EXPECT_TRUE(hasLayout(L"Kopie von Übersicht"));
    EXPECT_EQ(tree().selected()->key(), L"L4");

    // Closed meanwhile, also when its record is gone with the host.
    for (const bool hostRestarted : {false, true}) {
        presenter.inKopieren = [&](frmKopieren& form) {
            if (hostRestarted) {
                demo.end();
                main->autoCAD.ConnectAutoCAD();
                refresh();
                demo.start();
                host().addDocument(L"C:\\Haus 3", L"Plan.dwg", {L"Übersicht"});
                main->autoCAD.ConnectAutoCAD();
                refresh();
            } else {
                host().close(plan());
            }
            world.messages.clear();
            form.cmdStart.userClicks();
        };
        host().forgetTypedTexts();
        click(hostRestarted ? L"L6" : L"L4");
        choose(L"mnuEditCopy");
        ASSERT_EQ(world.messages.shown.size(), 1U);
        EXPECT_NE(world.messages.shown[0].text.find(L"ist in AutoCAD nicht mehr geöffnet!"),
                  std::wstring::npos);
        EXPECT_TRUE(presenter.dialog.closed);
        EXPECT_TRUE(host().typedTexts().empty());
        EXPECT_EQ(tree().find(L"Z1"), nullptr);
    }
}

using Renaming = Dialogs;

TEST_F(Renaming, NumbersTheSelectedLayoutsFromTheGivenNumber) {
    struct Case {
        std::vector<std::wstring> layouts;
        const wchar_t* number;
        std::vector<std::wstring> names;
    };
    plan()->drawing().addLayout(L"Plan1");
    refresh();
    for (const Case& c :
         std::vector<Case>{{{L"Blatt 2", L"Blatt 10", L"Übersicht"}, L"1", {L"Plan2", L"Plan3", L"Plan4"}},
                           {{L"Plan3", L"Plan4"}, L"7", {L"Plan7", L"Plan8"}},
                           {{L"Plan7", L"Plan8"}, L"6", {L"Plan6", L"Plan7"}},
                           {{L"Plan6", L"Plan7"}, L"2499", {L"Plan2499", L"Plan"}}}) {
        rename(c.layouts, L"Plan", c.number);
        for (const std::wstring& name : c.names) EXPECT_TRUE(hasLayout(name));
        EXPECT_EQ(plan()->drawing().layouts().size(), 5U);
        EXPECT_TRUE(presenter.dialog.closed);
        std::multiset<std::wstring> shown;
        for (int row = 0; row < list().count(); ++row) shown.insert(list().row(row).text());
        for (const std::wstring& name : c.names) EXPECT_EQ(shown.count(name), 1U);
    }
    EXPECT_TRUE(world.messages.shown.empty());
    // Nothing was activated, and an activation that follows does not take the drawing for the active one.
    EXPECT_EQ(host().activeDocument()->name(), L"Größe.dwg");
    EXPECT_EQ(main->autoCAD.GetActiveDrawingName(), L"C:\\Haus 2\\Größe.dwg");
    refresh();
    EXPECT_EQ(tree().node(L"Z1").children().size(), 4U);
}

TEST_F(Renaming, OpensForSeveralLayoutsOnly) {
    rename({L"Blatt 2"}, L"Plan", L"1");
    EXPECT_EQ(presenter.dialogsShown, 0);
    EXPECT_NE(list().editedItem(), nullptr);
    list().userEndsLabelEdit(nullptr);

    presenter.inUmbenennen = [&](frmUmbenennen& form) {
        EXPECT_EQ(form.txtDokument.text(), L"Plan.dwg");
        EXPECT_FALSE(form.cmdStart.enabled());
        form.txtLayout.setText(L"Plan");
        EXPECT_TRUE(form.cmdStart.enabled());
        for (const wchar_t* number : {L"0", L"1,5", L"32768"}) {
            form.txtAnzahl.setText(number);
            form.cmdStart.userClicks();
        }
        EXPECT_EQ(world.messages.texts(),
                  (std::vector<std::wstring>{L"Ungültige Anzahl!", L"Ungültige Anzahl!",
                                             L"Die Anzahl ist zu groß! Es sind höchstens 32767 möglich."}));
        host().close(plan());
        form.txtAnzahl.setText(L"1");
        form.cmdStart.userClicks();
    };
    select({L"Blatt 2", L"Blatt 10"});
    choose(L"mnuFileRename");
    EXPECT_EQ(presenter.dialogsShown, 1);
    EXPECT_EQ(world.messages.shown.back(),
              told(L"Die Zeichnung 'Plan.dwg' ist in AutoCAD nicht mehr geöffnet!"));
    EXPECT_EQ(tree().find(L"Z1"), nullptr);
    EXPECT_TRUE(host().findDocument(L"C:\\Haus 2\\Größe.dwg")->findLayout(L"Grundriss"));
}

using Information = Dialogs;

TEST_F(Information, TellsVersionAndStartsTheSystemsTool) {
    constexpr const char* tool = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
    constexpr const char* location = "SOFTWARE\\Microsoft\\Shared Tools Location";
    constexpr auto root = RegistryRoot::localMachine;
    presenter.inInfo = [&](frmInfo& form) {
        const auto expectMessage = [&](std::size_t started) {
            world.messages.clear();
            form.cmdSysInfo.userClicks();
            EXPECT_EQ(
                world.messages.shown,
                std::vector{told(L"Systeminformationen sind momentan nicht verfügbar", MessageIcon::none)});
            EXPECT_EQ(world.process.started.size(), started);
        };
        EXPECT_EQ(form.lblVersion.text(), L"Version 2.1.0");
        EXPECT_EQ(form.lblBuild.text(), L"Programm mit 64 Bit");
        expectMessage(0);
        world.registry.storeText(root, location, "MSINFO", "C:\\Gemeinsame Dateien");
        expectMessage(0);
        world.files.add(L"C:\\Gemeinsame Dateien\\msinfo32.exe");
        form.cmdSysInfo.userClicks();
        world.registry.storeText(root, tool, "PATH",
                                 "C:\\Gr\xF6\xDF"
                                 "e\\msinfo32.exe");
        form.cmdSysInfo.userClicks();
        EXPECT_EQ(world.process.started,
                  (std::vector<std::wstring>{L"\"C:\\Gemeinsame Dateien\\MSINFO32.EXE\"",
                                             L"\"C:\\Größe\\msinfo32.exe\""}));
        world.registry.store(root, tool, "PATH",
                             {Registry::expandableTextType, "%SystemRoot%\\System32\\msinfo32.exe"});
        form.cmdSysInfo.userClicks();
        EXPECT_EQ(world.process.started.back(), L"\"C:\\Windows\\System32\\msinfo32.exe\"");
        world.process.canStart = false;
        expectMessage(3);
        // Plain users may not open the key as it is asked for.
        world.process.canStart = true;
        world.registry.writable = false;
        expectMessage(3);
        form.cmdOK.userClicks();
    };
    choose(L"mnuHelpAbout");
    EXPECT_TRUE(presenter.dialog.closed);
    EXPECT_EQ(world.registry.openKeys(), 0U);
}

TEST_F(Information, ReadsTextsAndNumbersOfTheRegistry) {
    struct Case {
        std::uint32_t type;
        std::string bytes;
        std::wstring text;  // "" when it is no value for us
    };
    presenter.inInfo = [&](frmInfo& form) {
        for (const Case& c : std::vector<Case>{{1, std::string("ab\0", 3), L"ab"},
                                               {1, "ab", L"ab"},
                                               {2, std::string("%X%\0", 4), L"%X%"},
                                               {4, std::string("\x2A\0\x01\0", 4), L"&h1002A"},
                                               {4, std::string("\xFF\xFF\xFF\xFF", 4), L"&hFFFFFFFF"},
                                               {4, "\x01", L""},
                                               {3, "\x01\x02", L""},
                                               {1, std::string(1025, 'x'), L""}}) {
            world.registry.store(RegistryRoot::currentUser, "Software\\X", "Wert", {c.type, c.bytes});
            std::wstring text;
            EXPECT_EQ(form.GetKeyValue(RegistryRoot::currentUser, "Software\\X", "Wert", text),
                      !c.text.empty());
            EXPECT_EQ(text, c.text);
        }
        std::wstring text;
        EXPECT_FALSE(form.GetKeyValue(RegistryRoot::currentUser, "Software\\X", "Fehlt", text));
    };
    choose(L"mnuHelpAbout");
    EXPECT_EQ(world.registry.openKeys(), 0U);
}

TEST_F(Information, OpensTheHelpAtTheTopic) {
    const std::vector<std::pair<std::function<void()>, std::string>> ways{
        {[&] { choose(L"mnuHelpContents"); }, "Tarvix_1.htm"},
        {[&] { choose(L"mnuHelpSearchForHelpOn"); }, "Tarvix_32.htm"},
        {[&] { form().tbToolBar.userClicks(L"Hilfe"); }, "Tarvix_32.htm"},
        {[&] { choose(L"mnuEditCopy"); }, "Tarvix_20.htm"},
        {[&] { choose(L"mnuFileRename"); }, "Tarvix_21.htm"},
        {[&] { choose(L"mnuHelpAbout"); }, "Tarvix_30.htm"}};
    presenter.inKopieren = [](frmKopieren& form) { form.showHelp(); };
    presenter.inUmbenennen = [](frmUmbenennen& form) { form.showHelp(); };
    presenter.inInfo = [](frmInfo& form) { form.showHelp(); };
    world.files.folder = L"C:\\Größe";
    click(L"Z1");
    select({L"Blatt 2", L"Blatt 10"});
    for (const auto& [open, topic] : ways) {
        world.help.shown.clear();
        open();
        ASSERT_EQ(world.help.shown.size(), 1U) << topic;
        EXPECT_EQ(world.help.shown[0].owner, FakeWindow::ownHandle);
        EXPECT_EQ(world.help.shown[0].file,
                  "C:\\Gr\xF6\xDF"
                  "e\\Help\\Tarvix.chm");
        EXPECT_EQ(world.help.shown[0].topic, topic);
    }
}

}  // namespace
}  // namespace blattwart::test
