#include "MdbTools.h"

#include <array>
#include <cstdio>
#include <memory>

#include "demo/ado/DatabaseFile.h"

namespace demo::test {

namespace {

std::string shown(const blattwart::Value& value) {
    if (const auto* number = value.as<std::int32_t>()) return std::to_string(*number);
    if (const auto* text = value.as<std::wstring>()) return ado::toUtf8(*text);
    if (value.isNull()) return "NULL";
    std::array<char, 40> digits{};
    std::snprintf(digits.data(), digits.size(), "%.16g", *value.as<double>());
    return digits.data();
}

}  // namespace

std::string output(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>/dev/null").c_str(), "r"), pclose);
    std::string text;
    for (int letter = 0; (letter = std::fgetc(pipe.get())) != EOF;) text += static_cast<char>(letter);
    return text;
}

std::string exported(const std::filesystem::path& file, const std::string& table) {
    return output("mdb-export -H -Q -d '|' -0 NULL " + file.string() + " " + table);
}

std::string expected(const mdb::Table& table) {
    std::string lines;
    for (const auto& row : table.rows) {
        for (const auto& value : row) lines += (&value == row.data() ? "" : "|") + shown(value);
        lines += '\n';
    }
    return lines;
}

}  // namespace demo::test
