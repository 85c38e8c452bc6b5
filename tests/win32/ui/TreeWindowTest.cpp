#include "win32/ui/TreeWindow.h"

#include <gtest/gtest.h>
#include <ole2.h>
#include <shlobj.h>

#include <array>
#include <cstring>
#include <optional>
#include <thread>

#include "ControlHost.h"
#include "win32/ui/DragSource.h"

namespace blattwart::test {

namespace {

/// What the control shows of a node, read back from the control.
struct Shown {
    std::wstring text;
    int image = 0;
    int selectedImage = 0;
    bool bold = false;
    bool expanded = false;
    bool selected = false;
    friend bool operator==(const Shown&, const Shown&) = default;
};

class TreeWindowTest : public testing::Test {
  protected:
    TreeWindowTest() {
        tree.add(nullptr, L"A", L"Geladene Zeichnungen", 2).setExpanded(true);
        tree.add(nullptr, L"B", L"Bibliothek", 3).setExpanded(true);
        for (const wchar_t* key : {L"Z1", L"Z2", L"Z3"}) tree.add(&tree.node(L"A"), key, key, 12, 13);
        tree.add(&tree.node(L"Z2"), L"L4", L"Übersicht", 8, 9);
        tree.add(&tree.node(L"B"), L"D5", L"Größe.dwt", 6, 4);
        window.emplace(host.window(), tree, host.gate());
        host.notify = [this](NMHDR& header) { return window->notify(header); };
        SetWindowPos(handle(), nullptr, 0, 0, 300, 400, SWP_NOZORDER);
        tree.events.nodeClick = [this](TreeNode& node) { happened += L"click " + node.key() + L";"; };
        tree.events.doubleClick = [this] { happened += L"double;"; };
        tree.events.afterLabelEdit = [this](const std::wstring& text) { happened += L"edit " + text + L";"; };
        pump();
    }
    ~TreeWindowTest() override { host.notify = nullptr; }

    HWND handle() const { return window->handle(); }

    HTREEITEM below(HTREEITEM parent, const std::wstring& key) const {
        const WPARAM first = parent ? TVGN_CHILD : TVGN_ROOT;
        for (auto item = next(first, parent); item; item = next(TVGN_NEXT, item)) {
            if (keyOf(item) == key) return item;
            if (const HTREEITEM found = below(item, key)) return found;
        }
        return nullptr;
    }
    HTREEITEM itemOf(const std::wstring& key) const { return below(nullptr, key); }

