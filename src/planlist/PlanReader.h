#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "autocad/basAutoCAD.h"
#include "planlist/PlanList.h"
#include "planlist/PlotSettings.h"

namespace blattwart {

/// Reads what the host has open into a PlanList. A reading of everything goes in steps, so that the window
/// can paint and take input between them: first which drawings are open, then drawing by drawing, last the
/// readable names of papers. It costs at most 12 messages for a drawing, 5 for a layout, and 100 for papers.
class PlanReader {
  public:
    PlanReader(basAutoCAD& autoCAD, Platform& platform, PlanList& plan)
        : autoCAD_(autoCAD), platform_(platform), plan_(plan) {}

    enum class State {
        idle,       ///< never read
        reading,    ///< more steps are to come
        done,       ///< everything was read
        stopped,    ///< the user ended it, or a drawing gave an error; some are missing
        noAnswer,   ///< the host did not answer; what was read before stays
        notRunning  ///< there is no host; the list is empty
    };

    /// Begins to read everything. Nothing is asked yet and the list stays as it is.
    void begin();
    /// The next step: the drawings' names, one drawing, or one paper. Esc during a step ends the reading.
    /// Returns whether more is to come.
    bool step();
    /// Ends the reading between two steps; what is missing then is dropped, but papers just keep the names
    /// they have.
    void stop();
    State state() const { return state_; }
    /// "Zeichnung 3 von 10 wird gelesen …", or why the last reading is not complete; "" when it is.
    std::wstring statusText() const;

    /// Whether an error of a drawing's means that the drawing alone is gone. One round trip when it may be.
    bool isClosed(const RuntimeError& error);
    /// Reads the drawing's current layout, and whether it is changed or read-only. Returns whether the host
    /// answers.
    bool readState(PlanDrawing& drawing);
    /// Reads the names of these rows (by their places) and the drawing's state anew, after they were changed
    /// from here. What the host does not tell stays as it is known.
    void readNames(PlanDrawing& drawing, std::span<const std::size_t> rows);

    /// Whether the host is as the list says, asked before anything is written.
    struct Check {
        enum class Result { asRead, commandRunning, changed, noAnswer, cancelled };
        Result result = Result::asRead;
        std::vector<std::wstring> changed;  ///< shown names of the drawings that differ
    };
    /// Asks whether no command runs in the active and in these drawings (by their identities), and whether
    /// their names and those of their layouts are as in the list; where not, they are read again, after which
    /// papers may be left to read by `step`. The rows' layouts are those of the host at this moment then.
    Check check(std::span<const std::wstring> drawings);
    /// The facts of a row that are shown, after they were changed from here. The paper's readable name may be
    /// left to read by `step`.
    void takePlotFacts(PlanRow& row, const PlotSettings& settings);

  private:
    enum class Phase { names, drawings, papers };
    /// How reading one drawing ended; `failed` where the host gave an error.
    enum class Outcome { read, closed, failed, noAnswer, ended };

    void readOpenDrawings(LongRead& watch);
    void readNextDrawing(LongRead& watch);
    Outcome readDrawing(PlanDrawing& drawing, LongRead& watch);
    std::optional<std::vector<PlanRow>> readRows(PlanDrawing& drawing, LongRead& watch);
    std::optional<PlanRow> readRow(PlanDrawing& drawing, const host::Layout& layout);
    void nameKnownPaper(PlanRow& row) const;
    void askState(PlanDrawing& drawing);
    void findPapers();
    void readNextPaper();
    void finish(State state);
    void finishRead();

    Check checkDrawings(std::span<const std::wstring> drawings, LongRead& watch);
    bool commandRuns(std::span<const std::wstring> drawings);
    Outcome compare(PlanDrawing& drawing, LongRead& watch);
    void readAgain(const std::wstring& identity, LongRead& watch);

    using Paper = std::pair<std::wstring, std::wstring>;  // device, canonical name

    basAutoCAD& autoCAD_;
    Platform& platform_;
    PlanList& plan_;
    State state_ = State::idle;
    Phase phase_ = Phase::names;
    std::vector<std::wstring> waiting_;  // identities of drawings yet to be read, the next one last
    std::size_t total_ = 0;
    std::size_t missing_ = 0;
    std::vector<int> papersWaiting_;        // a row number for each, the next one last
    std::map<Paper, std::wstring> papers_;  // "" where there is no readable name
};

}  // namespace blattwart
