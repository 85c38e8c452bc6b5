#include "planlist/PlanRestore.h"

#include <algorithm>
#include <utility>

#include "planlist/HostFacts.h"

namespace blattwart {

void PlanRestore::begin() {
    if (!active_) active_ = autoCAD_.gAcadApp.ActiveDocument();
    autoCAD_.borrowed.plotInForeground(active_);
    // Where that cannot be had the user answers the dialogs himself.
    ignoringErrors([&] { autoCAD_.borrowed.hidePageSetup(autoCAD_.gAcadApp); });
}

void PlanRestore::enter(const PlanDrawing& drawing) {
    Place place{drawing.document, drawing.fullName(), drawing.shownName, {}, {}, {}, false};
    // Known before the call, whose answer may be lost.
    ours_.push_back(place.fullName);
    autoCAD_.activate(drawing.document);
    place.before = drawing.document.ActiveLayout();
    place.plot = drawing.document.Plot();
    const bool quiet = place.plot.QuietErrorMode();
    places_.push_back(std::move(place));
    entered_ = true;
    if (quiet) return;
    places_.back().madeQuiet = true;
    plot().putQuietErrorMode(true);
}

void PlanRestore::show(const PlanRow& row) {
    Place& place = places_.back();
    place.shown.push_back(row.name);
    place.document.putActiveLayout(row.layout);
}

template <class Statement>
bool PlanRestore::settled(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const RuntimeError& error) {
        return isGone(error);
    }
}

void PlanRestore::leave() {
    if (!std::exchange(entered_, false)) return;
    if (putBack(places_.back())) places_.pop_back();
}

bool PlanRestore::putBack(const Place& place) {
    return settled([&] {
        if (place.madeQuiet) place.plot.putQuietErrorMode(false);
        if (place.shown.empty()) return;
        const std::wstring now = place.document.ActiveLayout().Name();
        if (std::ranges::find(place.shown, now) != place.shown.end())
            place.document.putActiveLayout(place.before);
    });
}

bool PlanRestore::putActiveBack() {
    return settled([&] {
        const host::Document now = autoCAD_.gAcadApp.ActiveDocument();
        if (std::ranges::find(ours_, openDrawing(now).fullName()) != ours_.end()) autoCAD_.activate(active_);
    });
}

void PlanRestore::finish() {
    leave();
    // On a later try another drawing may be the active one.
    if (!places_.empty() && !active_) ignoringErrors([&] { active_ = autoCAD_.gAcadApp.ActiveDocument(); });
    std::erase_if(places_, [&](const Place& place) {
        ours_.push_back(place.fullName);
        return settled([&] { autoCAD_.activate(place.document); }) && putBack(place);
    });
    if (active_ && putActiveBack()) {
        active_ = {};
        ours_.clear();
    }
    host::Document any;
    if (!autoCAD_.borrowed.outstanding().empty())
        ignoringErrors([&] { any = autoCAD_.gAcadApp.ActiveDocument(); });
    autoCAD_.borrowed.giveBack(autoCAD_.gAcadApp, any);
    hostGone_ = false;
    if (!outstanding()) return;
    try {
        autoCAD_.gAcadApp.Documents();
    } catch (const RuntimeError& error) {
        hostGone_ = isGone(error);
    }
}

void PlanRestore::dropHost() {
    places_.clear();
    entered_ = false;
    active_ = {};
    ours_.clear();
}

bool PlanRestore::outstanding() const {
    return !places_.empty() || active_ || !autoCAD_.borrowed.outstanding().empty();
}

std::wstring PlanRestore::text() const {
    std::wstring text;
    const auto add = [&](const std::wstring& what) { text += (text.empty() ? L"" : L", ") + what; };
    for (const Place& place : places_) add(L"Layout in „" + place.shownName + L"“");
    if (active_) add(L"aktive Zeichnung");
    const std::wstring borrowed = autoCAD_.borrowed.outstanding();
    if (!borrowed.empty()) add(borrowed);
    return text;
}

}  // namespace blattwart
