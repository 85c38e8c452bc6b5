#pragma once

#include "planlist/PlanExport.h"
#include "Program.h"

namespace blattwart::test {

using Texts = std::vector<std::wstring>;

/// The plan list over Haus.dwg (EG, OG 10, OG 2) and Plan.dwg (Schnitt, EG), which is active. A message box
/// that was not announced fails the test.
class PlanListProgram : public Program {
  protected:
    PlanListProgram() {
        house = host().addDocument(L"C:\\Haus", L"Haus.dwg", {L"EG", L"OG 10", L"OG 2"});
        plan = host().addDocument(L"C:\\Haus", L"Plan.dwg", {L"Schnitt", L"EG"});
        start();
        world.messages.strict = true;
    }

    /// Opens the plan list; everything has been read when the user does something.
    void open(std::function<void()> user) {
        presenter.inPlanliste = [this, user = std::move(user)](frmPlanliste&) {
            window().goOn();
            user();
            if (!window().closed) list().cmdClose.userClicks();
        };
        choose(L"mnuPlanList");
        EXPECT_TRUE(window().closed);
        EXPECT_EQ(world.messages.outstanding(), 0U);
    }
    /// Selects these ("Haus.dwg/EG"), the first one with the focus.
    void select(const Texts& rows) {
        std::vector<ListItem*> items;
        for (const std::wstring& row : rows)
            for (int i = 0; i < list().lvPlan.count(); ++i)
                if (text(list().lvPlan.row(i)) == row) items.push_back(&list().lvPlan.row(i));
        EXPECT_EQ(items.size(), rows.size());
        list().lvPlan.userSelects(items, items.front());
    }
    void press(const Shortcut& key) { window().press(key, &list().lvPlan); }
    static Shortcut control(wchar_t letter) {
        return {.key = static_cast<std::uint16_t>(letter), .control = true};
    }

    /// The headers of a list of details, as they stand on the screen.
    static Texts headers(const ListView& shown) {
        EXPECT_EQ(shown.mode(), ListViewMode::details);
        return planTable(shown).front();
    }
    frmPlanliste& list() { return main->planList; }
    FakeDialogWindow& window() { return presenter.dialog; }
    /// "Haus.dwg/EG"
    static std::wstring text(const ListItem& item) { return item.column(2) + L"/" + item.text(); }
    std::wstring status() { return list().lblStatus.text(); }

    demo::DocumentPtr house;
    demo::DocumentPtr plan;
};

}  // namespace blattwart::test
