#include "host/CallRecorder.h"
#include "HostFixture.h"

namespace demo {

namespace {

constexpr const wchar_t* hostName = L"AutoCAD.Application.18";

TEST(DemoAutomation, TheHostRunsEndsAndComesBackAsAnother) {
    DemoAutomation automation;
    EXPECT_EQ(errorOf([&] { automation.running(hostName); }), code(0x800401E3));
    automation.setCreateError(L"Lizenz fehlt");
    EXPECT_NE(errorOf([&] { automation.create(hostName); }), 0);
    automation.setCreateError(L"");
    const ObjectPtr first = automation.create(hostName);
    EXPECT_EQ(automation.host()->documents().size(), 1u);
    EXPECT_FALSE(automation.host()->visible());

    automation.end();
    EXPECT_EQ(errorOf([&] { first->get({L"Application", L"Name"}); }), blattwart::hresult::serverUnavailable);
    EXPECT_EQ(errorOf([&] { automation.running(hostName); }), code(0x800401E3));
    EXPECT_TRUE(automation.start().visible());
    EXPECT_EQ(automation.running(hostName)->get({L"Application", L"Name"}), Value(L"AutoCAD"));
    EXPECT_NE(errorOf([&] { first->get({L"Application", L"Name"}); }), 0);

    EXPECT_EQ(errorOf([&] { automation.create(L"ADODB.Connection"); }), code(0x800401F3));
    automation.setOtherPrograms([&](std::wstring_view) { return automation.host()->application(); });
    EXPECT_NE(automation.create(L"ADODB.Connection"), nullptr);
}

class RecorderTest : public testing::Test {
  protected:
    RecorderTest() : recorder_(automation_) {
        automation_.start().addDocument(L"C:\\P", L"Plan.dwg", {L"A", L"B"});
        application_ = recorder_.running(hostName);
        document_ = *application_->get({L"Application", L"ActiveDocument"}).as<ObjectPtr>();
    }
    ObjectPtr layout(const wchar_t* name) {
        const ObjectPtr layouts = *document_->get({L"Document", L"Layouts"}).as<ObjectPtr>();
        return *layouts->call({L"Layouts", L"Item"}, {Value(name)}).as<ObjectPtr>();
    }

    DemoAutomation automation_;
    CallRecorder recorder_;
    ObjectPtr application_;
    ObjectPtr document_;
};

TEST_F(RecorderTest, IsTransparentAndSeesEverything) {
    const ObjectPtr b = layout(L"B");
    document_->put({L"Document", L"ActiveLayout"}, b);
    Value width(0.0);
    Value height(0.0);
    b->call({L"Layout", L"GetPaperSize"}, {&width, &height});
    EXPECT_GT(*width.as<double>(), 0);
    const auto elements = (*document_->get({L"Document", L"Layouts"}).as<ObjectPtr>())->enumerate();
    EXPECT_EQ(elements.front()->get({L"Layout", L"Name"}), Value(L"A"));

    const std::vector<std::wstring> expected{L"running AutoCAD.Application.18",
                                             L"get Application.ActiveDocument",
                                             L"get Document.Layouts",
                                             L"call Layouts.Item",
                                             L"put Document.ActiveLayout",
                                             L"call Layout.GetPaperSize",
                                             L"get Document.Layouts",
                                             L"enumerate",
                                             L"get Layout.Name"};
    EXPECT_EQ(recorder_.list(), expected);
    EXPECT_EQ(recorder_.count(L"Layouts"), 2u);
    EXPECT_EQ(recorder_.calls()[3].className, L"Layouts");
}

TEST_F(RecorderTest, MakesOneCallFailOrAllFromOneOn) {
    recorder_.clear();
    recorder_.failAt(2, RuntimeError(7, L"Absicht"));
    EXPECT_EQ(errorOf([&] { layout(L"A"); }), 7);
    EXPECT_EQ(errorOf([&] { layout(L"A"); }), 0);
    EXPECT_EQ(recorder_.count(), 4u);

    recorder_.heal();
    recorder_.clear();
    recorder_.failAt(2, RuntimeError(8, L"Absicht"), Moment::after);
    EXPECT_EQ(errorOf([&] { layout(L"A"); }), 8);

    recorder_.heal();
    recorder_.clear();
    recorder_.goneFrom(2);
    EXPECT_EQ(errorOf([&] { layout(L"A"); }), blattwart::hresult::serverUnavailable);
    EXPECT_EQ(errorOf([&] { recorder_.running(hostName); }), code(0x800401E3));
    EXPECT_NE(errorOf([&] { recorder_.create(hostName); }), 0);
    // It comes back as another one; the objects of the first stay dead.
    recorder_.heal();
    EXPECT_EQ(errorOf([&] { layout(L"A"); }), blattwart::hresult::serverUnavailable);
    EXPECT_EQ(recorder_.deadObjects(), 2u);
    document_ = application_ = recorder_.running(hostName);
    EXPECT_EQ(recorder_.deadObjects(), 0u);
    EXPECT_FALSE(recorder_.callPending());
    recorder_.setCallPending(true);
    EXPECT_TRUE(recorder_.callPending());
}

}  // namespace

}  // namespace demo
