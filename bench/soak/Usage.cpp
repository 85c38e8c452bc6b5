#include "soak/Usage.h"

#include <windows.h>

#include <winternl.h>

#include <psapi.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace blattwart::bench {

namespace {

/// An entry of the table in which each process sees its GDI objects.
struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t generation;
    std::uint8_t type;  // 0 when free
    std::uint8_t flags;
    std::uint64_t userData;
};

double countGdi() {
    constexpr std::size_t tableInPeb = 0xF8;
    constexpr std::size_t entries = 0x4000;
    PROCESS_BASIC_INFORMATION process{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof(process),
                              nullptr);
    const auto* peb = reinterpret_cast<const char*>(process.PebBaseAddress);
    const GdiEntry* table = nullptr;
    std::memcpy(&table, peb + tableInPeb, sizeof(table));
    return static_cast<double>(std::ranges::count_if(std::span(table, entries),
                                                     [](const GdiEntry& entry) { return entry.type != 0; }));
}

/// Free places are used before new ones are added at the end. So as many new objects as fill all free places
/// show by the place of the last one how many there are.
double countUser() {
    constexpr std::size_t probes = 2000;
    constexpr UINT_PTR firstPlace = 0x20;
    std::array<HMENU, probes> menus{};
    UINT_PTR last = 0;
    for (HMENU& menu : menus) {
        menu = CreatePopupMenu();
        last = std::max(last, (reinterpret_cast<UINT_PTR>(menu) & 0xFFFF) - firstPlace);
    }
    for (HMENU menu : menus) DestroyMenu(menu);
    return static_cast<double>(last / 2 + 1 - probes);
}

struct SystemHandle {
    std::uint16_t process;
    std::uint16_t trace;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint16_t value;
    void* object;
    std::uint32_t access;
};

double countKernel() {
    constexpr auto handleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    std::vector<std::uint64_t> buffer(1 << 19);
    ULONG size = 0;
    NtQuerySystemInformation(handleInformation, buffer.data(), static_cast<ULONG>(buffer.size() * 8), &size);
    const auto count = static_cast<std::uint32_t>(buffer.front());
    const auto* handles = reinterpret_cast<const SystemHandle*>(&buffer[1]);
    return static_cast<double>(std::ranges::count_if(
        std::span(handles, count),
        [](const SystemHandle& handle) { return handle.process == GetCurrentProcessId(); }));
}

/// Wine fills in the older field only.
double privateMegabytes() {
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof(memory));
    return static_cast<double>(memory.PagefileUsage) / (1024 * 1024);
}

}  // namespace

Usage measureUsage() {
    return {countGdi(), countUser(), countKernel(), privateMegabytes()};
}

}  // namespace blattwart::bench
