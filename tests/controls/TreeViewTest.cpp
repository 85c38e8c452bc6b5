#include "controls/TreeView.h"

#include <gtest/gtest.h>

#include "support/ErrorOf.h"

namespace blattwart {

namespace {

using Log = std::vector<std::wstring>;

class TreeRecorder : public TreeViewListener {
  public:
    void updateBegun() override { log.push_back(L"begun"); }
    void updateEnded() override { log.push_back(L"ended"); }
    void nodeAdded(const TreeNode& node) override { log.push_back(L"added " + node.key()); }
    void nodeRemoved(const TreeNode& node) override { log.push_back(L"removed " + node.key()); }
    void nodeChanged(const TreeNode& node) override { log.push_back(L"changed " + node.key()); }
    void selectionChanged() override { log.push_back(L"selection"); }
    void dropHighlightChanged() override { log.push_back(L"highlight"); }
    void labelEditStarted(const TreeNode& node) override { log.push_back(L"edit " + node.key()); }
    void labelEditCancelled() override { log.push_back(L"edit cancelled"); }

    Log taken() { return std::exchange(log, {}); }

  private:
    Log log;
};

class TreeViewTest : public testing::Test {
  protected:
    TreeViewTest() {
        for (const wchar_t* root : {L"A", L"B"}) tree.add(nullptr, root, root);
        for (const wchar_t* drawing : {L"Z1", L"Z2", L"Z3"}) tree.add(&tree.node(L"A"), drawing, drawing);
        for (const wchar_t* layout : {L"L1", L"L2"}) tree.add(&tree.node(L"Z2"), layout, layout);
        tree.setListener(&recorder);
        tree.events.nodeClick = [this](TreeNode& node) { clicks.push_back(node.key()); };
        tree.events.afterLabelEdit = [this](const std::wstring& text) {
            edits.push_back(text + (tree.editedNode() ? L" (editing)" : L""));
        };
    }

    std::wstring selectedKey() const { return tree.selected() ? tree.selected()->key() : L""; }

    std::wstring keysInOrder() {
        std::wstring keys;
        tree.forEach([&](TreeNode& node) { keys += node.key() + L" "; });
        return keys;
    }

