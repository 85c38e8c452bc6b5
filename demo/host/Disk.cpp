#include "demo/host/Disk.h"

#include <algorithm>
#include <fstream>

#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

namespace demo {

namespace fs = std::filesystem;

namespace {

#ifndef _WIN32
/// The entry of a folder with this name, its case aside; the name itself when there is none.
fs::path entryOf(const fs::path& folder, const std::wstring& name) {
    fs::path exact = folder / encodeText(name);
    std::error_code error;
    if (fs::exists(exact, error)) return exact;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        if (sameName(decodeText(entry.path().filename().string()), name)) return entry.path();
    }
    return exact;
}
#endif

[[noreturn]] void throwFileError(const wchar_t* text, const std::wstring& path) {
    throw blattwart::RuntimeError(blattwart::errorNumber::fileNotFound, text + path);
}

}  // namespace

fs::path Disk::realPath(const std::wstring& path) const {
#ifdef _WIN32
    return path;
#else
    if (root_.empty()) return {};
    fs::path real = root_;
    std::size_t begin = 0;
    while (begin < path.size()) {
        const std::size_t end = std::min(path.find_first_of(L"\\/", begin), path.size());
        std::wstring part = path.substr(begin, end - begin);
        std::erase(part, L':');
        if (!part.empty()) real = entryOf(real, part);
        begin = end + 1;
    }
    return real;
#endif
}

bool Disk::exists(const std::wstring& path) const {
    const fs::path real = realPath(path);
    std::error_code error;
    return !real.empty() && fs::exists(real, error);
}

bool Disk::isReadOnly(const std::wstring& path) const {
    std::error_code error;
    const auto permissions = fs::status(realPath(path), error).permissions();
    return exists(path) && (permissions & fs::perms::owner_write) == fs::perms::none;
}

void Disk::makeFolder(const std::wstring& path) const {
    const fs::path real = realPath(path);
    std::error_code error;
    if (!real.empty()) fs::create_directories(real, error);
}

Drawing Disk::load(const std::wstring& path) const {
    const fs::path real = realPath(path);
    std::ifstream stream(real, std::ios::binary);
    if (real.empty() || !stream || fs::is_directory(real)) {
        throwFileError(L"Die Datei wurde nicht gefunden: ", path);
    }
    return Drawing::load(stream);
}

void Disk::save(const Drawing& drawing, const std::wstring& path) const {
    const fs::path real = realPath(path);
    std::ofstream stream;
    if (!real.empty()) stream.open(real, std::ios::binary | std::ios::trunc);
    if (stream.is_open()) drawing.save(stream);
    stream.close();
    if (real.empty() || !stream) throwFileError(L"Die Datei kann nicht geschrieben werden: ", path);
}

bool Disk::writeNew(const std::wstring& path, const std::string& bytes) const {
    const fs::path real = realPath(path);
    if (real.empty() || exists(path)) return false;
    std::ofstream stream(real, std::ios::binary);
    stream << bytes;
    stream.close();
    return static_cast<bool>(stream);
}

std::wstring folderOf(const std::wstring& path) {
    const std::size_t end = path.find_last_of(L"\\/");
    return end == std::wstring::npos ? L"" : path.substr(0, end);
}

std::wstring fileNameOf(const std::wstring& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

bool isAbsolute(const std::wstring& path) {
    return path.starts_with(L"\\\\") || (path.size() > 2 && path[1] == L':' && path[2] == L'\\');
}

}  // namespace demo
