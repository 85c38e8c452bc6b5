#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "demo/dxf/Drawing.h"
#include "demo/dxf/Text.h"
#include "support/ErrorOf.h"
#include "support/ToldBy.h"

namespace demo {

using blattwart::test::errorOf;

inline Drawing sample(const std::filesystem::path& name) {
    std::ifstream stream(SAMPLES_FOLDER / name, std::ios::binary);
    return Drawing::load(stream);
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

/// What another program reads in drawing files; the arguments are its options and the files, quoted.
inline std::string inspect(const std::string& arguments) {
    return blattwart::test::toldBy(INSPECTOR " " + arguments + " 2>&1");
}

/// A file of this process, removed in the end.
struct TemporaryFile {
    explicit TemporaryFile(const Drawing& drawing, const std::string& name = "")
        : path(std::filesystem::temp_directory_path() / ("dxf_test_" + std::to_string(::getpid()) + name)) {
        std::ofstream(path, std::ios::binary) << saved(drawing);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove(path); }

    std::filesystem::path path;
};

/// What another program reads in the drawing: its faults, then a line a layout.
inline std::string inspected(const Drawing& drawing) {
    return inspect("'" + TemporaryFile(drawing).path.string() + "'");
}

}  // namespace demo
