#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "planlist/HostPlotSettings.h"
#include "planlist/PlanGroup.h"
#include "planlist/PlanReader.h"
#include "planlist/PlanUndo.h"
#include "planlist/TransferPreview.h"

namespace blattwart {

/// Carries the plot settings of one layout to others, a layout a step. Within a drawing the host copies them;
/// into another one they are put one by one for its first layout, from which the others take theirs.
class PlanTransfer : public PlanGroup {
  public:
    PlanTransfer(PlanReader& reader, PlanList& plan, PlanUndo& undo, const Locale& locale)
        : reader_(reader), plan_(plan), undo_(undo), locale_(locale) {}

    /// Begins to carry over, all settings having been read before; the first step checks.
    void begin(int sourceRow, std::span<const int> targetRows, const SettingsByRow& settings);
    void beginUndo() override;
    bool step() override;
    void stop() override;
    /// What became of each target, by the number of its row.
    const std::map<int, std::wstring>& notes() const { return notes_; }

  private:
    enum class Phase { idle, check, write, readBack };
    struct Job {
        std::wstring drawing;
        std::wstring shownName;
        std::wstring layout;
        int row = 0;             // of a target
        std::size_t part = 0;    // of the operation
        std::wstring renamed{};  // says that the layout could not keep its name
    };

    void begin(std::vector<Job> jobs, bool undoing);
    void checkAll();
    void nextLayout();
    void transfer();
    void carryOver(const PlanList::Place& source, const PlanList::Place& target, const PlotSettings& wanted);
    /// Returns what was refused.
    std::vector<PlotRefusal> copy(const PlanList::Place& source, const PlanList::Place& target,
                                  const PlotSettings& wanted);
    bool copyAll(const PlanList::Place& from, const PlanList::Place& target);
    void keepName(const PlanList::Place& target);
    std::wstring noteOf(const PlotSettings& wanted, const PlotSettings& now,
                        const std::vector<PlotRefusal>& refusals) const;
    void takeBack();
    void putBack(SettingsChanged& changed, const PlanList::Place& target);
    /// Whether the drawing may be written to; otherwise the group has ended, or a reason is noted.
    bool isFit();
    void readBack();
    void finishWhenDone();
    void finish(PlanWriteResult::End end);
    SettingsChanged& part() { return undo_.top().settings[job_.part]; }
    PlanList::Place place();

    PlanReader& reader_;
    PlanList& plan_;
    PlanUndo& undo_;
    const Locale& locale_;
    Phase phase_ = Phase::idle;
    std::vector<Job> jobs_;  // the next one last
    Job job_;
    int sourceRow_ = 0;
    SettingsByRow settings_;
    std::map<std::wstring, int> patterns_;  // by drawing: the row from which others take theirs
    std::map<int, std::wstring> notes_;
    std::set<std::wstring> written_;  // drawings, whose state is read again in the end
    std::wstring checked_;            // the drawing that was checked last
};

}  // namespace blattwart
