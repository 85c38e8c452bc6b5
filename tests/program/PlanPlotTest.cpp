#include "planlist/PlotSettings.h"
#include "PlanListProgram.h"

namespace blattwart::test {
namespace {

/// What the plan list's dialogs do: the order of tabs, page setups, PDF files.
class PlanPlotTest : public PlanListProgram {
  protected:
    PlanPlotTest() {
        host().options().writePlot = [this](const std::wstring& path, const std::string& bytes) {
            world.files.fill(path, {bytes.begin(), bytes.end()});
            return true;
        };
        world.files.addFolder(L"C:\\Haus");
    }

    void undo(const std::wstring& told = {}) {
        world.messages.answer(MessageAnswer::yes);
        if (!told.empty()) world.messages.expect(told);
        press(control(L'Z'));
        window().goOn();
    }
    void change(const demo::DocumentPtr& document, const wchar_t* layout,
                const std::function<void(demo::PlotSettings&)>& how) {
        demo::PlotSettings settings = settingsOf(document, layout);
        how(settings);
        document->findLayout(layout)->setPlotSettings(settings);
    }
    static demo::PlotSettings settingsOf(const demo::DocumentPtr& document, const wchar_t* layout) {
        return document->findLayout(layout)->plotSettings();
    }
    static Texts columnOf(const ListView& shown, int column) {
        Texts texts;
        for (int i = 0; i < shown.count(); ++i)
            texts.push_back(column == 1 ? shown.row(i).text() : shown.row(i).column(column));
        return texts;
    }
    void makePdfOf(const Texts& rows, std::function<void(frmPlanPdf&)> user) {
        select(rows);
        presenter.inPlanPdf = std::move(user);
        list().cmdPdf.userClicks();
        window().goOn();
    }
};

TEST_F(PlanPlotTest, TabsStandAsTheUserHasMovedThemAndGoBack) {
    open([this] {
        select({L"Haus.dwg/OG 2", L"Plan.dwg/EG"});
        presenter.inPlanReihenfolge = [this](frmPlanReihenfolge& form) {
            EXPECT_EQ(columnOf(form.lvLayouts, 1), (Texts{L"EG", L"OG 2", L"OG 10", L"EG", L"Schnitt"}));
            EXPECT_EQ(headers(form.lvLayouts), (Texts{L"Zeichnung", L"Nr. bisher", L"Nr. neu", L"Layout"}));
            EXPECT_EQ(form.lvLayouts.row(3).column(2), L"Plan.dwg");
            EXPECT_EQ(form.lvLayouts.focused()->text(), L"OG 2");
            EXPECT_EQ(columnOf(form.lvLayouts, 3), (Texts{L"1", L"3", L"2", L"2", L"1"}));
            EXPECT_EQ(columnOf(form.lvLayouts, 4), (Texts{L"1", L"2", L"3", L"1", L"2"}));
            EXPECT_EQ(form.lvLayouts.selectedItems().size(), 2U);
            window().press({.key = Shortcut::down, .alt = true}, &form.lvLayouts);
            EXPECT_FALSE(form.cmdOK.enabled());
            form.cmdOben.userClicks();
            form.cmdOben.userClicks();
            EXPECT_FALSE(form.cmdOben.enabled());
            form.lvLayouts.userSelects({&form.lvLayouts.row(1)}, &form.lvLayouts.row(1));
            EXPECT_TRUE(form.cmdOben.enabled());
            form.cmdNamen.userClicks();
            form.cmdOK.userClicks();
        };
        press({.key = Shortcut::up, .alt = true});
        EXPECT_EQ(status(), L"Reihenfolge wird geändert …");
        window().goOn();
        EXPECT_EQ(layoutsOf(house), L"EG,OG 2,OG 10");
        EXPECT_EQ(layoutsOf(plan), L"EG,Schnitt");
        EXPECT_EQ(status(), L"Reihenfolge geändert.");
        EXPECT_EQ(list().lvPlan.row(1).text(), L"OG 2");
        EXPECT_EQ(list().lvPlan.row(1).column(3), L"2");
        EXPECT_EQ(list().cmdRueckgaengig.toolTip(),
                  L"Macht rückgängig: Reihenfolge in 2 Zeichnungen geändert (Strg+Z)");
        house->commandLine().type(L"LAYOUT\r");
        undo(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!");
        house->commandLine().type(L"\x1b");
        undo();
        EXPECT_EQ(layoutsOf(house), L"EG,OG 10,OG 2");
        EXPECT_EQ(layoutsOf(plan), L"Schnitt,EG");
        EXPECT_FALSE(list().cmdRueckgaengig.enabled());
        presenter.inPlanReihenfolge = [this](frmPlanReihenfolge& form) {
            EXPECT_FALSE(form.cmdOK.enabled());
            form.cmdCancel.userClicks();
            EXPECT_TRUE(window().closed);
        };
        list().cmdReihenfolge.userClicks();
    });
}

TEST_F(PlanPlotTest, APageSetupIsShownBeforeItIsCarriedOver) {
    for (const wchar_t* layout : {L"EG", L"OG 2"})
        change(house, layout, [](demo::PlotSettings& s) { s.device = L"DWG To PDF.pc3"; });
    change(house, L"OG 2", [](demo::PlotSettings& s) {
        s.paper = L"ISO_A3_(420.00_x_297.00_MM)";
        s.rotation = 1;
    });
    const demo::PlotSettings before = settingsOf(house, L"EG");
    open([this, &before] {
        select({L"Haus.dwg/OG 10"});
        press({.key = Shortcut::f2});
        const std::wstring attic = L"Dach";
        list().lvPlan.userEndsLabelEdit(&attic);
        window().goOn();
        select({L"Haus.dwg/EG"});
        EXPECT_FALSE(list().cmdEinstellungen.enabled());
        select({L"Haus.dwg/EG", L"Haus.dwg/OG 2", L"Plan.dwg/EG"});
        presenter.inPlanEinstellungen = [this](frmPlanEinstellungen& form) {
            EXPECT_EQ(form.lblStatus.text(), L"Seiteneinrichtung 1 von 3 wird gelesen … (Esc bricht ab)");
            window().goOn();
            EXPECT_EQ(form.txtVon.text(), L"Haus.dwg, EG");
            EXPECT_EQ(headers(form.lvNach)[0] + headers(form.lvNach)[1], L"ZeichnungLayout");
            EXPECT_EQ(columnOf(form.lvNach, 2), (Texts{L"Haus.dwg", L"Haus.dwg", L"Plan.dwg"}));
            EXPECT_FALSE(form.cmdQuelle.enabled());
            form.lvNach.userSelects({&form.lvNach.row(1)}, &form.lvNach.row(1));
            EXPECT_TRUE(form.cmdQuelle.enabled());
            form.cmdQuelle.userClicks();
            EXPECT_EQ(form.txtVon.text(), L"Haus.dwg, OG 2");
            EXPECT_EQ(columnOf(form.lvNach, 4),
                      (Texts{L"ISO A3 (420.00 x 297.00 MM)",
                             L"ISO A4 (210.00 x 297.00 MM) → ISO A3 (420.00 x 297.00 MM)",
                             L"ISO A4 (210.00 x 297.00 MM) → ISO A3 (420.00 x 297.00 MM)"}));
            EXPECT_EQ(columnOf(form.lvNach, 5),
                      (Texts{L"Querformat", L"Hochformat → Querformat", L"Hochformat → Querformat"}));
            EXPECT_EQ(form.lblStatus.text(), L"2 Layouts werden geändert.");
            form.cmdUebertragen.userClicks();
            window().goOn();
            EXPECT_TRUE(window().closed);
        };
        list().cmdEinstellungen.userClicks();
        EXPECT_EQ(status(), L"Seiteneinrichtung übertragen.");
        EXPECT_EQ(settingsOf(plan, L"EG").rotation, 1);
        EXPECT_EQ(list().lvPlan.row(0).column(5), L"ISO A3 (420.00 x 297.00 MM)");
        undo(
            L"Rückgängig gemacht bis auf:\nLayout „EG“: Plotgerät und Papier bleiben, vorher war kein "
            L"Plotgerät gewählt.");
        EXPECT_EQ(settingsOf(house, L"EG"), before);
        undo();
        EXPECT_EQ(status(), L"Rückgängig gemacht: 1 Layout umbenannt.");
    });
    open([this] {
        EXPECT_EQ(status(), L"5 Layouts, 3 markiert") << "nothing of what was done before";
        change(plan, L"EG", [](demo::PlotSettings& s) { s.device = L"Weg.pc3"; });
        select({L"Plan.dwg/EG", L"Haus.dwg/EG"});
        presenter.inPlanEinstellungen = [this](frmPlanEinstellungen& form) {
            window().goOn();
            form.cmdUebertragen.userClicks();
            window().goOn();
            EXPECT_FALSE(window().closed) << "it stays as a report";
            EXPECT_EQ(form.lblStatus.text(), L"Nicht alles wurde übertragen, siehe Spalte „Hinweis“.");
            EXPECT_EQ(form.lvNach.row(1).column(9), L"Plotgerät nicht übernommen: Ungültige Eingabe");
            EXPECT_FALSE(form.cmdUebertragen.enabled());
            EXPECT_EQ(form.cmdCancel.text(), L"Schließen");
            form.cmdCancel.userClicks();
        };
        list().cmdEinstellungen.userClicks();
        window().goOn();
        select({L"Plan.dwg/EG", L"Haus.dwg/EG", L"Haus.dwg/OG 2"});
        presenter.inPlanEinstellungen = [this](frmPlanEinstellungen& form) {
            form.step();
            form.step();
            calls.failAt(calls.count() + 1, RuntimeError(hresult::callRejected, L"beschäftigt"));
            window().goOn();
            EXPECT_EQ(form.lblStatus.text(), L"AutoCAD antwortet nicht.");
            EXPECT_EQ(form.lvNach.row(1).column(9), L"") << "nothing of the transfer before";
            form.cmdCancel.userClicks();
        };
        list().cmdEinstellungen.userClicks();
        EXPECT_EQ(status(), L"5 Layouts, 3 markiert");
        calls.heal();
        presenter.inPlanEinstellungen = [this](frmPlanEinstellungen& form) {
            window().goOn();
            EXPECT_EQ(form.cmdCancel.text(), L"Abbrechen");
            form.cmdUebertragen.userClicks();
            form.step();
            window().close();
        };
        list().cmdEinstellungen.userClicks();
        EXPECT_EQ(status(), L"Abgebrochen: 0 von 2 erledigt.");
    });
}

TEST_F(PlanPlotTest, LayoutsBecomePdfFilesByAPattern) {
    for (const wchar_t* layout : {L"EG", L"OG 10"})
        change(house, layout, [](demo::PlotSettings& s) { s.device = L"DWG To PDF.pc3"; });
    world.files.fill(L"C:\\Haus\\1 EG.pdf", {'a', 'l', 't'});
    open([this] {
        makePdfOf({L"Haus.dwg/EG", L"Haus.dwg/OG 10", L"Plan.dwg/EG"}, [this](frmPlanPdf& form) {
            EXPECT_EQ(headers(form.lvLayouts), (Texts{L"Zeichnung", L"Layout", L"Datei", L"Ergebnis"}));
            EXPECT_EQ(columnOf(form.lvLayouts, 3), (Texts{L"Haus-EG.pdf", L"Haus-OG 10.pdf", L""}));
            EXPECT_EQ(form.lvLayouts.row(2).column(4), L"wird nicht geplottet: Plotgerät ist kein PDF-Gerät");
            form.txtName.setText(L"<Unsinn>");
            EXPECT_EQ(form.lvLayouts.row(0).column(4), L"unbekannter Platzhalter");
            EXPECT_FALSE(form.cmdPlotten.enabled());
            form.txtName.setText(L"<Layout>");
            EXPECT_EQ(form.lvLayouts.row(0).column(4), L"bereit") << "Plan.dwg's takes no name";
            form.txtName.setText(L"<Nr> <Layout>");
            form.txtOrdner.setText(L"C:\\Fehlt");
            EXPECT_EQ(form.lvLayouts.row(0).column(4), L"bereit") << "not asked for while it is typed";
            EXPECT_FALSE(form.txtOrdner.events.validate());
            EXPECT_EQ(form.lvLayouts.row(0).column(4), L"Der Ordner ist nicht vorhanden.");
            form.txtOrdner.setText(L"");
            form.chkAndere.userClicks();
            EXPECT_EQ(columnOf(form.lvLayouts, 4),
                      (Texts{L"Datei vorhanden", L"bereit", L"über DWG To PDF.pc3"}));
            world.messages.expect(
                L"1 Datei ist schon vorhanden.\n\nJa: Dateien überschreiben.\nNein: diese "
                L"Layouts überspringen.\nAbbrechen: nichts plotten.",
                MessageAnswer::no);
            form.cmdPlotten.userClicks();
            EXPECT_EQ(form.cmdCancel.text(), L"Anhalten");
            EXPECT_EQ(form.interruptButton(), &form.cmdCancel);
            window().goOn();
            EXPECT_EQ(columnOf(form.lvLayouts, 4),
                      (Texts{L"übersprungen: Datei vorhanden", L"fertig", L"fertig"}));
            EXPECT_EQ(form.lblStatus.text(), L"2 von 3 Layouts geplottet, 1 übersprungen.");
            EXPECT_EQ(form.cmdCancel.text(), L"Schließen");
            EXPECT_FALSE(form.cmdPlotten.enabled());
            form.cmdOrdner.userClicks();
            EXPECT_EQ(world.process.started.back(), L"explorer.exe C:\\Haus");
            form.cmdCancel.userClicks();
            EXPECT_TRUE(window().closed);
        });
        makePdfOf({L"Haus.dwg/EG", L"Haus.dwg/OG 10"}, [this](frmPlanPdf& form) {
            EXPECT_TRUE(form.chkAndere.checked());
            world.messages.answer(MessageAnswer::yes);
            form.cmdPlotten.userClicks();
            form.step();
            EXPECT_EQ(columnOf(form.lvLayouts, 4), (Texts{L"wird geplottet …", L""}));
            EXPECT_EQ(form.lblStatus.text(), L"Layout 1 von 2 wird geplottet …");
            form.step();
            form.cmdCancel.userClicks();
            EXPECT_EQ(form.lblStatus.text(), L"Wird nach diesem Layout angehalten …");
            window().goOn();
            EXPECT_EQ(columnOf(form.lvLayouts, 4), (Texts{L"fertig", L"angehalten"}));
            EXPECT_EQ(form.lblStatus.text(), L"1 von 2 Layouts geplottet, 1 nicht geplottet.");
            EXPECT_GT(window().escapesForgotten, 0);
        });
        world.files.addFolder(L"C:\\Neu");
        makePdfOf({L"Plan.dwg/EG"}, [this](frmPlanPdf& form) {
            form.chkAndere.userClicks();
            form.txtOrdner.setText(L"C:\\Fehlt");
            form.chkAndere.userClicks();
            EXPECT_EQ(form.lvLayouts.row(0).column(4), L"Der Ordner ist nicht vorhanden.");
            EXPECT_EQ(form.lblStatus.text(), L"1 Layout wird geplottet, 1 Konflikt");
            form.txtOrdner.setText(L"C:\\Neu");
            EXPECT_FALSE(form.txtOrdner.events.validate());
            world.files.fill(L"C:\\Neu\\2 EG.pdf", {'a', 'l', 't'});
            world.messages.answer(MessageAnswer::yes);
            form.cmdPlotten.userClicks();
            form.step();
            form.step();
            window().close();
        });
        EXPECT_GT(world.files.open(L"C:\\Neu\\2 EG.pdf")->size(), 3U);
        EXPECT_EQ(host().options().profile->backgroundPlot, 2) << "put back when the window closes";
        makePdfOf({L"Plan.dwg/EG"}, [](frmPlanPdf& form) { EXPECT_EQ(form.txtOrdner.text(), L"C:\\Neu"); });
    });
    startAgain();
    open([this] {
        makePdfOf({L"Plan.dwg/EG"}, [](frmPlanPdf& form) {
            EXPECT_EQ(form.txtName.text(), L"<Nr> <Layout>");
            EXPECT_TRUE(form.chkAndere.checked());
        });
    });
    EXPECT_EQ(host().activeDocument(), plan);
    EXPECT_EQ(house->drawing().currentLayout().name(), L"EG");
}

TEST_F(PlanPlotTest, WhatABusyHostKeepsComesBackWithTheNextCommand) {
    change(house, L"OG 2", [](demo::PlotSettings& s) { s.device = L"DWG To PDF.pc3"; });
    const auto keepAll = [this] {
        makePdfOf({L"Haus.dwg/OG 2"}, [this](frmPlanPdf& form) {
            form.cmdPlotten.userClicks();
            form.step();
            form.step();
            calls.refuse(RuntimeError(hresult::callRejected, L"beschäftigt"));
            world.messages.expect(
                L"AutoCAD hat nicht alle Einstellungen zurückgenommen: Layout in „Haus.dwg“, aktive "
                L"Zeichnung, "
                L"BACKGROUNDPLOT. Blattwart versucht es beim nächsten Befehl wieder.");
            window().goOn();
            EXPECT_EQ(form.lvLayouts.row(0).column(4), L"fertig");
        });
        EXPECT_EQ(host().activeDocument(), house);
        calls.heal();
    };
    open([&] {
        keepAll();
        press(control(L'C'));
        EXPECT_EQ(host().activeDocument(), plan);
        EXPECT_EQ(house->drawing().currentLayout().name(), L"EG");
        EXPECT_EQ(host().options().profile->backgroundPlot, 2);
        host().sendCommand(plan, L"_.-LAYOUT\r");
        world.messages.expect(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!");
        makePdfOf({L"Haus.dwg/OG 2"}, [](frmPlanPdf&) { ADD_FAILURE() << "opened"; });
        plan->commandLine().type(L"\x1b");
        world.files.forget(L"C:\\Haus\\Haus-OG 2.pdf");
    });
    // Once another host is attached this one is left as it is.
    world.installations.install(L"24.3", L"AutoCAD 2024");
    demo.install(demo::ofRelease(L"24.3"));
    demo.start(L"24.3").addDocument(L"C:\\Neu", L"Neu.dwg", {L"EG"});
    open([&] {
        keepAll();
        main->autoCAD.ChooseRelease(InstalledRelease{{24, 3}, L"AutoCAD 2024"});
        press(control(L'C'));
        EXPECT_EQ(house->drawing().currentLayout().name(), L"OG 2");
        EXPECT_EQ(main->autoCAD.GetActiveDrawingName(), L"C:\\Neu\\Neu.dwg");
    });
}

}  // namespace
}  // namespace blattwart::test
