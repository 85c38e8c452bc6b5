#pragma once

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "demo/dxf/Drawing.h"
#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

namespace demo {

inline Drawing sample(const std::string& name) {
    return Drawing::loadFile(decodeText(SAMPLES_FOLDER "/" + name));
}

inline std::string saved(const Drawing& drawing) {
    std::ostringstream stream;
    drawing.save(stream);
    return stream.str();
}

inline Drawing loaded(const std::string& bytes) {
    std::istringstream stream(bytes);
    return Drawing::load(stream);
}

inline std::vector<std::wstring> tabs(const Drawing& drawing) {
    std::vector<std::wstring> names;
    for (const Layout* layout : drawing.layouts()) names.push_back(layout->name());
    return names;
}

/// What another program reads in the drawing: release and faults, then a line a layout.
inline std::string inspected(const Drawing& drawing) {
    const auto path =
        std::filesystem::temp_directory_path() / ("dxf_test_" + std::to_string(::getpid()) + ".dxf");
    drawing.saveFile(decodeText(path.string()));
    const std::string command = INSPECTOR " '" + path.string() + "' 2>&1";
    std::string output;
    std::FILE* pipe = ::popen(command.c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) output += static_cast<char>(c);
    ::pclose(pipe);
    std::filesystem::remove(path);
    return output;
}

template <class Operation>
std::int32_t errorOf(Operation&& operation) {
    try {
        operation();
    } catch (const blattwart::RuntimeError& error) {
        return error.description().empty() ? -1 : error.number();
    }
    return 0;
}

}  // namespace demo
