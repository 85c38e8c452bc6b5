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

    /// Full name of the drawing: of a layout's record, what stands before its own part of the full name.
    /// Folders and files may hold ";", too.
    std::wstring drawing() const {
        const std::wstring own = L";" + Layout;
        const bool ofLayout = !Layout.empty() && Gesamt.ends_with(own);
        return ofLayout ? Gesamt.substr(0, Gesamt.size() - own.size()) : Gesamt;
    }
};

}  // namespace blattwart
