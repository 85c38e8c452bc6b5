#include "demo/host/CallRecorder.h"
#include "HostFixture.h"

namespace demo {

namespace {

constexpr const wchar_t* hostName = L"AutoCAD.Application.18";

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
}

}  // namespace

}  // namespace demo
