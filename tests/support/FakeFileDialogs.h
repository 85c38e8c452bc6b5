#pragma once

#include <vector>

#include "platform/FileDialogs.h"

namespace blattwart::test {

/// Records every dialog and answers it with the file that the test has chosen.
class FakeFileDialogs : public FileDialogs {
  public:
    struct Shown {
        std::wstring title;
        std::wstring filter;
        friend bool operator==(const Shown&, const Shown&) = default;
    };

    std::vector<Shown> shown;
    std::optional<std::wstring> chosen;  ///< none: the user cancels

    std::optional<std::wstring> open(const std::wstring& title, const std::wstring& filter) override {
        shown.push_back({title, filter});
        return chosen;
    }
    std::optional<std::wstring> save(const std::wstring& title, const std::wstring& filter,
                                     const std::wstring&) override {
        return open(title, filter);
    }
    std::optional<std::wstring> folder(const std::wstring& title, const std::wstring&) override {
        return open(title, {});
    }
};

}  // namespace blattwart::test
