#include <gtest/gtest.h>

#include <algorithm>

#include "DrawingSupport.h"

namespace demo {
namespace {

using Tabs = std::vector<std::wstring>;
namespace errorNumber = blattwart::errorNumber;

class LayoutOperations : public testing::Test {
  protected:
    Drawing drawing_ = sample("Zeichnungen/Erdgeschoß Süd.dwg");
    Layout& plan_ = *drawing_.findLayout(L"Grundriß 1-50");
    Layout& overview_ = *drawing_.findLayout(L"Übersicht");

    void TearDown() override {
        for (std::size_t i = 0; i < drawing_.layouts().size(); ++i)
            EXPECT_EQ(drawing_.layouts()[i]->tabOrder(), static_cast<std::int32_t>(i));
        EXPECT_EQ(tabs(loaded(saved(drawing_))), tabs(drawing_));
    }
};

TEST_F(LayoutOperations, CopyStandsBeforeItsSourceAndHasObjectsOfItsOwn) {
    Layout& copy = drawing_.copyLayout(plan_, L"Grundriß 1-50 (2)");
    EXPECT_EQ(tabs(drawing_), (Tabs{L"Model", L"Grundriß 1-50 (2)", L"Grundriß 1-50", L"Übersicht",
                                    L"Kopie für Ämter", L"Leer"}));
    EXPECT_EQ(copy.plotSettings(), plan_.plotSettings());
    EXPECT_EQ(&drawing_.currentLayout(), &plan_);
    ASSERT_EQ(copy.entities().size(), plan_.entities().size());
    for (std::size_t i = 0; i < copy.entities().size(); ++i) {
        const Object& original = *plan_.entities()[i];
        const Object& copied = *copy.entities()[i];
        EXPECT_NE(copied.handle(), original.handle());
        EXPECT_EQ(drawing_.find(copied.handle()), &copied);
        EXPECT_EQ(copied.owner(), copy.blockRecord());
        EXPECT_EQ(copied.xdata(L"Tarvix"), original.xdata(L"Tarvix"));
        for (const auto& part : copied.parts()) EXPECT_NE(drawing_.find(part.owner()), &original);
    }
    EXPECT_EQ(inspected(drawing_),
              "faults:\n0 Model: 6\n"
              "1 Grundriß 1-50 (2): 6 TX_STEMPEL_A3[2] TX_NORDPFEIL[0] TX_LEGENDE[0]\n"
              "2 Grundriß 1-50: 6 TX_STEMPEL_A3[2] TX_NORDPFEIL[0] TX_LEGENDE[0]\n"
              "3 Übersicht: 3 TX_STEMPEL_A3[2]\n4 Kopie für Ämter: 0\n5 Leer: 0\n");
}

TEST_F(LayoutOperations, DeletesAndPutsTheNeighbourInPlace) {
    const Handle gone = plan_.entities()[1]->handle();
    drawing_.deleteLayout(plan_);
    EXPECT_EQ(&drawing_.currentLayout(), &overview_);
    EXPECT_EQ(drawing_.find(gone), nullptr);
    drawing_.deleteLayout(*drawing_.findLayout(L"Leer"));
    EXPECT_EQ(inspected(drawing_),
              "faults:\n0 Model: 6\n1 Übersicht: 3 TX_STEMPEL_A3[2]\n2 Kopie für Ämter: 0\n");
    drawing_.deleteLayout(overview_);
    EXPECT_NE(drawing_.currentLayout().sheetViewport(), nullptr);
    EXPECT_EQ(errorOf([&] { drawing_.deleteLayout(drawing_.currentLayout()); }), errorNumber::invalidCall);
    EXPECT_EQ(errorOf([&] { drawing_.deleteLayout(drawing_.modelLayout()); }), errorNumber::invalidCall);
}

TEST_F(LayoutOperations, MakingCurrentGivesASheetOnceAndSwapsTheBlocks) {
    Layout& empty = *drawing_.findLayout(L"Leer");
    drawing_.setCurrentLayout(empty);
    drawing_.setCurrentLayout(drawing_.modelLayout());
    EXPECT_EQ(drawing_.activePaperLayout(), &empty);
    drawing_.setCurrentLayout(empty);
    EXPECT_EQ(empty.entities().size(), 1u);
    EXPECT_EQ(empty.sheetViewport()->point(10), (Point{148.5, 105, 0}));
    EXPECT_EQ(plan_.block().name, L"*Paper_Space3");
    const Drawing again = loaded(saved(drawing_));
    EXPECT_EQ(again.currentLayout().name(), L"Leer");
    EXPECT_EQ(again.findLayout(plan_.handle())->entities().size(), plan_.entities().size());
    EXPECT_EQ(inspected(drawing_).substr(0, 8), "faults:\n");
}

TEST_F(LayoutOperations, TemplateHoldsOneLayoutAndAnEmptyModel) {
    const Drawing result = drawing_.templateOf(overview_);
    EXPECT_EQ(tabs(result), (Tabs{L"Model", L"Übersicht"}));
    EXPECT_EQ(result.currentLayout().name(), L"Übersicht");
    EXPECT_EQ(result.layouts()[1]->plotSettings(), overview_.plotSettings());
    EXPECT_EQ(inspected(result), "faults:\n0 Model: 0\n1 Übersicht: 3 TX_STEMPEL_A3[2]\n");
    EXPECT_EQ(drawing_.layouts().size(), 5u);
    EXPECT_EQ(errorOf([&] { drawing_.templateOf(drawing_.modelLayout()); }), errorNumber::invalidCall);
}

TEST(LayoutImport, BringsWhatTheLayoutsNeed) {
    const Drawing source = sample("Zeichnungen/Erdgeschoß Süd.dwg");
    for (const char* file : {"Zeichnungen/Nur Modell.dwg", "Haus 1/Plan.dwg"}) {
        SCOPED_TRACE(file);
        Drawing target = sample(file);
        const std::size_t before = target.layouts().size();
        EXPECT_EQ(target.importLayouts(source).size(), 4u);
        const std::vector<std::wstring> names = {L"übersicht"};
        EXPECT_EQ(target.importLayouts(source, names).front()->name(), L"Übersicht (2)");
        EXPECT_EQ(target.layouts().size(), before + 5);
        EXPECT_EQ(inspected(target).find("faults:\n"), 0u) << inspected(target);
    }
    Drawing blank = Drawing::createEmpty();
    blank.importLayouts(source);
    EXPECT_NE(blank.findBlock(L"TX_STEMPEL_A3"), nullptr);
    EXPECT_EQ(std::ranges::count(blank.applications(), L"FREMDPROGRAMM"), 1);
    const Layout& plan = *blank.findLayout(L"Grundriß 1-50");
    EXPECT_EQ(plan.entities()[1]->xdata(L"FREMDPROGRAMM").size(), 5u);
    EXPECT_EQ(inspected(blank).find("faults:\n"), 0u) << inspected(blank);
    const std::vector<std::wstring> unknown = {L"gibt es nicht"};
    EXPECT_EQ(errorOf([&] { blank.importLayouts(source, unknown); }), errorNumber::elementNotFound);
}

}  // namespace
}  // namespace demo
