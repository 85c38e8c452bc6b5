#include "support/FakeFiles.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"

namespace blattwart::test {

namespace {

std::wstring folderOf(const std::wstring& path) {
    const std::size_t backslash = path.rfind(L'\\');
    return backslash == std::wstring::npos ? L"" : path.substr(0, backslash);
}

std::wstring nameOf(const std::wstring& path) {
    return path.substr(path.rfind(L'\\') + 1);
}

bool matches(std::wstring_view name, std::wstring_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern.front() == L'*') {
        return matches(name, pattern.substr(1)) || (!name.empty() && matches(name.substr(1), pattern));
    }
    if (name.empty() || (pattern.front() != L'?' && pattern.front() != name.front())) return false;
    return matches(name.substr(1), pattern.substr(1));
}

[[noreturn]] void throwDenied() {
    throw RuntimeError(70, L"Zugriff verweigert");
}

}  // namespace

std::vector<std::uint8_t> FakeFileReader::read(std::uint64_t offset, std::size_t count) {
    if (offset >= bytes_.size()) return {};
    const auto first = bytes_.begin() + static_cast<std::ptrdiff_t>(offset);
    const std::size_t there = std::min(count, bytes_.size() - static_cast<std::size_t>(offset));
    bytesRead += there;
    return {first, first + static_cast<std::ptrdiff_t>(there)};
}

void FakeFiles::add(const std::wstring& path) {
    if (!find(path)) files_.push_back({path, {}});
    addFolder(folderOf(path));
}

void FakeFiles::addFolder(const std::wstring& path) {
    folders_.insert(locale_.upperCase(path));
}

void FakeFiles::fill(const std::wstring& path, std::vector<std::uint8_t> bytes) {
    add(path);
    File& file = *find(path);
    file.bytes = std::move(bytes);
    file.written = ++writes_;
}

void FakeFiles::forget(const std::wstring& path) {
    std::erase_if(files_, [&](const File& file) { return locale_.equalIgnoringCase(file.path, path); });
}

std::vector<std::wstring> FakeFiles::all() const {
    std::vector<std::wstring> paths;
    for (const File& file : files_) paths.push_back(file.path);
    return paths;
}

std::vector<std::wstring> FakeFiles::list(const std::wstring& pattern) {
    if (fails(L"Files.list")) throwDenied();
    const std::wstring upperFolder = locale_.upperCase(folderOf(pattern));
    if (!folders_.contains(upperFolder))
        throw RuntimeError(errorNumber::pathNotFound, L"Pfad nicht gefunden");
    const std::wstring upperPattern = locale_.upperCase(nameOf(pattern));
    std::vector<std::wstring> names;
    for (const File& file : files_) {
        const bool here = locale_.upperCase(folderOf(file.path)) == upperFolder;
        const std::wstring name = nameOf(file.path);
        if (here && matches(locale_.upperCase(name), upperPattern)) names.push_back(name);
    }
    return names;
}

bool FakeFiles::exists(const std::wstring& path) {
    return !fails(L"Files.exists") && find(path);
}

std::vector<std::wstring> FakeFiles::silent(const std::vector<std::wstring>& paths) {
    std::vector<std::wstring> found;
    std::ranges::copy_if(paths, std::back_inserter(found),
                         [this](const std::wstring& path) { return silentPaths.contains(path); });
    return found;
}

std::wstring FakeFiles::shortPath(const std::wstring& path) {
    const auto form = shortPaths.find(path);
    return fails(L"Files.shortPath") || form == shortPaths.end() ? L"" : form->second;
}

std::unique_ptr<FileReader> FakeFiles::open(const std::wstring& path) {
    const File& file = existing(path, L"Files.open");
    return std::make_unique<FakeFileReader>(file.bytes, file.written);
}

bool FakeFiles::folderExists(const std::wstring& path) {
    return folders_.contains(locale_.upperCase(path));
}

void FakeFiles::rename(const std::wstring& path, const std::wstring& newPath) {
    File& file = existing(path, L"Files.rename");
    if (find(newPath)) throwDenied();
    file.path = newPath;
}

void FakeFiles::writeAtomically(const std::wstring& path, const std::string& bytes) {
    if (fails(L"Files.writeAtomically")) throwDenied();
    fill(path, {bytes.begin(), bytes.end()});
}

void FakeFiles::remove(const std::wstring& path) {
    forget(existing(path, L"Files.remove").path);
}

FakeFiles::File* FakeFiles::find(const std::wstring& path) {
    const auto file = std::ranges::find_if(
        files_, [&](const File& each) { return locale_.equalIgnoringCase(each.path, path); });
    return file == files_.end() ? nullptr : &*file;
}

FakeFiles::File& FakeFiles::existing(const std::wstring& path, std::wstring_view call) {
    if (fails(call)) throwDenied();
    File* file = find(path);
    if (!file) throw RuntimeError(errorNumber::fileNotFound, L"Datei nicht gefunden");
    return *file;
}

}  // namespace blattwart::test
