#include "demo/host/DemoAutomation.h"

#include "demo/host/HostError.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::RuntimeError;

namespace {

constexpr std::wstring_view hostName = L"AutoCAD.Application.18";

}  // namespace

DemoAutomation::DemoAutomation(HostOptions options, Disk disk)
    : options_(std::move(options)), disk_(std::move(disk)) {}

Host& DemoAutomation::start() {
    end();
    host_ = makeHost(options_, disk_);
    host_->setVisible(true);
    return *host_;
}

void DemoAutomation::end() {
    if (host_) host_->quit();
    host_.reset();
}

ObjectPtr DemoAutomation::running(std::wstring_view name) {
    if (name != hostName) throw RuntimeError(hostError::notInstalled, L"Ungültige Klassenzeichenfolge");
    if (!host_ || host_->ended()) throw RuntimeError(hostError::notRunning, L"Vorgang nicht verfügbar");
    return host_->application();
}

ObjectPtr DemoAutomation::create(std::wstring_view name) {
    if (name != hostName) {
        if (otherPrograms_) return otherPrograms_(name);
        throw RuntimeError(hostError::notInstalled, L"Ungültige Klassenzeichenfolge");
    }
    if (!createError_.empty()) throw RuntimeError(hostError::cannotStart, createError_);
    host_ = makeHost(options_, disk_);
    host_->newDocument();
    return host_->application();
}

}  // namespace demo
