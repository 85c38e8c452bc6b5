#include "demo/host/LayoutObject.h"

#include <algorithm>
#include <thread>

#include "demo/dxf/Text.h"
#include "demo/host/BlockObject.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

namespace {

constexpr const wchar_t* noDevice = L"None";

bool isNoDevice(const std::wstring& device) {
    return device.empty() || sameName(device, L"none_device") || sameName(device, noDevice);
}

}  // namespace

std::vector<MemberSlot<LayoutObject>> LayoutObject::members() {
    using Self = LayoutObject;
    std::vector<MemberSlot<Self>> own{
        property(0x01, L"Name", &Self::name, &Self::putName),
        property(0x02, L"ModelType", &Self::modelType),
        property(0x21, L"Block", &Self::block),
        property(0x22, L"TabOrder", &Self::tabOrder, &Self::putTabOrder),
    };
    for (const auto& slot : plotMembers()) own.push_back(slot);
    return withOwnMembers<Self>(std::move(own));
}

std::vector<MemberSlot<LayoutObject>> LayoutObject::plotMembers() {
    using Self = LayoutObject;
    return {
        property(0x03, L"ConfigName", &Self::configName, &Self::putConfigName),
        property(0x04, L"CanonicalMediaName", &Self::canonicalMediaName, &Self::putCanonicalMediaName),
        property(0x06, L"PaperUnits", &Self::paperUnits, &Self::putPaperUnits),
        property(0x0D, L"PlotRotation", &Self::plotRotation, &Self::putPlotRotation),
        property(0x0E, L"StyleSheet", &Self::styleSheet, &Self::putStyleSheet),
        property(0x08, L"PlotType", &Self::plotType, &Self::putPlotType),
        method(0x13, L"GetPaperSize", &Self::paperSize, 2),
        method(0x19, L"GetLocaleMediaName", &Self::localeMediaName, 1),
        method(0x1A, L"RefreshPlotDeviceInfo", &Self::refreshPlotDeviceInfo),
    };
}

Layout& LayoutObject::layout() const {
    Layout* found = drawing().findLayout(handle());
    if (!found) throw failure(hostError::objectErased);
    return *found;
}

void LayoutObject::makeCurrentIn(OpenDocument& target) const {
    checkReachable();
    if (&target != &document()) throw failure(hostError::invalidInput);
    document().show(layout());
}

void LayoutObject::erase() {
    drawing().deleteLayout(layout());
}

Value LayoutObject::name() {
    return document().layoutName(layout());
}

void LayoutObject::putName(const Value& value) {
    const std::wstring wanted = textOf(value);
    const Layout* holder = document().findLayout(wanted);
    const bool ownName = holder == &layout() && (!options().caseIsTaken || name() == Value(wanted));
    if (holder && !ownName) throw failure(hostError::duplicateKey);
    drawing().renameLayout(layout(), wanted);
    document().setModified();
}

Value LayoutObject::modelType() {
    return layout().isModel();
}

Value LayoutObject::tabOrder() {
    return document().tabNumber(layout());
}

void LayoutObject::putTabOrder(const Value& value) {
    document().putTabNumber(layout(), static_cast<std::int32_t>(numberOf(value)));
    document().setModified();
}

Value LayoutObject::block() {
    return make<BlockObject>(layout().blockRecord());
}

void LayoutObject::changePlotSettings(const std::function<void(PlotSettings&)>& change) {
    PlotSettings settings = layout().plotSettings();
    change(settings);
    layout().setPlotSettings(settings);
    document().setModified();
}

bool LayoutObject::deviceInstalled(const std::wstring& device) const {
    return std::ranges::any_of(options().plotDevices,
                               [&](const std::wstring& installed) { return sameName(installed, device); });
}

Value LayoutObject::configName() {
    const std::wstring device = layout().plotSettings().device;
    return isNoDevice(device) ? std::wstring(noDevice) : device;
}

void LayoutObject::putConfigName(const Value& value) {
    const std::wstring device = textOf(value);
    if (!isNoDevice(device) && !deviceInstalled(device)) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) {
        settings.device = isNoDevice(device) ? std::wstring(L"none_device") : device;
    });
}

Value LayoutObject::canonicalMediaName() {
    return layout().plotSettings().paper;
}

