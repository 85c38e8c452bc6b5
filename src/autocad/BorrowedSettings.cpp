#include "autocad/BorrowedSettings.h"

#include <algorithm>
#include <utility>

namespace blattwart {

namespace {

constexpr const wchar_t* storedUnder = L"PlanRestore";
constexpr const wchar_t* backgroundPlot = L"BACKGROUNDPLOT";
constexpr const wchar_t* pageSetup = L"LayoutShowPlotSetup";
constexpr const wchar_t* fileDialogs = L"FILEDIA";

}  // namespace

void BorrowedSettings::plotInForeground(const host::Document& document) {
    working_ = true;
    const std::int32_t before = document.GetVariable(backgroundPlot);
    if (before == 0) return;
    lend(backgroundPlot, before);
    document.SetVariable(backgroundPlot, 0);
}

void BorrowedSettings::hidePageSetup(const host::Application& application) {
    working_ = true;
    if (!application.showsPageSetup()) return;
    lend(pageSetup, 1);
    application.putShowsPageSetup(false);
}

void BorrowedSettings::switchFileDialogsOff(const host::Document& document) {
    lend(fileDialogs, 1);
    document.SetVariable(fileDialogs, 0);
}

void BorrowedSettings::switchFileDialogsOn(const host::Document& document) {
    const auto switchOn = [&] { document.SetVariable(fileDialogs, 1); };
    bool switched = ignoringErrors(switchOn);
    if (!switched) switched = ignoringErrors(switchOn);
    if (!switched) return lend(fileDialogs, 1);
    if (forget(fileDialogs)) store();
}

bool BorrowedSettings::giveBack(const host::Application& application, const host::Document& document) {
    load();
    working_ = false;
    const std::size_t before = loans_.size();
    std::erase_if(loans_, [&](const Loan& loan) {
        return loan.host == host_ && ignoringErrors([&] {
                   if (loan.name == pageSetup) {
                       if (!application.showsPageSetup()) application.putShowsPageSetup(true);
                   } else if (loan.name == fileDialogs || document.GetVariable(loan.name) == 0) {
                       document.SetVariable(loan.name, static_cast<std::int16_t>(loan.before));
                   }
               });
    });
    if (loans_.size() != before) store();
    return std::ranges::find(loans_, host_, &Loan::host) == loans_.end();
}

void BorrowedSettings::giveBackForgotten(const host::Application& application,
                                         const host::Document& document) {
    if (!working_) giveBack(application, document);
}

std::wstring BorrowedSettings::outstanding() const {
    std::wstring names;
    for (const Loan& loan : loans_)
        if (loan.host == host_) names += (names.empty() ? L"" : L", ") + loan.name;
    return names;
}

void BorrowedSettings::lend(std::wstring_view name, std::int32_t before) {
    load();
    // One that has not come back yet does not count: the host has another value since.
    forget(name);
    loans_.push_back({host_, std::wstring(name), before});
    store();
}

bool BorrowedSettings::forget(std::wstring_view name) {
    const auto isMeant = [&](const Loan& loan) { return loan.host == host_ && loan.name == name; };
    return std::erase_if(loans_, isMeant) > 0;
}

void BorrowedSettings::load() {
    if (std::exchange(loaded_, true)) return;
    std::wstring text;
    ignoringErrors([&] { text = settings_.get(storedUnder, L""); });
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L';'), text.size());
        const std::wstring loan = text.substr(0, end);
        text.erase(0, end + 1);
        const std::wstring whole = loan.substr(0, loan.find(L'='));
        const std::wstring value = loan.substr(std::min(whole.size() + 1, loan.size()));
        const std::wstring host = whole.substr(0, whole.find(L':'));
        const std::wstring name = whole.substr(std::min(host.size() + 1, whole.size()));
        const bool known = name == backgroundPlot || name == pageSetup || name == fileDialogs;
        if (known && value.size() == 1 && value[0] >= L'1' && value[0] <= L'3')
            loans_.push_back({host, name, value[0] - L'0'});
    }
}

/// A host that dies in a session that cannot store keeps its settings; the work is not refused for that.
void BorrowedSettings::store() {
    std::wstring text;
    for (const Loan& loan : loans_)
        text +=
            (text.empty() ? L"" : L";") + loan.host + L":" + loan.name + L"=" + std::to_wstring(loan.before);
    ignoringErrors([&] { settings_.set(storedUnder, text); });
}

}  // namespace blattwart
