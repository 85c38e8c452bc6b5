#include <gtest/gtest.h>

#include <map>

#include "data/CAFenster.h"
#include "support/FakeMessages.h"
#include "support/GermanLocale.h"

namespace blattwart::test {
namespace {

const std::wstring readFailed = L"Fehler beim Lesen der EED's!";
const std::wstring writeFailed = L"Fehler beim Schreiben der EED's!";

/// A drawing object that keeps extended data as the host does.
class StoredEntity : public AutomationObject {
  public:
    using AutomationObject::call;

    ShortArray types;
    ValueArray values;
    bool fails = false;

    Value get(const Member&) override { throw RuntimeError(hresult::unknownName, L""); }
    void put(const Member&, const Value&) override { throw RuntimeError(hresult::unknownName, L""); }
    Value call(const Member& member, std::span<const Argument> arguments) override {
        if (fails) throw RuntimeError(hresult::disconnected, L"");
        if (member.name == L"SetXData") {
            types = *arguments[0].value().as<ShortArray>();
            values = *arguments[1].value().as<ValueArray>();
        } else if (arguments[0].value() == Value(L"Tarvix") && !values.empty()) {
            arguments[1].assign(types);
            arguments[2].assign(values);
        }
        return {};
    }
    std::vector<ObjectPtr> enumerate(std::wstring_view, const GoOn&) override { return {}; }
};

/// A drawing of one object, number 42, that knows which applications may store data.
class StoredDocument : public AutomationObject, public std::enable_shared_from_this<StoredDocument> {
  public:
    using AutomationObject::call;

    std::shared_ptr<StoredEntity> entity;
    std::vector<std::wstring> registered;

    Value get(const Member&) override { return ObjectPtr(shared_from_this()); }
    void put(const Member&, const Value&) override {}
    Value call(const Member& member, std::span<const Argument> arguments) override {
        if (member.name == L"Add") {
            registered.push_back(*arguments[0].value().as<std::wstring>());
            return {};
        }
        if (arguments[0].value() != Value(42)) throw RuntimeError(hresult::disconnected, L"");
        return ObjectPtr(entity);
    }
    std::vector<ObjectPtr> enumerate(std::wstring_view, const GoOn&) override { return {}; }
};

class XDataTest : public testing::Test {
  protected:
    XDataTest() {
        messages.strict = true;
        document->entity = entity;
    }

    XDataSource source() { return {host::Document(document, manners), {}, report, locale}; }
    CXData data() {
        CXData result(source());
        result.objId = 42;
        return result;
    }
    static void add(CXData& data, std::int16_t type, Value value) {
        data.DataTyp = type;
        data.Wert = std::move(value);
        data.AddXWert();
    }
    static std::vector<std::pair<std::int16_t, std::wstring>> contents(const CXData& data) {
        std::vector<std::pair<std::int16_t, std::wstring>> result;
        for (const auto& value : data.values) result.emplace_back(value->typ, value->Wert);
        return result;
    }
    /// What the entity holds below its application's name: alternating type and value.
    void store(ValueArray values) {
        values.insert(values.begin(), Value(L"Tarvix"));
        entity->types.assign(values.size(), 1000);
        entity->values = std::move(values);
    }

    using Contents = std::vector<std::pair<std::int16_t, std::wstring>>;

