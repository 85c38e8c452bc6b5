#include "autocad/CommandTexts.h"

#include <algorithm>
#include <array>

namespace blattwart {

namespace {

struct Beginning {
    TypedCommand command;
    std::wstring_view text;
};
constexpr std::array beginnings{
    Beginning{TypedCommand::copyLayout, L"_layout\r_copy\r"},
    Beginning{TypedCommand::setLayout, L"_layout\r_set\r"},
    Beginning{TypedCommand::saveLayoutAsTemplate, L"_layout\rSI\r"},
    Beginning{TypedCommand::insertLayouts, L"layout\rvorlage\r"},
    Beginning{TypedCommand::closeDrawing, L"_Close\r"},
    Beginning{TypedCommand::saveDrawingAs, L"_saveas\r"},
    // The second carriage return answers a prompt with its default.
    Beginning{TypedCommand::navigateDesignCenter, L"ADCNAVIGIEREN\r\r"},
};

}  // namespace

std::wstring commandText(TypedCommand command, std::initializer_list<std::wstring_view> answers) {
    std::wstring text(std::ranges::find(beginnings, command, &Beginning::command)->text);
    for (const std::wstring_view answer : answers) text.append(answer).push_back(L'\r');
    return text;
}

}  // namespace blattwart
