#pragma once

#include <vector>

#include "controls/Dialog.h"
#include "controls/ListView.h"
#include "dialogs/basHTMLHelp.h"
#include "planlist/PlanOrder.h"
#include "planlist/TabOrderPlan.h"

namespace blattwart {

/// Lets the user order the layouts of drawings.
class frmPlanReihenfolge : public Dialog {
  public:
    /// A step that the user has asked for already.
    enum class FirstStep { none, up, down };
    /// Shows all layouts of the drawings to which the rows belong, these selected.
    frmPlanReihenfolge(PlanList& plan, const std::vector<int>& rows, FirstStep step, basHTMLHelp& help,
                       Platform& platform);

    ListView lvLayouts;
    Button cmdOben;
    Button cmdUnten;
    Button cmdNamen;
    Button cmdOK;
    Button cmdCancel;

    /// The orders that differ from the present ones; none when the user has cancelled.
    const std::vector<PlanOrder::NewOrder>& orders() const { return orders_; }

    Control* firstField() override { return &lvLayouts; }
    void showHelp() override;
    std::function<void()> commandOf(const Shortcut& key, const Control* focused) override;

  private:
    struct Drawing {
        std::wstring identity;
        std::wstring shownName;
        TabOrder before;
        TabOrder order;
    };

    void move(bool (*step)(TabOrder&));
    void orderAllByName();
    void takeSelection();
    void show();
    void showState();
    void cmdOK_Click();

    PlanList& plan_;
    basHTMLHelp& help_;
    const Locale& locale_;
    std::vector<Drawing> drawings_;
    std::vector<PlanOrder::NewOrder> orders_;
};

}  // namespace blattwart
