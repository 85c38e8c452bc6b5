#pragma once

#include <optional>
#include <string>
#include <vector>

#include "planlist/PlotSettings.h"

namespace blattwart {

/// What a layout was called and is called since.
struct NameChanged {
    std::wstring before;
    std::wstring now;
};

/// What an operation did to the layouts of one drawing.
struct DrawingNamesChanged {
    std::wstring drawing;    ///< its identity in the PlanList
    std::wstring shownName;  ///< for messages
    std::vector<NameChanged> names;
    /// A name put whose answer was lost: the layout is called by one of both.
    std::optional<NameChanged> unknown;

    /// A layout was given another name, or its old one back, which leaves nothing to take back of it.
    void note(const std::wstring& from, const std::wstring& to);
    /// How many were, or may have been, given another name.
    std::size_t layouts() const;
};

/// What an operation did to the order of one drawing's layouts.
struct OrderChanged {
    std::wstring drawing;    ///< its identity in the PlanList
    std::wstring shownName;  ///< for messages
    std::vector<std::wstring> before;
    std::vector<std::wstring> now;  ///< empty where it is not known
};

/// What an operation did to the plot settings of one layout.
struct SettingsChanged {
    std::wstring drawing;    ///< its identity in the PlanList
    std::wstring shownName;  ///< of the drawing, for messages
    std::wstring layout;
    PlotSettings before;
    std::optional<PlotSettings> now;  ///< none where it is not known
};

/// One operation that can be taken back: what has been done of it so far, of one of these kinds.
struct PlanUndoEntry {
    std::vector<DrawingNamesChanged> names;
    std::vector<OrderChanged> orders;
    std::vector<SettingsChanged> settings;

    /// What it did to this drawing; added when it is the first.
    DrawingNamesChanged& namesOf(const std::wstring& drawing, const std::wstring& shownName);
    OrderChanged& orderOf(const std::wstring& drawing, const std::wstring& shownName);
    /// "12 Layouts umbenannt".
    std::wstring text() const;
};

/// What can be taken back, the last operation first. Lives as long as the program, beside the window.
class PlanUndo {
  public:
    bool empty() const { return entries_.empty(); }
    /// The operation that is taken back next. There must be one.
    PlanUndoEntry& top() { return entries_.back(); }
    const PlanUndoEntry& top() const { return entries_.back(); }
    PlanUndoEntry& push() { return entries_.emplace_back(); }
    /// Drops the last operation: it was taken back, or the user gives it up.
    void pop() { entries_.pop_back(); }
    /// Drops the last operation if nothing is left to be taken back of it, with the drawings that are done.
    /// Returns whether it is still there.
    bool settle();

  private:
    std::vector<PlanUndoEntry> entries_;
};

}  // namespace blattwart
