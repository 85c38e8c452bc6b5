#include "Operations.h"

#include <algorithm>

namespace blattwart::test {

std::vector<std::wstring> split(const std::wstring& text) {
    std::vector<std::wstring> parts(1);
    for (const wchar_t c : text) {
        if (c == L',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

void Operations::restart() {
    calls.heal();
    demo.start(release);
    const auto onDisk = [this](const wchar_t* folder, const wchar_t* name,
                               const std::vector<std::wstring>& layouts) {
        demo::DocumentPtr made = host().addDocument(folder, name, layouts);
        made->save();
        return made;
    };
    host().close(onDisk(L"C:\\Vorlagen", L"Plan A3.dwt", {L"Rahmen A3"}));
    onDisk(L"C:\\Projekte", L"Haus.dwg", {L"Blatt 1"});
    onDisk(L"C:\\Projekte", L"Plan.dwg", {L"Blatt 1", L"Blatt 2", L"Schnitt"});
    world.messages.clear();
    world.fileDialogs = {};
    main = std::make_unique<basMain>(world.platform, presenter);
    ASSERT_TRUE(start());
    calls.clear();
}

std::wstring Operations::hostState() {
    const demo::DocumentPtr active = host().activeDocument();
    if (!active) return L"none";
    return active->name() + L"/" + active->drawing().currentLayout().name() + L" " +
           std::to_wstring(host().documents().size());
}

std::wstring Operations::layoutsOf(const demo::Drawing& drawing) {
    std::wstring names;
    for (const demo::Layout* layout : drawing.layouts())
        if (!layout->isModel()) names += (names.empty() ? L"" : L",") + layout->name();
    return names;
}

std::vector<std::wstring> Operations::typed() {
    std::vector<std::wstring> result;
    for (const demo::TypedText& typed : host().typedTexts()) {
        std::wstring text = typed.text;
        std::ranges::replace(text, L'\r', L'¶');
        result.push_back(typed.document.substr(typed.document.rfind(L'\\') + 1) + L" " +
                         std::to_wstring(typed.filedia) + L" " + text);
    }
    return result;
}

bool Operations::activeDocumentIsRight() {
    const demo::DocumentPtr active = host().activeDocument();
    const std::wstring name = active ? active->folder() + L"\\" + active->name() : L"";
    return main->autoCAD.GetActiveDrawingName() == name;
}

void Operations::loseAnswerOf(std::wstring_view className, std::wstring_view name, std::int32_t error) {
    calls.clear();
    calls.beforeCall([=, this](std::size_t number) {
        const demo::RecordedCall& call = calls.calls().back();
        if (call.className != className || call.name != name || call.kind == demo::RecordedCall::Kind::get)
            return;
        const bool refused = error == hresult::callRejected;
        calls.failAt(number, RuntimeError(error, L"Fehler"),
                     refused ? demo::Moment::before : demo::Moment::after);
    });
}

void Operations::selectInList(const std::vector<std::wstring>& keys) {
    std::vector<ListItem*> items;
    items.reserve(keys.size());
    for (const std::wstring& key : keys) items.push_back(list().find(key));
    list().userSelects(items, items.empty() ? nullptr : items.front());
}

}  // namespace blattwart::test
