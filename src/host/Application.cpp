#include "host/Application.h"

namespace blattwart::host {

namespace {

constexpr std::wstring_view application = L"Application";

}  // namespace

host::Documents Application::Documents() const {
    return getObject<host::Documents>({application, L"Documents"});
}

Document Application::ActiveDocument() const {
    return getObject<Document>({application, L"ActiveDocument"});
}

void Application::putVisible(bool visible) const {
    object().put({application, L"Visible"}, visible);
}

WindowHandle Application::HWND() const {
    // 64-bit hosts give 64 bits, of which a window handle uses the lower 32.
    const Value handle = object().get({application, L"HWND"});
    return static_cast<WindowHandle>(static_cast<std::int64_t>(hostNumber(handle)));
}

std::wstring Application::Version() const {
    return getText({application, L"Version"});
}

void Application::RunMacro(const std::wstring& macro) const {
    object().call({application, L"RunMacro"}, {Value(macro)});
}

void Application::LoadDVB(const std::wstring& file) const {
    object().call({application, L"LoadDVB"}, {Value(file)});
}

std::wstring Application::templateFolder() const {
    const ObjectPtr preferences = toObject(object().get({application, L"Preferences"}));
    const ObjectPtr files = toObject(preferences->get({L"Preferences", L"Files"}));
    std::wstring folder = hostText(files->get({L"PreferencesFiles", L"TemplateDwgPath"}));
    if (folder.ends_with(L'\\')) folder.pop_back();
    return folder;
}

ObjectPtr Application::displayPreferences() const {
    const ObjectPtr preferences = toObject(object().get({application, L"Preferences"}));
    return toObject(preferences->get({L"Preferences", L"Display"}));
}

bool Application::showsPageSetup() const {
    return hostNumber(displayPreferences()->get({L"PreferencesDisplay", L"LayoutShowPlotSetup"})) != 0;
}

void Application::putShowsPageSetup(bool shows) const {
    displayPreferences()->put({L"PreferencesDisplay", L"LayoutShowPlotSetup"}, shows);
}

}  // namespace blattwart::host
