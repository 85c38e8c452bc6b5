#include "demo/host/PdfPage.h"

#include <cmath>
#include <iomanip>
#include <sstream>
#include <type_traits>
#include <vector>

namespace demo {

namespace {

constexpr double pointsOfMillimetre = 72 / 25.4;

std::string hex(const std::string& bytes) {
    std::ostringstream text;
    text << std::hex << std::uppercase << std::setfill('0');
    for (const char byte : bytes) text << std::setw(2) << (static_cast<unsigned>(byte) & 0xFFU);
    return "<" + text.str() + ">";
}

/// For a title: UTF-16, big end first.
std::string wideText(const std::wstring& text) {
    std::string bytes = "\xFE\xFF";
    const auto add = [&](std::uint32_t unit) {
        bytes += static_cast<char>(unit >> 8U);
        bytes += static_cast<char>(unit & 0xFFU);
    };
    for (const wchar_t letter : text) {
        const auto code = static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<wchar_t>>(letter));
        if (code > 0xFFFF) {
            add(0xD800 + ((code - 0x10000) >> 10U));
            add(0xDC00 + ((code - 0x10000) & 0x3FFU));
        } else {
            add(code);
        }
    }
    return hex(bytes);
}

/// For the page, whose font has the letters of Western Europe.
std::string narrowText(const std::wstring& text) {
    std::string bytes;
    for (const wchar_t letter : text) bytes += letter < 0x100 ? static_cast<char>(letter) : '?';
    return hex(bytes);
}

std::string number(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::fixed << std::setprecision(2) << value;
    return text.str();
}

std::string contentOf(double width, double height, const std::wstring& title, const std::wstring& line) {
    const double size = std::max(6.0, height / 30);
    const auto at = [&](double y, const std::wstring& text) {
        return "BT /F1 " + number(size) + " Tf " + number(width / 10) + " " + number(y) + " Td " +
               narrowText(text) + " Tj ET\n";
    };
    return "20 20 " + number(width - 40) + " " + number(height - 40) + " re S\n" + at(height / 2, title) +
           at(height / 2 - 2 * size, line);
}

}  // namespace

std::string pdfPage(double width, double height, const std::wstring& title, const std::wstring& secondLine) {
    width *= pointsOfMillimetre;
    height *= pointsOfMillimetre;
    const std::string content = contentOf(width, height, title, secondLine);
    const std::vector<std::string> objects{
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + number(width) + " " + number(height) +
            "] /Contents 4 0 R /Resources << /Font << /F1 5 0 R >> >> >>",
        "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "endstream",
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /Encoding /WinAnsiEncoding >>",
        "<< /Title " + wideText(title) + " >>",
    };
    std::ostringstream file;
    file << "%PDF-1.4\n";
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        places.push_back(file.str().size());
        file << i + 1 << " 0 obj\n" << objects[i] << "\nendobj\n";
    }
    const std::size_t table = file.str().size();
    file << "xref\n0 " << objects.size() + 1 << "\n0000000000 65535 f \n";
    for (const std::size_t place : places)
        file << std::setw(10) << std::setfill('0') << place << " 00000 n \n";
    file << "trailer\n<< /Size " << objects.size() + 1 << " /Root 1 0 R /Info 6 0 R >>\nstartxref\n"
         << table << "\n%%EOF\n";
    return file.str();
}

}  // namespace demo
