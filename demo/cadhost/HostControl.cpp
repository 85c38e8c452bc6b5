#include "demo/cadhost/HostControl.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/RuntimeError.h"

namespace demo {

namespace {

std::string utf8(const std::wstring& text) {
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0,
                                           nullptr, nullptr);
    std::string result(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(), length,
                        nullptr, nullptr);
    return result;
}

/// The ends of answers made visible, so that each text stands on one line.
std::wstring onOneLine(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t letter : text) {
        if (letter == L'\r') {
            result += L"\\r";
        } else if (letter == L'\n') {
            result += L"\\n";
        } else {
            result += letter;
        }
    }
    return result;
}

}  // namespace

bool HostControl::obey(const std::wstring& command) {
    std::wistringstream words(command);
    std::wstring verb;
    std::wstring argument;
    words >> verb;
    std::getline(words >> std::ws, argument);
    try {
        return obeyUser(verb, argument) || server_.obey(command);
    } catch (const blattwart::RuntimeError&) {
        return false;
    }
}

bool HostControl::obeyUser(const std::wstring& verb, const std::wstring& argument) {
    if (verb == L"add") {
        add(argument);
    } else if (verb == L"activate") {
        return withDocument(argument, &Host::activate);
    } else if (verb == L"close") {
        return withDocument(argument, &Host::close);
    } else if (verb == L"typed") {
        writeTyped(argument);
    } else if (verb == L"drawings") {
        writeDrawings(argument);
    } else if (verb == L"profile") {
        writeProfile(argument);
    } else {
        return false;
    }
    return true;
}

bool HostControl::withDocument(const std::wstring& name, void (Host::*operation)(const DocumentPtr&)) {
    const auto found = std::ranges::find_if(
        host_.documents(), [&](const DocumentPtr& document) { return document->name() == name; });
    if (found == host_.documents().end()) return false;
    // A reference of our own: closing takes the document off the list.
    (host_.*operation)(DocumentPtr(*found));
    return true;
}

void HostControl::add(const std::wstring& description) {
    std::wistringstream parts(description);
    std::wstring folder;
    std::wstring name;
    std::getline(parts, folder, L'|');
    std::getline(parts, name, L'|');
    std::vector<std::wstring> layouts;
    for (std::wstring layout; std::getline(parts, layout, L'|');) layouts.push_back(layout);
    host_.addDocument(folder, name, layouts);
}

void HostControl::writeTyped(const std::wstring& file) const {
    std::ofstream target{std::filesystem::path(file)};
    for (const TypedText& typed : host_.typedTexts()) {
        target << utf8(typed.document) << '\t' << typed.filedia << '\t' << utf8(onOneLine(typed.text))
               << '\n';
    }
}

void HostControl::writeProfile(const std::wstring& file) const {
    const Profile& profile = *host_.options().profile;
    std::ofstream(std::filesystem::path(file)) << profile.backgroundPlot << '\n'
                                               << profile.showsPageSetup << '\n';
}

void HostControl::writeDrawings(const std::wstring& file) const {
    std::ofstream target{std::filesystem::path(file)};
    const auto marked = [](const std::wstring& name, bool active) {
        return utf8(name) + (active ? "*" : "");
    };
    for (const DocumentPtr& document : host_.documents()) {
        const Drawing& drawing = document->drawing();
        const bool active = document == host_.activeDocument();
        for (const Layout* layout : drawing.layouts()) {
            if (layout->isModel()) continue;
            target << marked(document->name(), active) << '\t'
                   << marked(layout->name(), active && layout == &drawing.currentLayout()) << '\n';
        }
    }
}

}  // namespace demo
