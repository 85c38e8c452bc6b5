#include "demo/host/HostOptions.h"

namespace demo {

HostOptions ofRelease(const std::wstring& release, HostOptions base) {
    constexpr int withoutShortIds = 20;
    base.release = release;
    if (release == L"18") return base;
    const int family = std::stoi(release);
    base.version = release + L"s (LMS Tech)";
    base.programFolder = L"C:\\Programme\\Autodesk\\AutoCAD R" + release;
    base.wideIds = true;
    base.shortIds = family < withoutShortIds;
    base.startTab = family >= withoutShortIds;
    return base;
}

std::vector<std::wstring> programNames(const std::wstring& release) {
    const std::wstring general = L"AutoCAD.Application.";
    const std::wstring family = release.substr(0, release.find(L'.'));
    // The first release of a family has no name of its own.
    if (release == family || release.ends_with(L".0")) return {general + family};
    return {general + release, general + family};
}

}  // namespace demo
