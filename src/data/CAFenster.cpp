#include "data/CAFenster.h"

#include "platform/Conversions.h"

namespace blattwart {

namespace {

// Types of the values in the extended data.
constexpr std::int16_t markerType = 0;
constexpr std::int16_t overviewType = 21;
constexpr std::int16_t labelType = 121;

const Value& fetched(CXData& data, std::int16_t type) {
    data.DataTyp = type;
    data.GetXWertByTyp();
    return data.Wert;
}

}  // namespace

void CAFenster::GetBezeichnung(const XDataSource& source) {
    CXData data(source);
    data.objId = ObjektId;
    data.GetXDataWerte();
    Bezeichnung = toText(fetched(data, labelType), source.locale);
}

void CAFenster::GetAfenwerte(const XDataSource& source) {
    CXData data(source);
    data.objId = ObjektId;
    data.GetXDataWerte();
    Verwaltet = data.Vorhanden;
    ignoringErrors([&] { Tarvix = toInt16(fetched(data, markerType), source.locale); });
    Bezeichnung = toText(fetched(data, labelType), source.locale);
    ignoringErrors([&] { Uebersicht = toInt16(fetched(data, overviewType), source.locale); });
}

}  // namespace blattwart
