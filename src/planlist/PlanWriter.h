#pragma once

#include <optional>
#include <string>
#include <vector>

#include "planlist/PlanGroup.h"
#include "planlist/PlanReader.h"
#include "planlist/PlanUndo.h"
#include "planlist/RenamePlan.h"

namespace blattwart {

/// Renames layouts, a drawing a step, so that each is changed as a whole or not at all.
class PlanWriter : public PlanGroup {
  public:
    PlanWriter(PlanReader& reader, PlanList& plan, PlanUndo& undo, Platform& platform)
        : reader_(reader), plan_(plan), undo_(undo), platform_(platform) {}

    /// A new name for a row of the list.
    struct NewName {
        int row = 0;
        std::wstring name;
    };
    /// Begins to rename; RenamePreview::possible has been asked before. The first step checks. The first
    /// drawing that refuses ends the group: it gets its old names back, those before it keep the new ones.
    void beginRenaming(const std::vector<NewName>& names);
    void beginUndo() override;
    bool step() override;
    void stop() override;

  private:
    struct Job {
        std::wstring drawing;  // its identity
        std::wstring shownName;
        std::vector<NameChanged> names;  // as they are, and as they are to be
    };
    /// A drawing in the middle of being renamed. Its rows keep their places meanwhile.
    struct Work {
        Job job;
        std::vector<RenameStep> steps;
        std::size_t done = 0;    // steps that went through
        bool uncertain = false;  // whether the step after those did is not known
        std::optional<PlanWriteResult::Refusal> refusal;
    };
    enum class Phase { idle, check, write, takeBack };

    void begin(std::vector<Job> jobs, bool undoing);
    void checkAll();
    void nextDrawing();
    /// The reasons why a drawing's part cannot be taken back; it is checked and read again for it.
    std::vector<std::wstring> unfit(Job& job);
    void rename(Job job);
    void takeBack();
    /// Puts a name and notes it. Returns the host's reason when it did not come to pass, which is not known
    /// with `uncertain` set.
    std::optional<std::wstring> put(const RenameStep& step, const std::wstring& name);
    void noteName(PlanRow& row, const std::wstring& name);
    void endDrawing();
    void finishWhenDone();
    DrawingNamesChanged& undoPart() { return undo_.top().namesOf(work_.job.drawing, work_.job.shownName); }
    PlanDrawing* drawing() { return plan_.findDrawing(work_.job.drawing); }
    void finish(PlanWriteResult::End end);

    PlanReader& reader_;
    PlanList& plan_;
    PlanUndo& undo_;
    Platform& platform_;
    Phase phase_ = Phase::idle;
    std::vector<Job> jobs_;  // the next one last
    Work work_;
};

}  // namespace blattwart
