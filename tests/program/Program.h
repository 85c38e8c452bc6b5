#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "demo/ado/Ado.h"
#include "demo/host/CallRecorder.h"
#include "demo/host/DemoAutomation.h"
#include "demo/samples/SampleDatabase.h"
#include "FakeWindow.h"
#include "shell/basMain.h"
#include "support/Picture.h"
#include "support/TestPlatform.h"
#include "support/User.h"

namespace blattwart::test {

/// The library beside the program, for when no host tells its own.
inline constexpr const wchar_t* ownLibrary = L"C:\\Programme\\Blattwart\\Bibliothek\\Vorlagen";

/// A folder of its own for one test, removed afterwards.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// The whole program between the demonstration host, a database file and a world of fakes. The test
/// plays the user. The host runs unless the test ends it; the database holds the demonstration's tables; the
/// library is C:\Vorlagen with Plan A3.dwt and Rahmen.dwg.
class Program : public testing::Test {
  protected:
    explicit Program(demo::HostOptions options = {});

    /// Starts the program. Returns whether its main window stands.
    bool start() { return main->Main(); }
    /// Another program begins in the same world.
    bool startAgain();
    frmMain& form() { return *main->fMainForm; }
    TreeView& tree() { return form().tvTreeView; }
    ListView& list() { return form().lvListView; }
    demo::Host& host() { return *demo.host(release); }
    /// Does this with each kind of host that there is by the ids of its objects: it runs, the program has not
    /// begun.
    void onEveryKindOfHost(const std::function<void()>& test);
    /// From its next start on the host is this one, entered as installed.
    void useHost(demo::HostOptions options);
    std::wstring status() { return form().sbStatusBar.panelText(1); }
    /// The hint in the status line.
    std::wstring hint() { return form().sbStatusBar.panelText(2); }

    std::wstring treeText() { return test::treeText(form()); }
    /// Its part above the library.
    std::wstring drawingsText() { return treeText().substr(0, treeText().find(L"B ")); }
    /// Names of the paper layouts in the order of their tabs, separated by commas.
    static std::wstring layoutsOf(const demo::Drawing& drawing);
    static std::wstring layoutsOf(const demo::DocumentPtr& document) {
        return layoutsOf(document->drawing());
    }

    void click(std::wstring_view key) { tree().userClicks(tree().node(key)); }
    void refresh() { main->views->RefreshTree(); }
    void leave() { test::leave(world.desktop, form()); }
    void leaveAndReturn() { test::leaveAndReturn(world.desktop, form()); }
    void choose(std::wstring_view item) { test::choose(form(), item); }
    /// From now on the database is a new one, changed by these SQL statements.
    void useDatabase(std::wstring_view statements);

    static constexpr const char* registryKey = "SOFTWARE\\Ormeda\\Tarvix 2.1";

    std::wstring release = L"18";  ///< of `host`
    TemporaryFolder folder;
    demo::DemoAutomation demo;
    demo::CallRecorder calls;
    TestPlatform world;
    FakePresenter presenter;
    demo::AdoFaults adoFaults;
    std::unique_ptr<basMain> main;
};

/// The number of calls to the host's objects.
std::size_t hostCalls(const demo::CallRecorder& calls);

inline ShownBox question(std::wstring text) {
    return {std::move(text), L"Blattwart", MessageButtons::yesNo, MessageIcon::question};
}
inline ShownBox told(std::wstring text, MessageIcon icon = MessageIcon::exclamation) {
    return {std::move(text), L"Blattwart", MessageButtons::ok, icon};
}

}  // namespace blattwart::test
