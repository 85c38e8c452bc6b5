#include "HostFixture.h"

namespace demo {

namespace {

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
    restart({.wideIds = true, .shortIds = false});
    const ObjectPtr widest = open({L"A"});
    EXPECT_EQ(errorOf([&] { get(layout(widest, L"A"), L"ObjectID32"); }), code(0x80020006));
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

}  // namespace

}  // namespace demo
