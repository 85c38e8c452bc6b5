#pragma once

#include "data/CXData.h"

namespace blattwart {

/// One viewport of a layout and what the program keeps in its extended data.
struct CAFenster {
    bool Verwaltet = false;   ///< whether the viewport carries the program's data and so is managed by it
    std::int16_t Tarvix = 0;  ///< the program's marker
    std::wstring Ref;
    std::int16_t Uebersicht = 0;
    double Faktor = 0;  ///< scale factor
    double Winkel = 0;  ///< angle
    std::wstring Layout;
    std::int32_t LayoutId = 0;
    std::wstring Bezeichnung;   ///< label
    std::int32_t ObjektId = 0;  ///< of the viewport; needed when the source does not hold the object itself

    /// Reads the label from the extended data.
    void GetBezeichnung(const XDataSource& source);
    /// Reads marker, label and overview value. A number that is missing or none leaves its property as it
    /// was.
    void GetAfenwerte(const XDataSource& source);
};

}  // namespace blattwart
