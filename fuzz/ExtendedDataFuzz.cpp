// Extended data as a drawing may hold it: lines of a group code and a value each.
#include "data/CAFenster.h"
#include "demo/host/XDataArrays.h"
#include "Input.h"
#include "support/FakeMessages.h"

using namespace blattwart;
using fuzz::require;

namespace {

/// A drawing object that gives and takes any extended data.
class Stored : public AutomationObject {
  public:
    ShortArray types;
    ValueArray values;

    Value get(const Member&) override { return {}; }
    void put(const Member&, const Value&) override {}
    Value call(const Member& member, std::span<const Argument> arguments) override {
        if (member.name == L"SetXData") {
            types = *arguments[0].value().as<ShortArray>();
            values = *arguments[1].value().as<ValueArray>();
        } else {
            arguments[1].assign(types);
            arguments[2].assign(values);
        }
        return {};
    }
    std::vector<ObjectPtr> enumerate(std::wstring_view, const GoOn&) override { return {}; }
};

using Contents = std::vector<std::pair<std::int16_t, std::wstring>>;

Contents contentsOf(const CXData& data) {
    Contents contents;
    for (const auto& value : data.values) contents.emplace_back(value->typ, value->Wert);
    return contents;
}

void requireRoundTrip(const std::shared_ptr<Stored>& stored, const XDataSource& source) {
    CXData own(source);
    for (std::size_t i = 0; i < stored->values.size(); ++i) {
        own.DataTyp = stored->types[i];
        own.Wert = stored->values[i];
        ignoringErrors([&] { own.AddXWert(); });
    }
    if (own.values.Count() == 0) return;
    own.SetXDataWerte();
    CXData again(source);
    again.GetXDataWerte();
    require(contentsOf(again) == contentsOf(own), "extended data are read as they were written");
}

void requireHostTakesItsOwn(const Stored& stored) {
    demo::XData data;
    if (!ignoringErrors([&] { data = demo::xdataOf(stored.types, stored.values, demo::Language::german); }))
        return;
    require(*demo::xdataTypes(data).as<ShortArray>() == stored.types, "codes come back from the host");
    require(demo::xdataValues(data).as<ValueArray>()->size() == stored.values.size(), "so do values");
}

}  // namespace

void fuzz::fuzzExtendedData(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto stored = std::make_shared<Stored>();
    while (!input.atEnd() && stored->types.size() < 1000) {
        stored->types.push_back(fuzz::Input::number<std::int16_t>(input.line()));
        stored->values.push_back(input.value());
    }
    requireHostTakesItsOwn(*stored);

    test::FakeMessages messages;
    const test::GermanLocale locale;
    XDataReport report(messages);
    const XDataSource source{{}, host::Entity(stored, std::make_shared<host::HostManners>()), report, locale};
    CXData read(source);
    read.GetXDataWerte();
    require(contentsOf(read).size() <= stored->values.size() / 2, "a value for each pair");
    CAFenster().GetAfenwerte(source);
    CAFenster().GetBezeichnung(source);
    requireRoundTrip(stored, source);
}
