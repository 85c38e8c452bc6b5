#include "planlist/frmPlanUmbenennen.h"

#include "planlist/PlanPlaceholders.h"

namespace blattwart {

frmPlanUmbenennen::frmPlanUmbenennen(PlanList& plan, std::vector<int> rows, RenamePattern& pattern,
                                     basHTMLHelp& help, Platform& platform)
    : lvVorschau(platform.locale),
      plan_(plan),
      rows_(std::move(rows)),
      pattern_(pattern),
      help_(help),
      locale_(platform.locale) {
    lvVorschau.setMode(ListViewMode::details);
    for (const auto& [header, width] : {std::pair{L"Zeichnung", 1900.0F}, std::pair{L"Alter Name", 2200.0F},
                                        std::pair{L"Neuer Name", 2200.0F}, std::pair{L"Hinweis", 2700.0F}})
        lvVorschau.addColumn(header, width);
    txtMuster.setText(pattern.text);
    txtSuchen.setText(pattern.find);
    txtErsetzen.setText(pattern.replacement);
    txtAb.setText(pattern.first);
    txtSchritt.setText(pattern.step);
    txtStellen.setText(pattern.digits);
    chkNeuBeginnen.setChecked(pattern.restartInEachDrawing);
    for (TextBox* field : {&txtMuster, &txtSuchen, &txtErsetzen, &txtAb, &txtSchritt, &txtStellen})
        field->events.change = [this] { takeFields(); };
    chkNeuBeginnen.events.click = [this] { takeFields(); };
    cmdUmbenennen.events.click = [this] { cmdUmbenennen_Click(); };
    cmdCancel.events.click = [this] { window().close(); };
    showPreview();
}

void frmPlanUmbenennen::showHelp() {
    help_.ShowHelpTopic(helpTopic::renameByPattern);
}

void frmPlanUmbenennen::takeFields() {
    pattern_ = {.text = txtMuster.text(),
                .find = txtSuchen.text(),
                .replacement = txtErsetzen.text(),
                .first = txtAb.text(),
                .step = txtSchritt.text(),
                .digits = txtStellen.text(),
                .restartInEachDrawing = chkNeuBeginnen.checked()};
    showPreview();
}

void frmPlanUmbenennen::showPreview() {
    preview_ = previewPattern(plan_, rows_, pattern_, locale_);
    {
        const Update<ListView> update(lvVorschau);
        lvVorschau.clear();
        for (const RenamePreviewRow& row : preview_.rows) {
            ListItem& item = lvVorschau.add(PlanList::keyOf(row.number), row.drawing);
            item.setColumn(2, row.oldName);
            item.setColumn(3, row.newName);
            item.setColumn(4, row.note);
        }
    }
    const bool numbered = hasPlaceholder(pattern_.text, L"Nr", locale_);
    for (Control* control : {static_cast<Control*>(&txtAb), static_cast<Control*>(&txtSchritt),
                             static_cast<Control*>(&txtStellen), static_cast<Control*>(&chkNeuBeginnen)})
        control->setEnabled(numbered);
    lblStatus.setText(preview_.statusText());
    cmdUmbenennen.setEnabled(preview_.possible());
}

void frmPlanUmbenennen::cmdUmbenennen_Click() {
    for (const RenamePreviewRow& row : preview_.rows)
        if (row.changes()) names_.push_back({row.number, row.newName});
    window().close();
}

}  // namespace blattwart
