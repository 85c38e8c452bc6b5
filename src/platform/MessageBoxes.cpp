#include "platform/MessageBoxes.h"

#include "platform/Platform.h"

namespace blattwart {

void MessageBoxes::say(const std::wstring& text) {
    show(text, applicationTitle, MessageButtons::ok, MessageIcon::none);
}

void MessageBoxes::inform(const std::wstring& text) {
    show(text, applicationTitle, MessageButtons::ok, MessageIcon::information);
}

void MessageBoxes::warn(const std::wstring& text) {
    show(text, applicationTitle, MessageButtons::ok, MessageIcon::exclamation);
}

void MessageBoxes::reportError(const std::wstring& text) {
    show(text, applicationTitle, MessageButtons::ok, MessageIcon::critical);
}

bool MessageBoxes::ask(const std::wstring& question) {
    return ask(question, applicationTitle);
}

bool MessageBoxes::ask(const std::wstring& question, const std::wstring& caption) {
    return show(question, caption, MessageButtons::yesNo, MessageIcon::question) == MessageAnswer::yes;
}

bool MessageBoxes::askBeforeLoss(const std::wstring& question) {
    return show(question, applicationTitle, MessageButtons::yesNoDefaultNo, MessageIcon::question) ==
           MessageAnswer::yes;
}

}  // namespace blattwart
