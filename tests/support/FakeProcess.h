#pragma once

#include <vector>

#include "platform/Process.h"
#include "platform/RuntimeError.h"

namespace blattwart::test {

class FakeProcess : public Process {
  public:
    bool hasPreviousInstance = false;
    bool canStart = true;
    std::vector<std::wstring> started;  ///< command lines
    bool ended = false;

    bool previousInstance() override { return hasPreviousInstance; }
    void start(const std::wstring& commandLine) override {
        if (!canStart) throw RuntimeError(errorNumber::fileNotFound, L"Datei nicht gefunden");
        started.push_back(commandLine);
    }
    void end() override { ended = true; }
};

}  // namespace blattwart::test