    TreeView tree;
    TreeRecorder recorder;
    Log clicks;
    Log edits;
};

TEST_F(TreeViewTest, keysAreUniqueAndCanBeChanged) {
    EXPECT_EQ(test::errorOf([&] { tree.add(nullptr, L"L1", L"x"); }), errorNumber::duplicateKey);
    EXPECT_EQ(test::errorOf([&] { tree.node(L"L1").setKey(L"Z1"); }), errorNumber::duplicateKey);
    EXPECT_EQ(test::errorOf([&] { tree.remove(L"D1"); }), errorNumber::elementNotFound);
    EXPECT_EQ(test::errorOf([&] { tree.node(L"D1"); }), errorNumber::elementNotFound);
    EXPECT_EQ(recorder.taken(), Log{});

    TreeNode& node = tree.node(L"L1");
    node.setKey(L"D7");
    EXPECT_EQ(&tree.node(L"D7"), &node);
    EXPECT_EQ(tree.find(L"L1"), nullptr);
    tree.remove(node.key());
    EXPECT_EQ(keysInOrder(), L"A Z1 Z2 L2 Z3 B ");
}

TEST_F(TreeViewTest, onlyNetChangesOfLooksAreTold) {
    tree.node(L"Z1").setBold(true);
    tree.node(L"Z1").setBold(true);
    EXPECT_EQ(recorder.taken(), Log{L"changed Z1"});
    {
        const Update outer(tree);
        {
            const Update inner(tree);
            tree.node(L"Z1").setBold(false);
            tree.node(L"A").setText(L"AutoCAD nicht aktiv!");
        }
        tree.node(L"Z1").setBold(true);
        tree.node(L"A").setText(L"A");
    }
    EXPECT_EQ(recorder.taken(), Log{});
    {
        const Update update(tree);
        tree.node(L"Z2").setImage(12);
        tree.node(L"L1").setBold(true);
        tree.node(L"Z2").setColor(SystemColor::buttonText);
        tree.remove(L"L1");
        tree.add(nullptr, L"C", L"C").setImage(2);
        EXPECT_EQ(recorder.taken(), (Log{L"begun", L"removed L1", L"added C"}));
    }
    EXPECT_EQ(recorder.taken(), (Log{L"changed Z2", L"changed C", L"ended"}));
}

TEST_F(TreeViewTest, removalMovesTheSelection) {
    struct Case {
        const wchar_t* selected;
        const wchar_t* removed;
        const wchar_t* expected;
    };
    for (const Case& c : {Case{L"L1", L"L1", L"L2"},
                          {L"L2", L"Z2", L"Z3"},
                          {L"Z3", L"Z3", L"Z1"},
                          {L"Z1", L"Z1", L"A"},
                          {L"B", L"A", L"B"},
                          {L"B", L"B", L""}}) {
        tree.select(tree.node(c.selected));
        recorder.taken();
        tree.remove(c.removed);
        EXPECT_EQ(selectedKey(), c.expected) << "removal " << c.removed;
        Log told{L"removed " + std::wstring(c.removed)};
        if (std::wstring(c.selected) != c.expected) told.insert(told.begin(), L"selection");
        EXPECT_EQ(recorder.taken(), told);
    }
    EXPECT_EQ(clicks, Log{});
    EXPECT_TRUE(tree.roots().empty());
}

TEST_F(TreeViewTest, removalEndsLabelEditAndHighlightBelow) {
    tree.select(tree.node(L"L2"));
    tree.startLabelEdit(L"Neu");
    tree.setDropHighlight(&tree.node(L"L1"));
    recorder.taken();
    tree.remove(L"Z2");
    EXPECT_EQ(recorder.taken(), (Log{L"highlight", L"edit cancelled", L"selection", L"removed Z2"}));
    EXPECT_EQ(tree.editedNode(), nullptr);
    EXPECT_EQ(tree.find(L"L2"), nullptr);

    tree.startLabelEdit(L"Neu");
    tree.clear();
    EXPECT_EQ(recorder.taken(),
              (Log{L"edit Z3", L"edit cancelled", L"selection", L"removed B", L"removed A"}));
    EXPECT_EQ(tree.find(L"Z1"), nullptr);
}

TEST_F(TreeViewTest, collapsingAboveTheSelectionSelectsTheCollapsedNode) {
    tree.select(tree.node(L"L1"));
    EXPECT_TRUE(tree.node(L"Z2").expanded());
    tree.node(L"Z2").setExpanded(false);
    EXPECT_EQ(selectedKey(), L"Z2");
    EXPECT_EQ(clicks, Log{});
    tree.userExpands(tree.node(L"Z2"), true);
    tree.userExpands(tree.node(L"Z2"), false);
    EXPECT_EQ(clicks, Log{});
    tree.userExpands(tree.node(L"A"), false);
    EXPECT_EQ(clicks, Log{L"A"});
    EXPECT_EQ(selectedKey(), L"A");
}

TEST_F(TreeViewTest, labelEdits) {
    EXPECT_EQ(test::errorOf([&] { tree.startLabelEdit(L"x"); }), errorNumber::objectNotSet);
    tree.select(tree.node(L"Z1"));
    recorder.taken();
    tree.startLabelEdit(L"a");
    tree.startLabelEdit(L"b");
    EXPECT_EQ(recorder.taken(), (Log{L"edit Z1", L"edit cancelled", L"edit Z1"}));
    EXPECT_EQ(tree.editText(), L"b");

    const std::wstring text = L"Plan";
    tree.userEndsLabelEdit(&text);
    EXPECT_EQ(edits, Log{L"Plan"});
    EXPECT_EQ(tree.node(L"Z1").text(), L"Z1");

    tree.startLabelEdit(L"c");
    tree.userEndsLabelEdit(nullptr);
    EXPECT_EQ(tree.editedNode(), nullptr);
    tree.startLabelEdit(L"d");
    tree.userClicks(tree.node(L"Z3"));
    tree.userEndsLabelEdit(&text);
    EXPECT_EQ(edits.size(), 1U);
    EXPECT_EQ(recorder.taken(), (Log{L"edit Z1", L"edit Z1", L"edit cancelled", L"selection"}));
}

}  // namespace

}  // namespace blattwart
