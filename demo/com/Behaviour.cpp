#include "demo/com/Behaviour.h"

#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

namespace demo {

namespace {

/// Handles messages, so that further calls come in, until the time is over.
void pumpFor(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
}

/// As in a crash: nothing is tidied up, nobody is told.
void die() {
    TerminateProcess(GetCurrentProcess(), 5);
}

std::wstring restOf(std::wistream& words) {
    std::wstring rest;
    std::getline(words >> std::ws, rest);
    return rest;
}

}  // namespace

bool Behaviour::obey(const std::wstring& command, const WireCounters& counters) {
    std::wistringstream words(command);
    std::wstring verb;
    words >> verb;
    if (verb == L"refuse") return refuse(words);
    if (verb == L"hold") return static_cast<bool>(words >> holdTime_);
    if (verb == L"modal") return static_cast<bool>(words >> callsToDialog_ >> dialogTime_);
    if (verb == L"die") {
        if (!(words >> callsToLive_)) return false;
        diesDone_ = restOf(words) == L"done";
        return true;
    }
    if (verb == L"normal") {
        *this = Behaviour();
        return true;
    }
    if (verb != L"report") return false;
    writeReport(restOf(words), counters);
    return true;
}

bool Behaviour::refuse(std::wistream& words) {
    std::wstring what;
    std::int32_t number = 0;
    std::wstring kind;
    if (!(words >> what >> number)) return false;
    words >> kind;
    refusal_ = kind == L"later" ? RPC_E_SERVERCALL_RETRYLATER : RPC_E_CALL_REJECTED;
    if (what == L"calls") {
        refusedCalls_ = number;
    } else if (what == L"creations") {
        refusedCreations_ = number;
    } else if (what == L"percent") {
        refusedPercent_ = number;
    } else if (what == L"for") {
        refuseFor(number);
    } else {
        return false;
    }
    return true;
}

HRESULT Behaviour::admitCall() {
    if (callsToLive_ > 0 && --callsToLive_ == 0) {
        if (!diesDone_) die();
        dying_ = true;
    }
    if (holding_) return RPC_E_SERVERCALL_RETRYLATER;
    if (isRefused()) return refusal_;
    if (callsToDialog_ > 0 && --callsToDialog_ == 0) {
        refuseFor(dialogTime_);
        return refusal_ = RPC_E_SERVERCALL_RETRYLATER;
    }
    if (holdTime_) hold();
    return S_OK;
}

void Behaviour::callDone() const {
    if (dying_) die();
}

void Behaviour::refuseFor(std::int32_t milliseconds) {
    refusedUntil_ = milliseconds < 0 ? std::numeric_limits<ULONGLONG>::max()
                                     : GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
}

HRESULT Behaviour::admitCreation() {
    if (refusedCreations_ <= 0) return S_OK;
    --refusedCreations_;
    return refusal_;
}

bool Behaviour::isRefused() {
    if (refusedCalls_ > 0) {
        --refusedCalls_;
        return true;
    }
    if (GetTickCount64() < refusedUntil_) return true;
    return std::uniform_int_distribution<std::int32_t>(0, 99)(random_) < refusedPercent_;
}

void Behaviour::hold() {
    holding_ = true;
    pumpFor(std::exchange(holdTime_, 0));
    holding_ = false;
}

void writeReport(const std::wstring& file, const WireCounters& counters) {
    std::ofstream report{std::filesystem::path(file)};
    report << "idLookups " << counters.idLookups << "\ncalls " << counters.calls << "\nnexts "
           << counters.nexts << "\nrefused " << counters.refused << "\nobjects " << counters.objects
           << "\nreleased " << counters.released << "\n";
}

}  // namespace demo
