#include "host/DemoAutomation.h"

#include "host/HostError.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::RuntimeError;

namespace {

constexpr std::wstring_view hostName = L"AutoCAD.Application.18";
constexpr std::int32_t notRunning = hostError::code(0x800401E3);
constexpr std::int32_t notInstalled = hostError::code(0x800401F3);
constexpr std::int32_t cannotStart = hostError::code(0x80080005);

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
    if (name != hostName) throw RuntimeError(notInstalled, L"Ungültige Klassenzeichenfolge");
    if (!host_ || host_->ended()) throw RuntimeError(notRunning, L"Vorgang nicht verfügbar");
    return host_->application();
}

ObjectPtr DemoAutomation::create(std::wstring_view name) {
    if (name != hostName) {
        if (otherPrograms_) return otherPrograms_(name);
        throw RuntimeError(notInstalled, L"Ungültige Klassenzeichenfolge");
    }
    if (!createError_.empty()) throw RuntimeError(cannotStart, createError_);
    host_ = makeHost(options_, disk_);
    host_->newDocument();
    return host_->application();
}

}  // namespace demo
