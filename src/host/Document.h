#pragma once

#include "host/Layout.h"
#include "host/Plot.h"

namespace blattwart::host {

enum class Space : std::int32_t { paper = 0, model = 1 };

struct DrawingFile {
    std::wstring folder;  ///< without a separator at its end; of a drawing never saved what the host gives
    std::wstring name;    ///< with extension; an unsaved drawing has a default name
};

/// An open drawing.
class Document : public HostObject {
  public:
    using HostObject::HostObject;

    /// File name with extension; an unsaved drawing has a default name.
    std::wstring Name() const;
    /// "" for a drawing never saved.
    std::wstring FullName() const;
    /// Whether it cannot be saved under its name.
    bool ReadOnly() const;
    /// From the full name; three round trips for a drawing never saved, which has none.
    DrawingFile file() const;
    host::Layouts Layouts() const;
    host::Plot Plot() const;
    Layout ActiveLayout() const;
    void putActiveLayout(const Layout& layout) const;
    void putActiveSpace(Space space) const;
    void Activate() const;
    void Save() const;
    /// Types a text into the drawing's command line; a carriage return ends an answer.
    void SendCommand(const std::wstring& text) const;
    void SetVariable(const std::wstring& name, std::int16_t value) const;
    std::int32_t GetVariable(const std::wstring& name) const;
    std::wstring GetTextVariable(const std::wstring& name) const;
    /// The object with this 32-bit id (see Layout::ObjectID); a second round trip when asked first. Throws
    /// element not found for 0, which stands for ids that are wider.
    Entity ObjectIdToObject(std::int32_t id) const;
    /// Makes the application's name known to the drawing, so that objects can carry its data. Two round
    /// trips.
    void registerApplication(const std::wstring& name) const;

    /// Folder, backslash, file name; round trips as for `file`.
    std::wstring fullName() const {
        const DrawingFile own = file();
        return own.folder + L"\\" + own.name;
    }
};

class Documents : public HostObject {
  public:
    using HostObject::HostObject;

    std::vector<Document> all() const {
        return elements<Document>(L"Documents", [] { return true; });
    }
    Document Add(const std::wstring& templateFile) const;
    Document Open(const std::wstring& file) const;
};

}  // namespace blattwart::host
