#pragma once

#include <string>
#include <vector>

#include "controls/ListView.h"

namespace blattwart {

/// Rows of a list as shown, for other programs: cells in displayed order of columns and rows, the header
/// first. Line ends and tabs inside of a cell are blanks.
using PlanTable = std::vector<std::vector<std::wstring>>;

/// The selected rows; without a selection all rows.
PlanTable planTable(const ListView& list);

/// Tab between cells, CRLF after every line.
std::wstring clipboardText(const PlanTable& table);
/// The clipboard's "HTML Format", UTF-8: every cell is marked as text, so that a spreadsheet takes "01" and
/// "1-2" as they are.
std::string clipboardHtml(const PlanTable& table);
/// Semicolon between cells, CRLF after every line, UTF-8 with byte order mark. A cell that a spreadsheet
/// would take for a formula gets an apostrophe in front; "+1.OG" is none.
std::string csvText(const PlanTable& table);

}  // namespace blattwart
