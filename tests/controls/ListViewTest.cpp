#include "controls/ListView.h"

#include <gtest/gtest.h>

#include <random>

#include "support/GermanLocale.h"

namespace blattwart {

namespace {

using Log = std::vector<std::wstring>;

class ListRecorder : public ListViewListener {
  public:
    void rowsChanged() override { log.push_back(L"rows"); }
    void rowChanged(int row) override { log.push_back(L"row " + std::to_wstring(row)); }
    void selectionChanged() override { log.push_back(L"selection"); }
    void columnsChanged() override { log.push_back(L"columns"); }
    void sortChanged() override { log.push_back(L"sort"); }
    void modeChanged() override { log.push_back(L"mode"); }
    void rowWanted(int row) override { log.push_back(L"wanted " + std::to_wstring(row)); }
    void labelEditStarted(const ListItem& item) override { log.push_back(L"edit " + item.key()); }
    void labelEditCancelled() override { log.push_back(L"edit cancelled"); }

    Log taken() { return std::exchange(log, {}); }

  private:
    Log log;
};

/// Keys of the rows, in displayed order.
std::wstring shown(const ListView& list) {
    std::wstring keys;
    for (int row = 0; row < list.count(); ++row) keys += list.row(row).key() + L" ";
    return keys;
}

class ListViewTest : public testing::Test {
  protected:
    ListViewTest() {
        for (int i = 0; i < 5; ++i) list.addColumn(L"Spalte", 2500);
        fill();
        list.setListener(&recorder);
        list.events.selectionChange = [this] { ++selectionChanges; };
        list.events.afterLabelEdit = [this](const std::wstring& text) {
            edits.push_back(text + (list.editedItem() ? L" (editing)" : L""));
        };
    }

    /// Three rows in the order L1 L2 L3; sorted by text L3 L2 L1, by the second column L1 L3 L2.
    void fill() {
        list.add(L"L1", L"Blatt 10").setColumn(2, L"A4");
        list.add(L"L2", L"Blatt 2").setColumn(2, L"b");
        list.add(L"L3", L"ähnlich").setColumn(2, L"A4");
    }

