#pragma once

#include <functional>
#include <optional>
#include <string>

namespace demo {

enum class DialogKind { openFile, saveFile, chooseLayouts, saveChanges, message };

/// A modal dialog of the host, which is busy as long as it is shown.
struct Dialog {
    DialogKind kind = DialogKind::openFile;
    std::wstring text;
    /// What OK takes when the user changes nothing.
    std::wstring proposal;
    /// Continues with the user's answer: a path, layout names separated by commas, "Ja" or "Nein"; none when
    /// the dialog was cancelled.
    std::function<void(std::optional<std::wstring>)> answer;
};

}  // namespace demo
