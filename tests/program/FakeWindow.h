#pragma once

#include "dialogs/frmErstellen.h"
#include "dialogs/frmInfo.h"
#include "dialogs/frmKopieren.h"
#include "dialogs/frmUmbenennen.h"
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
    const TextBox* focus = nullptr;

    void setFocus(TextBox& field) override { focus = &field; }
    void close() override { closed = true; }
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
    void closeDialogs() override { dialog.close(); }

  private:
    template <class Form>
    void show(Form& form, const std::function<void(Form&)>& user) {
        ++dialogsShown;
        dialog = {};
        form.setWindow(&dialog);
        if (user) user(form);
        form.setWindow(nullptr);
    }
};

}  // namespace blattwart::test
