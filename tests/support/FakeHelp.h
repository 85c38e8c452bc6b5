#pragma once

#include <vector>

#include "platform/HelpViewer.h"

namespace blattwart::test {

class FakeHelp : public HelpViewer {
  public:
    struct Shown {
        WindowHandle owner;
        std::string file;
        std::string topic;
    };
    std::vector<Shown> shown;

    void displayTopic(WindowHandle owner, const std::string& file, const std::string& topic) override {
        shown.push_back({owner, file, topic});
    }
};

}  // namespace blattwart::test
