#pragma once

#include "dialogs/frmErstellen.h"
#include "dialogs/frmInfo.h"
#include "dialogs/frmKopieren.h"
#include "dialogs/frmUmbenennen.h"
#include "planlist/frmPlanEinstellungen.h"
#include "planlist/frmPlanliste.h"
#include "planlist/frmPlanPdf.h"
#include "planlist/frmPlanReihenfolge.h"
#include "planlist/frmPlanUmbenennen.h"
#include "shell/FormPresenter.h"
#include "shell/frmMain.h"
#include "support/FakeDesktop.h"

namespace blattwart::test {

/// The main window on a fake desktop: placements are kept as they are set, the frame takes nothing.
class FakeWindow : public FormWindow {
  public:
    static constexpr WindowHandle ownHandle = 77;

    explicit FakeWindow(FakeDesktop& desktop) : desktop_(desktop) {}

    Placement place;
    bool closed = false;
    MenuItem* poppedUp = nullptr;

    WindowHandle handle() const override { return ownHandle; }
    Placement placement() const override { return place; }
    void setPlacement(const Placement& placement) override { place = placement; }
    bool minimised() const override { return window().state == FakeDesktop::State::minimised; }
    float width() const override { return place.width; }
    void setWidth(float twips) override { place.width = twips; }
    float innerHeight() const override { return place.height; }
    void show() override {
        window().caption = applicationTitle;
        desktop_.foregroundWindow = ownHandle;
    }
    void close() override { closed = true; }
    void popUpMenu(MenuItem& menu) override { poppedUp = &menu; }

  private:
    FakeDesktop::Window& window() const { return desktop_.windows[ownHandle]; }

    FakeDesktop& desktop_;
};

/// The window of a modal form; what is asked of it is kept.
class FakeDialogWindow : public DialogWindow {
  public:
    bool closed = false;
    const Control* focus = nullptr;
    bool stepAwaited = false;
    int escapesForgotten = 0;
    const MenuItem* poppedUp = nullptr;
    DialogPlacement place;
    Dialog* form = nullptr;

    void setFocus(Control& control) override { focus = &control; }
    void close() override {
        if (!std::exchange(closed, true) && form) form->unload();
    }
    void stepLater() override { stepAwaited = true; }
    void forgetEscape() override { ++escapesForgotten; }
    void popUpMenu(MenuItem& menu) override { poppedUp = &menu; }
    DialogPlacement placement() const override { return place; }
    void setPlacement(const DialogPlacement& placement) override { place = placement; }

    /// Work that goes in steps goes on until it is done.
    void goOn() {
        while (!closed && std::exchange(stepAwaited, false)) form->step();
    }
    /// The user presses a key in a control.
    void press(const Shortcut& key, const Control* focused) {
        if (const auto command = form->commandOf(key, focused)) command();
    }
};

/// Gives the main form its fake window and the measures that a real one has at 96 DPI.
class FakePresenter : public FormPresenter {
  public:
    static constexpr float toolBarHeight = 420;
    static constexpr float titleHeight = 300;
    static constexpr float statusHeight = 330;
    static constexpr float splitterWidth = 45;

    explicit FakePresenter(FakeDesktop& desktop) : window(desktop) {}

    FakeWindow window;
    FakeDialogWindow dialog;  ///< of the modal form that is or was open
    int dialogsShown = 0;
    // What the user does in each form while it is open.
    std::function<void(frmKopieren&)> inKopieren;
    std::function<void(frmUmbenennen&)> inUmbenennen;
    std::function<void(frmErstellen&)> inErstellen;
    std::function<void(frmInfo&)> inInfo;
    std::function<void(frmPlanliste&)> inPlanliste;
    std::function<void(frmPlanUmbenennen&)> inPlanUmbenennen;
    std::function<void(frmPlanReihenfolge&)> inPlanReihenfolge;
    std::function<void(frmPlanEinstellungen&)> inPlanEinstellungen;
    std::function<void(frmPlanPdf&)> inPlanPdf;

    FormWindow& createMainWindow(frmMain& form) override {
        form.tbToolBar.setHeight(toolBarHeight);
        form.picTitles.setHeight(titleHeight);
        form.sbStatusBar.setHeight(statusHeight);
        form.imgSplitter.setWidth(splitterWidth);
        return window;
    }
    void showModal(frmKopieren& form) override { show(form, inKopieren); }
    void showModal(frmUmbenennen& form) override { show(form, inUmbenennen); }
    void showModal(frmErstellen& form) override { show(form, inErstellen); }
    void showModal(frmInfo& form) override { show(form, inInfo); }
    void showModal(frmPlanliste& form) override { show(form, inPlanliste); }
    void showModal(frmPlanUmbenennen& form) override { show(form, inPlanUmbenennen); }
    void showModal(frmPlanReihenfolge& form) override { show(form, inPlanReihenfolge); }
    void showModal(frmPlanEinstellungen& form) override { show(form, inPlanEinstellungen); }
    void showModal(frmPlanPdf& form) override { show(form, inPlanPdf); }
    void closeDialogs() override { dialog.close(); }

  private:
    template <class Form>
    void show(Form& form, const std::function<void(Form&)>& user) {
        ++dialogsShown;
        const FakeDialogWindow below = std::exchange(dialog, {});
        dialog.form = &form;
        form.setWindow(&dialog);
        form.opened();
        if (user) user(form);
        form.setWindow(nullptr);
        dialog.form = nullptr;
        if (below.form) dialog = below;
    }
};

}  // namespace blattwart::test
