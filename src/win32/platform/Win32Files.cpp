#include "win32/platform/Win32Files.h"

#include <algorithm>
#include <utility>

#include "win32/base/Handles.h"
#include "win32/base/SystemError.h"

namespace blattwart {

namespace {

// Set by cloud and archive systems; newer than the headers for the oldest system served.
constexpr DWORD recallOnOpen = 0x00040000;
constexpr DWORD recallOnDataAccess = 0x00400000;
constexpr DWORD elsewhere = FILE_ATTRIBUTE_OFFLINE | recallOnOpen | recallOnDataAccess;

class Win32FileReader : public FileReader {
  public:
    Win32FileReader(Handle file, const BY_HANDLE_FILE_INFORMATION& about)
        : file_(std::move(file)),
          size_(joined(about.nFileSizeHigh, about.nFileSizeLow)),
          lastWritten_(joined(about.ftLastWriteTime.dwHighDateTime, about.ftLastWriteTime.dwLowDateTime)) {}

    std::uint64_t size() const override { return size_; }
    std::uint64_t lastWritten() const override { return lastWritten_; }

    std::vector<std::uint8_t> read(std::uint64_t offset, std::size_t count) override {
        if (offset >= size_) return {};
        std::vector<std::uint8_t> bytes(
            static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset)));
        std::size_t done = 0;
        while (done < bytes.size()) {
            const std::uint64_t at = offset + done;
            OVERLAPPED place{};
            place.Offset = static_cast<DWORD>(at);
            place.OffsetHigh = static_cast<DWORD>(at >> 32);
            DWORD part = 0;
            if (!ReadFile(file_.get(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &part,
                          &place)) {
                // Another program may have made the file shorter meanwhile.
                if (GetLastError() != ERROR_HANDLE_EOF) throwSystemError();
                part = 0;
            }
            if (part == 0) break;
            done += part;
        }
        bytes.resize(done);
        return bytes;
    }

  private:
    static std::uint64_t joined(DWORD high, DWORD low) {
        return static_cast<std::uint64_t>(high) << 32 | low;
    }

    Handle file_;
    std::uint64_t size_;
    std::uint64_t lastWritten_;
};

}  // namespace

/// A path that was asked for, and the thread's answer.
struct AwaitedPath {
    std::wstring path;
    ULONGLONG asked = GetTickCount64();
    Handle told{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

namespace {

constexpr DWORD patience = 1000;  // milliseconds

DWORD WINAPI ask(void* parameter) {
    const std::unique_ptr<std::shared_ptr<AwaitedPath>> path(
        static_cast<std::shared_ptr<AwaitedPath>*>(parameter));
    GetFileAttributesW((*path)->path.c_str());
    SetEvent((*path)->told.get());
    return 0;
}

std::shared_ptr<AwaitedPath> beginAsking(const std::wstring& path) {
    auto awaited = std::make_shared<AwaitedPath>(AwaitedPath{.path = path});
    auto parameter = std::make_unique<std::shared_ptr<AwaitedPath>>(awaited);
    const Handle thread(CreateThread(nullptr, 0, ask, parameter.get(), 0, nullptr));
    if (thread) {
        static_cast<void>(parameter.release());  // the thread's
    } else {
        SetEvent(awaited->told.get());
    }
    return awaited;
}

}  // namespace

std::vector<std::wstring> Win32Files::silent(const std::vector<std::wstring>& paths) {
    for (const std::wstring& path : paths)
        if (!path.empty() && !awaited_.contains(path)) awaited_.emplace(path, beginAsking(path));
    std::vector<std::wstring> found;
    for (const std::wstring& path : paths) {
        const auto awaited = awaited_.find(path);
        if (awaited == awaited_.end()) continue;
        const ULONGLONG waited = GetTickCount64() - awaited->second->asked;
        const DWORD left = waited < patience ? patience - static_cast<DWORD>(waited) : 0;
        if (WaitForSingleObject(awaited->second->told.get(), left) == WAIT_OBJECT_0) {
            awaited_.erase(awaited);
        } else {
            found.push_back(path);
        }
    }
    return found;
}

std::wstring Win32Files::applicationFolder() const {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) throwSystemError();
        if (length < path.size()) return path.substr(0, path.find_last_of(L'\\', length));
        path.resize(path.size() * 2);
    }
}

std::vector<std::wstring> Win32Files::list(const std::wstring& pattern) {
    constexpr DWORD notNormal = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE first = FindFirstFileW(pattern.c_str(), &found);
    if (first == INVALID_HANDLE_VALUE) {
        if (GetLastError() == ERROR_FILE_NOT_FOUND) return names;
        throwSystemError();
    }
    const Search search(first);
    do {
        if ((found.dwFileAttributes & notNormal) == 0) names.emplace_back(found.cFileName);
    } while (FindNextFileW(first, &found));
    if (GetLastError() != ERROR_NO_MORE_FILES) throwSystemError();
    return names;
}

bool Win32Files::exists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::wstring Win32Files::shortPath(const std::wstring& path) {
    std::wstring shortened(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
    const DWORD length =
        GetShortPathNameW(path.c_str(), shortened.data(), static_cast<DWORD>(shortened.size()));
    // Longer than before: the path has changed in between.
    if (length >= shortened.size()) return {};
    shortened.resize(length);
    // A volume without short names gives the long ones.
    return shortened.find(L' ') != std::wstring::npos ? std::wstring() : shortened;
}

std::unique_ptr<FileReader> Win32Files::open(const std::wstring& path) {
    // The attributes come from the folder: looking at them fetches nothing.
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) throwSystemError();
    if ((attributes & elsewhere) != 0) return nullptr;
    const HANDLE opened =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_NO_RECALL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) throwSystemError();
    Handle file(opened);
    BY_HANDLE_FILE_INFORMATION about{};
    if (!GetFileInformationByHandle(opened, &about)) throwSystemError();
    return std::make_unique<Win32FileReader>(std::move(file), about);
}

bool Win32Files::folderExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void Win32Files::rename(const std::wstring& path, const std::wstring& newPath) {
    if (!MoveFileExW(path.c_str(), newPath.c_str(), 0)) throwSystemError();
}

void Win32Files::writeAtomically(const std::wstring& path, const std::string& bytes) {
    const std::wstring beside = path + L"." + std::to_wstring(GetCurrentProcessId()) + L".tmp";
    const HANDLE opened =
        CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) throwSystemError();
    Handle file(opened);
    DWORD written = 0;
    const bool whole = WriteFile(opened, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                       FlushFileBuffers(opened);
    DWORD error = GetLastError();
    file.reset();
    if (whole) {
        if (MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return;
        error = GetLastError();
    }
    DeleteFileW(beside.c_str());
    throwSystemError(error);
}

void Win32Files::remove(const std::wstring& path) {
    if (!DeleteFileW(path.c_str())) throwSystemError();
}

}  // namespace blattwart
