#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "autocad/OpenDocument.h"
#include "data/NavigatorRecords.h"
#include "host/Application.h"
#include "platform/Platform.h"

namespace blattwart {

/// The AutoCAD session: attaching and starting, the active document, looking documents up.
class basAutoCAD {
  public:
    basAutoCAD(Platform& platform, NavigatorRecords& records) : platform_(platform), records_(records) {}

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

    /// What StartAutoCAD brings up to date; wired at start-up.
    std::function<void()> LoadTypes;
    std::function<void()> RefreshTree;

    bool IsAutoCADRunning();
    /// Attaches to the running AutoCAD and takes its active document; both are empty when there is none.
    void ConnectAutoCAD();
    /// Attaches to AutoCAD or starts it. When it cannot be started, its error text is shown and nothing
    /// changes.
    void StartAutoCAD();
    /// Folder, backslash and file name of gAcadDoc; "" when there is none or it does not answer.
    std::wstring GetActiveDrawingName();

    /// The attached host's folder of drawing templates; the last one told where it does not answer (as
    /// without an open drawing), "" without a host.
    std::wstring templateFolder();

    void BringWindowToFront(WindowHandle window);
    /// Brings the host's main window to the front; nothing happens when it does not answer.
    void BringAutoCADToFront();
    /// All open documents in the host's order. Throws when the host does not answer.
    std::shared_ptr<OpenDocuments> openDocuments();
    /// The open document of the drawing record with this key ("Z7"); the last one where several match, empty
    /// where none does.
    host::Document GetDocumentByKey(std::wstring_view key);
    /// All open documents with this full name, case ignored, in the host's order. Documents that are closed
    /// meanwhile are passed over; throws when the host does not answer.
    std::vector<host::Document> documentsNamed(const std::wstring& fullName);
    /// Name of the active layout of the open document with this full name, "" when there is none.
    std::wstring GetActiveLayoutName(const std::wstring& fullName);
    /// Makes the document AutoCAD's active one and gAcadDoc. Throws when the host refuses.
    void activate(const host::Document& document);
    /// Has AutoCAD make a new drawing, which becomes gAcadDoc, and brings AutoCAD to the front.
    void NewDrawingFromTemplate(const std::wstring& templateFile);
    /// Opens the DesignCenter at a folder or file and brings AutoCAD to the front.
    void NavigateDesignCenter(const std::wstring& target);
    /// Types answers into the document's command line, each ended by a carriage return, in one piece. Nothing
    /// is typed, the user is told why and the result is false when an answer holds control characters or when
    /// a command is running. Throws when the host refuses the text.
    bool typeCommand(const host::Document& document, std::initializer_list<std::wstring_view> answers);

    /// Whether a name holds control characters, which must not reach the host; the user has been told then.
    bool refusesControlCharacters(std::wstring_view name);

    /// Sets "FILEDIA" to 1, in all drawings, since it is one variable of the host. Where the host does not
    /// take it, the next ConnectAutoCAD tries again.
    void switchFileDialogsOn(const host::Document& document);

    /// Asks whether AutoCAD is to be started, No ending the program. Returns whether the answer was Yes.
    bool askToStart();

  private:
    Platform& platform_;
    NavigatorRecords& records_;
    int looks_ = 0;
    std::shared_ptr<OpenDocuments> seen_;  // only while a OneLook lives
    bool fileDialogsStillOff_ = false;
    std::wstring templateFolder_;
};

}  // namespace blattwart
