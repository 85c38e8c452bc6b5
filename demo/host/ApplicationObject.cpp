#include "demo/host/ApplicationObject.h"

#include "demo/host/DocumentObject.h"
#include "demo/host/DocumentsObject.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

std::vector<MemberSlot<ApplicationObject>> ApplicationObject::members() {
    using Self = ApplicationObject;
    std::vector<MemberSlot<Self>> slots{
        property(0x00, L"Name", &Self::name),
        property(0x02, L"ActiveDocument", &Self::activeDocument, &Self::putActiveDocument),
        property(0x07, L"Documents", &Self::documents),
        property(0x08, L"FullName", &Self::fullName),
        property(0x0A, L"LocaleId", &Self::localeId),
        property(0x0C, L"Path", &Self::path),
        property(0x0D, L"Preferences", &Self::preferences),
        property(0x0F, L"Version", &Self::version),
        method(0x19, L"LoadDVB", &Self::loadDvb, 1),
        method(0x1B, L"RunMacro", &Self::runMacro, 1),
        method(0x1D, L"Quit", &Self::quit),
        method(0x1F, L"Update", &Self::update),
    };
    for (const auto& slot : windowMembers()) slots.push_back(slot);
    return slots;
}

std::vector<MemberSlot<ApplicationObject>> ApplicationObject::windowMembers() {
    using Self = ApplicationObject;
    return {
        property(0x10, L"Visible", &Self::visible, &Self::putVisible),
        property(0x28, L"HWND", &Self::window),
    };
}

Value ApplicationObject::activeDocument() {
    const DocumentPtr active = host().activeDocument();
    if (!active) throw failure(hostError::noDocument);
    return ObjectPtr(heldObject<DocumentObject>(hostPtr(), active));
}

void ApplicationObject::putActiveDocument(const Value& value) {
    const auto* object = value.as<ObjectPtr>();
    const auto document = object ? std::dynamic_pointer_cast<DocumentObject>(*object) : nullptr;
    if (!document) throw failure(hostError::typeMismatch);
    host().activate(document->openDocument());
}

Value ApplicationObject::documents() {
    return make<DocumentsObject>();
}

Value ApplicationObject::preferences() {
    if (!host().activeDocument()) throw failure(hostError::noDocument);
    return make<PreferencesObject>();
}

Value ApplicationObject::visible() {
    return host().visible();
}

void ApplicationObject::putVisible(const Value& value) {
    host().setVisible(boolOf(value));
}

Value ApplicationObject::window() {
    return wideOrNarrow(host().window());
}

Value ApplicationObject::update(Arguments) {
    return {};
}

Value ApplicationObject::version() {
    return options().version;
}

Value ApplicationObject::name() {
    return L"AutoCAD";
}

Value ApplicationObject::path() {
    return options().programFolder;
}

Value ApplicationObject::fullName() {
    return options().programFolder + L"\\acad.exe";
}

Value ApplicationObject::localeId() {
    return static_cast<std::int32_t>(options().language == Language::german ? 0x407 : 0x409);
}

Value ApplicationObject::runMacro(Arguments arguments) {
    host().macros().run(textOf(arguments[0].value()));
    return {};
}

Value ApplicationObject::loadDvb(Arguments arguments) {
    host().macros().load(textOf(arguments[0].value()));
    return {};
}

Value ApplicationObject::quit(Arguments) {
    host().quit();
    return {};
}

std::vector<MemberSlot<PreferencesObject>> PreferencesObject::members() {
    return {property(0x01, L"Files", &PreferencesObject::files),
            property(0x02, L"Display", &PreferencesObject::display)};
}

Value PreferencesObject::display() {
    return make<PreferencesDisplayObject>();
}

Value PreferencesObject::files() {
    return make<PreferencesFilesObject>();
}

std::vector<MemberSlot<PreferencesFilesObject>> PreferencesFilesObject::members() {
    using Self = PreferencesFilesObject;
    return {property(0x60020025, L"TemplateDwgPath", &Self::templateFolder, &Self::putTemplateFolder)};
}

Value PreferencesFilesObject::templateFolder() {
    return options().templateFolder;
}

void PreferencesFilesObject::putTemplateFolder(const Value& value) {
    host().options().templateFolder = textOf(value);
}

std::vector<MemberSlot<PreferencesDisplayObject>> PreferencesDisplayObject::members() {
    using Self = PreferencesDisplayObject;
    return {property(0x60020038, L"LayoutShowPlotSetup", &Self::showsPageSetup, &Self::putShowsPageSetup)};
}

Value PreferencesDisplayObject::showsPageSetup() {
    return options().profile->showsPageSetup;
}

void PreferencesDisplayObject::putShowsPageSetup(const Value& value) {
    options().profile->showsPageSetup = boolOf(value);
}

}  // namespace demo
