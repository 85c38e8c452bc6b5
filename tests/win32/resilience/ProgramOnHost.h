#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "com/Client.h"
#include "demo/host/CallRecorder.h"
#include "shell/basMain.h"
#include "support/Picture.h"
#include "support/Scenarios.h"
#include "support/TestPlatform.h"
#include "win32/platform/Win32Files.h"
#include "win32/platform/Win32Installations.h"
#include "win32/ui/Win32FormPresenter.h"

namespace blattwart::test {

/// What the window showed when it was told of the busy host.
struct BusyMoment {
    std::int32_t milliseconds = 0;  ///< since the call was made; 0 at the end
    std::wstring status;            ///< the status bar's panel of its own for this; "" when there is none
    bool painted = true;            ///< since the moment before, at which the tree was made to be painted
};

/// The demonstration host in a process of its own, with the sample drawings.
class HostProgram {
  public:
    /// Enters the host as this release, and ADO with a database, in the registry.
    explicit HostProgram(std::wstring release = L"18");

    /// Starts the host on fresh files, Plan.dwg active in Blatt 1, and waits until clients find it.
    void start(Client& client, const std::wstring& options = {});
    void kill() { program_.reset(); }
    RunningProgram& operator*() { return *program_; }
    RunningProgram* operator->() { return &*program_; }

    /// Messages on the wire that were carried out so far.
    int messages();
    /// What clients typed into it.
    std::wstring typed() { return told(L"typed"); }
    /// Its drawings and layouts, "*" where active, a line each, sorted.
    std::wstring drawings();
    /// BACKGROUNDPLOT and whether it asks for the page setup of new layouts, a line each.
    std::wstring profile();

    static constexpr const wchar_t* name = L"AutoCAD.Application.18";
    static constexpr const wchar_t* window = L"CadHostWindow";
    static const std::wstring database;

  private:
    std::wstring told(const std::wstring& command);

    std::wstring release_;
    std::wstring window_;
    std::optional<RunningProgram> program_;
};

/// The whole program in its real window, over COM on the host and on the database. What it asks in message
/// boxes is answered by the test, which also says whose window is in front.
class ProgramOnHost {
  public:
    /// The user is asked whether to give up each time the host has been busy for so long.
    explicit ProgramOnHost(std::chrono::milliseconds askAfter);
    ~ProgramOnHost();
    ProgramOnHost(const ProgramOnHost&) = delete;
    ProgramOnHost& operator=(const ProgramOnHost&) = delete;

    /// Starts the program, anew when it is there already. Returns whether it goes on.
    bool start();
    frmMain& form() { return *main->fMainForm; }
    TreeView& tree() { return form().tvTreeView; }
    ListView& list() { return form().lvListView; }

    /// Does something as the user, in an event of its own; what it takes in milliseconds. Other messages
    /// wait: when the system activates a window is not certain.
    std::int64_t act(const std::function<void()>& action);
    /// The user goes to another program and comes back; the watchdog looks at both.
    void leaveAndReturn();
    /// Does an action of the main window, as `act`, and what there is to do in the dialogs that it opens. In
    /// the plan list, once everything has been read, that is `inPlanList`; once that is done, too, it is
    /// closed.
    std::int64_t perform(const Action& action, std::function<void(frmPlanliste&)> inPlanList = {});
    /// "Plan.dwg/Blatt 2", "Plan A3.dwt" or "B"; null when there is no such node.
    TreeNode* node(const std::wstring& path);

    /// What stands under "Geladene Zeichnungen", as HostProgram::drawings tells it.
    std::wstring drawings();
    /// Everything that the window shows.
    std::wstring shown() { return treeText(form()) + picture(form()); }

    Client client;
    demo::CallRecorder calls{client.automation};
    TestPlatform world{calls};
    Win32FormPresenter presenter{client.guard, client.gate};
    std::unique_ptr<basMain> main;

    std::vector<BusyMoment> busy;
    /// What the user does while a call waits.
    std::function<void(std::int32_t milliseconds)> whileBusy;
    bool impatient = true;  ///< he presses a key whenever the program waits
    int asked = 0;          ///< how often the user was asked whether to give up
    bool givesUp = false;   ///< his answer

  private:
    void workInDialog();
    static void plotInto(HWND pdf);
    void noteBusy(HostState state, std::int32_t milliseconds);
    std::wstring busyPanel();

    Win32Files files_;
    Win32Installations installations_;
    Platform platform_{calls,          world.registry,    world.settings, files_,        world.clipboard,
                       world.messages, world.fileDialogs, world.desktop,  world.process, world.locale,
                       world.help,     world.readings,    installations_, client.gate,   world.worker};
    std::function<void(frmPlanliste&)> nextInPlanList_;
    bool copyingConfirmed_ = false;
    bool painted_ = false;
};

}  // namespace blattwart::test
