#include "demo/host/DemoAutomation.h"

#include <algorithm>

#include "demo/host/HostError.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::RuntimeError;

DemoAutomation::DemoAutomation(HostOptions options, Disk disk) : disk_(std::move(disk)) {
    install(std::move(options));
}

void DemoAutomation::install(HostOptions options) {
    const auto same = std::ranges::find_if(
        installations_, [&](const Installation& each) { return each.options.release == options.release; });
    if (same == installations_.end()) {
        installations_.push_back({std::move(options), nullptr});
    } else {
        same->options = std::move(options);
    }
}

DemoAutomation::Installation& DemoAutomation::installation(std::wstring_view release) {
    const auto found = std::ranges::find_if(
        installations_, [&](const Installation& each) { return each.options.release == release; });
    return found == installations_.end() ? installations_.front() : *found;
}

Host& DemoAutomation::start(std::wstring_view release) {
    end(release);
    Installation& chosen = installation(release);
    chosen.host = makeHost(chosen.options, disk_);
    chosen.host->setVisible(true);
    return *chosen.host;
}

void DemoAutomation::end(std::wstring_view release) {
    HostPtr& host = installation(release).host;
    if (host) host->quit();
    host.reset();
}

const HostPtr& DemoAutomation::host(std::wstring_view release) {
    return installation(release).host;
}

DemoAutomation::Installation& DemoAutomation::named(std::wstring_view name) {
    Installation* first = nullptr;
    for (Installation& each : installations_) {
        const std::vector<std::wstring> names = programNames(each.options.release);
        if (std::ranges::find(names, name) == names.end()) continue;
        if (each.host && !each.host->ended()) return each;
        if (!first) first = &each;
    }
    if (!first) throw RuntimeError(hostError::notInstalled, L"Ungültige Klassenzeichenfolge");
    return *first;
}

ObjectPtr DemoAutomation::running(std::wstring_view name) {
    const HostPtr& host = named(name).host;
    if (!host || host->ended()) throw RuntimeError(hostError::notRunning, L"Vorgang nicht verfügbar");
    return host->application();
}

ObjectPtr DemoAutomation::create(std::wstring_view name) {
    if (otherPrograms_ && !name.starts_with(L"AutoCAD.")) return otherPrograms_(name);
    Installation& chosen = named(name);
    if (!createError_.empty()) throw RuntimeError(hostError::cannotStart, createError_);
    chosen.host = makeHost(chosen.options, disk_);
    if (!chosen.options.startTab) chosen.host->newDocument();
    return chosen.host->application();
}

}  // namespace demo
