#pragma once

#include <cstdint>
#include <string>

namespace blattwart {

/// What the navigator knows about one drawing or layout.
struct CAcadobj {
    std::int32_t AObjId = 0;     ///< of the layout in the host
    std::wstring Gesamt;         ///< full name: folder, backslash, file name; for a layout, ";" and its name
    std::int16_t Vorhanden = 0;  ///< `present` when met in the last refresh
    std::wstring Zeichnung;      ///< file name of the drawing
    std::wstring Layout;         ///< name of the layout
    std::int32_t Nummer = 0;

    /// Full name of the drawing. Folders may hold ";" too, so a layout's name is cut off with the ";" before
    /// it.
    std::wstring drawing() const {
        const std::wstring end = L";" + Layout;
        const bool isLayout = !Layout.empty() && Gesamt.ends_with(end);
        return Gesamt.substr(0, Gesamt.size() - (isLayout ? end.size() : 0));
    }
};

}  // namespace blattwart
