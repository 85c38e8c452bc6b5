#pragma once

#include <string>
#include <vector>

#include "controls/ListView.h"
#include "controls/TreeView.h"
#include "data/CAFenster.h"
#include "views/NavigatorContext.h"

namespace blattwart {

/// Shows everything known about the selected layout: plot settings, stamp, north arrow, legend and the
/// viewports that the system manages. A host call that fails leaves its row's value empty and nothing else.
class LayoutDetails {
  public:
    LayoutDetails(TreeView& tree, ListView& list, const NavigatorContext& context)
        : tree_(tree), list_(list), context_(context) {}

    void FillLayoutDetails();

  private:
    struct Contents;

    void addRows(const std::wstring& layoutName);
    void fillPlotSettings(const host::Layout& layout);
    /// The rows, in one update of the list. Failed readings of extended data are reported.
    void fill(XDataReport& report);
    Contents readContents(const host::Layout& layout, XDataReport& report);
    void readEntity(const host::Entity& entity, XDataReport& report, Contents& contents);
    void addViewports(const std::vector<CAFenster>& viewports);
    /// Label and scale; "" when the host did not tell the scale.
    std::wstring viewportText(const CAFenster& viewport) const;
    void setValue(std::wstring_view key, std::wstring text);
    const CBlock* definition(std::int32_t typeId, const std::wstring& blockName) const;

    TreeView& tree_;
    ListView& list_;
    NavigatorContext context_;
};

}  // namespace blattwart
