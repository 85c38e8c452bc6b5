#include "demo/host/CommandLine.h"

#include <algorithm>

#include "demo/host/Commands.h"
#include "demo/host/Host.h"
#include "platform/RuntimeError.h"

namespace demo {

namespace {

constexpr wchar_t escape = 27;

bool isReturn(wchar_t character) {
    return character == L'\r' || character == L'\n';
}

/// First character that is no blank, 0 when there is none.
wchar_t firstOf(const std::wstring& answer) {
    const std::size_t first = answer.find_first_not_of(L' ');
    return first == std::wstring::npos ? L'\0' : answer[first];
}

}  // namespace

void CommandLine::type(const std::wstring& text) {
    pending_.insert(pending_.end(), text.begin(), text.end());
    run();
}

std::int16_t CommandLine::activity() const {
    if (dialogOpen_) return 9;
    return commandName_.empty() ? 0 : 1;
}

void CommandLine::run() {
    while (!pending_.empty() && !dialogOpen_ && !document_.closed()) {
        const wchar_t character = pending_.front();
        pending_.pop_front();
        if (character == escape) {
            answer_.clear();
            prompt_.reset();
            commandName_.clear();
        } else if (endsAnswer(character)) {
            takeAnswer();
        } else {
            answer_ += character;
        }
    }
}

bool CommandLine::endsAnswer(wchar_t character) const {
    // An expression goes on over lines until its parentheses are closed.
    if (firstOf(answer_) == L'(' && std::ranges::count(answer_, L'(') > std::ranges::count(answer_, L')'))
        return false;
    if (isReturn(character)) return true;
    if (character != L' ') return false;
    return !prompt_ || prompt_->kind == PromptKind::word;
}

void CommandLine::takeAnswer() {
    std::wstring typed = std::move(answer_);
    answer_.clear();
    if (evaluates(typed)) return;
    if (!prompt_) {
        show((host_.options().language == Language::german ? L"Befehl: " : L"Command: ") + typed);
        startCommand(typed.empty() ? lastCommand_ : typed);
        return;
    }
    const Prompt prompt = std::move(*prompt_);
    prompt_.reset();
    show(prompt.text + L" " + typed);
    if (prompt.kind == PromptKind::path) std::erase(typed, L'"');
    if (typed.empty()) typed = prompt.fallback;
    step([&] { prompt.answer(typed); });
}

// Whatever they are, the prompt stays as it is.
bool CommandLine::evaluates(const std::wstring& typed) {
    const bool german = host_.options().language == Language::german;
    switch (firstOf(typed)) {
        case L'(':
            show((german ? L"Ausdruck: " : L"Expression: ") + typed);
            return true;
        case L'!':
            show(L"Variable: " + typed);
            return true;
        case L'\'':
            show((german ? L"Transparenter Befehl: " : L"Transparent command: ") + typed);
            if (!prompt_) startCommand(typed.substr(typed.find(L'\'') + 1));
            return true;
        default:
            return false;
    }
}

void CommandLine::startCommand(const std::wstring& typed) {
    if (typed.empty()) return;
    const Command* command = findCommand(typed, host_.options().language);
    if (!command) {
        show((host_.options().language == Language::german ? L"Unbekannter Befehl: " : L"Unknown command: ") +
             typed);
        return;
    }
    lastCommand_ = typed;
    commandName_ = command->name;
    step([&] { command->start(host_, document_); });
}

void CommandLine::step(const std::function<void()>& action) {
    try {
        action();
    } catch (const blattwart::RuntimeError& error) {
        prompt_.reset();
        show(error.description());
    }
    if (!prompt_ && !dialogOpen_) commandName_.clear();
}

void CommandLine::askByDialog(Dialog dialog) {
    dialogOpen_ = true;
    dialog.answer = [this, next = std::move(dialog.answer)](std::optional<std::wstring> answer) {
        dialogOpen_ = false;
        step([&] {
            if (answer) next(std::move(answer));
        });
        run();
    };
    host_.showDialog(std::move(dialog));
}

}  // namespace demo
