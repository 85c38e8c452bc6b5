#include "dialogs/LayoutDialog.h"

#include <cmath>

#include "platform/Conversions.h"

namespace blattwart {

LayoutDialog::LayoutDialog(const LayoutDialogContext& context) : context_(context) {
    txtAnzahl.setText(L"1");
    txtLayout.events = {.change = [this] { txtLayout_Change(); },
                        .validate = [this] { return txtLayout_Validate(); }};
    txtAnzahl.events = {.change = [this] { txtAnzahl_Change(); },
                        .validate = [this] { return txtAnzahl_Validate(); }};
    cmdStart.events.click = [this] { cmdStart_Click(); };
    cmdCancel.events.click = [this] { cmdCancel_Click(); };
}

void LayoutDialog::takeDrawing() {
    const TreeNode* node = selectedNode();
    if (NodeKey::parse(node->key()).kind() != NodeKind::drawing) node = node->parent();
    txtDokument.setText(node->text());
    drawingKey_ = node->key();
}

void LayoutDialog::enableStart() {
    cmdStart.setEnabled(!txtLayout.text().empty() && !txtAnzahl.text().empty());
}

bool LayoutDialog::txtLayout_Validate() {
    return context_.general.CheckInvalidChars(txtLayout.text());
}

// There is no upper limit here: what does not fit is refused on start.
bool LayoutDialog::txtAnzahl_Validate() {
    double number = 0;
    if (!ignoringErrors([&] { number = userNumber(txtAnzahl.text(), context_.platform.locale); })) {
        context_.platform.messages.warn(L"Eingabe ist ungültig!");
        return true;
    }
    if (number >= 1 && number - std::trunc(number) == 0) return false;
    context_.platform.messages.warn(L"Ungültige Anzahl!");
    return true;
}

std::optional<std::int16_t> LayoutDialog::number() {
    std::optional<std::int16_t> number;
    const Locale& locale = context_.platform.locale;
    if (!ignoringErrors([&] { number = toInt16(userNumber(txtAnzahl.text(), locale)); }))
        context_.platform.messages.warn(L"Die Anzahl ist zu groß! Es sind höchstens 32767 möglich.");
    return number;
}

Lookup LayoutDialog::takeDocument() {
    const FoundDocuments found = context_.autoCAD.findByKey(drawingKey_);
    if (found.outcome == Lookup::found) context_.autoCAD.gAcadDoc = found.last();
    if (found.outcome == Lookup::noAnswer) context_.autoCAD.tellNoAnswer();
    if (found.outcome != Lookup::notOpen) return found.outcome;
    context_.platform.messages.warn(L"Die Zeichnung '" + txtDokument.text() +
                                    L"' ist in AutoCAD nicht mehr geöffnet!");
    // The watchdog steps aside while a dialog is open, so the tree still shows what was before.
    context_.autoCAD.ConnectAutoCAD();
    context_.views.RefreshTree();
    return found.outcome;
}

// The enter key starts without leaving the field, so both are looked at again.
void LayoutDialog::cmdStart_Click() {
    if (txtLayout_Validate()) return window().setFocus(txtLayout);
    if (txtAnzahl_Validate()) return window().setFocus(txtAnzahl);
    const std::optional<std::int16_t> count = number();
    if (!count) return window().setFocus(txtAnzahl);
    const host::Document active = context_.autoCAD.gAcadDoc;
    const Lookup outcome = takeDocument();
    const bool refused = outcome == Lookup::found && !start(txtLayout.text(), *count);
    // What was refused has activated nothing in the host.
    if (refused) context_.autoCAD.gAcadDoc = active;
    if (refused || outcome == Lookup::noAnswer) return window().setFocus(txtLayout);
    window().close();
}

}  // namespace blattwart
