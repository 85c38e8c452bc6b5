#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "autocad/BorrowedSettings.h"
#include "autocad/CommandTexts.h"
#include "autocad/HostChoice.h"
#include "autocad/OpenDocument.h"
#include "data/NavigatorEvents.h"
#include "data/NavigatorRecords.h"
#include "host/Application.h"
#include "platform/Platform.h"

namespace blattwart {

/// What looking for an open document came to.
enum class Lookup {
    found,
    notOpen,
    noAnswer,  ///< the host did not tell of every document; the one looked for may be open
};

/// The open documents of one full name.
struct FoundDocuments {
    Lookup outcome = Lookup::notOpen;
    std::vector<host::Document> documents;  ///< in the host's order; none unless found

    /// The one that counts where several match; empty where none does.
    host::Document last() const { return documents.empty() ? host::Document() : documents.back(); }
};

/// The AutoCAD session: attaching and starting, the active document, looking documents up.
class basAutoCAD {
  public:
    basAutoCAD(Platform& platform, NavigatorRecords& records, NavigatorEvents& events)
        : borrowed(platform.settings),
          hosts(platform.installations, platform.settings),
          platform_(platform),
          records_(records),
          events_(events) {}

    /// While one lives, the host is asked only once which documents are open, what they are called and where
    /// they are. For events that look at documents several times and open or close none.
    class OneLook {
      public:
        explicit OneLook(basAutoCAD& autoCAD) : autoCAD_(autoCAD) { ++autoCAD_.looks_; }
        ~OneLook() {
            if (--autoCAD_.looks_ == 0) autoCAD_.seen_.reset();
        }
        OneLook(const OneLook&) = delete;
        OneLook& operator=(const OneLook&) = delete;

      private:
        basAutoCAD& autoCAD_;
    };

    /// The attached application, or empty.
    host::Application gAcadApp;
    /// Its active document as fetched at the last attach or activation, or empty.
    host::Document gAcadDoc;

    /// What of the host's own settings the program has put; the attach gives back what was forgotten.
    BorrowedSettings borrowed;
    /// Which AutoCAD is meant.
    HostChoice hosts;

    /// Reads the types of templates again, for StartAutoCAD; wired at start-up.
    std::function<void()> LoadTypes;

    /// Whether an AutoCAD runs that may be attached; also one that refuses calls or hangs does.
    bool IsAutoCADRunning();
    /// Attaches to the running AutoCAD and takes its active document; both are empty when there is none.
    /// While AutoCAD does not answer, both stay. In automatic choice an attached host is kept as long as it
    /// runs and the established one does not.
    void ConnectAutoCAD();
    /// Attaches to AutoCAD or starts it. When it cannot be started, its error text is shown and nothing
    /// changes; nor does anything when one runs that does not answer, which is told.
    void StartAutoCAD();
    /// The user chooses a release, or (none) the automatic choice. A release that runs is attached at once,
    /// one that does not run is started if the user wants that; otherwise nothing changes.
    void ChooseRelease(const std::optional<InstalledRelease>& choice);
    /// What the attached host is called, or the last one: "18" for the established family, else its release
    /// ("24.3"). "" before the first one.
    const std::wstring& hostName() const { return hostName_; }
    /// Whether the attached host is of the established family, with which everything is as it has always
    /// been.
    bool hostIsEstablished() const { return hostName_ == establishedHost; }
    /// The text of a command in the words for the attached host.
    std::wstring textOf(TypedCommand command, std::initializer_list<std::wstring_view> answers) const;
    /// Folder, backslash and file name of gAcadDoc; "" when there is none or it does not answer.
    std::wstring GetActiveDrawingName();

    /// The attached host's folder of drawing templates; the last one told where it does not answer (as
    /// without an open drawing), "" without a host.
    std::wstring templateFolder();