    HTREEITEM next(WPARAM relation, HTREEITEM item) const {
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(handle(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    }

    std::wstring keyOf(HTREEITEM item) const {
        TVITEMW wanted{};
        wanted.mask = TVIF_HANDLE | TVIF_PARAM;
        wanted.hItem = item;
        SendMessageW(handle(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&wanted));
        return reinterpret_cast<const TreeNode*>(wanted.lParam)->key();
    }

    Shown shown(const std::wstring& key) const {
        std::array<wchar_t, 400> text{};
        TVITEMW item{};
        item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_STATE;
        item.hItem = itemOf(key);
        item.stateMask = TVIS_BOLD | TVIS_EXPANDED | TVIS_SELECTED;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(handle(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return {item.pszText,
                item.iImage,
                item.iSelectedImage,
                (item.state & TVIS_BOLD) != 0,
                (item.state & TVIS_EXPANDED) != 0,
                (item.state & TVIS_SELECTED) != 0};
    }

    POINT labelOf(const std::wstring& key) const {
        RECT place{};
        const HTREEITEM item = itemOf(key);
        std::memcpy(&place, &item, sizeof(void*));
        SendMessageW(handle(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
        return {place.left + 4, (place.top + place.bottom) / 2};
    }

    std::wstring taken() { return std::exchange(happened, {}); }

    ControlHost host;
    TreeView tree;
    std::optional<TreeWindow> window;
    std::wstring happened;
};

TEST_F(TreeWindowTest, ShowsWhatTheModelHolds) {
    EXPECT_EQ(shown(L"A"), (Shown{L"Geladene Zeichnungen", 2, 2, false, true, false}));
    EXPECT_EQ(shown(L"L4"), (Shown{L"Übersicht", 8, 9, false, false, false}));
    TreeNode& drawing = tree.node(L"Z2");
    drawing.setText(L"Plan.dwg");
    drawing.setBold(true);
    drawing.setImage(7);
    drawing.setExpanded(true);
    tree.select(drawing);
    EXPECT_EQ(shown(L"Z2"), (Shown{L"Plan.dwg", 7, 13, true, true, true}));
    tree.add(&drawing, L"L6", L"Neu");
    drawing.setExpanded(false);
    EXPECT_EQ(shown(L"L6").text, L"Neu");
    const std::wstring longText = std::wstring(258, L'x') + L"\U0001F5FA.dwg";
    drawing.setText(longText);
    EXPECT_EQ(shown(L"Z2").text, longText);
    EXPECT_FALSE(shown(L"Z2").expanded);
    tree.select(tree.node(L"L4"));
    EXPECT_TRUE(shown(L"Z2").expanded);
    tree.remove(L"Z2");
    EXPECT_TRUE(shown(L"Z3").selected);
    tree.clear();
    EXPECT_EQ(SendMessageW(handle(), TVM_GETCOUNT, 0, 0), 0);
    EXPECT_EQ(taken(), L"");
}

TEST_F(TreeWindowTest, ClicksAndKeysAreReportedOnceEach) {
    click(handle(), labelOf(L"Z1"));
    EXPECT_EQ(taken(), L"click Z1;");
    EXPECT_EQ(tree.selected(), &tree.node(L"Z1"));
    click(handle(), labelOf(L"Z1"));
    EXPECT_EQ(taken(), L"click Z1;") << "also on the selected node";
    press(handle(), VK_DOWN);
    EXPECT_EQ(taken(), L"click Z2;");
    press(handle(), VK_RIGHT);
    EXPECT_TRUE(tree.node(L"Z2").expanded());
    click(handle(), {290, 390});
    EXPECT_EQ(taken(), L"") << "beside all nodes";
    for (const auto& [key, staysOpen] : {std::pair{L"Z2", true}, std::pair{L"B", false}}) {
        click(handle(), labelOf(key), WM_LBUTTONDBLCLK, WM_LBUTTONUP);
        EXPECT_NE(taken().find(L"double;"), std::wstring::npos);
        EXPECT_EQ(shown(key).expanded, staysOpen);
    }
}

TEST_F(TreeWindowTest, TheContextMenuFirstSelectsWhatIsUnderTheMouse) {
    POINT place = labelOf(L"D5");
    ClientToScreen(handle(), &place);
    const POINT menu = window->contextMenuAt(place);
    pump();
    EXPECT_EQ(taken(), L"click D5;");
    EXPECT_EQ(menu.x, place.x);
    POINT label = labelOf(L"D5");
    ClientToScreen(handle(), &label);
    const POINT byKey = window->contextMenuByKey();
    EXPECT_EQ(byKey.x, label.x - 4);
    EXPECT_GT(byKey.y, label.y);
}

TEST_F(TreeWindowTest, OnlyReturnTakesAnEditedLabelOver) {
    const auto field = [this] { return childOfClass(handle(), L"Edit"); };
    SendMessageW(handle(), TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(itemOf(L"Z1")));
    EXPECT_FALSE(field()) << "begins by command only";
    const auto start = [&] {
        tree.select(tree.node(L"D5"));
        tree.startLabelEdit(L"Vorschlag");
        pump();
        ASSERT_TRUE(field());
        EXPECT_EQ(textOf(field()), L"Vorschlag");
    };
    start();
    EXPECT_EQ(SendMessageW(field(), EM_GETSEL, 0, 0), MAKELONG(0, 9)) << "all selected";
    SetWindowTextW(field(), L"Neue Größe");
    press(field(), VK_RETURN);
    EXPECT_EQ(taken(), L"edit Neue Größe;");
    EXPECT_EQ(shown(L"D5").text, L"Größe.dwt") << "the model decides about the text";
    start();
    press(field(), VK_ESCAPE);
    EXPECT_FALSE(tree.editedNode());
    start();
    SetWindowTextW(field(), L"verlassen");
    SetFocus(host.window());
    pump();
    EXPECT_FALSE(tree.editedNode());
    start();
    tree.remove(L"D5");
    pump();
    EXPECT_FALSE(field());
    EXPECT_EQ(taken(), L"");
}

/// What the system does with a drag over the tree, by way of the registered target.
class Drag {
  public:
    Drag(HWND tree, CLIPFORMAT format, std::string bytes)
        : tree_(tree),
          target_(static_cast<IDropTarget*>(GetPropW(tree, L"OleDropTargetInterface"))),
          data_(makeDragData(format, std::move(bytes))) {}

    DWORD over(POINT client) {
        DWORD effect = DROPEFFECT_COPY;
        target_->DragEnter(data_.Get(), MK_LBUTTON, screen(client), &effect);
        return effect;
    }
    void leave() { target_->DragLeave(); }
    void drop(POINT client) {
        DWORD effect = DROPEFFECT_COPY;
        target_->Drop(data_.Get(), 0, screen(client), &effect);
    }

  private:
    POINTL screen(POINT client) const {
        ClientToScreen(tree_, &client);
        return {client.x, client.y};
    }

    HWND tree_;
    IDropTarget* target_;
    Microsoft::WRL::ComPtr<IDataObject> data_;
};

TEST_F(TreeWindowTest, TakesDroppedFilesAndKeys) {
    tree.select(tree.node(L"Z1"));
    tree.events.keyDropped = [this](const std::wstring& key) {
        happened += key + L" on " + tree.dropHighlight()->key() + L";";
    };
    tree.events.filesDropped = [this](const std::vector<std::wstring>& files) {
        for (const std::wstring& file : files) happened += file + L";";
    };
    Drag text(handle(), CF_TEXT, std::string("D5\0", 3));
    EXPECT_EQ(text.over(labelOf(L"B")), static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_EQ(next(TVGN_DROPHILITE, nullptr), itemOf(L"B"));
    EXPECT_EQ(text.over({290, 390}), static_cast<DWORD>(DROPEFFECT_NONE)) << "beside all nodes";
    text.over(labelOf(L"B"));
    text.leave();
    EXPECT_FALSE(next(TVGN_DROPHILITE, nullptr));
    text.over(labelOf(L"A"));
    text.drop(labelOf(L"A"));
    EXPECT_EQ(taken(), L"") << "the work is done after the drop";
    pump();
    EXPECT_EQ(taken(), L"D5 on A;");
    EXPECT_FALSE(tree.dropHighlight());

    const std::wstring names =
        L"C:\\Größe.dwg" + std::wstring(1, L'\0') + L"C:\\b.dxf" + std::wstring(2, L'\0');
    const DROPFILES header{sizeof(DROPFILES), {}, FALSE, TRUE};
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
    bytes.append(reinterpret_cast<const char*>(names.data()), names.size() * sizeof(wchar_t));
    Drag files(handle(), CF_HDROP, bytes);
    files.over(labelOf(L"A"));
    EnableWindow(host.window(), FALSE);
    files.drop(labelOf(L"A"));
    EnableWindow(host.window(), TRUE);
    pump();
    EXPECT_EQ(taken(), L"") << "not under a dialog";
    const ControlHost source;
    SetForegroundWindow(source.window());
    pump();
    files.drop(labelOf(L"A"));
    EXPECT_EQ(GetForegroundWindow(), host.window()) << "what is asked about the files must not lie behind";
    pump();
    EXPECT_EQ(taken(), L"C:\\Größe.dwg;C:\\b.dxf;");
}

TEST_F(TreeWindowTest, DragsNodesButNoRoots) {
    tree.events.nodeClick = [this](TreeNode& node) {
        happened += L"click " + node.key() + L";";
        tree.setDragAutomatic(node.parent() != nullptr);
    };
    tree.events.keyDropped = [this](const std::wstring& key) { happened += L"dropped " + key + L";"; };
    const auto drag = [this](const std::wstring& from, const std::wstring& to) {
        POINT start = labelOf(from);
        POINT end = labelOf(to);
        ClientToScreen(handle(), &start);
        ClientToScreen(handle(), &end);
        std::thread hand([=] {
            const auto move = [](POINT place) {
                SetCursorPos(place.x, place.y);
                mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
                Sleep(60);
            };
            move(start);
            mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
            Sleep(60);
            for (int step = 1; step <= 4; ++step) {
                move({start.x + (end.x - start.x) * step / 4, start.y + (end.y - start.y) * step / 4});
            }
            mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        });
        pumpFor(1200);
        hand.join();
        pump();
    };
    drag(L"D5", L"A");
    EXPECT_EQ(taken(), L"click D5;dropped D5;");
    drag(L"B", L"A");
    EXPECT_EQ(taken(), L"click B;");
}

}  // namespace

}  // namespace blattwart::test