    GermanLocale locale;
    FakeMessages messages;
    XDataReport report{messages};
    std::shared_ptr<StoredEntity> entity = std::make_shared<StoredEntity>();
    std::shared_ptr<StoredDocument> document = std::make_shared<StoredDocument>();
    std::shared_ptr<host::HostManners> manners = std::make_shared<host::HostManners>();
};

TEST_F(XDataTest, WhatIsWrittenReadsBackInOrder) {
    CXData written = data();
    add(written, 121, L"A1");
    add(written, 0, std::int16_t{1});
    add(written, 21, L"2");
    written.SetXDataWerte();
    EXPECT_EQ((ShortArray{1001, 1071, 1000, 1071, 1005, 1071, 1005}), entity->types);
    EXPECT_EQ(
        (ValueArray{L"Tarvix", std::int16_t{121}, L"A1", std::int16_t{0}, L"1", std::int16_t{21}, L"2"}),
        entity->values);
    EXPECT_EQ(std::vector<std::wstring>{L"Tarvix"}, document->registered);

    CXData read = data();
    read.GetXDataWerte();
    EXPECT_EQ(contents(written), contents(read));
}

TEST_F(XDataTest, HundredIsTheFirstPlainTextType) {
    CXData written = data();
    add(written, 99, L"1F");
    add(written, 100, L"x");
    written.SetXDataWerte();
    EXPECT_EQ((ShortArray{1001, 1071, 1005, 1071, 1000}), entity->types);
}

TEST_F(XDataTest, AddingReplacesAndAnEmptyValueRemoves) {
    CXData list = data();
    add(list, 1, L"a");
    add(list, 2, L"b");
    add(list, 1, L"c");
    EXPECT_EQ((Contents{{2, L"b"}, {1, L"c"}}), contents(list));
    add(list, 2, L"");
    add(list, 1, Value());
    add(list, 3, Null{});
    EXPECT_EQ(Contents{}, contents(list));
    entity->fails = true;
    list.SetXDataWerte();  // nothing to write, so nothing can fail
}

TEST_F(XDataTest, AMissingTypeLeavesNoValue) {
    CXData list = data();
    list.GetXDataWerte();
    EXPECT_EQ(Contents{}, contents(list));
    list.Wert = L"alt";
    list.GetXWertByTyp();
    EXPECT_TRUE(list.Wert.isEmpty());
}

TEST_F(XDataTest, KeepsWhatCameBeforeAnUnusableType) {
    const Value unusable[] = {Value(L"x"), Value(70000), Value(Null{}), Value(std::int32_t{5})};
    for (const Value& second : unusable) {
        store({std::int32_t{5}, L"eins", second, L"zwei", 6, L"drei"});
        messages.expect(readFailed);
        XDataReport own(messages);
        CXData list({host::Document(document, manners), {}, own, locale});
        list.objId = 42;
        list.GetXDataWerte();
        own.tellFailedReading();
        EXPECT_EQ((Contents{{5, L"eins"}}), contents(list));
        EXPECT_EQ(0U, messages.outstanding());
    }
}

TEST_F(XDataTest, AnOddElementAtTheEndIsLeftOut) {
    store({5, L"eins", 6});
    CXData list = data();
    list.GetXDataWerte();
    EXPECT_EQ((Contents{{5, L"eins"}}), contents(list));
}

TEST_F(XDataTest, TellsFailedReadsOnceAndEveryFailedWrite) {
    entity->fails = true;
    report.tellFailedReading();
    messages.expect(readFailed);
    for (int object = 0; object < 3; ++object) data().GetXDataWerte();
    report.tellFailedReading();
    EXPECT_EQ((ShownBox{readFailed, L"Blattwart", MessageButtons::ok, MessageIcon::critical}),
              messages.shown[0]);

    CXData written = data();
    add(written, 1, L"1");
    messages.expect(writeFailed);
    written.SetXDataWerte();
    written.objId = 43;
    messages.expect(writeFailed);
    written.SetXDataWerte();
    EXPECT_EQ((ShownBox{writeFailed, L"Blattwart", MessageButtons::ok, MessageIcon::critical}),
              messages.shown[2]);
}

TEST_F(XDataTest, MoreValuesThanSixteenBitsCountAreNotWritten) {
    CXData list = data();
    for (int count = 0; count < 16383; ++count) list.values.Add(std::make_shared<CXWert>());
    list.SetXDataWerte();
    EXPECT_EQ(32767U, entity->types.size());
    list.values.Add(std::make_shared<CXWert>());
    messages.expect(writeFailed);
    list.SetXDataWerte();
    EXPECT_EQ(32767U, entity->types.size());
}

TEST_F(XDataTest, AViewportFillsItselfFromItsData) {
    store({0, L"1", 121, L"A1", 21, L"2"});
    CAFenster viewport;
    viewport.ObjektId = 42;
    viewport.GetAfenwerte(source());
    EXPECT_EQ(1, viewport.Tarvix);
    EXPECT_EQ(L"A1", viewport.Bezeichnung);
    EXPECT_EQ(2, viewport.Uebersicht);

    CAFenster found;
    found.ObjektId = 42;
    found.GetBezeichnung({host::Document(document, manners), {}, report, locale});
    EXPECT_EQ(L"A1", found.Bezeichnung);
    CAFenster handed;
    handed.GetBezeichnung({{}, host::Entity(entity, manners), report, locale});
    EXPECT_EQ(L"A1", handed.Bezeichnung);
}

TEST_F(XDataTest, AViewportWithoutUsableDataIsNotTheProgramsOwn) {
    const ValueArray stored[] = {{}, {0, L"", 121, L""}, {0, L"1A", 21, L"99999"}};
    for (const ValueArray& values : stored) {
        store(values);
        CAFenster viewport;
        viewport.ObjektId = 42;
        viewport.GetAfenwerte(source());
        EXPECT_EQ(0, viewport.Tarvix);
        EXPECT_EQ(L"", viewport.Bezeichnung);
        EXPECT_EQ(0, viewport.Uebersicht);
    }
}

}  // namespace
}  // namespace blattwart::test
