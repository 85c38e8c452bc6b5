#include "PlanListProgram.h"

namespace blattwart::test {
namespace {

class PlanListTest : public PlanListProgram {
  protected:
    /// Renames the selected layouts by a pattern.
    void rename(const std::wstring& pattern, const std::wstring& find = {},
                const std::wstring& replacement = {}) {
        presenter.inPlanUmbenennen = [=, this](frmPlanUmbenennen& form) {
            form.txtMuster.setText(pattern);
            form.txtSuchen.setText(find);
            form.txtErsetzen.setText(replacement);
            EXPECT_TRUE(form.cmdUmbenennen.enabled());
            form.cmdUmbenennen.userClicks();
        };
        list().cmdUmbenennen.userClicks();
        window().goOn();
    }
    Texts rows() {
        Texts texts;
        for (int i = 0; i < list().lvPlan.count(); ++i) texts.push_back(text(list().lvPlan.row(i)));
        return texts;
    }
};

TEST_F(PlanListTest, IsSearchedCopiedAndLeadsToTheLayout) {
    tree().forEach([this](TreeNode& node) {
        if (node.text() == L"OG 2") tree().select(node);
    });
    open([this] {
        EXPECT_EQ(rows(), (Texts{L"Haus.dwg/EG", L"Haus.dwg/OG 10", L"Haus.dwg/OG 2", L"Plan.dwg/Schnitt",
                                 L"Plan.dwg/EG"}));
        EXPECT_EQ(text(*list().lvPlan.focused()), L"Haus.dwg/OG 2");
        EXPECT_EQ(list().lvPlan.selected(), nullptr);
        EXPECT_EQ(status(), L"5 Layouts");
        EXPECT_FALSE(list().cmdUmbenennen.enabled());
        EXPECT_FALSE(list().cmdRueckgaengig.enabled());

        press(control(L'F'));
        EXPECT_EQ(window().focus, &list().txtFilter);
        list().txtFilter.setText(L"haus og");
        EXPECT_EQ(rows(), (Texts{L"Haus.dwg/OG 10", L"Haus.dwg/OG 2"}));
        EXPECT_EQ(status(), L"2 von 5 Layouts");
        list().lvPlan.events.columnClick(1);
        EXPECT_EQ(rows(), (Texts{L"Haus.dwg/OG 2", L"Haus.dwg/OG 10"}));
        press(control(L'C'));
        EXPECT_EQ(world.clipboard.text.substr(0, 22), L"Zeichnung\tNr.\tLayout\tP");
        EXPECT_NE(world.clipboard.text.find(L"\r\nHaus.dwg\t3\tOG 2\t"), std::wstring::npos);
        EXPECT_NE(world.clipboard.html.find("OG 10"), std::string::npos);
        EXPECT_EQ(status(), L"2 Zeilen kopiert.");
        select({L"Haus.dwg/OG 2"});
        EXPECT_EQ(status(), L"2 von 5 Layouts, 1 markiert");
        world.fileDialogs.chosen = L"C:\\Liste.csv";
        list().cmdCsv.userClicks();
        EXPECT_EQ(status(), L"CSV-Datei gespeichert.");
        const auto csv = world.files.open(L"C:\\Liste.csv")->read(0, 1000);
        EXPECT_EQ(std::string(csv.begin(), csv.end()),
                  "\xEF\xBB\xBFZeichnung;Nr.;Layout;Plotgerät;Papierformat;Plotstil;Status\r\n"
                  "Haus.dwg;3;OG 2;None;ISO A4 (210.00 x 297.00 MM);Kein;\r\n");

        press({.key = Shortcut::enter});
        EXPECT_EQ(host().activeDocument(), house);
        EXPECT_EQ(house->drawing().currentLayout().name(), L"OG 2");
        EXPECT_EQ(list().lvPlan.row(0).column(7), L"aktuell");
        // Its own keys are left to the filter.
        EXPECT_FALSE(list().commandOf(control(L'A'), &list().txtFilter));
        window().press({.key = Shortcut::down}, &list().txtFilter);
        EXPECT_EQ(window().focus, &list().lvPlan);
        press({.key = Shortcut::escape});
        EXPECT_EQ(rows().size(), 5U);
        EXPECT_FALSE(window().closed);
        list().lvPlan.events.contextMenu();
        EXPECT_EQ(window().poppedUp, &list().popupMenu);
        list().showHelp();
        EXPECT_EQ(world.help.shown.back().topic, "Tarvix_38.htm");
        press({.key = Shortcut::escape});
        EXPECT_TRUE(window().closed);
    });
    EXPECT_EQ(main->gWasForeground, 0);
}

TEST_F(PlanListTest, RenamesByAPatternAndTakesItBackAfterReopening) {
    const std::wstring before = layoutsOf(house);
    open([this] {
        list().lvPlan.setFocused(nullptr);
        press(control(L'A'));
        presenter.inPlanUmbenennen = [this](frmPlanUmbenennen& form) {
            EXPECT_EQ(form.txtMuster.text(), L"<Name>");
            EXPECT_FALSE(form.cmdUmbenennen.enabled());
            EXPECT_FALSE(form.txtAb.enabled());
            form.txtMuster.setText(L"EG");
            EXPECT_EQ(form.lblStatus.text(), L"3 werden umbenannt, 5 Konflikte");
            EXPECT_EQ(form.lvVorschau.row(0).column(4), L"doppelt in der Vorschau");
            form.txtMuster.setText(L"<Zeichnung>-<Nr>");
            EXPECT_TRUE(form.txtAb.enabled());
            EXPECT_EQ(form.lvVorschau.row(4).column(3), L"Plan-02");
            form.chkNeuBeginnen.userClicks();
            form.txtAb.setText(L"7");
            EXPECT_EQ(form.lvVorschau.row(4).column(3), L"Plan-11");
            form.showHelp();
            form.cmdCancel.userClicks();
        };
        press({.key = Shortcut::f2});
        EXPECT_EQ(world.help.shown.back().topic, "Tarvix_39.htm");
        EXPECT_EQ(layoutsOf(plan), L"Schnitt,EG");

        select({L"Haus.dwg/OG 10", L"Haus.dwg/OG 2", L"Plan.dwg/EG"});
        rename(L"<Zeichnung>-<Nr>");
        EXPECT_EQ(layoutsOf(house), L"EG,Haus-07,Haus-08");
        EXPECT_EQ(layoutsOf(plan), L"Schnitt,Plan-09") << "the fields are as they were left";
        EXPECT_EQ(status(), L"3 Layouts umbenannt.");
        EXPECT_EQ(list().lvPlan.selectedItems().size(), 3U);
        EXPECT_EQ(list().cmdRueckgaengig.toolTip(), L"Macht rückgängig: 3 Layouts umbenannt (Strg+Z)");
        list().txtFilter.setText(L"Haus-");
    });
    world.desktop.foregroundWindow = FakeWindow::ownHandle;
    form().ctlTimer_Timer();
    EXPECT_NE(treeText().find(L"Haus-07"), std::wstring::npos) << "the navigator follows";
    tree().forEach([this](TreeNode& node) {
        if (node.text() == L"Haus-08") tree().select(node);
    });
    open([&] {
        EXPECT_EQ(rows(), (Texts{L"Haus.dwg/Haus-07", L"Haus.dwg/Haus-08"}));
        EXPECT_EQ(list().lvPlan.topRow(), 1) << "known before anything is read";
        EXPECT_EQ(list().lvPlan.selectedItems().size(), 2U);
        world.messages.expect(L"3 Layouts umbenannt rückgängig machen?", MessageAnswer::yes);
        press(control(L'Z'));
        EXPECT_EQ(status(), L"Layouts werden umbenannt …");
        EXPECT_FALSE(list().cmdKopieren.enabled());
        window().goOn();
        EXPECT_EQ(layoutsOf(house), before);
        EXPECT_EQ(layoutsOf(plan), L"Schnitt,EG");
        EXPECT_EQ(status(), L"Rückgängig gemacht: 3 Layouts umbenannt.");
        EXPECT_FALSE(list().cmdRueckgaengig.enabled());
    });
}

TEST_F(PlanListTest, OneLayoutIsRenamedInItsPlace) {
    open([this] {
        select({L"Haus.dwg/OG 2"});
        const auto edit = [this](const std::wstring& name) {
            press({.key = Shortcut::f2});
            ASSERT_NE(list().lvPlan.editedItem(), nullptr);
            list().lvPlan.userEndsLabelEdit(&name);
            window().goOn();
        };
        world.messages.expect(L"„OG 2“ kann nicht in „eg“ umbenannt werden: vergeben an Layout Nr. 1");
        edit(L"eg");
        edit(L"OG 2");
        edit(L"Dach");
        EXPECT_EQ(layoutsOf(house), L"EG,OG 10,Dach");
        EXPECT_EQ(status(), L"1 Layout umbenannt.");
        EXPECT_EQ(text(*list().lvPlan.selected()), L"Haus.dwg/Dach");
    });
    EXPECT_EQ(presenter.dialogsShown, 1);
}

TEST_F(PlanListTest, WhatHasChangedInAutoCADIsToldAndReadAnew) {
    open([this] {
        select({L"Haus.dwg/OG 2", L"Plan.dwg/EG"});
        const auto attempt = [this](const std::function<void()>& meanwhile, std::wstring told) {
            presenter.inPlanUmbenennen = [&](frmPlanUmbenennen& form) {
                form.txtMuster.setText(L"Neu-<Nr>");
                meanwhile();
                form.cmdUmbenennen.userClicks();
            };
            world.messages.expect(std::move(told));
            list().cmdUmbenennen.userClicks();
            window().goOn();
        };
        attempt(
            [this] { house->drawing().renameLayout(*house->findLayout(L"EG"), L"Keller"); },
            L"In AutoCAD wurden Layouts geändert: Haus.dwg. Es wurde nichts ausgeführt, die Planliste ist "
            L"neu gelesen. Bitte prüfen Sie die Auswahl!");
        EXPECT_EQ(rows().front(), L"Haus.dwg/Keller");
        attempt([this] { house->commandLine().type(L"LAYOUT\r"); },
                L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!");
        house->commandLine().type(L"\x1b");
        attempt([this] { calls.failAt(calls.count() + 1, RuntimeError(hresult::callRejected, L"belegt")); },
                L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal.");
        EXPECT_EQ(layoutsOf(house), L"Keller,OG 10,OG 2");
        attempt(
            [this] { host().close(house); },
            L"In AutoCAD wurden Layouts geändert: Haus.dwg. Es wurde nichts ausgeführt, die Planliste ist "
            L"neu gelesen. Bitte prüfen Sie die Auswahl!");
        EXPECT_EQ(rows(), (Texts{L"Plan.dwg/Schnitt", L"Plan.dwg/EG"}));

        select({L"Plan.dwg/Schnitt", L"Plan.dwg/EG"});
        rename(L"<Name> alt");
        plan->drawing().addLayout(L"eg");
        for (const MessageAnswer answer : {MessageAnswer::no, MessageAnswer::yes}) {
            ASSERT_TRUE(list().cmdRueckgaengig.enabled());
            world.messages.expect(L"2 Layouts umbenannt rückgängig machen?", MessageAnswer::yes);
            world.messages.expect(
                L"Der Vorgang kann nicht mehr rückgängig gemacht werden: 2 Layouts umbenannt.\n"
                L"Der Name „EG“ ist inzwischen vergeben.\n\n"
                L"Soll der Rest bleiben, wie er ist? Mit „Nein“ können Sie es noch einmal versuchen.",
                answer);
            list().cmdRueckgaengig.userClicks();
            window().goOn();
        }
        EXPECT_FALSE(list().cmdRueckgaengig.enabled());

        demo.end();
        list().cmdAktualisieren.userClicks();
        window().goOn();
        EXPECT_EQ(status(), L"AutoCAD läuft nicht mehr.");
        EXPECT_FALSE(list().cmdKopieren.enabled());
        EXPECT_TRUE(list().cmdAktualisieren.enabled());
    });
}

TEST_F(PlanListTest, ReadingAndWritingEndByEscapeBetweenTwoDrawings) {
    presenter.inPlanliste = [this](frmPlanliste& form) {
        EXPECT_FALSE(list().cmdKopieren.enabled());
        EXPECT_EQ(status(), L"Layouts werden gelesen …");
        press({.key = Shortcut::escape});
        EXPECT_EQ(status(), L"Einlesen abgebrochen. F5 liest neu.");
        press({.key = Shortcut::f5});
        form.step();
        EXPECT_EQ(status(), L"Zeichnung 1 von 2 wird gelesen … (Esc bricht ab)");
        form.step();
        EXPECT_EQ(rows().size(), 3U);
        press({.key = Shortcut::escape});
        EXPECT_EQ(status(), L"3 Layouts. Einlesen abgebrochen, 1 Zeichnung fehlt. F5 liest neu.");
        EXPECT_GT(window().escapesForgotten, 0);
        press({.key = Shortcut::f5});
        window().goOn();
        EXPECT_EQ(status(), L"5 Layouts");

        for (const bool byClosing : {false, true}) {
            press(control(L'A'));
            presenter.inPlanUmbenennen = [&](frmPlanUmbenennen& dialog) {
                dialog.txtMuster.setText(byClosing ? L"y <Name>" : L"x <Name>");
                dialog.cmdUmbenennen.userClicks();
            };
            list().cmdUmbenennen.userClicks();
            form.step();
            form.step();
            if (byClosing) {
                list().cmdClose.userClicks();
            } else {
                press({.key = Shortcut::escape});
                EXPECT_EQ(status(), L"Abgebrochen: 3 von 5 erledigt.");
            }
        }
    };
    choose(L"mnuPlanList");
    EXPECT_TRUE(window().closed);
    EXPECT_EQ(layoutsOf(house), L"y x EG,y x OG 10,y x OG 2");
    EXPECT_EQ(layoutsOf(plan), L"Schnitt,EG");
}

TEST_F(PlanListTest, ARefusedNameLeavesNothingHalfDoneAlsoWhenTheProgramEnds) {
    for (const bool atEnd : {false, true}) {
        presenter.inPlanliste = [&, this](frmPlanliste& form) {
            window().goOn();
            select({L"Haus.dwg/EG", L"Haus.dwg/OG 2"});
            presenter.inPlanUmbenennen = [](frmPlanUmbenennen& dialog) {
                dialog.txtMuster.setText(L"N <Name>");
                dialog.cmdUmbenennen.userClicks();
            };
            list().cmdUmbenennen.userClicks();
            int puts = 0;
            calls.beforeCall([&, this](std::size_t number) {
                if (calls.calls().back().kind == demo::RecordedCall::Kind::put && ++puts == 2)
                    calls.failAt(number, RuntimeError(5, L"Ungültige Eingabe"));
            });
            if (atEnd) {
                form.step();
                form.step();
                EXPECT_FALSE(layoutsOf(house).starts_with(L"EG,")) << "put back in an event of its own";
                this->form().Form_Unload();
            } else {
                world.messages.expect(
                    L"Haus.dwg: „OG 2“ kann nicht in „N OG 2“ umbenannt werden: Ungültige Eingabe\n"
                    L"In dieser Zeichnung gelten wieder die alten Namen.\nUmbenannt: 0, nicht bearbeitet: "
                    L"2.");
                window().goOn();
                list().cmdClose.userClicks();
            }
            calls.beforeCall({});
            calls.heal();
        };
        choose(L"mnuPlanList");
        EXPECT_TRUE(window().closed);
        EXPECT_EQ(layoutsOf(house), L"EG,OG 10,OG 2");
        EXPECT_EQ(world.messages.outstanding(), 0U);
    }
}

TEST_F(PlanListTest, WhatCannotBeWrittenOrSavedIsTold) {
    const auto never = host().newDocument();
    host().activate(plan);
    house->save();
    plan->save();
    plan->setModified();
    plan->setReadOnly();
    open([&] {
        world.clipboard.held = true;
        world.messages.expect(L"Die Zwischenablage ist belegt. Bitte versuchen Sie es noch einmal.");
        list().cmdKopieren.userClicks();
        world.fileDialogs.chosen = L"C:\\Liste.csv";
        world.files.fails = [](std::wstring_view call) { return call == L"Files.writeAtomically"; };
        world.messages.expect(L"Die Datei kann nicht geschrieben werden: Zugriff verweigert");
        list().cmdCsv.userClicks();

        press(control(L'A'));
        for (const auto& changedSince : {never, house}) changedSince->setModified();
        world.messages.expect(
            L"Nicht gespeichert:\nPlan.dwg: schreibgeschützt\nZeichnung1.dwg: nie gespeichert");
        press(control(L'S'));
        EXPECT_EQ(status(), L"1 Zeichnung gespeichert.");
        EXPECT_FALSE(house->modified());
        EXPECT_EQ(list().lvPlan.row(0).column(7), L"aktuell");
        EXPECT_TRUE(plan->modified());

        select({L"Plan.dwg/EG"});
        host().close(plan);
        world.messages.expect(
            L"Das Layout „EG“ kann nicht angezeigt werden: „Plan.dwg“ ist nicht mehr geöffnet.");
        press({.key = Shortcut::enter});
    });
}

TEST_F(PlanListTest, TheWindowIsAsItWasLeftAndBrokenSettingsCountAsNone) {
    open([this] {
        list().lvPlan.userResizesColumn(1, 1234);
        list().lvPlan.userMovesColumn(7, 0);
        list().lvPlan.events.columnClick(3);
        list().lvPlan.events.columnClick(3);
        window().place = {{100, 200, 9000, 6000}, true};
    });
    const auto stored = world.settings.values;
    startAgain();
    open([this] {
        EXPECT_EQ(list().lvPlan.columns()[0].width, 1234);
        EXPECT_EQ(list().lvPlan.columns()[6].position, 0);
        EXPECT_EQ(rows().front(), L"Haus.dwg/OG 2");
        EXPECT_EQ(window().place.normal.width, 9000);
        EXPECT_TRUE(window().place.maximised);
    });
    EXPECT_EQ(world.settings.values, stored);
    for (const wchar_t* broken :
         {L"", L"x", L"1,2", L"0,0,0,0,0,0,0", L"-1,1,2,3,4,5,6", L"9,9,9,9,9,9,9e9"}) {
        for (const wchar_t* key :
             {L"PlanCols", L"PlanColOrder", L"PlanSort", L"PlanWidth", L"PlanLeft", L"PlanMax"})
            world.settings.values.insert_or_assign(key, broken);
        startAgain();
        open([&] {
            EXPECT_EQ(list().lvPlan.columns()[1].position, 0) << broken;
            EXPECT_EQ(rows().front(), L"Haus.dwg/EG");
            EXPECT_EQ(window().place.normal.width, 0);
        });
    }
}

}  // namespace
}  // namespace blattwart::test
