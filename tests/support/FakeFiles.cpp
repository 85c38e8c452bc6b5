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
    if (find(path) == files_.end()) files_.push_back(path);
    addFolder(folderOf(path));
}

void FakeFiles::addFolder(const std::wstring& path) {
    folders_.insert(locale_.upperCase(path));
}

void FakeFiles::fill(const std::wstring& path, std::vector<std::uint8_t> bytes) {
    add(path);
    Content& content = contents_[locale_.upperCase(path)];
    content.bytes = std::move(bytes);
    ++content.written;
}

void FakeFiles::forget(const std::wstring& path) {
    const auto file = find(path);
    if (file != files_.end()) files_.erase(file);
}

std::vector<std::wstring> FakeFiles::list(const std::wstring& pattern) {
    if (fails(L"Files.list")) throwDenied();
    const std::wstring upperFolder = locale_.upperCase(folderOf(pattern));
    if (!folders_.contains(upperFolder))
        throw RuntimeError(errorNumber::pathNotFound, L"Pfad nicht gefunden");
    const std::wstring upperPattern = locale_.upperCase(nameOf(pattern));
    std::vector<std::wstring> names;
    for (const std::wstring& file : files_) {
        const bool here = locale_.upperCase(folderOf(file)) == upperFolder;
        if (here && matches(locale_.upperCase(nameOf(file)), upperPattern)) names.push_back(nameOf(file));
    }
    return names;
}

bool FakeFiles::exists(const std::wstring& path) {
    return !fails(L"Files.exists") && find(path) != files_.end();
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
    if (fails(L"Files.open")) throwDenied();
    if (find(path) == files_.end()) throw RuntimeError(errorNumber::fileNotFound, L"Datei nicht gefunden");
    const Content& content = contents_[locale_.upperCase(path)];
    return std::make_unique<FakeFileReader>(content.bytes, content.written);
}

bool FakeFiles::folderExists(const std::wstring& path) {
    return folders_.contains(locale_.upperCase(path));
}

void FakeFiles::rename(const std::wstring& path, const std::wstring& newPath) {
    if (fails(L"Files.rename") || find(newPath) != files_.end()) throwDenied();
    const auto file = find(path);
    if (file == files_.end()) throw RuntimeError(errorNumber::fileNotFound, L"Datei nicht gefunden");
    *file = newPath;
    contents_[locale_.upperCase(newPath)] = std::exchange(contents_[locale_.upperCase(path)], {});
}

void FakeFiles::writeAtomically(const std::wstring& path, const std::string& bytes) {
    if (fails(L"Files.writeAtomically")) throwDenied();
    fill(path, {bytes.begin(), bytes.end()});
}

void FakeFiles::remove(const std::wstring& path) {
    if (fails(L"Files.remove")) throwDenied();
    const auto file = find(path);
    if (file == files_.end()) throw RuntimeError(errorNumber::fileNotFound, L"Datei nicht gefunden");
    files_.erase(file);
}

std::vector<std::wstring>::iterator FakeFiles::find(const std::wstring& path) {
    return std::ranges::find_if(
        files_, [&](const std::wstring& file) { return locale_.equalIgnoringCase(file, path); });
}

}  // namespace blattwart::test
