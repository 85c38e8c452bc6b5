#include <algorithm>

#include "demo/dxf/Drawing.h"
#include "demo/dxf/Text.h"

/// Extended data and the applications that it belongs to.
namespace demo {

namespace {

constexpr std::size_t longestText = 255;
constexpr std::size_t largestData = 16383;

void requireText(const XDataItem& item) {
    const auto* text = std::get_if<std::wstring>(&item.value);
    if (!text) refuse(L"Erweiterte Daten: Gruppe " + std::to_wstring(item.code) + L" verlangt einen Text.");
    if (encodeText(*text).size() > longestText) refuse(L"Erweiterte Daten: Der Text ist zu lang.");
    if (item.code == 1005 && !parseHandle(std::wstring_view(*text)))
        refuse(L"Erweiterte Daten: „" + *text + L"“ ist kein Handle.");
}

template <class Type>
void requireType(const XDataItem& item) {
    if (!std::holds_alternative<Type>(item.value))
        refuse(L"Erweiterte Daten: Der Wert passt nicht zur Gruppe " + std::to_wstring(item.code) + L".");
}

void requireValid(const XDataItem& item) {
    if (item.code >= 1000 && item.code <= 1005)
        requireText(item);
    else if (item.code >= 1010 && item.code <= 1013)
        requireType<Point>(item);
    else if (item.code >= 1040 && item.code <= 1042)
        requireType<double>(item);
    else if (item.code == 1070 || item.code == 1071)
        requireType<std::int32_t>(item);
    else
        refuse(L"Erweiterte Daten: Gruppe " + std::to_wstring(item.code) + L" ist unbekannt.");
}

std::size_t sizeOf(const XDataItem& item) {
    const auto* text = std::get_if<std::wstring>(&item.value);
    if (text) return 3 + encodeText(*text).size();
    return std::holds_alternative<Point>(item.value)    ? 26
           : std::holds_alternative<double>(item.value) ? 10
                                                        : 6;
}

std::size_t sizeOf(const XData& data) {
    std::size_t size = 0;
    for (const XDataItem& item : data) size += sizeOf(item);
    return size;
}

/// One list for each application.
std::vector<XData> runsOf(const XData& data) {
    std::vector<XData> runs;
    for (const XDataItem& item : data) {
        if (item.code == 1001) runs.emplace_back();
        if (runs.empty()) refuse(L"Erweiterte Daten beginnen mit dem Namen der Anwendung.");
        runs.back().push_back(item);
    }
    return runs;
}

const std::wstring& applicationOf(const XData& run) {
    return std::get<std::wstring>(run.front().value);
}

}  // namespace

std::vector<std::wstring> Drawing::applications() const {
    std::vector<std::wstring> names;
    const Table* table = findTable(L"APPID");
    if (!table) return names;
    for (const auto& record : table->records) names.push_back(record->text(2));
    return names;
}

bool Drawing::isRegistered(std::wstring_view application) const {
    const Table* table = findTable(L"APPID");
    return table && findRecord(*table, application);
}

void Drawing::registerApplication(std::wstring_view application) {
    if (isRegistered(application)) return;
    Table* table = findTable(L"APPID");
    if (!table) throwDamaged(L"Die Tabelle der Anwendungen fehlt.");
    if (application.empty() || application.size() > 31)
        refuse(L"„" + std::wstring(application) + L"“ ist kein gültiger Anwendungsname.");
    Groups groups = {
        {100, "AcDbSymbolTableRecord"}, {100, "AcDbRegAppTableRecord"}, textGroup(2, application), {70, "0"}};
    auto record = std::make_unique<Object>("APPID", std::move(groups));
    record->setHandle(newHandle());
    record->setOwner(table->head->handle());
    adopt(table->records, std::move(record));
}

void Drawing::setXData(Object& object, const XData& data) {
    std::ranges::for_each(data, requireValid);
    const std::vector<XData> runs = runsOf(data);
    std::size_t size = sizeOf(object.xdata()) + sizeOf(data);
    for (const XData& run : runs) {
        if (!isRegistered(applicationOf(run)))
            refuse(L"Die Anwendung „" + applicationOf(run) + L"“ ist nicht registriert.");
        size -= sizeOf(object.xdata(applicationOf(run)));
    }
    if (size > largestData) refuse(L"Die erweiterten Daten des Objekts sind zu umfangreich.");
    for (const XData& run : runs) object.replaceXData(applicationOf(run), run.size() > 1 ? run : XData());
}

std::int32_t Drawing::audit() {
    std::int32_t corrected = 0;
    for (const auto& [handle, object] : index_) {
        for (Group& group : object->mutableGroups()) {
            if (group.code != 1005 || group.value == "0" || find(group.handle())) continue;
            group.value = "0";
            ++corrected;
        }
    }
    return corrected;
}

}  // namespace demo
