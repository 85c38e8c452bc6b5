#include "data/CXData.h"

#include "platform/Conversions.h"
#include "platform/Platform.h"

namespace blattwart {

namespace {

constexpr const wchar_t* applicationName = L"Tarvix";

// The host's group codes.
constexpr std::int16_t applicationCode = 1001;
constexpr std::int16_t typeCode = 1071;
constexpr std::int16_t handleCode = 1005;
constexpr std::int16_t textCode = 1000;

constexpr std::int16_t firstTextType = 100;

host::XData arraysOf(const Collection<CXWert>& values) {
    // Indices are 16 bits wide: more values than they reach are an overflow.
    const auto last = static_cast<std::size_t>(toInt16(2.0 * values.Count()));
    host::XData data{ShortArray(last + 1), ValueArray(last + 1)};
    data.types[0] = applicationCode;
    data.values[0] = applicationName;
    std::size_t index = 1;
    for (const auto& value : values) {
        data.types[index] = typeCode;
        data.values[index++] = value->typ;
        data.types[index] = value->typ < firstTextType ? handleCode : textCode;
        data.values[index++] = value->Wert;
    }
    return data;
}

}  // namespace

void XDataReport::tellFailedReading() {
    if (hasReadingFailed_) messages_.reportError(L"Fehler beim Lesen der EED's!");
}

void XDataReport::writingFailed() {
    messages_.reportError(L"Fehler beim Schreiben der EED's!");
}

void CXData::SetXDataWerte() {
    if (values.Count() < 1) return;
    try {
        const host::XData data = arraysOf(values);
        // Whether the host registers the name by itself is not certain; registering again does no harm.
        if (source_.document) source_.document.registerApplication(applicationName);
        object().SetXData(data);
    } catch (const RuntimeError&) {
        source_.report.writingFailed();
    }
}

void CXData::GetXDataWerte() {
    try {
        const ValueArray stored = object().GetXData(applicationName).values;
        Vorhanden = !stored.empty();
        addPairs(stored);
    } catch (const RuntimeError&) {
        source_.report.readingFailed();
    }
}

void CXData::AddXWert() {
    const std::wstring key = std::to_wstring(DataTyp);
    ignoringErrors([&] { values.Remove(key); });
    const std::wstring text = Wert.isNull() ? std::wstring() : toText(Wert, source_.locale);
    if (text.empty()) return;
    values.Add(std::make_shared<CXWert>(CXWert{text, DataTyp}), key);
}

void CXData::GetXWertByTyp() {
    Wert = Value();
    ignoringErrors([&] { Wert = values.Item(std::to_wstring(DataTyp))->Wert; });
}

host::Entity CXData::object() const {
    return source_.object ? source_.object : source_.document.ObjectIdToObject(objId);
}

void CXData::addPairs(const ValueArray& stored) {
    // The first element is the application's name; a last one without its partner is left out.
    for (std::size_t index = 1; index + 1 < stored.size(); index += 2) {
        auto value = std::make_shared<CXWert>();
        value->typ = toInt16(stored[index], source_.locale);
        value->Wert = toText(stored[index + 1], source_.locale);
        values.Add(value, toText(stored[index], source_.locale));
    }
}

}  // namespace blattwart
