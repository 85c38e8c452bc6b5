#include "autocad/CommandTexts.h"

#include <algorithm>
#include <array>

namespace blattwart {

namespace {

struct Beginning {
    TypedCommand command;
    std::wstring_view established;
    std::wstring_view international;
};
constexpr std::array beginnings{
    Beginning{TypedCommand::copyLayout, L"_layout\r_copy\r", L"_layout\r_copy\r"},
    Beginning{TypedCommand::setLayout, L"_layout\r_set\r", L"_layout\r_set\r"},
    Beginning{TypedCommand::saveLayoutAsTemplate, L"_layout\rSI\r", L"_.-LAYOUT\r_SAveas\r"},
    Beginning{TypedCommand::insertLayouts, L"layout\rvorlage\r", L"_.-LAYOUT\r_Template\r"},
    Beginning{TypedCommand::closeDrawing, L"_Close\r", L"_.CLOSE\r"},
    Beginning{TypedCommand::saveDrawingAs, L"_saveas\r", L"_.SAVEAS\r"},
    // The second carriage return of the established text answers a prompt with its default.
    Beginning{TypedCommand::navigateDesignCenter, L"ADCNAVIGIEREN\r\r", L"_.ADCNAVIGATE\r"},
};

}  // namespace

std::wstring commandText(TypedCommand command, Wording wording,
                         std::initializer_list<std::wstring_view> answers) {
    const Beginning& beginning = *std::ranges::find(beginnings, command, &Beginning::command);
    std::wstring text(wording == Wording::established ? beginning.established : beginning.international);
    for (const std::wstring_view answer : answers) text.append(answer).push_back(L'\r');
    return text;
}

}  // namespace blattwart