    void BringWindowToFront(WindowHandle window);
    /// Brings the host's main window to the front, a hidden one is shown; nothing happens when it does not
    /// answer.
    void BringAutoCADToFront();
    /// All open documents in the host's order. Throws when the host does not answer.
    std::shared_ptr<OpenDocuments> openDocuments();
    /// All open documents with this full name, case ignored. Documents that are closed meanwhile are passed
    /// over. Nothing is open where no host is attached or where it has gone.
    FoundDocuments find(const std::wstring& fullName);
    /// The same for the drawing record with this key ("Z7"); not open where there is no record.
    FoundDocuments findByKey(std::wstring_view key);
    /// For a command that needs the document: true when it was found. Otherwise the user is told why not,
    /// that AutoCAD does not answer in a message box, that the drawing is not open in the status line.
    bool foundOrTold(const FoundDocuments& found);
    /// Tells the user that AutoCAD does not answer.
    void tellNoAnswer();
    /// Runs what a command does. An error ends it; the user is told only where AutoCAD does not answer.
    /// Returns whether all went through.
    bool runCommand(const std::function<void()>& statements);
    /// The last open document of the drawing record with this key, empty where there is none or the host
    /// does not answer.
    host::Document GetDocumentByKey(std::wstring_view key) { return findByKey(key).last(); }
    /// Asks the host for the document that is active now; gAcadDoc follows it. Throws when the host does not
    /// answer or has none open; gAcadDoc stays then.
    const host::Document& fetchActiveDocument();
    /// Name of the active layout of the open document with this full name, "" when there is none.
    std::wstring GetActiveLayoutName(const std::wstring& fullName);
    /// Makes the document AutoCAD's active one and gAcadDoc. Throws when the host refuses.
    void activate(const host::Document& document);
    /// Has AutoCAD make a new drawing, which becomes gAcadDoc, and brings AutoCAD to the front.
    void NewDrawingFromTemplate(const std::wstring& templateFile);
    /// Opens the DesignCenter at a folder or file and brings AutoCAD to the front. A target that holds a
    /// blank is given in its short form; where there is none, nothing is typed.
    void NavigateDesignCenter(const std::wstring& target);
    /// Types a command with its answers into the document's command line, in one piece. Nothing is typed, the
    /// user is told why and the result is false when an answer cannot be typed or when a command is running.
    /// Throws when the host refuses the text.
    bool typeCommand(const host::Document& document, TypedCommand command,
                     std::initializer_list<std::wstring_view> answers = {});
    /// Whether an answer cannot be typed, since the host would make something else of it: it holds control
    /// characters, or begins as an expression ("("), a variable ("!") or a transparent command ("'"). The
    /// user has been told then.
    bool refusesAnswer(std::wstring_view answer);
    /// Whether a command runs in the document, which would take a typed text for its own answers; the user
    /// has been told then.
    bool refusesWhileCommandRuns(const host::Document& document);

    /// Whether a name holds control characters, which must not reach the host; the user has been told then.
    bool refusesControlCharacters(std::wstring_view name);

    /// Asks whether AutoCAD is to be started, No ending the program. Returns whether the answer was Yes.
    bool askToStart();

  private:
    static constexpr const wchar_t* establishedHost = L"18";

    /// The names to look under, the attached host's before others.
    std::vector<HostName> candidates();
    /// Attaches to the first of the hosts that runs and is meant. Throws when one does not answer.
    bool attachRunning(const std::vector<HostName>& names);
    /// Starts the first of the hosts that can be started. Where that fails the user has been told.
    bool launch(const std::vector<HostName>& names);
    void welcomeStarted();
    /// Makes the attached host visible; one that does not answer is made so at the next attach.
    void show();
    /// Takes the application if a host like this is meant by the name; its version is asked for, except of
    /// the established one in automatic choice. The one attached already stays with all that is known of it.
    /// Throws when it does not answer.
    bool attach(const HostName& name, ObjectPtr application);
    void take(const host::Application& application, const std::optional<Release>& release);
    void detach();
    void takeActiveDocument();

    Platform& platform_;
    NavigatorRecords& records_;
    NavigatorEvents& events_;
    int looks_ = 0;
    std::shared_ptr<OpenDocuments> seen_;  // only while a OneLook lives
    std::wstring hostName_;
    std::wstring programName_;        // by which it is attached
    std::optional<Release> release_;  // of the attached host, where it was asked for
    bool owesVisibility_ = false;     // one that was started may be hidden still
    std::wstring templateFolder_;
};

}  // namespace blattwart
