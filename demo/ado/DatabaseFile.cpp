#include "demo/ado/DatabaseFile.h"

#ifdef _WIN32
#include <windows.h>
#endif

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>
#include <type_traits>

#include "demo/ado/AdoErrors.h"

namespace demo::ado {

namespace {

void appendUtf8(std::string& bytes, std::uint32_t code) {
    const auto tail = [&](int shift) { bytes += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        bytes += static_cast<char>(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | code >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

bool isHighSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

std::uint32_t unitOf(wchar_t c) {
    return static_cast<std::make_unsigned_t<wchar_t>>(c);
}

std::filesystem::path systemPath(const std::wstring& path) {
#ifdef _WIN32
    return path;
#else
    return driverPath(path);
#endif
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = unitOf(text[i]);
        if (isHighSurrogate(code) && i + 1 < text.size() && isLowSurrogate(unitOf(text[i + 1])))
            code = 0x10000 + ((code - 0xD800) << 10) + (unitOf(text[++i]) - 0xDC00);
        appendUtf8(bytes, code);
    }
    return bytes;
}

bool fileExists(const std::wstring& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(systemPath(path), ignored);
}

bool isSqlite(const std::wstring& path) {
    constexpr std::string_view signature = "SQLite format 3";
    std::string start(signature.size(), '\0');
    std::ifstream(systemPath(path), std::ios::binary)
        .read(start.data(), static_cast<std::streamsize>(start.size()));
    return start == signature;
}

#ifdef _WIN32

std::string driverPath(const std::wstring& path) {
    using UnixFileName = char*(__cdecl*)(const wchar_t*);
    const auto unixFileName = reinterpret_cast<UnixFileName>(
        GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name"));
    if (!unixFileName) fail(AdoError::providerNotFound);
    const auto release = [](char* text) { HeapFree(GetProcessHeap(), 0, text); };
    const std::unique_ptr<char, decltype(release)> name(unixFileName(path.c_str()), release);
    if (!name) fail(AdoError::unspecified);
    return name.get();
}

#else

// The program joins paths with backslashes wherever it runs.
std::string driverPath(const std::wstring& path) {
    auto name = toUtf8(path);
    std::ranges::replace(name, '\\', '/');
    return name;
}

#endif

}  // namespace demo::ado
