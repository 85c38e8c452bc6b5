#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace demo {

class Host;
class OpenDocument;

enum class PromptKind {
    word,  ///< a space ends the answer
    line,  ///< names: only the carriage return ends it
    path   ///< files: as a line, without its double quotes
};

/// A question of a running command.
struct Prompt {
    PromptKind kind = PromptKind::word;
    std::wstring text;
    /// What an empty answer stands for.
    std::wstring fallback;
    std::function<void(const std::wstring&)> answer;
};

/// The command line of one document: typed text answers the prompts of the running command, and where none is
/// running it names the next one. An empty answer there repeats the last command. At every prompt "(" begins
/// an expression, "!" a variable and "'" a transparent command: they are noted in the history and answer
/// nothing. Whatever goes wrong is shown in the history and is no failure.
class CommandLine {
  public:
    CommandLine(Host& host, OpenDocument& document) : host_(host), document_(document) {}

    /// Takes a text as typed; it may end in the middle of an answer or of a command. Escape (27) ends the
    /// running command. What comes behind the opening of a dialog is used when the dialog has ended.
    void type(const std::wstring& text);
    /// The system variable CMDACTIVE: 0 when idle, 1 when a command waits, 8 more while it shows a dialog.
    std::int16_t activity() const;
    /// Global name of the running command, "" when there is none.
    const std::wstring& commandName() const { return commandName_; }
    /// All that was shown, prompts with their answers included, the oldest first.
    const std::vector<std::wstring>& history() const { return history_; }

    // For the commands

    void ask(Prompt prompt) { prompt_ = std::move(prompt); }
    void show(const std::wstring& text) { history_.push_back(text); }
    /// Shows a dialog; the command goes on with its answer, and ends when it is cancelled.
    void askByDialog(struct Dialog dialog);

  private:
    void run();
    bool endsAnswer(wchar_t character) const;
    void takeAnswer();
    /// Deals with an answer that is an expression, a variable or a transparent command.
    bool evaluates(const std::wstring& typed);
    void startCommand(const std::wstring& typed);
    /// Runs a step of a command; a failure or the lack of a further question ends the command.
    void step(const std::function<void()>& action);

    Host& host_;
    OpenDocument& document_;
    std::deque<wchar_t> pending_;
    std::wstring answer_;
    std::optional<Prompt> prompt_;
    std::wstring commandName_;
    std::wstring lastCommand_;
    std::vector<std::wstring> history_;
    bool dialogOpen_ = false;
};

}  // namespace demo