void LayoutObject::putCanonicalMediaName(const Value& value) {
    changePlotSettings([&](PlotSettings& settings) { settings.paper = textOf(value); });
}

Value LayoutObject::localeMediaName(Arguments arguments) {
    std::wstring name = textOf(arguments[0].value());
    const std::wstring device = layout().plotSettings().device;
    const bool answers = isNoDevice(device) || deviceInstalled(device);
    if (!answers || name.empty()) throw failure(hostError::invalidInput);
    std::ranges::replace(name, L'_', L' ');
    return name;
}

Value LayoutObject::paperSize(Arguments arguments) {
    for (const auto& argument : arguments) {
        if (!argument.byReference() || !argument.value().is<double>()) throw failure(hostError::typeMismatch);
    }
    const PlotSettings settings = layout().plotSettings();
    arguments[0].assign(settings.paperWidth);
    arguments[1].assign(settings.paperHeight);
    return {};
}

std::int32_t LayoutObject::choice(const Value& value, std::int32_t highest) const {
    const std::int64_t number = numberOf(value);
    if (number < 0 || number > highest) throw failure(hostError::invalidInput);
    return static_cast<std::int32_t>(number);
}

Value LayoutObject::paperUnits() {
    return layout().plotSettings().units;
}

void LayoutObject::putPaperUnits(const Value& value) {
    changePlotSettings([&](PlotSettings& settings) { settings.units = choice(value, 2); });
}

Value LayoutObject::plotRotation() {
    return layout().plotSettings().rotation;
}

void LayoutObject::putPlotRotation(const Value& value) {
    changePlotSettings([&](PlotSettings& settings) { settings.rotation = choice(value, 3); });
}

Value LayoutObject::plotType() {
    return layout().plotSettings().plotType;
}

void LayoutObject::putPlotType(const Value& value) {
    changePlotSettings([&](PlotSettings& settings) { settings.plotType = choice(value, 5); });
}

Value LayoutObject::styleSheet() {
    return layout().plotSettings().styleSheet;
}

void LayoutObject::putStyleSheet(const Value& value) {
    changePlotSettings([&](PlotSettings& settings) { settings.styleSheet = textOf(value); });
}

Value LayoutObject::refreshPlotDeviceInfo(Arguments) {
    std::this_thread::sleep_for(options().plotDeviceDelay);
    if (isNoDevice(layout().plotSettings().device)) {
        // Without a device the real host loses the size of the paper here, too.
        changePlotSettings([](PlotSettings& settings) { settings.paperWidth = settings.paperHeight = 0; });
    }
    return {};
}

std::vector<MemberSlot<LayoutsObject>> LayoutsObject::members() {
    using Self = LayoutsObject;
    return {
        method(0x00, L"Item", &Self::item, 1),
        property(0x01, L"Count", &Self::count),
        method(0x02, L"Add", &Self::add, 1),
    };
}

std::vector<ObjectPtr> LayoutsObject::allElements() {
    checkReachable();
    std::vector<ObjectPtr> objects;
    for (const Layout* layout : document().layoutsByName()) {
        objects.push_back(make<LayoutObject>(layout->handle()));
    }
    return objects;
}

Value LayoutsObject::count() {
    return static_cast<std::int32_t>(document().drawing().layouts().size());
}

Value LayoutsObject::item(Arguments arguments) {
    const CollectionIndex index = collectionIndex(arguments[0].value(), options().language);
    if (!index.position) {
        const Layout* layout = document().findLayout(index.name);
        if (!layout) throw failure(hostError::keyNotFound);
        return make<LayoutObject>(layout->handle());
    }
    const auto layouts = document().layoutsByName();
    if (*index.position < 0 || *index.position >= static_cast<std::int64_t>(layouts.size())) {
        throw failure(hostError::invalidInput);
    }
    return make<LayoutObject>(layouts[static_cast<std::size_t>(*index.position)]->handle());
}

Value LayoutsObject::add(Arguments arguments) {
    const std::wstring name = textOf(arguments[0].value());
    if (document().findLayout(name)) throw failure(hostError::duplicateKey);
    const Handle handle = document().drawing().addLayout(name).handle();
    document().setModified();
    return make<LayoutObject>(handle);
}

}  // namespace demo
