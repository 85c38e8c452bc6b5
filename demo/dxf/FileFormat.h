#pragma once

#include <iosfwd>

#include "demo/dxf/Object.h"

/// The file as such: lines, groups, records and sections, without their meaning.
namespace demo {

/// One section of a file. `lead` are the groups before the first record (the whole content of HEADER and
/// THUMBNAILIMAGE), `content` the records.
struct Section {
    std::string name;
    Groups lead;
    Objects content;
};

struct FileContent {
    Groups preamble;  ///< comments before the first section
    std::vector<Section> sections;
    std::string release;  ///< "AC1015" to "AC1032"
};

/// First group of a header variable; null when there is none.
const Group* findVariable(const Groups& header, std::string_view name);
/// Changes or adds a header variable of one value.
void setVariable(Groups& header, std::string_view name, Group value);

/// True when files of the release are written in UTF-8 and not in code page 1252.
bool isUnicodeRelease(std::string_view release);

/// Reads a whole file; all values become UTF-8. Throws RuntimeError when it is no drawing file of the
/// releases AC1015 to AC1032 or damaged.
FileContent readFile(std::istream& stream);

/// Writes groups and records one after another.
class FileWriter {
  public:
    FileWriter(std::ostream& stream, bool unicode) : stream_(stream), unicode_(unicode) {}

    void write(const Group& group);
    void write(const Groups& groups);
    /// With its parts.
    void write(const Object& object);
    void write(const Objects& objects);
    /// Stands for a record of its own without groups: "ENDSEC", "ENDTAB", "EOF".
    void mark(std::string_view type);

  private:
    std::ostream& stream_;
    bool unicode_;
};

/// Throws the error for damaged files.
[[noreturn]] void throwDamaged(const std::wstring& what);

}  // namespace demo
