#include "demo/cadhost/Options.h"

#include <shellapi.h>

#include <functional>
#include <map>
#include <sstream>

#include "platform/RuntimeError.h"

namespace demo {

using blattwart::RuntimeError;

namespace {

class Reader {
  public:
    explicit Reader(const std::vector<std::wstring>& words) : words_(words) {}

    Options read() {
        while (position_ < words_.size()) take(words_[position_++]);
        return options_;
    }

  private:
    void take(const std::wstring& word) {
        const bool isOption = word.starts_with(L"/") || word.starts_with(L"-");
        if (!isOption) {
            options_.drawings.push_back(word);
            return;
        }
        const auto known = actions_.find(word.substr(1));
        if (known == actions_.end()) {
            throw RuntimeError(blattwart::errorNumber::invalidCall, L"Unbekannte Option " + word);
        }
        known->second();
    }

    const std::wstring& argument() {
        if (position_ == words_.size()) {
            throw RuntimeError(blattwart::errorNumber::invalidCall, L"Der letzten Option fehlt ihr Wert.");
        }
        return words_[position_++];
    }

    const std::vector<std::wstring>& words_;
    std::size_t position_ = 0;
    Options options_;
    std::map<std::wstring, std::function<void()>> actions_{
        {L"register", [this] { options_.task = Task::enter; }},
        {L"wait", [this] { options_.task = Task::wait; }},
        {L"Automation", [this] { options_.automation = true; }},
        {L"Embedding", [this] { options_.automation = true; }},
        {L"release", [this] { options_.host = ofRelease(argument(), options_.host); }},
        {L"wide", [this] { options_.host.wideIds = true; }},
        {L"templates", [this] { options_.host.templateFolder = argument(); }},
        {L"novba", [this] { options_.host.vbaInstalled = false; }},
        {L"plottime",
         [this] {
             std::int32_t milliseconds = 0;
             std::wistringstream(argument()) >> milliseconds;
             options_.host.plotTime = std::chrono::milliseconds(milliseconds);
         }},
        {L"startup", [this] { std::wistringstream(argument()) >> options_.startupTime; }},
        {L"silent", [this] { options_.silent = true; }},
        {L"do", [this] { options_.commands.push_back(argument()); }},
    };
};

/// In quotes, so that the usual rules give the word back.
std::wstring quoted(const std::wstring& word) {
    std::wstring result = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t letter : word) {
        // Backslashes count double before a quote only.
        if (letter == L'"') result.append(backslashes + 1, L'\\');
        backslashes = letter == L'\\' ? backslashes + 1 : 0;
        result += letter;
    }
    return result.append(backslashes, L'\\') + L"\"";
}

}  // namespace

Options readOptions(const std::vector<std::wstring>& words) {
    return Reader(words).read();
}

std::vector<std::wstring> commandLineWords() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> result(words + 1, words + count);
    LocalFree(words);
    return result;
}

std::wstring joined(const std::vector<std::wstring>& words) {
    std::wstring result;
    for (const std::wstring& word : words) result += (result.empty() ? L"" : L" ") + quoted(word);
    return result;
}

}  // namespace demo
