#include "demo/host/Commands.h"

#include <algorithm>
#include <array>

#include "demo/dxf/Text.h"
#include "demo/host/LayoutCommand.h"

namespace demo {

namespace {

void saveUnderName(Host& host, OpenDocument& document) {
    const auto save = [&document](const std::wstring& path) { document.saveAs(path); };
    if (host.filedia() == 0) {
        document.commandLine().ask(
            {PromptKind::path, L"Zeichnung speichern unter:", document.fullName(), save});
        return;
    }
    document.commandLine().askByDialog({DialogKind::saveFile, L"Zeichnung speichern unter", document.name(),
                                        [save](std::optional<std::wstring> path) { save(*path); }});
}

void close(Host& host, OpenDocument& document) {
    if (!document.modified()) {
        host.close(document.shared_from_this());
        return;
    }
    const auto answered = [&host, &document](const std::optional<std::wstring>& answer) {
        if (sameName(answer.value_or(L""), L"Ja")) document.save();
        host.close(document.shared_from_this());
    };
    document.commandLine().askByDialog(
        {DialogKind::saveChanges, L"Änderungen in " + document.name() + L" speichern?", L"Ja", answered});
}

void navigateDesignCenter(Host&, OpenDocument& document) {
    document.commandLine().ask({PromptKind::path, L"Pfadnamen eingeben:", L"", [](const std::wstring&) {}});
}

void changeLayouts(Host& host, OpenDocument& document) {
    std::make_shared<LayoutCommand>(host, document)->start();
}

const auto& commands() {
    static const std::array all{
        Command{L"LAYOUT", L"LAYOUT", changeLayouts},
        Command{L"-LAYOUT", L"-LAYOUT", changeLayouts},
        Command{L"CLOSE", L"SCHLIESSEN", close},
        Command{L"SAVEAS", L"SICHALS", saveUnderName},
        Command{L"QSAVE", L"KSICH", [](Host&, OpenDocument& document) { document.save(); }},
        Command{L"ADCNAVIGATE", L"ADCNAVIGIEREN", navigateDesignCenter},
    };
    return all;
}

}  // namespace

const Command* findCommand(const std::wstring& typed, Language language) {
    const std::size_t begin = std::min(typed.find_first_not_of(L"_."), typed.size());
    const std::wstring name = typed.substr(begin);
    const bool global = typed.substr(0, begin).find(L'_') != std::wstring::npos;
    const bool german = language == Language::german && !global;
    const auto found = std::ranges::find_if(commands(), [&](const Command& command) {
        return sameName(name, german ? command.german : command.name);
    });
    return found == commands().end() ? nullptr : &*found;
}

bool isKeyword(std::wstring_view typed, std::wstring_view english, std::wstring_view german,
               Language language) {
    const bool global = typed.starts_with(L'_');
    const std::wstring_view word = typed.substr(global ? 1 : 0);
    const std::wstring_view keyword = global || language == Language::english ? english : german;
    if (keyword == L"?") return word == keyword;
    const auto capitals = std::ranges::find_if(
        keyword, [](wchar_t letter) { return folded(std::wstring(1, letter)) != std::wstring(1, letter); });
    const auto fewest = static_cast<std::size_t>(capitals - keyword.begin());
    return word.size() >= fewest && word.size() <= keyword.size() &&
           sameName(word, keyword.substr(0, word.size()));
}

}  // namespace demo
