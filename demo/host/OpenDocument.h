#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "demo/host/CommandLine.h"
#include "demo/host/Disk.h"
#include "demo/host/HostOptions.h"

namespace demo {

class Host;

/// An open drawing. Test code may look at it and change its drawing, as the user would; objects given to
/// clients stop working once it is closed.
class OpenDocument : public std::enable_shared_from_this<OpenDocument> {
  public:
    /// `folder` is "" for a drawing that was never saved.
    OpenDocument(Host& host, std::int32_t number, Drawing drawing, std::wstring folder, std::wstring name);
    OpenDocument(const OpenDocument&) = delete;

    bool closed() const { return drawing_ == nullptr; }
    void close();

    Drawing& drawing() { return *drawing_; }
    const Drawing& drawing() const { return *drawing_; }
    const std::wstring& name() const { return name_; }
    const std::wstring& folder() const { return folder_; }
    /// "" for a drawing that was never saved.
    std::wstring fullName() const { return titled() ? folder_ + L"\\" + name_ : L""; }
    bool titled() const { return !folder_.empty(); }
    /// A number that no other document of this host has had.
    std::int32_t number() const { return number_; }

    bool modified() const { return modified_; }
    void setModified() { modified_ = true; }
    /// Shows a layout.
    void show(Layout& layout);
    /// Bits as the host gives them: 1 objects were changed, 8 and 16 another part of it is shown.
    std::int16_t changes() const;
    bool readOnly() const { return readOnly_; }
    void setReadOnly() { readOnly_ = true; }
    /// Writes the file; its folder is made when the drawing came without one. A drawing that was never saved
    /// or is read-only cannot be saved.
    void save();
    /// `path` without an extension gets ".dwg".
    void saveAs(const std::wstring& path);

    /// A layout's name as this host shows it; that of model space is a matter of the host.
    std::wstring layoutName(const Layout& layout) const;
    /// Null when there is none.
    Layout* findLayout(std::wstring_view name) const;
    /// The layout's number among the tabs, and the putting of another, which the host may refuse.
    std::int32_t tabNumber(const Layout& layout) const;
    void putTabNumber(Layout& layout, std::int32_t number);
    /// All layouts in the order of their names, in which collections give them.
    std::vector<Layout*> layoutsByName() const;

    /// Whether what goes wrong in plotting is noted in a log instead of shown in a message box.
    bool quietPlotErrors = false;

    CommandLine& commandLine() { return commandLine_; }

    /// Running number of an object for making ids of it; the same as long as the document is open.
    std::int32_t objectNumber(Handle handle);
    /// 0 when no object of this document has the number.
    Handle objectOfNumber(std::int32_t number) const;

  private:
    Host& host_;
    std::int32_t number_;
    std::unique_ptr<Drawing> drawing_;
    std::wstring folder_;
    std::wstring name_;
    bool modified_ = false;
    bool shownAnew_ = false;
    std::unordered_map<Handle, std::int32_t> tabNumbers_;  // put, where the host keeps them as they come
    bool readOnly_ = false;
    CommandLine commandLine_;
    std::unordered_map<Handle, std::int32_t> numbers_;
    std::unordered_map<std::int32_t, Handle> handles_;
};

using DocumentPtr = std::shared_ptr<OpenDocument>;

}  // namespace demo
