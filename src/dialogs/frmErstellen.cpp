#include "dialogs/frmErstellen.h"

#include "data/LayoutName.h"

namespace blattwart {

frmErstellen::frmErstellen(const LayoutDialogContext& context, basTarvix& tarvix, LayoutMembers& members,
                           host::Document document)
    : context_(context), tarvix_(tarvix), members_(members), document_(std::move(document)) {
    txtLayout.events = {.change = [this] { txtLayout_Change(); },
                        .validate = [this] { return txtLayout_Validate(); }};
    cmdStart.events.click = [this] { cmdStart_Click(); };
    cmdCancel.events.click = [this] { cmdCancel_Click(); };
}

void frmErstellen::Form_Load() {
    ignoringErrors([this] { txtDokument.setText(document_.Name()); });
    names_ = tarvix_.layoutNames(document_);
    const std::wstring base = L"Layout";
    std::int16_t counter = 1;
    txtLayout.setText(base + std::to_wstring(tarvix_.NextFreeLayoutNumber(names_, base, counter)));
    txtLayout_Change();
}

void frmErstellen::showHelp() {
    context_.help.ShowHelpTopic(helpTopic::withoutTarvix);
}

std::wstring frmErstellen::name() const {
    return layoutName(txtLayout.text());
}

bool frmErstellen::txtLayout_Validate() {
    const Platform& platform = context_.platform;
    std::wstring fault = layoutNameFault(name(), L"Model", platform.locale);
    if (fault.empty() && names_.contains(platform.locale.upperCase(name()))) fault = L"bereits vergeben";
    if (fault.empty()) return false;
    platform.messages.warn(L"AutoCAD nimmt diesen Namen nicht an: " + fault);
    return true;
}

// The enter key starts without leaving the field, so it is looked at again.
void frmErstellen::cmdStart_Click() {
    if (txtLayout_Validate() || context_.autoCAD.refusesWhileCommandRuns(document_) ||
        !members_.Create(document_, name()))
        return window().setFocus(txtLayout);
    context_.views.RefreshTree();
    window().close();
    context_.autoCAD.BringAutoCADToFront();
}

}  // namespace blattwart
