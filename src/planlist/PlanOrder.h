#pragma once

#include <string>
#include <vector>

#include "planlist/PlanGroup.h"
#include "planlist/PlanReader.h"
#include "planlist/PlanUndo.h"

namespace blattwart {

/// Writes the order of the layouts of drawings, a drawing a step.
class PlanOrder : public PlanGroup {
  public:
    PlanOrder(basAutoCAD& autoCAD, PlanReader& reader, PlanList& plan, PlanUndo& undo)
        : autoCAD_(autoCAD), reader_(reader), plan_(plan), undo_(undo) {}

    struct NewOrder {
        std::wstring drawing;             ///< its identity
        std::vector<std::wstring> names;  ///< of all its layouts, as their tabs are to stand
    };
    /// Begins to order; the first step checks.
    void begin(const std::vector<NewOrder>& orders);
    void beginUndo() override;
    bool step() override;
    void stop() override;

  private:
    enum class Phase { idle, check, write, takeBack };
    struct Job {
        std::wstring drawing;
        std::wstring shownName;
        std::vector<std::wstring> names;  // as they are to stand
    };

    void start(std::vector<Job> jobs, bool undoing);
    void checkAll();
    void nextDrawing();
    bool isAsShown(PlanDrawing& drawing);
    bool fits(PlanDrawing& drawing);
    void write(const Job& job);
    void takeBack();
    bool put(PlanDrawing& drawing, const std::vector<std::wstring>& names);
    void repaint(const PlanDrawing& drawing);
    std::vector<std::wstring> present(PlanDrawing& drawing);
    OrderChanged& undoPart() { return undo_.top().orderOf(job_.drawing, job_.shownName); }
    void finish(PlanWriteResult::End end);

    basAutoCAD& autoCAD_;
    PlanReader& reader_;
    PlanList& plan_;
    PlanUndo& undo_;
    Phase phase_ = Phase::idle;
    std::vector<Job> jobs_;  // the next one last
    Job job_;
    std::wstring activeDrawing_;  // its full name; "" until it is asked for
    // The names of the job's drawing as they stood; none until something is put.
    std::vector<std::wstring> before_;
};

}  // namespace blattwart
