#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "autocad/basAutoCAD.h"

namespace blattwart {

/// What became of a routine of the macro project.
enum class MacroRun {
    ran,
    failed,         ///< and the user has been told
    withoutProject  ///< the same, and the host has not got the project: routine, loading and start-up failed
};

/// The name of a layout as the host takes it: the base name, followed by the number unless that is 0, without
/// blanks at its ends.
std::wstring layoutName(const std::wstring& baseName, std::int16_t number = 0);

/// The host's macro project, and what is done with layouts by its routines or by typed commands.
class basTarvix {
  public:
    basTarvix(basAutoCAD& autoCAD, Platform& platform) : autoCAD_(autoCAD), platform_(platform) {}

    /// Brings the host to the front and runs a routine of the macro project, loading the project first where
    /// it is missing.
    MacroRun RunHostMacro(const std::wstring& name);
    /// Deletes a layout by the routine that deletes the active one. Before each attempt document and layout
    /// are made the active ones and read back: loading the project shows dialogs, and the user may click
    /// elsewhere meanwhile. Throws when the host refuses to activate them.
    MacroRun DeleteLayout(const host::Document& document, const host::Layout& layout, const CAcadobj& record);
    /// Creates a layout. `drawing` is the full name of the drawing whose document is made the active one
    /// first; empty: the document that is active already. Throws when the drawing is not open any more or the
    /// host refuses, so that no other drawing gets the layout. Where the host has no macro project and the
    /// user wants to do without it, the result is the document that is to get the layout; empty otherwise.
    /// Once wanted, that is not asked for again with this host.
    host::Document CreateLayout(const std::wstring& drawing);
    /// Names of all layouts of the document in upper case. Empty where the host does not answer.
    std::set<std::wstring> layoutNames(const host::Document& document);
    /// First free number from `counter` on for a layout called base name + number (0: the bare base name).
    /// `names` are those taken, in upper case. `counter` ends one above the last number tried. 0 when the
    /// search has reached 2500.
    std::int16_t NextFreeLayoutNumber(const std::set<std::wstring>& names, const std::wstring& baseName,
                                      std::int16_t& counter);
    /// Copies a layout of gAcadDoc. A single copy takes the bare base name when it is free, several are
    /// always numbered; `newBaseName` receives the name actually used for a single copy. The new layout, or
    /// the first of several, becomes the current one. Esc ends it between two copies. Failures are told;
    /// copies made before stay. Returns false when the names or a running command were refused before
    /// anything was typed.
    bool CopyLayouts(const std::wstring& sourceName, std::wstring& newBaseName, std::int16_t copies);

  private:
    /// Runs a routine, loading the project where it is missing. `ready` is asked directly before each
    /// attempt; where it says no, it has told the user. That the project is not there is never said of the
    /// established host, nor after a lost answer or one that was refused.
    MacroRun run(const std::wstring& name, const std::function<bool()>& ready);
    /// Whether the user wants to do without the project.
    bool createsWithoutProject();
    void typeCopies(const std::wstring& sourceName, std::wstring& newBaseName, std::int16_t copies);

    basAutoCAD& autoCAD_;
    Platform& platform_;
    std::set<std::wstring> createsWithoutProject_;  // names of hosts
};

}  // namespace blattwart
