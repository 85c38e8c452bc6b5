#pragma once

#include "host/Document.h"
#include "platform/Desktop.h"

namespace blattwart::host {

/// The running host.
class Application : public HostObject {
  public:
    Application() = default;
    explicit Application(ObjectPtr application)
        : HostObject(std::move(application), std::make_shared<HostManners>()) {}

    /// Whether this is a face on just that object; asks nobody.
    bool is(const ObjectPtr& application) const { return object_ == application; }

    host::Documents Documents() const;
    /// Fails while no drawing is open.
    Document ActiveDocument() const;
    void putVisible(bool visible) const;
    WindowHandle HWND() const;
    /// Begins with the release: "24.3s (LMS Tech)".
    std::wstring Version() const;
    void RunMacro(const std::wstring& macro) const;
    void LoadDVB(const std::wstring& file) const;
    /// The folder of drawing templates, as the host is set up, without a backslash at its end. Three round
    /// trips.
    std::wstring templateFolder() const;
    /// Whether a layout that is shown for the first time opens the page setup, a dialog. Three round trips.
    bool showsPageSetup() const;
    void putShowsPageSetup(bool shows) const;

  private:
    ObjectPtr displayPreferences() const;
};

}  // namespace blattwart::host
