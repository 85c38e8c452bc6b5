#pragma once

#include <memory>

#include "platform/Automation.h"
#include "shell/frmMain.h"
#include "win32/Guard.h"
#include "win32/MainWindow.h"

namespace blattwart {

class Win32FormPresenter : public FormPresenter {
  public:
    Win32FormPresenter(Guard& guard, const Automation& automation) : guard_(guard), automation_(automation) {}

    FormWindow& createMainWindow(frmMain& form) override {
        mainWindow_ = std::make_unique<MainWindow>(form, guard_, automation_);
        return *mainWindow_;
    }

    /// The main window, or null before it is made.
    MainWindow* mainWindow() const { return mainWindow_.get(); }
    /// Destroys all windows; before the forms that they show go.
    void destroyWindows() { mainWindow_.reset(); }

  private:
    Guard& guard_;
    const Automation& automation_;
    std::unique_ptr<MainWindow> mainWindow_;
};

}  // namespace blattwart
