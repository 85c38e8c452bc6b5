#include "win32/ui/Win32FormPresenter.h"

#include "dialogs/frmErstellen.h"
#include "dialogs/frmInfo.h"
#include "dialogs/frmKopieren.h"
#include "dialogs/frmUmbenennen.h"
#include "planlist/frmPlanEinstellungen.h"
#include "planlist/frmPlanliste.h"
#include "planlist/frmPlanPdf.h"
#include "planlist/frmPlanReihenfolge.h"
#include "planlist/frmPlanUmbenennen.h"
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

void Win32FormPresenter::showModal(frmPlanliste& form) {
    FormDialog dialog(form,
                      {{IDC_FILTER, &form.txtFilter, Anchors::topWide},
                       {IDC_LISTE, &form.lvPlan, Anchors::all},
                       {IDC_UMBENENNEN, &form.cmdUmbenennen, Anchors::topRight},
                       {IDC_REIHENFOLGE, &form.cmdReihenfolge, Anchors::topRight},
                       {IDC_EINSTELLUNGEN, &form.cmdEinstellungen, Anchors::topRight},
                       {IDC_PDF, &form.cmdPdf, Anchors::topRight},
                       {IDC_KOPIEREN, &form.cmdKopieren, Anchors::topRight},
                       {IDC_CSV, &form.cmdCsv, Anchors::topRight},
                       {IDC_RUECKGAENGIG, &form.cmdRueckgaengig, Anchors::topRight},
                       {IDC_AKTUALISIEREN, &form.cmdAktualisieren, Anchors::topRight},
                       {IDC_ZUSTAND, &form.lblStatus, Anchors::bottomWide},
                       {IDCANCEL, &form.cmdClose, Anchors::bottomRight}},
                      guard_, gate_);
    constexpr SIZE smallest{340, 214};
    show(dialog, IDD_PLANLISTE, smallest);
}

void Win32FormPresenter::showModal(frmPlanUmbenennen& form) {
    FormDialog dialog(form,
                      {{IDC_MUSTER, &form.txtMuster, Anchors::topWide},
                       {IDC_SUCHEN, &form.txtSuchen},
                       {IDC_ERSETZEN, &form.txtErsetzen, Anchors::topWide},
                       {IDC_AB, &form.txtAb},
                       {IDC_SCHRITT, &form.txtSchritt},
                       {IDC_STELLEN, &form.txtStellen},
                       {IDC_NEU_BEGINNEN, &form.chkNeuBeginnen},
                       {IDC_LISTE, &form.lvVorschau, Anchors::all},
                       {IDC_ZUSTAND, &form.lblStatus, Anchors::bottomWide},
                       {IDOK, &form.cmdUmbenennen, Anchors::bottomRight},
                       {IDCANCEL, &form.cmdCancel, Anchors::bottomRight}},
                      guard_, gate_);
    constexpr SIZE smallest{320, 200};
    show(dialog, IDD_PLAN_UMBENENNEN, smallest);
}

void Win32FormPresenter::showModal(frmPlanReihenfolge& form) {
    FormDialog dialog(form,
                      {{IDC_LISTE, &form.lvLayouts, Anchors::all},
                       {IDC_OBEN, &form.cmdOben, Anchors::topRight},
                       {IDC_UNTEN, &form.cmdUnten, Anchors::topRight},
                       {IDC_NAMEN, &form.cmdNamen, Anchors::topRight},
                       {IDOK, &form.cmdOK, Anchors::bottomRight},
                       {IDCANCEL, &form.cmdCancel, Anchors::bottomRight}},
                      guard_, gate_);
    show(dialog, IDD_PLAN_REIHENFOLGE);
}

void Win32FormPresenter::showModal(frmPlanEinstellungen& form) {
    FormDialog dialog(form,
                      {{IDC_VON, &form.txtVon, Anchors::topWide},
                       {IDC_QUELLE, &form.cmdQuelle, Anchors::topRight},
                       {IDC_LISTE, &form.lvNach, Anchors::all},
                       {IDC_ZUSTAND, &form.lblStatus, Anchors::bottomWide},
                       {IDC_UEBERTRAGEN, &form.cmdUebertragen, Anchors::bottomRight},
                       {IDCANCEL, &form.cmdCancel, Anchors::bottomRight}},
                      guard_, gate_);
    show(dialog, IDD_PLAN_EINSTELLUNGEN);
}

void Win32FormPresenter::showModal(frmPlanPdf& form) {
    FormDialog dialog(form,
                      {{IDC_ORDNER, &form.txtOrdner, Anchors::topWide},
                       {IDC_DURCHSUCHEN, &form.cmdDurchsuchen, Anchors::topRight},
                       {IDC_MUSTER, &form.txtName, Anchors::topWide},
                       {IDC_ANDERE, &form.chkAndere},
                       {IDC_LISTE, &form.lvLayouts, Anchors::all},
                       {IDC_ZUSTAND, &form.lblStatus, Anchors::bottomWide},
                       {IDOK, &form.cmdPlotten, Anchors::bottomRight},
                       {IDC_ORDNER_OEFFNEN, &form.cmdOrdner, Anchors::bottomRight},
                       {IDCANCEL, &form.cmdCancel, Anchors::bottomRight}},
                      guard_, gate_);
    show(dialog, IDD_PLAN_PDF);
}

bool Win32FormPresenter::takeInput(const MSG& message) {
    return !dialogs_.empty() && dialogs_.back()->takeInput(message);
}

void Win32FormPresenter::show(FormDialog& dialog, int templateId, SIZE smallest) {
    struct Entry {
        std::vector<FormDialog*>& dialogs;
        ~Entry() { dialogs.pop_back(); }
    };
    const HWND owner = dialogs_.empty() ? mainWindow_->window() : dialogs_.back()->window();
    dialogs_.push_back(&dialog);
    const Entry entry{dialogs_};
    dialog.show(owner, templateId, smallest);
}

void Win32FormPresenter::showWork(const std::wstring& text) {
    for (auto dialog = dialogs_.rbegin(); dialog != dialogs_.rend(); ++dialog)
        if ((*dialog)->showWork(text)) return;
    if (mainWindow_) mainWindow_->showWork(text);
}

void Win32FormPresenter::closeDialogs() {
    for (auto dialog = dialogs_.rbegin(); dialog != dialogs_.rend(); ++dialog) (*dialog)->close();
}

}  // namespace blattwart
