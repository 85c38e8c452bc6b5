// Cells of the definition database, a line each, thirteen a row.
#include <array>
#include <cmath>
#include <set>

#include "data/CBloecke.h"
#include "data/CTypen.h"
#include "Input.h"
#include "platform/Conversions.h"

using namespace blattwart;
using fuzz::require;

namespace {

constexpr std::array<std::wstring_view, 13> columnNames = {
    L"TypenId",    L"typ",        L"Verzeichnis", L"Info",    L"blockId", L"VorlagenId", L"block",
    L"EinfPunktX", L"EinfPunktY", L"FaktorX",     L"FaktorY", L"Drehung", L"Layer"};

using Row = std::array<Value, columnNames.size()>;

/// What a record set, its fields and one of these are asked for.
class Rows : public AutomationObject {
  public:
    explicit Rows(const std::vector<Row>& rows) : rows_(rows) {}

    Value get(const Member& member) override {
        if (member.name == L"EOF") return current_ == rows_.size();
        if (member.name == L"Fields") return ObjectPtr(this, [](AutomationObject*) {});
        throw RuntimeError(hresult::unknownName, L"");
    }
    void put(const Member&, const Value&) override {}
    Value call(const Member& member, std::span<const Argument> arguments) override {
        if (member.name == L"MoveFirst") current_ = 0;
        if (member.name == L"MoveNext") ++current_;
        if (member.name != L"Item") return {};
        const auto name = std::ranges::find(columnNames, *arguments[0].value().as<std::wstring>());
        if (name == columnNames.end()) throw RuntimeError(errorNumber::elementNotFound, L"");
        return ObjectPtr(
            std::make_shared<Column>(*this, static_cast<std::size_t>(name - columnNames.begin())));
    }
    std::vector<ObjectPtr> enumerate(std::wstring_view, const GoOn&) override { return {}; }

  private:
    class Column : public AutomationObject {
      public:
        Column(const Rows& rows, std::size_t column) : rows_(rows), column_(column) {}
        Value get(const Member&) override { return rows_.rows_.at(rows_.current_)[column_]; }
        void put(const Member&, const Value&) override {}
        Value call(const Member&, std::span<const Argument>) override { return {}; }
        std::vector<ObjectPtr> enumerate(std::wstring_view, const GoOn&) override { return {}; }

      private:
        const Rows& rows_;
        std::size_t column_;
    };

    const std::vector<Row>& rows_;
    std::size_t current_ = 0;
};

void requireConversions(const Value& value, const Locale& locale) {
    double number = 0;
    if (!ignoringErrors([&] { number = toDouble(value, locale); })) return;
    std::int32_t whole = 0;
    const bool fits = ignoringErrors([&] { whole = toInt32(value, locale); });
    require(fits == (number >= -2147483648.5 && number < 2147483647.5), "whole numbers are bounded");
    if (fits) require(std::abs(whole - number) <= 0.5, "whole numbers are the nearest");
    std::wstring text;
    if (value.is<std::wstring>() || value.is<float>() || !std::isfinite(number)) return;
    if (!ignoringErrors([&] { text = toText(value, locale); })) return;
    require(toDouble(Value(text), locale) == number, "a number's text reads as the number");
}

}  // namespace

void fuzz::fuzzDatabase(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const test::GermanLocale locale;
    std::vector<Row> table;
    while (!input.atEnd() && table.size() < 100)
        for (Value& cell : table.emplace_back()) requireConversions(cell = input.value(), locale);

    Recordset typeRows(std::make_shared<Rows>(table), locale);
    CTypen types;
    const bool complete =
        types.ReadFromDatabase(typeRows, {L"C:\\Blattwart", [] { return L"C:\\Vorlagen"; }});
    std::set<std::int32_t> ids;
    for (const auto& type : types) {
        require(ids.insert(type->TypenId).second, "no id comes twice");
        require(types.Item(std::to_wstring(type->TypenId)) == type, "a type is found by its id");
        require(!type->Verzeichnis.empty(), "every type has a folder");
    }
    require(complete == (ids.size() == table.size()), "a row left out is told");

    Recordset blockRows(std::make_shared<Rows>(table), locale);
    CBloecke blocks;
    blocks.ReadFromDatabase(blockRows);
    require(static_cast<std::size_t>(blocks.Count()) <= table.size(), "no more blocks than rows");
}
