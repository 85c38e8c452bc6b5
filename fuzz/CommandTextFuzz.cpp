// Names that users and drawings give to layouts and files, typed into the host's command line: each is one
// answer, whatever it holds, and never a command of its own. Lines: source, new name, copies, file.
#include <algorithm>

#include "autocad/basTarvix.h"
#include "demo/host/DemoAutomation.h"
#include "Input.h"
#include "support/NoMainWindow.h"
#include "support/TestPlatform.h"

using namespace blattwart;
using fuzz::require;

namespace {

constexpr std::wstring_view commandPrompt = L"Befehl: ";

bool isControl(wchar_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

void requireAnswers(const demo::TypedText& typed) {
    const auto returns = std::ranges::count(typed.text, L'\r');
    const auto controls = std::ranges::count_if(typed.text, isControl);
    require(controls == returns, "no control character but the returns");
    const bool layout = typed.text.starts_with(L"_layout\r_copy\r") && returns == 4;
    const bool current = typed.text.starts_with(L"_layout\r_set\r") && returns == 3;
    const bool navigation = typed.text.starts_with(L"ADCNAVIGIEREN\r\r") && returns == 3;
    require((layout || current || navigation) && typed.text.back() == L'\r', "one answer to each question");
}

void requireNothingEvaluated(const demo::CommandLine& commandLine) {
    for (const std::wstring& line : commandLine.history())
        for (const wchar_t* evaluated : {L"Ausdruck: ", L"Variable: ", L"Transparenter Befehl: "})
            require(!line.starts_with(evaluated), "no name is evaluated");
}

void requireNoOtherCommand(const demo::CommandLine& commandLine) {
    for (const std::wstring& line : commandLine.history())
        if (line.starts_with(commandPrompt))
            require(line.substr(commandPrompt.size()) == L"_layout", "no command of a name's own");
}

}  // namespace

void fuzz::fuzzCommandText(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::wstring source = input.text();
    std::wstring name = input.text();
    const auto copies = static_cast<std::int16_t>(fuzz::Input::number<std::uint16_t>(input.line()) % 4);
    const std::wstring file = input.text();

    demo::DemoAutomation automation;
    automation.start();
    demo::Drawing drawing = demo::Drawing::createEmpty();
    if (!ignoringErrors([&] { drawing.renameLayout(*drawing.layouts().back(), source); })) return;
    const auto document = automation.host()->addDocument(L"C:\\Projekte", L"Plan.dwg", std::move(drawing));
    test::TestPlatform world(automation);
    NavigatorRecords records;
    test::NoMainWindow window;
    basAutoCAD autoCAD(world.platform, records, window);
    autoCAD.ConnectAutoCAD();
    basTarvix(autoCAD, world.platform).CopyLayouts(source, name, copies);
    requireNoOtherCommand(document->commandLine());
    // Behind the DesignCenter's command the path comes as a line of its own; required so.
    autoCAD.NavigateDesignCenter(file);

    const auto& typed = automation.host()->typedTexts();
    std::ranges::for_each(typed, requireAnswers);
    const bool hostile = std::ranges::any_of(file, isControl);
    requireNothingEvaluated(document->commandLine());
    // A path with a blank that has no short form is not typed anyway.
    const bool given = file.find(L' ') == std::wstring::npos;
    require(!hostile || !given || !world.messages.shown.empty(), "the user is told why nothing was typed");
}
