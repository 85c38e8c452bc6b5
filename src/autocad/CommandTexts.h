#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace blattwart {

/// What the program has the host do by typing into a drawing's command line.
enum class TypedCommand : std::uint8_t {
    copyLayout,            ///< answers: source, new name
    setLayout,             ///< answer: the layout that becomes the current one
    saveLayoutAsTemplate,  ///< answers: layout, full name of the file
    insertLayouts,         ///< answer: full name of the template file
    closeDrawing,
    saveDrawingAs,
    navigateDesignCenter,  ///< answer: folder or file
};

/// In which words a command is typed.
enum class Wording : std::uint8_t {
    established,    ///< as macros of German hosts have always had it; what is not marked by "_" is German
    international,  ///< for hosts in every language
};

/// The text of a command with the answers to its questions, each ended by a carriage return.
std::wstring commandText(TypedCommand command, Wording wording,
                         std::initializer_list<std::wstring_view> answers);

}  // namespace blattwart
