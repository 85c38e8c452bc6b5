#include "support/FakeMessages.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace blattwart::test {

void PrintTo(const ShownBox& box, std::ostream* stream) {
    *stream << testing::PrintToString(box.text) << ", caption " << testing::PrintToString(box.caption)
            << ", buttons " << static_cast<int>(box.buttons) << ", icon " << static_cast<int>(box.icon);
}

std::vector<std::wstring> FakeMessages::texts() const {
    std::vector<std::wstring> result;
    std::ranges::transform(shown, std::back_inserter(result), &ShownBox::text);
    return result;
}

std::vector<std::wstring> FakeMessages::questions() const {
    std::vector<std::wstring> result;
    for (const ShownBox& box : shown)
        if (box.buttons == MessageButtons::yesNo) result.push_back(box.text);
    return result;
}

void FakeMessages::clear() {
    shown.clear();
    script_.clear();
}

MessageAnswer FakeMessages::show(const std::wstring& text, const std::wstring& caption,
                                 MessageButtons buttons, MessageIcon icon) {
    shown.push_back({text, caption, buttons, icon});
    Announced announced;
    if (!script_.empty()) {
        announced = script_.front();
        script_.pop_front();
        if (!announced.text.empty()) {
            EXPECT_EQ(announced.text, text);
        }
    } else if (strict) {
        ADD_FAILURE() << "unexpected message box: " << testing::PrintToString(shown.back());
    }
    if (whileOpen) whileOpen(ShownBox(shown.back()));
    if (announced.answer) return *announced.answer;
    if (buttons == MessageButtons::ok) return MessageAnswer::ok;
    return buttons == MessageButtons::yesNoCancel ? MessageAnswer::cancel : MessageAnswer::no;
}

}  // namespace blattwart::test
