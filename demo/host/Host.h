#pragma once

#include <memory>
#include <optional>

#include "demo/host/Dialog.h"
#include "demo/host/Disk.h"
#include "demo/host/HeldObjects.h"
#include "demo/host/HostOptions.h"
#include "demo/host/Macros.h"
#include "demo/host/OpenDocument.h"
#include "platform/Value.h"

namespace demo {

class Host;
using HostPtr = std::shared_ptr<Host>;

/// A text that a client typed into a document.
struct TypedText {
    std::wstring document;  ///< its folder, a backslash and its name
    std::wstring text;
    std::int16_t filedia = 1;  ///< FILEDIA when the text came
};

/// Whether the main window is shown as the host sees it.

/// One running instance of the host: what it has open and how it is set up. Clients work with its application
/// object; the operations here are what the user does at the host (and what both have in common).
/// Failures throw RuntimeError with the host's number and text.
class Host : public std::enable_shared_from_this<Host> {
  public:
    Host(HostOptions options, Disk disk);

    /// The object that clients work with.
    blattwart::ObjectPtr application();
    HostOptions& options() { return options_; }
    const HostOptions& options() const { return options_; }
    const Disk& disk() const { return disk_; }

    // Documents

    /// In the order in which they were opened.
    const std::vector<DocumentPtr>& documents() const { return documents_; }
    /// Null when no document is open.
    DocumentPtr activeDocument() const;
    /// The open document of this folder and name, case aside; null when there is none.
    DocumentPtr findDocument(const std::wstring& fullName) const;

    /// Opens a file and activates it. A file that is open already is opened once more, read-only.
    DocumentPtr openFile(const std::wstring& path, bool readOnly = false);
    /// A new drawing, active and never saved; "" takes the default template.
    DocumentPtr newDocument(const std::wstring& templateFile = L"");
    /// Adds and activates a drawing as if it had been opened from a file, which need not exist.
    DocumentPtr addDocument(const std::wstring& folder, const std::wstring& name, Drawing drawing);
    /// The same with empty paper layouts of these names, in this order of tabs, the first one current.
    DocumentPtr addDocument(const std::wstring& folder, const std::wstring& name,
                            const std::vector<std::wstring>& layouts);
    void activate(const DocumentPtr& document);
    /// Closes without asking. The document used before becomes active.
    void close(const DocumentPtr& document);
    void quit();
    bool ended() const { return ended_; }

    // Command line

    /// What a client types: recorded, the document becomes active, the text answers its prompts.
    void sendCommand(const DocumentPtr& document, const std::wstring& text);
    const std::vector<TypedText>& typedTexts() const { return typedTexts_; }
    void forgetTypedTexts() { typedTexts_.clear(); }
    /// The system variable FILEDIA: 0 when commands ask for files on the command line.
    std::int16_t filedia() const { return filedia_; }
    void setFiledia(std::int16_t filedia) { filedia_ = filedia; }

    /// The dialog that is open.
    const std::optional<Dialog>& dialog() const { return dialog_; }
    void showDialog(Dialog dialog) { dialog_ = std::move(dialog); }
    /// The user's answer to the open dialog; see Dialog::answer.
    void answerDialog(const std::wstring& answer) { endDialog(answer); }
    void cancelDialog() { endDialog(std::nullopt); }

    Macros& macros() { return macros_; }

    // Plotting

    /// Plots what the active document shows to a file, by the device. Returns whether the client is told that
    /// it succeeded.
    bool plot(const std::wstring& file, const std::wstring& device);
    /// Writes the files of the plots that go on behind the client's back.
    void finishPlots();

    // Window

    bool visible() const { return visible_; }
    void setVisible(bool visible) { visible_ = visible; }
    /// Handle of the main window.
    std::int64_t window() const { return window_; }
    void setWindow(std::int64_t window) { window_ = window; }

    HeldObjects& heldObjects() { return heldObjects_; }
    std::int32_t nextObjectNumber() { return ++objectNumber_; }
    /// A file name of the user's: relative ones belong to the template folder, `extension` is added when
    /// there is none.
    std::wstring templatePath(const std::wstring& file, const std::wstring& extension) const;

  private:
    DocumentPtr add(Drawing drawing, const std::wstring& folder, const std::wstring& name);
    void endDialog(std::optional<std::wstring> answer);
    bool writePlot(const std::wstring& file, const std::string& bytes) const;

    HostOptions options_;
    Disk disk_;
    HeldObjects heldObjects_;
    std::vector<DocumentPtr> documents_;
    std::vector<DocumentPtr> lastUsed_;
    std::vector<TypedText> typedTexts_;
    std::optional<Dialog> dialog_;
    Macros macros_;
    std::vector<std::pair<std::wstring, std::string>> unfinishedPlots_;
    std::int64_t window_ = 0x10A0C;
    std::int32_t documentNumber_ = 0;
    std::int32_t newDrawings_ = 0;
    std::int32_t objectNumber_ = 0;
    std::int16_t filedia_ = 1;
    bool visible_ = false;
    bool ended_ = false;
};

/// A host without a document, invisible as when started by a client.
HostPtr makeHost(HostOptions options = {}, Disk disk = {});

}  // namespace demo
