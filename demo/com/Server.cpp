#include "demo/com/Server.h"

#include <objbase.h>
#include <oleauto.h>

#include <array>

#include "demo/com/ExportedObject.h"
#include "win32/com/ComError.h"

namespace demo {

using blattwart::RuntimeError;
using blattwart::throwIfFailed;

Apartment::Apartment() {
    throwIfFailed(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

Apartment::~Apartment() {
    CoUninitialize();
}

namespace {

/// COM makes an interface known with the first object that offers it and forgets it with the last one. In
/// Wine the forgetting now and then waits without end for a call that is over. So an enumerator stays known:
/// there is none between two enumerations otherwise.
ComPtr<IStream> standingEnumerator(const std::shared_ptr<Exporter>& exporter) {
    const auto enumerator = blattwart::makeCom<ExportedEnumerator>(exporter, std::vector<ObjectPtr>());
    ComPtr<IStream> references;
    throwIfFailed(CreateStreamOnHGlobal(nullptr, TRUE, references.GetAddressOf()));
    for (const IID& interfaceId : {IID_IUnknown, IID_IEnumVARIANT})
        throwIfFailed(CoMarshalInterface(references.Get(), interfaceId, enumerator.Get(), MSHCTX_LOCAL,
                                         nullptr, MSHLFLAGS_TABLESTRONG));
    throwIfFailed(references->Seek({}, STREAM_SEEK_SET, nullptr));
    return references;
}

}  // namespace

Server::Server(std::vector<ServerClass> classes, const std::wstring& source)
    : classes_(std::move(classes)),
      behaviour_(std::make_shared<Behaviour>()),
      // Calls may still come in while the objects outlive the server.
      exporter_(std::make_shared<Exporter>(
          source, [behaviour = behaviour_] { return behaviour->admitCall(); },
          [behaviour = behaviour_] { behaviour->callDone(); })),
      standingEnumerator_(standingEnumerator(exporter_)) {}

Server::~Server() {
    exporter_->afterCall = {};
    while (SUCCEEDED(CoReleaseMarshalData(standingEnumerator_.Get()))) {
    }
    for (const DWORD running : running_) RevokeActiveObject(running, nullptr);
    for (const DWORD offered : offered_) CoRevokeClassObject(offered);
}

bool Server::obey(const std::wstring& command) {
    constexpr std::array manners{std::pair(L"enumerate asked", EnumeratorManner::asAsked),
                                 std::pair(L"enumerate single", EnumeratorManner::single),
                                 std::pair(L"enumerate unending", EnumeratorManner::neverSaysEnd),
                                 std::pair(L"enumerate none", EnumeratorManner::none),
                                 std::pair(L"enumerate endless", EnumeratorManner::endless)};
    for (const auto& [name, manner] : manners) {
        if (command != name) continue;
        exporter_->enumeratorManner = manner;
        return true;
    }
    return behaviour_->obey(command, exporter_->counters());
}

void Server::publish(const ObjectPtr& application) {
    const ComPtr<IDispatch> dispatch = exporter_->toDispatch(application);
    for (const ServerClass& each : classes_) {
        DWORD& running = running_.emplace_back();
        throwIfFailed(RegisterActiveObject(dispatch.Get(), each.id, ACTIVEOBJECT_STRONG, &running));
    }
}

void Server::offer(const ObjectPtr& application) {
    const auto factory = makeClassFactory([behaviour = behaviour_, exporter = exporter_, application] {
        if (const HRESULT admitted = behaviour->admitCreation(); admitted != S_OK)
            throw RuntimeError(admitted, L"");
        return exporter->toDispatch(application);
    });
    for (const ServerClass& each : classes_)
        throwIfFailed(CoRegisterClassObject(each.id, factory.Get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                            &offered_.emplace_back()));
}

bool awaitRunning(const ServerClass& server, DWORD milliseconds) {
    constexpr DWORD step = 50;
    for (DWORD waited = 0; waited <= milliseconds; waited += step) {
        ComPtr<IUnknown> found;
        if (SUCCEEDED(GetActiveObject(server.id, nullptr, &found))) return true;
        Sleep(step);
    }
    return false;
}

}  // namespace demo
