#include "soak/Usage.h"

#include <windows.h>

#include <winternl.h>

#include <psapi.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace blattwart::bench {

namespace {

constexpr double megabyte = 1024 * 1024;

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
    const auto* table = *reinterpret_cast<const GdiEntry* const*>(peb + tableInPeb);
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
    const UINT_PTR others = last / 2 + 1 - probes;
    return static_cast<double>(others);
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

double usedMegabytes(HANDLE heap) {
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry))
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    HeapUnlock(heap);
    return static_cast<double>(bytes) / megabyte;
}

double heapMegabytes() {
    std::array<HANDLE, 32> heaps{};
    const DWORD count = std::min<DWORD>(GetProcessHeaps(heaps.size(), heaps.data()), heaps.size());
    double sum = 0;
    for (HANDLE heap : std::span(heaps).first(count)) sum += usedMegabytes(heap);
    return sum;
}

/// Wine fills in the older field only.
double privateMegabytes() {
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof(memory));
    return static_cast<double>(memory.PagefileUsage) / megabyte;
}

}  // namespace

Usage measureUsage() {
    return {countGdi(), countUser(), countKernel(), heapMegabytes(), privateMegabytes()};
}

}  // namespace blattwart::bench
