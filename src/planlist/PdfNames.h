#pragma once

#include <string>
#include <vector>

#include "planlist/PlanList.h"

namespace blattwart {

/// The PDF file of one layout.
struct PdfName {
    int row = 0;            ///< number of the row in the PlanList
    std::wstring file;      ///< full path; "" where `conflict` says that there is none
    std::wstring conflict;  ///< for the user; "" when the file can be written
};

/// Files for these rows by a pattern with the placeholders <Zeichnung>, <Layout> and <Nr> (the tab's number,
/// filled with zeros to the drawing's largest); ".pdf" is added. An empty folder means beside each drawing.
/// Whether folders and files exist is not asked.
std::vector<PdfName> pdfNames(PlanList& plan, std::span<const int> rowNumbers, const std::wstring& folder,
                              std::wstring_view pattern, const Locale& locale);

}  // namespace blattwart
