#include "Operations.h"

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
    for (const SampleDrawing& sample : sampleDrawings()) {
        const demo::DocumentPtr made = host().addDocument(sample.folder, sample.name, sample.layouts);
        made->save();
        if (sample.isTemplate()) host().close(made);
    }
    world.messages.clear();
    world.fileDialogs = {};
    ASSERT_TRUE(startAgain());
    calls.clear();
}

std::wstring Operations::hostState() {
    const demo::DocumentPtr active = host().activeDocument();
    if (!active) return L"none";
    return active->name() + L"/" + active->drawing().currentLayout().name() + L" of " +
           std::to_wstring(host().documents().size());
}

std::vector<Typed> Operations::typed() {
    std::vector<Typed> result;
    for (const demo::TypedText& each : host().typedTexts())
        result.push_back({each.document.substr(each.document.rfind(L'\\') + 1), each.text, each.filedia});
    return result;
}

void PrintTo(const Typed& typed, std::ostream* stream) {
    *stream << "into " << testing::PrintToString(typed.drawing) << " with FILEDIA " << typed.filedia << ": "
            << testing::PrintToString(typed.text);
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

}  // namespace blattwart::test
