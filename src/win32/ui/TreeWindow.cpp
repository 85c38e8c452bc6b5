#include "win32/ui/TreeWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "win32/base/Scope.h"
#include "win32/ui/DragSource.h"
#include "win32/ui/Fonts.h"

namespace blattwart {

namespace {

constexpr DWORD treeStyle = WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT |
                            TVS_SHOWSELALWAYS | TVS_EDITLABELS;
constexpr int rowPadding = 4;  // pixels at 96 dpi, above and below together

bool usesHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
    return (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

/// High contrast themes only promise that text colours go with the window's background.
COLORREF colorOf(SystemColor color) {
    if (!usesHighContrast()) return GetSysColor(static_cast<int>(color));
    return GetSysColor(color == SystemColor::appWorkspace ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
}

enum class RowPart { all = FALSE, label = TRUE };

/// Place of a row or its label; nothing while it cannot be seen.
std::optional<RECT> placeOf(HWND tree, HTREEITEM item, RowPart part) {
    RECT place{};
    std::memcpy(&place, &item, sizeof(void*));  // the message takes the item where it puts the answer
    if (!item ||
        !SendMessageW(tree, TVM_GETITEMRECT, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(&place)))
        return std::nullopt;
    return place;
}

/// Brings more of the tree into sight while something is dragged along its upper or lower edge.
void scrollNearEdge(HWND tree, POINT place) {
    RECT client{};
    GetClientRect(tree, &client);
    const int edge = TreeView_GetItemHeight(tree);
    if (place.y < edge) SendMessageW(tree, WM_VSCROLL, SB_LINEUP, 0);
    if (place.y > client.bottom - edge) SendMessageW(tree, WM_VSCROLL, SB_LINEDOWN, 0);
}

}  // namespace

TreeWindow::TreeWindow(HWND parent, TreeView& tree, EventGate& gate)
    : ControlWindow(parent, tree, WC_TREEVIEWW, treeStyle, WS_EX_CLIENTEDGE),
      tree_(tree),
      gate_(gate),
      labelEdit_(gate, [this](const std::wstring* text) { tree_.userEndsLabelEdit(text); }),
      dropRegistration_(handle(), gate.guard(), dropHandlers()) {
    SendMessageW(handle(), TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
    tree_.forEach([this](const TreeNode& node) { nodeAdded(node); });
    selectionChanged();
    tree_.setListener(this);
}

TreeWindow::~TreeWindow() {
    tree_.setListener(nullptr);
}

void TreeWindow::setLook(HFONT font, HIMAGELIST images, int dpi) const {
    setFont(font);
    TreeView_SetImageList(handle(), images, TVSIL_NORMAL);
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(images, &width, &height);
    const int row = std::max(height, lineHeight(font)) + MulDiv(rowPadding, dpi, USER_DEFAULT_SCREEN_DPI);
    TreeView_SetItemHeight(handle(), row);
}

void TreeWindow::updateEnded() {
    if (--updates_ > 0 || !drawingSuspended_) return;
    drawingSuspended_ = false;
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(handle(), nullptr, TRUE);
}

/// From the first change of the structure within an update on.
void TreeWindow::suspendDrawing() {
    if (updates_ == 0 || drawingSuspended_) return;
    drawingSuspended_ = true;
    SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
}

void TreeWindow::nodeAdded(const TreeNode& node) {
    suspendDrawing();
    const ScopedFlag showing(showing_);
    TVINSERTSTRUCTW insert{};
    insert.hParent = node.parent() ? item(node.parent()) : TVI_ROOT;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_STATE | TVIF_PARAM;
    insert.item.pszText = LPSTR_TEXTCALLBACKW;
    insert.item.iImage = I_IMAGECALLBACK;
    insert.item.iSelectedImage = I_IMAGECALLBACK;
    insert.item.stateMask = TVIS_BOLD;
    insert.item.state = node.bold() ? TVIS_BOLD : 0;
    insert.item.lParam = reinterpret_cast<LPARAM>(&node);
    items_[&node] = reinterpret_cast<HTREEITEM>(
        SendMessageW(handle(), TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    // A node can only be expanded once it has a child.
    if (node.parent()) showExpansion(*node.parent());
}

void TreeWindow::nodeRemoved(const TreeNode& node) {
    suspendDrawing();
    const ScopedFlag showing(showing_);
    SendMessageW(handle(), TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item(&node)));
    forget(node);
}

void TreeWindow::forget(const TreeNode& node) {
    for (const TreeNode* child : node.children()) forget(*child);
    items_.erase(&node);
}

void TreeWindow::nodeChanged(const TreeNode& node) {
    const HTREEITEM changed = item(&node);
    TVITEMW look{};
    look.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_STATE;
    look.hItem = changed;
    look.pszText = LPSTR_TEXTCALLBACKW;
    look.stateMask = TVIS_BOLD;
    look.state = node.bold() ? TVIS_BOLD : 0;
    TreeView_SetItem(handle(), &look);
    if (const auto row = placeOf(handle(), changed, RowPart::all)) InvalidateRect(handle(), &*row, TRUE);
    showExpansion(node);
}

void TreeWindow::showExpansion(const TreeNode& node) {
    if (node.children().empty()) return;
    const HTREEITEM shown = item(&node);
    const bool expanded = (TreeView_GetItemState(handle(), shown, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
    if (expanded == node.expanded()) return;
    const ScopedFlag showing(showing_);
    TreeView_Expand(handle(), shown, node.expanded() ? TVE_EXPAND : TVE_COLLAPSE);
}

void TreeWindow::selectionChanged() {
    const HTREEITEM wanted = item(tree_.selected());
    if (TreeView_GetSelection(handle()) == wanted) return;
    const ScopedFlag showing(showing_);
    TreeView_SelectItem(handle(), wanted);
}

void TreeWindow::dropHighlightChanged() {
    TreeView_SelectDropTarget(handle(), item(tree_.dropHighlight()));
}

void TreeWindow::labelEditStarted(const TreeNode& node) {
    SetFocus(handle());
    TreeView_EnsureVisible(handle(), item(&node));
    labelEdit_.start([&] { return TreeView_EditLabel(handle(), item(&node)); }, tree_.editText());
}

void TreeWindow::labelEditCancelled() {
    labelEdit_.cancel([this] { TreeView_EndEditLabelNow(handle(), TRUE); });
}

HTREEITEM TreeWindow::item(const TreeNode* node) const {
    const auto found = items_.find(node);
    return found == items_.end() ? nullptr : found->second;
}

TreeNode& TreeWindow::node(HTREEITEM item) const {
    TVITEMW wanted{};
    wanted.mask = TVIF_HANDLE | TVIF_PARAM;
    wanted.hItem = item;
    TreeView_GetItem(handle(), &wanted);
    return *reinterpret_cast<TreeNode*>(wanted.lParam);
}

TreeNode* TreeWindow::nodeAt(POINT client) const {
    TVHITTESTINFO hit{};
    hit.pt = client;
    const auto found = TreeView_HitTest(handle(), &hit);
    return found && (hit.flags & TVHT_ONITEM) != 0 ? &node(found) : nullptr;
}

TreeNode* TreeWindow::nodeUnderPointer() const {
    const DWORD position = GetMessagePos();
    POINT point{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ScreenToClient(handle(), &point);
    return nodeAt(point);
}

/// Several selections that come before the first is answered (a key held down) count as the last of them.
void TreeWindow::postClick(const TreeNode& node) {
    const bool waiting = !clickedKey_.empty();
    clickedKey_ = node.key();
    if (waiting) return;
    gate_.post([this] {
        if (TreeNode* clicked = tree_.find(std::exchange(clickedKey_, {}))) tree_.userClicks(*clicked);
        selectionChanged();
    });
}

POINT TreeWindow::contextMenuAt(POINT screen) {
    POINT client = screen;
    ScreenToClient(handle(), &client);
    if (const TreeNode* hit = nodeAt(client)) postClick(*hit);
    return screen;
}

POINT TreeWindow::contextMenuByKey() const {
    POINT place{0, 0};
    if (const auto label = placeOf(handle(), TreeView_GetSelection(handle()), RowPart::label))
        place = {label->left, label->bottom};
    ClientToScreen(handle(), &place);
    return place;
}

LRESULT TreeWindow::notify(NMHDR& header) {
    switch (header.code) {
        case TVN_GETDISPINFOW:
            fill(reinterpret_cast<NMTVDISPINFOW&>(header).item);
            return 0;
        case NM_CUSTOMDRAW:
            return draw(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
        case TVN_SELCHANGEDW:
            selected(reinterpret_cast<NMTREEVIEWW&>(header));
            return 0;
        case TVN_ITEMEXPANDEDW:
            expanded(reinterpret_cast<NMTREEVIEWW&>(header));
            return 0;
        case NM_CLICK:
            if (const TreeNode* hit = nodeUnderPointer()) postClick(*hit);
            return 0;
        case NM_DBLCLK:
            return doubleClicked();
        case TVN_BEGINDRAGW:
            beginDrag(node(reinterpret_cast<NMTREEVIEWW&>(header).itemNew.hItem));
            return 0;
        case TVN_BEGINLABELEDITW:
            return labelEdit_.refuses();
        case TVN_ENDLABELEDITW:
            labelEdit_.ended(reinterpret_cast<NMTVDISPINFOW&>(header).item.pszText);
            return FALSE;
        default:
            return 0;
    }
}

void TreeWindow::fill(TVITEMW& wanted) const {
    const auto& asked = *reinterpret_cast<const TreeNode*>(wanted.lParam);
    if ((wanted.mask & TVIF_IMAGE) != 0) wanted.iImage = asked.image();
    if ((wanted.mask & TVIF_SELECTEDIMAGE) != 0) {
        wanted.iSelectedImage = asked.selectedImage() != 0 ? asked.selectedImage() : asked.image();
    }
    if ((wanted.mask & TVIF_TEXT) != 0) wanted.pszText = uncopied(asked.text());
}

LRESULT TreeWindow::draw(NMTVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    const bool marked = (draw.nmcd.uItemState & CDIS_SELECTED) != 0;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || marked || draw.nmcd.lItemlParam == 0)
        return CDRF_DODEFAULT;
    draw.clrText = colorOf(reinterpret_cast<const TreeNode*>(draw.nmcd.lItemlParam)->color());
    return CDRF_DODEFAULT;
}

void TreeWindow::selected(const NMTREEVIEWW& change) {
    if (!showing_ && change.itemNew.hItem) postClick(node(change.itemNew.hItem));
}

/// Collapsing can be a click on the node, so it is answered like one.
void TreeWindow::expanded(const NMTREEVIEWW& change) {
    const HTREEITEM item = change.itemNew.hItem;
    const bool isExpanded = (TreeView_GetItemState(handle(), item, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
    if (node(item).expanded() == isExpanded) return;
    gate_.post([this, key = node(item).key(), isExpanded] {
        TreeNode* changed = tree_.find(key);
        if (changed && changed->expanded() != isExpanded) tree_.userExpands(*changed, isExpanded);
    });
}

/// Returns whether the control is to leave the node alone: what the user works on stays open. Roots have no
/// command of their own and can be closed so.
LRESULT TreeWindow::doubleClicked() {
    const TreeNode* hit = nodeUnderPointer();
    if (!hit) return FALSE;
    gate_.post([this] {
        if (tree_.events.doubleClick) tree_.events.doubleClick();
    });
    return hit->parent() && hit->expanded();
}

/// What is dragged is selected first; whether it can be dragged is known then.
void TreeWindow::beginDrag(const TreeNode& dragged) {
    gate_.post([this, key = dragged.key()] {
        TreeNode* node = tree_.find(key);
        if (!node) return;
        if (node != tree_.selected()) tree_.userClicks(*node);
        if (tree_.dragAutomatic() && GetKeyState(VK_LBUTTON) < 0) gate_.hold([&] { dragText(key); });
    });
}

DropHandlers TreeWindow::dropHandlers() {
    return {.over = [this](POINT screen) { return draggedOver(screen); },
            .left = [this] { tree_.setDropHighlight(nullptr); },
            .files =
                [this](const std::vector<std::wstring>& files) {
                    postDrop([this, files] {
                        if (tree_.events.filesDropped) tree_.events.filesDropped(files);
                    });
                },
            .text =
                [this](const std::wstring& key) {
                    postDrop([this, key] {
                        if (tree_.events.keyDropped) tree_.events.keyDropped(key);
                    });
                }};
}

bool TreeWindow::draggedOver(POINT screen) {
    POINT place = screen;
    ScreenToClient(handle(), &place);
    scrollNearEdge(handle(), place);
    // A dialog is in front, or the host has not answered yet.
    const bool blocked = !IsWindowEnabled(GetAncestor(handle(), GA_ROOT)) || gate_.callPending();
    tree_.setDropHighlight(blocked ? nullptr : nodeAt(place));
    return tree_.dropHighlight() != nullptr;
}

void TreeWindow::postDrop(std::function<void()> event) {
    gate_.post([this, event = std::move(event)] {
        event();
        tree_.setDropHighlight(nullptr);
    });
}

}  // namespace blattwart
