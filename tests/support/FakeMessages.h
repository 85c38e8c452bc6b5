#pragma once

#include <deque>
#include <functional>
#include <iosfwd>
#include <optional>
#include <vector>

#include "platform/MessageBoxes.h"

namespace blattwart::test {

/// One message box as the user saw it.
struct ShownBox {
    std::wstring text;
    std::wstring caption;
    MessageButtons buttons = MessageButtons::ok;
    MessageIcon icon = MessageIcon::none;
    friend bool operator==(const ShownBox&, const ShownBox&) = default;
};
void PrintTo(const ShownBox& box, std::ostream* stream);

/// Records every box and answers it: as scripted, otherwise with OK, No or Cancel.
class FakeMessages : public MessageBoxes {
  public:
    std::vector<ShownBox> shown;
    bool strict = false;  ///< a box that was not announced fails the test
    /// What goes on while a box is open.
    std::function<void(const ShownBox&)> whileOpen;

    /// Announces the next box, whatever it says, and its answer.
    void answer(MessageAnswer answer) { script_.push_back({L"", answer}); }
    /// Announces the next box: another text fails the test.
    void expect(std::wstring text) { script_.push_back({std::move(text), std::nullopt}); }
    void expect(std::wstring text, MessageAnswer answer) { script_.push_back({std::move(text), answer}); }
    /// Announced boxes that have not come.
    std::size_t outstanding() const { return script_.size(); }
    std::vector<std::wstring> texts() const;
    /// Those of the boxes that asked for Yes or No.
    std::vector<std::wstring> questions() const;
    void clear();

    MessageAnswer show(const std::wstring& text, const std::wstring& caption, MessageButtons buttons,
                       MessageIcon icon) override;

  private:
    struct Announced {
        std::wstring text;  // "" for any
        std::optional<MessageAnswer> answer;
    };

    std::deque<Announced> script_;
};

}  // namespace blattwart::test
