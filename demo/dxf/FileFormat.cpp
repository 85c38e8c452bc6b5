#include "demo/dxf/FileFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <istream>
#include <ostream>

#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

namespace demo {

using blattwart::RuntimeError;

namespace {

constexpr std::size_t largestFile = 256u << 20;
constexpr std::array<std::string_view, 6> releases = {"AC1015", "AC1018", "AC1021",
                                                      "AC1024", "AC1027", "AC1032"};

[[noreturn]] void fail(const std::wstring& text) {
    throw RuntimeError(blattwart::errorNumber::invalidCall, text);
}

std::string readAll(std::istream& stream) {
    std::string bytes;
    std::array<char, 1 << 16> buffer;
    while (stream.read(buffer.data(), buffer.size()) || stream.gcount() > 0) {
        bytes.append(buffer.data(), static_cast<std::size_t>(stream.gcount()));
        if (bytes.size() > largestFile) fail(L"Die Zeichnungsdatei ist zu groß.");
    }
    if (stream.bad()) fail(L"Die Zeichnungsdatei kann nicht gelesen werden.");
    return bytes;
}

/// Refuses at once what is a drawing, but not in this form.
void refuseOtherFormats(std::string_view bytes) {
    if (bytes.starts_with("AutoCAD Binary DXF")) fail(L"Binäre DXF-Dateien werden nicht gelesen.");
    if (bytes.starts_with("AC10")) fail(L"Nur DXF-Dateien werden gelesen, diese Datei ist eine DWG-Datei.");
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// As types and names of sections are in all encodings.
bool isPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= 0x20 && c < 0x7F; });
}

/// Takes the groups off the bytes of a file.
class GroupReader {
  public:
    explicit GroupReader(std::string_view bytes) : rest_(bytes) {
        if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3);
    }

    /// Reads the next group; throws at the end of the bytes.
    Group next() {
        const std::string_view code = trimmed(line());
        Group group;
        const auto [end, error] = std::from_chars(code.data(), code.data() + code.size(), group.code);
        if (error != std::errc() || end != code.data() + code.size() || group.code < -5 || group.code > 1071)
            damaged(L"Gruppencode erwartet");
        const std::string_view value = line();
        group.value = group.code == 0 ? trimmed(value) : value;
        if (group.code == 0 && !isPlain(group.value)) damaged(L"Fremde Zeichen im Typ");
        return group;
    }

    [[noreturn]] void damaged(const std::wstring& what) const {
        throwDamaged(what + L" (Zeile " + std::to_wstring(line_) + L").");
    }

  private:
    std::string_view line() {
        if (rest_.empty()) damaged(L"Die Datei endet vorzeitig");
        ++line_;
        const auto end = rest_.find('\n');
        std::string_view text = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        if (text.ends_with('\r')) text.remove_suffix(1);
        return text;
    }

    std::string_view rest_;
    std::int64_t line_ = 0;
};

/// Reads the groups up to the next group 0, which is left in `next`.
Groups readGroups(GroupReader& reader, Group& next) {
    Groups groups;
    for (next = reader.next(); next.code != 0; next = reader.next()) groups.push_back(std::move(next));
    groups.shrink_to_fit();
    return groups;
}

Section readSection(GroupReader& reader, Group& next) {
    Section section;
    section.lead = readGroups(reader, next);
    if (section.lead.empty() || section.lead.front().code != 2) reader.damaged(L"Abschnitt ohne Namen");
    section.name = trimmed(section.lead.front().value);
    if (!isPlain(section.name)) reader.damaged(L"Fremde Zeichen im Namen eines Abschnitts");
    section.lead.erase(section.lead.begin());
    while (next.value != "ENDSEC") {
        if (next.value == "SECTION" || next.value == "EOF") reader.damaged(L"Abschnitt ohne Ende");
        std::string type = std::move(next.value);
        Groups groups = readGroups(reader, next);
        section.content.push_back(std::make_unique<Object>(std::move(type), std::move(groups)));
    }
    return section;
}

FileContent readSections(GroupReader reader) {
    FileContent file;
    Group next;
    file.preamble = readGroups(reader, next);
    while (next.value != "EOF") {
        if (next.value != "SECTION") reader.damaged(L"Abschnitt erwartet");
        file.sections.push_back(readSection(reader, next));
        for (next = reader.next(); next.code == 999; next = reader.next()) {
        }
        if (next.code != 0) reader.damaged(L"Abschnitt erwartet");
    }
    return file;
}

std::string releaseOf(const FileContent& file) {
    for (const Section& section : file.sections) {
        const Group* release = section.name == "HEADER" ? findVariable(section.lead, "$ACADVER") : nullptr;
        if (release) return std::string(trimmed(release->value));
    }
    return {};
}

void decodeValues(Groups& groups) {
    for (Group& group : groups) group.value = fromCodePage(group.value);
}

void decodeValues(FileContent& file) {
    decodeValues(file.preamble);
    for (Section& section : file.sections) {
        decodeValues(section.lead);
        for (const auto& object : section.content) decodeValues(object->mutableGroups());
    }
}

}  // namespace

void throwDamaged(const std::wstring& what) {
    fail(L"Die Zeichnungsdatei ist beschädigt: " + what);
}

const Group* findVariable(const Groups& header, std::string_view name) {
    for (std::size_t i = 0; i + 1 < header.size(); ++i) {
        if (header[i].code == 9 && header[i].value == name && header[i + 1].code != 9) return &header[i + 1];
    }
    return nullptr;
}

void setVariable(Groups& header, std::string_view name, Group value) {
    if (const Group* found = findVariable(header, name)) {
        header[static_cast<std::size_t>(found - header.data())] = std::move(value);
    } else {
        header.push_back({9, std::string(name)});
        header.push_back(std::move(value));
    }
}

bool isUnicodeRelease(std::string_view release) {
    return release >= "AC1021";
}

FileContent readFile(std::istream& stream) {
    const std::string bytes = readAll(stream);
    refuseOtherFormats(bytes);
    FileContent file = readSections(GroupReader(bytes));
    file.release = releaseOf(file);
    if (std::ranges::find(releases, file.release) == releases.end())
        fail(L"Nur Zeichnungen der Versionen 2000 bis 2018 werden gelesen.");
    if (!isUnicodeRelease(file.release)) decodeValues(file);
    return file;
}

void FileWriter::write(const Group& group) {
    std::array<char, 8> digits;
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), group.code).ptr;
    const std::string_view code(digits.data(), static_cast<std::size_t>(end - digits.data()));
    for (std::size_t width = code.size(); width < 3; ++width) stream_ << ' ';
    stream_ << code << "\r\n";
    if (unicode_)
        stream_ << group.value << "\r\n";
    else
        stream_ << toCodePage(group.value) << "\r\n";
}

void FileWriter::write(const Groups& groups) {
    for (const Group& group : groups) write(group);
}

void FileWriter::write(const Object& object) {
    mark(object.type());
    write(object.groups());
    write(object.parts());
}

void FileWriter::write(const Objects& objects) {
    for (const auto& object : objects) write(*object);
}

void FileWriter::mark(std::string_view type) {
    write(Group{0, std::string(type)});
}

}  // namespace demo
