#pragma once

#include <memory>
#include <vector>

#include "platform/Gate.h"
#include "shell/FormPresenter.h"
#include "win32/ui/Guard.h"
#include "win32/ui/MainWindow.h"

namespace blattwart {

class FormDialog;

class Win32FormPresenter : public FormPresenter {
  public:
    Win32FormPresenter(Guard& guard, Gate& gate) : guard_(guard), gate_(gate) {}

    FormWindow& createMainWindow(frmMain& form) override {
        mainWindow_ = std::make_unique<MainWindow>(form, guard_, gate_);
        return *mainWindow_;
    }
    void showModal(frmKopieren& form) override;
    void showModal(frmUmbenennen& form) override;
    void showModal(frmErstellen& form) override;
    void showModal(frmInfo& form) override;
    void showModal(frmPlanliste& form) override;
    void showModal(frmPlanUmbenennen& form) override;
    void showModal(frmPlanReihenfolge& form) override;
    void showModal(frmPlanEinstellungen& form) override;
    void showModal(frmPlanPdf& form) override;
    void closeDialogs() override;
    /// Says what the program waits for or is doing, in the window on top that has a place for it; "" when
    /// that is done.
    void showWork(const std::wstring& text);
    /// Input that comes while a call waits; true where the dialog on top ends its work with it.
    bool takeInput(const MSG& message);

    /// The main window, or null before it is made.
    MainWindow* mainWindow() const { return mainWindow_.get(); }
    /// Destroys all windows; before the forms that they show go.
    void destroyWindows() { mainWindow_.reset(); }

  private:
    void show(FormDialog& dialog, int templateId, SIZE smallest = {});

    Guard& guard_;
    Gate& gate_;
    std::unique_ptr<MainWindow> mainWindow_;
    std::vector<FormDialog*> dialogs_;  // open, the last one on top
};

}  // namespace blattwart
