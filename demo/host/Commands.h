#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "demo/host/HostOptions.h"

namespace demo {

class Host;
class OpenDocument;

/// A command of the host's command line.
struct Command {
    const wchar_t* name;    ///< in all languages, typed with "_" before it
    const wchar_t* german;  ///< in a German host
    std::function<void(Host&, OpenDocument&)> start;
};

/// The command of a typed name: prefixes "_" and "." in any order, case aside; null when it is unknown.
const Command* findCommand(const std::wstring& typed, Language language);

/// True when an answer names an option. Keywords are written with the letters that must at least be typed in
/// capitals ("SIchals"). A German host takes the German word, every host the English one behind "_".
bool isKeyword(std::wstring_view typed, std::wstring_view english, std::wstring_view german,
               Language language);

}  // namespace demo
