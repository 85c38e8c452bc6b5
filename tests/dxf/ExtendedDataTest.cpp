#include <gtest/gtest.h>

#include "DrawingSupport.h"

namespace demo {
namespace {

namespace errorNumber = blattwart::errorNumber;

class ExtendedData : public testing::Test {
  protected:
    Drawing drawing_ = sample("Zeichnungen/Erdgeschoß Süd.dwg");
    Object& viewport_ = *drawing_.findLayout(L"Grundriß 1-50")->entities()[1];
};

TEST_F(ExtendedData, ReplacesOneApplicationAndKeepsTheOthers) {
    const XData foreign = viewport_.xdata(L"FREMDPROGRAMM");
    const XData data = {{1001, L"Tarvix"},         {1071, 21},  {1005, L"2"},
                        {1010, Point{1, -2.5, 0}}, {1040, 0.1}, {1070, -7}};
    drawing_.setXData(viewport_, data);
    const Drawing again = loaded(saved(drawing_));
    EXPECT_EQ(again.find(viewport_.handle())->xdata(L"Tarvix"), data);
    EXPECT_EQ(again.find(viewport_.handle())->xdata(L"FREMDPROGRAMM"), foreign);
    drawing_.setXData(viewport_, {{1001, L"Tarvix"}});
    EXPECT_EQ(viewport_.xdata(), foreign);
}

TEST_F(ExtendedData, RefusesWhatDoesNotFitAndChangesNothing) {
    const XData before = viewport_.xdata();
    const XData cases[] = {
        {{1000, L"ohne Namen"}},
        {{1001, L"Unbekannt"}, {1000, L"x"}},
        {{1001, L"Tarvix"}, {1005, L"kein Handle"}},
        {{1001, L"Tarvix"}, {1005, L"12345678901234567"}},
        {{1001, L"Tarvix"}, {1070, L"1"}},
        {{1001, L"Tarvix"}, {1040, 1}},
        {{1001, L"Tarvix"}, {990, L"x"}},
        {{1001, L"Tarvix"}, {1000, std::wstring(128, L'ä')}},
        {{1001, L"Tarvix"}, {1000, L"zwei\nZeilen"}},
    };
    for (const XData& data : cases)
        EXPECT_EQ(errorOf([&] { drawing_.setXData(viewport_, data); }), errorNumber::invalidCall);
    XData large(70, XDataItem{1000, std::wstring(250, L'x')});
    large.insert(large.begin(), {1001, L"Tarvix"});
    EXPECT_EQ(errorOf([&] { drawing_.setXData(viewport_, large); }), errorNumber::invalidCall);
    EXPECT_EQ(viewport_.xdata(), before);
    drawing_.registerApplication(L"Unbekannt");
    drawing_.setXData(viewport_, cases[1]);
    EXPECT_EQ(viewport_.xdata(L"unbekannt"), cases[1]);
}

TEST_F(ExtendedData, AuditClearsHandlesOfNothing) {
    const std::wstring real = handleText(viewport_.owner());
    drawing_.setXData(viewport_, {{1001, L"Tarvix"}, {1005, real}, {1005, L"FFFFFF"}, {1005, L"0"}});
    EXPECT_GE(drawing_.audit(), 1);
    EXPECT_EQ(viewport_.xdata(L"Tarvix"),
              (XData{{1001, L"Tarvix"}, {1005, real}, {1005, L"0"}, {1005, L"0"}}));
    EXPECT_EQ(drawing_.audit(), 0);
}

}  // namespace
}  // namespace demo