    test::GermanLocale locale;
    ListView list{locale};
    ListRecorder recorder;
    int selectionChanges = 0;
    Log edits;
};

TEST_F(ListViewTest, sortsNaturallyWithTheOrderOfAddingInTies) {
    EXPECT_EQ(shown(list), L"L1 L2 L3 ");
    list.setSorted(true);
    EXPECT_EQ(shown(list), L"L3 L2 L1 ");
    EXPECT_EQ(recorder.taken(), (Log{L"sort", L"rows"}));
    list.setSortKey(0);
    EXPECT_EQ(recorder.taken(), Log{L"sort"});
    list.setSortKey(1);
    EXPECT_EQ(shown(list), L"L1 L3 L2 ");
    list.setSortOrder(SortOrder::descending);
    EXPECT_EQ(shown(list), L"L2 L1 L3 ");
    list.find(L"L3")->setColumn(2, L"c");
    EXPECT_EQ(shown(list), L"L3 L2 L1 ");
    list.setSorted(false);
    EXPECT_EQ(shown(list), L"L1 L2 L3 ");
}

TEST_F(ListViewTest, tellsWhatAnUpdateChangedInTheEnd) {
    struct Case {
        const char* what;
        std::function<void()> change;
        Log told;
    };
    const std::vector<Case> cases{
        {"nothing", [] {}, {}},
        {"the same again", [&] { list.clear(), fill(); }, {}},
        {"text set and set back", [&] { list.row(0).setText(L"x"), list.row(0).setText(L"Blatt 10"); }, {}},
        {"column set", [&] { list.row(1).setColumn(5, L"x"); }, {L"row 1"}},
        {"column emptied", [&] { list.row(1).setColumn(5, L""); }, {L"row 1"}},
        {"filled with another text", [&] { list.clear(), fill(), list.row(2).setBold(true); }, {L"row 2"}},
        {"bold by content", [&] { list.clear(), fill(); }, {L"row 2"}},
        {"added and removed", [&] { list.add(L"L4", L"x"), list.remove(L"L4"); }, {}},
        {"removed and added behind", [&] { list.remove(L"L1"), list.add(L"L1", L"Blatt 10"); }, {L"rows"}},
        {"back in order", [&] { list.clear(), fill(); }, {L"rows"}},
        {"key replaced", [&] { list.remove(L"L3"), list.add(L"L4", L"ähnlich"); }, {L"rows"}},
        {"selected and deselected",
         [&] { list.setSelected(list.row(0), true), list.setSelected(list.row(0), false); },
         {}},
        {"focus", [&] { list.setFocused(&list.row(0)); }, {L"selection"}},
        {"focused row removed", [&] { list.clear(), list.add(L"L2", L"x"); }, {L"rows", L"selection"}},
        {"columns as before", [&] { list.setColumnPosition(1, 4), list.setColumnPosition(1, 0); }, {}},
        {"all at once",
         [&] {
             list.setMode(ListViewMode::details), list.setSorted(true), list.setColumnWidth(1, 1),
                 list.clear();
         },
         {L"columns", L"mode", L"sort", L"rows"}}};
    for (const Case& c : cases) {
        {
            const Update outer(list);
            const Update inner(list);
            c.change();
            EXPECT_EQ(recorder.taken(), Log{}) << c.what;
        }
        EXPECT_EQ(recorder.taken(), c.told) << c.what;
    }
    EXPECT_EQ(list.focused(), nullptr);
}

TEST_F(ListViewTest, selectionFocusAndEditSurviveARefill) {
    list.setSelected(list.row(0), true);
    list.startLabelEdit(list.row(2));
    recorder.taken();
    {
        const Update update(list);
        list.clear();
        EXPECT_EQ(list.selected(), nullptr);
        EXPECT_EQ(list.focused(), nullptr);
        fill();
    }
    EXPECT_EQ(recorder.taken(), Log{});
    EXPECT_EQ(list.selectedItems(), (std::vector<ListItem*>{&list.row(0), &list.row(2)}));
    EXPECT_EQ(list.editedItem(), &list.row(2));
    for (ListItem* item : list.selectedItems()) list.setSelected(*item, false);
    EXPECT_EQ(recorder.taken(), (Log{L"selection", L"edit cancelled", L"selection"}));

    list.setSelected(list.row(1), true);
    list.clear();
    fill();
    EXPECT_EQ(list.selected(), nullptr);
    EXPECT_EQ(selectionChanges, 0);
}

TEST_F(ListViewTest, theSelectedItemIsTheFocusedOneElseTheFirst) {
    list.setSorted(true);
    list.userSelects({&list.row(2), &list.row(1)}, &list.row(2));
    EXPECT_EQ(list.selected(), &list.row(2));
    list.setFocused(&list.row(0));
    EXPECT_EQ(list.selected(), &list.row(1));
    list.userSelects({&list.row(1), &list.row(2)}, &list.row(0));
    EXPECT_EQ(selectionChanges, 1);
    list.userSelects({}, nullptr);
    EXPECT_EQ(selectionChanges, 2);
    EXPECT_EQ(list.selected(), nullptr);
}

TEST_F(ListViewTest, labelEdits) {
    list.startLabelEdit(list.row(0));
    list.startLabelEdit(list.row(1));
    EXPECT_EQ(recorder.taken(), (Log{L"selection", L"edit L1", L"edit cancelled", L"selection", L"edit L2"}));
    const std::wstring text = L"Plan";
    list.userEndsLabelEdit(&text);
    list.userEndsLabelEdit(&text);
    EXPECT_EQ(edits, Log{L"Plan"});
    EXPECT_EQ(list.row(1).text(), L"Blatt 2");
    const std::vector<std::function<void()>> endings{
        [&] { list.userEndsLabelEdit(nullptr); }, [&] { list.cancelLabelEdit(); },
        [&] { list.setFocused(nullptr); }, [&] { list.setSelected(list.row(0), false); },
        [&] { list.remove(L"L1"); }};
    for (const auto& ending : endings) {
        list.startLabelEdit(list.row(0));
        ending();
        EXPECT_EQ(list.editedItem(), nullptr);
    }
    EXPECT_EQ(edits.size(), 1U);
}

/// One random change of a list of up to twenty keys.
void changeRandomly(ListView& list, std::mt19937& random) {
    const std::wstring key = std::to_wstring(random() % 20);
    const std::wstring text = L"Blatt " + std::to_wstring(random() % 12);
    ListItem* item = list.find(key);
    switch (random() % 8) {
        case 0:
            return list.setSorted(random() % 4 > 0);
        case 1:
            return list.setSortKey(static_cast<int>(random() % 2));
        case 2:
            return list.setSortOrder(static_cast<SortOrder>(random() % 2));
        case 3:
            return item ? item->setText(text) : static_cast<void>(list.add(key, text));
        case 4:
            return item ? item->setColumn(2, text) : static_cast<void>(list.add(key, text));
        case 5:
            return item ? list.remove(key) : static_cast<void>(list.add(key, text));
        default:
            return item ? list.setSelected(*item, random() % 2) : static_cast<void>(list.add(key, text));
    }
}

TEST_F(ListViewTest, theOrderIsTheSameChangeByChangeAndInUpdates) {
    ListView other{locale};
    for (int i = 0; i < 2; ++i) other.addColumn(L"Spalte", 0);
    list.clear();
    std::mt19937 random(1);
    std::mt19937 again(1);
    for (int round = 0; round < 200; ++round) {
        const int changes = round % 7 + 1;
        for (int i = 0; i < changes; ++i) changeRandomly(list, random);
        const Update update(other);
        for (int i = 0; i < changes; ++i) {
            changeRandomly(other, again);
            if (round % 3 == 0) shown(other);
        }
        ASSERT_EQ(shown(list), shown(other)) << "round " << round;
    }
}

}  // namespace

}  // namespace blattwart
