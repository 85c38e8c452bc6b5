#include <gtest/gtest.h>

#include "data/CAFenster.h"
#include "demo/host/CallRecorder.h"
#include "demo/host/DemoAutomation.h"
#include "host/Application.h"
#include "support/FakeMessages.h"
#include "support/GermanLocale.h"

namespace blattwart::test {
namespace {

const std::wstring readFailed = L"Fehler beim Lesen der EED's!";
const std::wstring writeFailed = L"Fehler beim Schreiben der EED's!";

/// The extended data of one object, a layout, in the demonstration host.
class XDataTest : public testing::Test {
  protected:
    XDataTest() {
        messages.strict = true;
        demo.start().addDocument(L"C:\\P", L"Plan.dwg", {L"A"});
        document = host::Application(calls.running(L"AutoCAD.Application.18")).ActiveDocument();
        id = document.Layouts().Item(L"A").ObjectID();
        entity = document.ObjectIdToObject(id);
        calls.clear();
    }

    XDataSource source(XDataReport& to) { return {document, {}, to, locale}; }
    CXData data() {
        CXData result(source(report));
        result.objId = id;
        return result;
    }
    CXData dataOfNoObject() {
        CXData result(source(report));
        result.objId = id + 1000;
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
    /// What the object holds below its application's name: alternating type and value.
    void store(const ValueArray& values) {
        host::XData stored{{1001}, {L"Tarvix"}};
        for (const Value& value : values) {
            stored.types.push_back(value.is<std::wstring>() ? 1000 : 1071);
            stored.values.push_back(value);
        }
        entity.SetXData(stored);
    }

    using Contents = std::vector<std::pair<std::int16_t, std::wstring>>;

    GermanLocale locale;
    FakeMessages messages;
    XDataReport report{messages};
    demo::DemoAutomation demo;
    demo::CallRecorder calls{demo};
    host::Document document;
    host::Entity entity;
    std::int32_t id = 0;
};

TEST_F(XDataTest, WhatIsWrittenReadsBackInOrder) {
    CXData written = data();
    add(written, 121, L"A1");
    add(written, 0, std::int16_t{1});
    add(written, 99, L"2F");
    add(written, 100, L"x");
    written.SetXDataWerte();
    const host::XData stored = entity.GetXData(L"Tarvix");
    EXPECT_EQ((ShortArray{1001, 1071, 1000, 1071, 1005, 1071, 1005, 1071, 1000}), stored.types);
    EXPECT_EQ((ValueArray{L"Tarvix", 121, L"A1", 0, L"1", 99, L"2F", 100, L"x"}), stored.values);
    EXPECT_EQ(1U, calls.count(L"Add")) << "the application is registered";

    CXData read = data();
    read.GetXDataWerte();
    EXPECT_EQ(contents(written), contents(read));
}

TEST_F(XDataTest, AddingReplacesAndAnEmptyValueRemoves) {
    CXData list = dataOfNoObject();
    add(list, 1, L"a");
    add(list, 2, L"b");
    add(list, 1, L"c");
    EXPECT_EQ((Contents{{2, L"b"}, {1, L"c"}}), contents(list));
    list.DataTyp = 3;
    list.GetXWertByTyp();
    EXPECT_TRUE(list.Wert.isEmpty());
    add(list, 2, L"");
    add(list, 1, Value());
    add(list, 3, Null{});
    EXPECT_EQ(Contents{}, contents(list));
    list.SetXDataWerte();  // nothing to write, so nothing can fail
}

TEST_F(XDataTest, KeepsWhatCameBeforeAnUnusableType) {
    for (const Value& second : {Value(L"x"), Value(70000), Value(std::int32_t{5})}) {
        store({std::int32_t{5}, L"eins", second, L"zwei", 6, L"drei"});
        messages.expect(readFailed);
        XDataReport own(messages);
        CXData list(source(own));
        list.objId = id;
        list.GetXDataWerte();
        own.tellFailedReading();
        EXPECT_EQ((Contents{{5, L"eins"}}), contents(list));
        EXPECT_EQ(0U, messages.outstanding());
    }
    store({5, L"eins", 6});
    CXData odd = data();
    odd.GetXDataWerte();
    EXPECT_EQ((Contents{{5, L"eins"}}), contents(odd)) << "the last element has no partner";
}

TEST_F(XDataTest, TellsFailedReadsOnceAndEveryFailedWrite) {
    report.tellFailedReading();
    messages.expect(readFailed);
    for (int object = 0; object < 3; ++object) dataOfNoObject().GetXDataWerte();
    report.tellFailedReading();
    EXPECT_EQ((ShownBox{readFailed, L"Blattwart", MessageButtons::ok, MessageIcon::critical}),
              messages.shown[0]);

    CXData written = dataOfNoObject();
    add(written, 1, L"1");
    for (int attempt = 0; attempt < 2; ++attempt) {
        messages.expect(writeFailed);
        written.SetXDataWerte();
    }
    EXPECT_EQ((ShownBox{writeFailed, L"Blattwart", MessageButtons::ok, MessageIcon::critical}),
              messages.shown[2]);
}

TEST_F(XDataTest, MoreValuesThanSixteenBitsCountAreNotWritten) {
    CXData list = data();
    const auto value = std::make_shared<CXWert>(CXWert{L"x", 100});
    for (int count = 0; count < 16383; ++count) list.values.Add(value);
    list.SetXDataWerte();
    EXPECT_EQ(32767U, entity.GetXData(L"Tarvix").types.size());
    list.values.Add(value);
    messages.expect(writeFailed);
    list.SetXDataWerte();
    EXPECT_EQ(32767U, entity.GetXData(L"Tarvix").types.size());
}

TEST_F(XDataTest, AViewportFillsItselfFromItsData) {
    const struct {
        ValueArray stored;
        std::wstring label;
        std::int16_t ours;
        std::int16_t overview;
    } cases[] = {{{0, L"1", 121, L"A1", 21, L"2"}, L"A1", 1, 2},
                 {{}, L"", 0, 0},
                 {{0, L"", 121, L""}, L"", 0, 0},
                 {{0, L"1A", 21, L"99999"}, L"", 0, 0}};
    for (const auto& each : cases) {
        store(each.stored);
        CAFenster viewport;
        viewport.ObjektId = id;
        viewport.GetAfenwerte(source(report));
        EXPECT_EQ(each.ours, viewport.Tarvix);
        EXPECT_EQ(each.label, viewport.Bezeichnung);
        EXPECT_EQ(each.overview, viewport.Uebersicht);
        CAFenster found;
        found.ObjektId = id;
        found.GetBezeichnung(source(report));
        EXPECT_EQ(each.label, found.Bezeichnung);
        CAFenster handed;
        handed.GetBezeichnung({{}, entity, report, locale});
        EXPECT_EQ(each.label, handed.Bezeichnung);
    }
}

}  // namespace
}  // namespace blattwart::test
