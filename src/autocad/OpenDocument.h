#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/Document.h"

namespace blattwart {

/// One of the documents that the host had open when they were last enumerated. Its file is asked for
/// once, when it is first needed.
class OpenDocument {
  public:
    explicit OpenDocument(host::Document document) : document_(std::move(document)) {}

    const host::Document& document() const { return document_; }
    /// Throw when the host does not answer.
    const std::wstring& Name() { return file().name; }
    const std::wstring& Path() { return file().folder; }

  private:
    const host::DrawingFile& file() {
        if (!file_) file_ = document_.file();
        return *file_;
    }

    host::Document document_;
    std::optional<host::DrawingFile> file_;
};

using OpenDocuments = std::vector<OpenDocument>;

}  // namespace blattwart
