#include "planlist/PlanExport.h"

#include <algorithm>
#include <array>
#include <functional>
#include <type_traits>

namespace blattwart {

namespace {

/// UTF-8 of a text in UTF-16 or UTF-32; half a pair becomes the replacement character.
std::string utf8(std::wstring_view text) {
    std::string bytes;
    const auto add = [&](std::uint32_t bits) { bytes.push_back(static_cast<char>(bits)); };
    const auto unit = [&](std::size_t at) -> std::uint32_t {
        return at < text.size() ? static_cast<std::make_unsigned_t<wchar_t>>(text[at]) : 0;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint32_t code = unit(i);
        const std::uint32_t next = unit(i + 1);
        if (code >= 0xD800 && code < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10U) + (next - 0xDC00);
            ++i;
        } else if (code >= 0xD800 && code < 0xE000) {
            code = 0xFFFD;
        }
        if (code < 0x80) {
            add(code);
            continue;
        }
        const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        constexpr std::array<std::uint32_t, 4> marks{0, 0xC0, 0xE0, 0xF0};
        add(marks[static_cast<std::size_t>(more)] | (code >> (6U * static_cast<unsigned>(more))));
        for (int rest = more - 1; rest >= 0; --rest)
            add(0x80 | ((code >> (6U * static_cast<unsigned>(rest))) & 0x3F));
    }
    return bytes;
}

std::wstring oneLine(std::wstring text) {
    std::ranges::replace_if(
        text, [](wchar_t c) { return c == L'\r' || c == L'\n' || c == L'\t'; }, L' ');
    return text;
}

std::wstring joined(const PlanTable& table, wchar_t separator,
                    const std::function<std::wstring(const std::wstring&)>& written) {
    std::wstring text;
    for (const auto& line : table) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i > 0) text += separator;
            text += written(line[i]);
        }
        text += L"\r\n";
    }
    return text;
}

/// What a spreadsheet would calculate. After a sign that is a number, unless it calls or refers to something.
bool looksLikeFormula(std::wstring_view cell) {
    if (cell.empty()) return false;
    if (cell.front() == L'=' || cell.front() == L'@') return true;
    if (cell.front() != L'+' && cell.front() != L'-') return false;
    const std::size_t start = cell.find_first_not_of(L" +-");
    if (start == std::wstring_view::npos) return false;
    constexpr std::wstring_view ofNumbers = L"0123456789,.";
    return ofNumbers.find(cell[start]) == std::wstring_view::npos ||
           cell.find_first_of(L"(|!") != std::wstring_view::npos;
}

std::wstring csvCell(const std::wstring& cell) {
    std::wstring text = looksLikeFormula(cell) ? L"'" + cell : cell;
    const bool blankAtEnd = !text.empty() && (text.front() == L' ' || text.back() == L' ');
    if (!blankAtEnd && text.find_first_of(L";\"") == std::wstring::npos) return text;
    std::wstring quoted = L"\"";
    for (const wchar_t c : text) {
        if (c == L'"') quoted += c;
        quoted += c;
    }
    return quoted + L'"';
}

std::wstring htmlCell(const std::wstring& cell) {
    std::wstring text;
    for (const wchar_t c : cell) {
        switch (c) {
            case L'<':
                text += L"&lt;";
                break;
            case L'>':
                text += L"&gt;";
                break;
            case L'&':
                text += L"&amp;";
                break;
            case L'"':
                text += L"&quot;";
                break;
            default:
                text += c;
        }
    }
    return text;
}

std::string tenDigits(std::size_t number) {
    const std::string digits = std::to_string(number);
    return std::string(10 - digits.size(), '0') + digits;
}

}  // namespace

PlanTable planTable(const ListView& list) {
    const auto& columns = list.columns();
    std::vector<std::size_t> shown(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) shown[static_cast<std::size_t>(columns[i].position)] = i;
    PlanTable table(1);
    for (const std::size_t column : shown) table.front().push_back(oneLine(columns[column].text));
    const bool all = list.selected() == nullptr;
    for (int i = 0; i < list.count(); ++i) {
        const ListItem& item = list.row(i);
        if (!all && !item.selected()) continue;
        auto& line = table.emplace_back();
        for (const std::size_t column : shown)
            line.push_back(oneLine(item.column(static_cast<int>(column) + 1)));
    }
    return table;
}

std::wstring clipboardText(const PlanTable& table) {
    return joined(table, L'\t', [](const std::wstring& cell) { return cell; });
}

std::string clipboardHtml(const PlanTable& table) {
    std::wstring rows;
    for (const auto& line : table) {
        rows += L"<tr>";
        // The format "@" is a spreadsheet's for text.
        for (const std::wstring& cell : line)
            rows += L"<td style=\"mso-number-format:'\\@';white-space:pre\">" + htmlCell(cell) + L"</td>";
        rows += L"</tr>\r\n";
    }
    const std::string start = "<html><body>\r\n<!--StartFragment-->";
    const std::string fragment = "<table>\r\n" + utf8(rows) + "</table>";
    const std::string end = "<!--EndFragment-->\r\n</body></html>";
    const auto header = [](std::size_t html, std::size_t first, std::size_t last, std::size_t endOfHtml) {
        return "Version:0.9\r\nStartHTML:" + tenDigits(html) + "\r\nEndHTML:" + tenDigits(endOfHtml) +
               "\r\nStartFragment:" + tenDigits(first) + "\r\nEndFragment:" + tenDigits(last) + "\r\n";
    };
    const std::size_t html = header(0, 0, 0, 0).size();
    const std::size_t first = html + start.size();
    const std::size_t last = first + fragment.size();
    return header(html, first, last, last + end.size()) + start + fragment + end;
}

std::string csvText(const PlanTable& table) {
    return "\xEF\xBB\xBF" + utf8(joined(table, L';', csvCell));
}

}  // namespace blattwart
