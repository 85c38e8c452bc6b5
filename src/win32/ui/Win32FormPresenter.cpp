#include "win32/ui/Win32FormPresenter.h"

#include "dialogs/frmErstellen.h"
#include "dialogs/frmInfo.h"
#include "dialogs/frmKopieren.h"
#include "dialogs/frmUmbenennen.h"
#include "res/DialogIds.h"
#include "win32/ui/FormDialog.h"

namespace blattwart {

namespace {

/// What both dialogs on layouts show.
std::vector<BoundControl> layoutControls(LayoutDialog& form) {
    return {{IDC_DOKUMENT, &form.txtDokument},
            {IDC_LAYOUT, &form.txtLayout},
            {IDC_ANZAHL, &form.txtAnzahl},
            {IDOK, &form.cmdStart},
            {IDCANCEL, &form.cmdCancel}};
}

}  // namespace

void Win32FormPresenter::showModal(frmKopieren& form) {
    auto controls = layoutControls(form);
    controls.push_back({IDC_QUELLE, &form.txtQuelle});
    controls.push_back({IDC_NEU_L, &form.lblNeuL});
    controls.push_back({IDC_LABEL_ANZAHL, &form.lblAnzahl});
    FormDialog dialog(form, std::move(controls), guard_, gate_);
    show(dialog, IDD_KOPIEREN);
}

void Win32FormPresenter::showModal(frmUmbenennen& form) {
    FormDialog dialog(form, layoutControls(form), guard_, gate_);
    show(dialog, IDD_UMBENENNEN);
}

void Win32FormPresenter::showModal(frmErstellen& form) {
    FormDialog dialog(form,
                      {{IDC_DOKUMENT, &form.txtDokument},
                       {IDC_LAYOUT, &form.txtLayout},
                       {IDOK, &form.cmdStart},
                       {IDCANCEL, &form.cmdCancel}},
                      guard_, gate_);
    show(dialog, IDD_ERSTELLEN);
}

void Win32FormPresenter::showModal(frmInfo& form) {
    FormDialog dialog(form,
                      {{IDC_VERSION, &form.lblVersion},
                       {IDC_BUILD, &form.lblBuild},
                       {IDC_SYSINFO, &form.cmdSysInfo},
                       {IDCANCEL, &form.cmdOK}},
                      guard_, gate_);
    show(dialog, IDD_INFO);
}

void Win32FormPresenter::show(FormDialog& dialog, int templateId) {
    struct Entry {
        std::vector<DialogWindow*>& dialogs;
        ~Entry() { dialogs.pop_back(); }
    };
    dialogs_.push_back(&dialog);
    const Entry entry{dialogs_};
    dialog.show(mainWindow_->window(), templateId);
}

void Win32FormPresenter::closeDialogs() {
    for (auto dialog = dialogs_.rbegin(); dialog != dialogs_.rend(); ++dialog) (*dialog)->close();
}

}  // namespace blattwart
