#include "HostFixture.h"
#include "object/DispatchObject.h"

namespace demo {

namespace {

TEST_F(HostTest, WithoutADocumentOnlyTheApplicationAnswers) {
    const ObjectPtr documents = object(application_, L"documents");
    EXPECT_EQ(get(documents, L"Count"), Value(std::int32_t{0}));
    EXPECT_EQ(errorOf([&] { get(application_, L"ActiveDocument"); }), code(0x8021003C));
    EXPECT_EQ(errorOf([&] { get(application_, L"Preferences"); }), code(0x8021003C));
    EXPECT_EQ(get(application_, L"Visible"), Value(false));
}

TEST_F(HostTest, MembersHaveIdsByClassAndNamesWithoutCase) {
    const ObjectPtr document = open({L"A"});
    const auto idOf = [](const ObjectPtr& object, std::wstring_view name) {
        return std::dynamic_pointer_cast<DispatchObject>(object)->memberId(name);
    };
    EXPECT_EQ(idOf(document, L"Name"), 0x23);
    EXPECT_EQ(idOf(layout(document, L"A"), L"NAME"), 0x1);
    EXPECT_EQ(idOf(object(layout(document, L"A"), L"Block"), L"name"), 0x601);
    EXPECT_EQ(idOf(layout(document, L"A"), L"GetXData"), 0x402);
    EXPECT_EQ(idOf(document, L"PostCommand"), std::nullopt);
    EXPECT_EQ(errorOf([&] { call(document, L"PostCommand", {Value(L"x")}); }), code(0x80020006));
    EXPECT_EQ(errorOf([&] { put(document, L"Name", L"x"); }), code(0x80020003));
    EXPECT_EQ(errorOf([&] { call(document, L"SendCommand"); }), code(0x8002000E));
    EXPECT_EQ(errorOf([&] { call(document, L"SendCommand", {Value(1.0)}); }), code(0x80020005));
}

TEST_F(HostTest, IdsAndWindowHandlesAreAsWideAsTheHost) {
    const ObjectPtr narrow = open({L"A"});
    const Value id = get(layout(narrow, L"A"), L"ObjectID");
    EXPECT_TRUE(id.is<std::int32_t>());
    EXPECT_TRUE(get(application_, L"HWND").is<std::int32_t>());
    EXPECT_EQ(errorOf([&] { get(layout(narrow, L"A"), L"ObjectID32"); }), code(0x80020006));
    EXPECT_EQ(errorOf([&] { call(narrow, L"ObjectIdToObject32", {id}); }), code(0x80020006));
    EXPECT_EQ(get(*call(narrow, L"ObjectIdToObject", {id}).as<ObjectPtr>(), L"Name"), Value(L"A"));

    restart({.wideIds = true});
    const ObjectPtr wide = open({L"A"});
    const Value longId = get(layout(wide, L"A"), L"ObjectID");
    const Value shortId = get(layout(wide, L"A"), L"ObjectID32");
    EXPECT_TRUE(get(application_, L"HWND").is<std::int64_t>());
    ASSERT_TRUE(longId.is<std::int64_t>());
    EXPECT_GT(*longId.as<std::int64_t>(), 0xFFFFFFFF);
    EXPECT_EQ(get(*call(wide, L"ObjectIdToObject", {longId}).as<ObjectPtr>(), L"Name"), Value(L"A"));
    EXPECT_EQ(get(*call(wide, L"ObjectIdToObject32", {shortId}).as<ObjectPtr>(), L"Name"), Value(L"A"));
    EXPECT_EQ(errorOf([&] { call(wide, L"ObjectIdToObject", {shortId}); }), code(0x80020005));
    const ObjectPtr other = open({L"A"}, L"Anders.dwg");
    EXPECT_EQ(errorOf([&] { call(other, L"ObjectIdToObject32", {shortId}); }), code(0x80200014));
}

TEST_F(HostTest, NewDrawingsHaveNoPathUntilTheyAreSaved) {
    const ObjectPtr documents = object(application_, L"Documents");
    const ObjectPtr document = *call(documents, L"Add").as<ObjectPtr>();
    EXPECT_EQ(get(document, L"Name"), Value(L"Zeichnung1.dwg"));
    EXPECT_EQ(get(document, L"Path"), Value(L""));
    EXPECT_EQ(get(document, L"FullName"), Value(L""));
    EXPECT_NE(errorOf([&] { call(document, L"Save"); }), 0);
    call(object(document, L"Layouts"), L"Add", {Value(L"Grundriß")});
    EXPECT_EQ(get(document, L"Saved"), Value(false));
    call(document, L"SaveAs", {Value(L"C:\\Projekte\\Neu")});
    EXPECT_EQ(get(document, L"FullName"), Value(L"C:\\Projekte\\Neu.dwg"));
    EXPECT_EQ(get(document, L"Saved"), Value(true));

    call(document, L"Close", {Value(false)});
    const ObjectPtr again = *call(documents, L"Open", {Value(L"c:\\projekte\\NEU.DWG")}).as<ObjectPtr>();
    EXPECT_EQ(names(object(again, L"Layouts")), (Names{L"Grundriß", L"Layout1", L"Model"}));
}

TEST_F(HostTest, OpenRefusesMissingAndUnsuitableFiles) {
    const ObjectPtr documents = object(application_, L"Documents");
    std::filesystem::create_directory(root_ / "C" / "Projekte" / "Ordner.dwg");
    EXPECT_NE(errorOf([&] { call(documents, L"Open", {Value(L"C:\\Projekte\\fehlt.dwg")}); }), 0);
    EXPECT_EQ(errorOf([&] { call(documents, L"Open", {Value(L"C:\\Projekte\\Ordner.dwg")}); }),
              code(0x80200157));
    EXPECT_NE(errorOf([&] { call(documents, L"Add", {Value(L"fehlt.dwt")}); }), 0);
    EXPECT_TRUE(host_->documents().empty());
}

TEST_F(HostTest, TheUserClosesAndSwitchesDocuments) {
    const ObjectPtr first = open({L"A"}, L"Eins.dwg");
    const ObjectPtr second = open({L"B"}, L"Zwei.dwg");
    const ObjectPtr secondLayout = layout(second, L"B");
    EXPECT_EQ(names(object(application_, L"Documents")), (Names{L"Eins.dwg", L"Zwei.dwg"}));
    EXPECT_EQ(get(second, L"Active"), Value(true));

    put(application_, L"ActiveDocument", first);
    EXPECT_EQ(get(first, L"Active"), Value(true));
    call(second, L"Activate");
    host_->close(host_->findDocument(L"C:\\PROJEKTE\\zwei.dwg"));
    EXPECT_EQ(get(first, L"Active"), Value(true));
    EXPECT_EQ(errorOf([&] { get(second, L"Name"); }), blattwart::hresult::disconnected);
    EXPECT_EQ(errorOf([&] { get(secondLayout, L"Name"); }), blattwart::hresult::disconnected);

    host_->quit();
    EXPECT_EQ(errorOf([&] { get(application_, L"Documents"); }), blattwart::hresult::serverUnavailable);
}

TEST_F(HostTest, SystemVariablesKeepTheirTypes) {
    const ObjectPtr document = open({L"A"});
    EXPECT_EQ(call(document, L"GetVariable", {Value(L"filedia")}), Value(std::int16_t{1}));
    EXPECT_EQ(call(document, L"GetVariable", {Value(L"TILEMODE")}), Value(std::int16_t{0}));
    call(document, L"SetVariable", {Value(L"FILEDIA"), Value(std::int16_t{0})});
    EXPECT_EQ(host_->filedia(), 0);
    for (const Value& wrong : {Value(1.0), Value(std::int32_t{1}), Value(L"1"), Value(std::int16_t{2})}) {
        EXPECT_NE(errorOf([&] { call(document, L"SetVariable", {Value(L"FILEDIA"), wrong}); }), 0);
    }
    EXPECT_NE(errorOf([&] {
                  call(document, L"SetVariable", {Value(L"CMDACTIVE"), Value(std::int16_t{0})});
              }),
              0);
}

TEST_F(HostTest, MacrosAreUnknownUntilTheirProjectIsLoaded) {
    open({L"A", L"B"});
    const auto run = [&](const wchar_t* macro) {
        return errorOf([&] { call(application_, L"RunMacro", {Value(macro)}); });
    };
    const auto load = [&](const wchar_t* file) {
        return errorOf([&] { call(application_, L"LoadDVB", {Value(file)}); });
    };
    EXPECT_NE(run(L"Programm.TX_Layout"), 0);
    EXPECT_NE(load(L"C:\\Programme\\Anders.dvb"), 0);
    EXPECT_EQ(load(L"C:\\Programme\\Tarvix.dvb"), 0);
    EXPECT_NE(run(L"Programm.TX_Fehlt"), 0);
    EXPECT_EQ(run(L"Programm.TX_Layout"), 0);
    EXPECT_EQ(tabs(), (Names{L"A", L"B", L"Layout3"}));
    EXPECT_EQ(run(L"Programm.TX_DelLayout"), 0);
    EXPECT_EQ(tabs(), (Names{L"B", L"Layout3"}));

    restart({.vbaInstalled = false});
    EXPECT_NE(load(L"C:\\Programme\\Tarvix.dvb"), 0);
    EXPECT_NE(run(L"Programm.TX_Starten"), 0);
}

TEST_F(HostTest, PreferencesAndPersona) {
    restart({.language = Language::english, .templateFolder = L"C:\\Vorlagen\\"});
    EXPECT_EQ(host_->newDocument()->name(), L"Drawing1.dwg");
    const ObjectPtr files = object(object(application_, L"Preferences"), L"Files");
    EXPECT_EQ(get(files, L"TemplateDWGPath"), Value(L"C:\\Vorlagen\\"));
    EXPECT_EQ(host_->templatePath(L"A3", L".dwt"), L"C:\\Vorlagen\\A3.dwt");
}

}  // namespace

}  // namespace demo
