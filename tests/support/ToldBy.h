#pragma once

#include <cstdio>
#include <string>

namespace blattwart::test {

/// What another program writes.
inline std::string toldBy(const std::string& command) {
    std::FILE* pipe = ::popen(command.c_str(), "r");
    std::string text;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
    ::pclose(pipe);
    return text;
}

}  // namespace blattwart::test
