#include "win32/ui/FrameControls.h"

#include <cstddef>
#include <cstring>

#include "win32/ui/Dpi.h"
#include "win32/ui/DragSource.h"

namespace blattwart {

namespace {

constexpr DWORD titleStyle = WS_VISIBLE | SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS | SS_NOPREFIX;
constexpr int titlePadding = 8;       // pixels at 96 dpi, above and below the text together
constexpr float splitterWidth = 150;  // twips
constexpr float titleInset = 60;      // twips
constexpr UINT_PTR borderSubclass = 2;
constexpr UINT_PTR titleSubclass = 3;

/// The borders of tree and list belong to the splitter: the gap between them alone is hard to hit.
LRESULT CALLBACK borderProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR) {
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, borderProcedure, borderSubclass);
    return message == WM_NCHITTEST && result == HTBORDER ? HTTRANSPARENT : result;
}

/// A title that ends in dots is drawn anew in another width; the system would keep what it shows and add the
/// rest.
LRESULT CALLBACK titleProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                DWORD_PTR) {
    if (message == WM_SIZE) InvalidateRect(window, nullptr, TRUE);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, titleProcedure, titleSubclass);
    return DefSubclassProc(window, message, wParam, lParam);
}

LOGFONTW descriptionOf(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    return description;
}

}  // namespace

FrameControls::FrameControls(HWND frame, frmMain& form, EventGate& gate)
    : frame_(frame),
      form_(form),
      splitterBar_(frame, form.picSplitter, WC_STATICW, SS_GRAYRECT),
      treeTitle_(frame, form.lblTitle[0], WC_STATICW, titleStyle),
      tree_(frame, form.tvTreeView, gate),
      listTitle_(frame, form.lblTitle[1], WC_STATICW, titleStyle),
      list_(frame, form.lvListView, gate),
      preview_(list_.handle(), form.picPreview, gate.guard()),
      toolBar_(frame, form.tbToolBar, gate, firstToolBarCommand),
      statusBar_(frame, form.sbStatusBar) {
    form_.imgSplitter.setWidth(splitterWidth);
    for (Control* model : models()) model->changed = [this] { changed_ = true; };
    for (const HWND pane : {tree_.handle(), list_.handle()})
        SetWindowSubclass(pane, borderProcedure, borderSubclass, 0);
    list_.dragged = dragText;
    for (const HWND title : {treeTitle_.handle(), listTitle_.handle()})
        SetWindowSubclass(title, titleProcedure, titleSubclass, 0);
}

FrameControls::~FrameControls() {
    for (Control* model : models()) model->changed = nullptr;
}

std::array<Control*, 10> FrameControls::models() {
    auto& [treeTitle, listTitle] = form_.lblTitle;
    return {&form_.tvTreeView, &form_.lvListView, &form_.tbToolBar,   &form_.sbStatusBar, &form_.picTitles,
            &treeTitle,        &listTitle,        &form_.imgSplitter, &form_.picSplitter, &form_.picPreview};
}

void FrameControls::setDpi(int dpi) {
    dpi_ = dpi;
    Font font = messageFont(dpi);
    Font bold = boldFont(font.get());
    Pictures pictures = loadPictures(dpi);
    tree_.setLook(font.get(), pictures.tree.get(), dpi);
    list_.setImages(pictures.listLarge.get(), pictures.listSmall.get());
    list_.setFonts(font.get(), bold.get(), dpi);
    toolBar_.setImages(pictures.toolBar.get(), dpi);
    statusBar_.setFont(font.get(), dpi);
    treeTitle_.setFont(font.get());
    listTitle_.setFont(font.get());
    const float titleHeight =
        toTwips(lineHeight(font.get()) + MulDiv(titlePadding, dpi, USER_DEFAULT_SCREEN_DPI), dpi);
    form_.picTitles.setHeight(titleHeight);
    for (Label& title : form_.lblTitle) title.setHeight(titleHeight);
    font_ = std::move(font);
    boldFont_ = std::move(bold);
    pictures_ = std::move(pictures);
}

bool FrameControls::hasUsersFont() const {
    const LOGFONTW shown = descriptionOf(font_.get());
    const LOGFONTW wanted = descriptionOf(messageFont(dpi_).get());
    return std::memcmp(&shown, &wanted, offsetof(LOGFONTW, lfFaceName)) == 0 &&
           lstrcmpW(shown.lfFaceName, wanted.lfFaceName) == 0;
}

RECT FrameControls::splitterGap() const {
    const auto placeOf = [this](HWND pane) {
        RECT place{};
        GetWindowRect(pane, &place);
        MapWindowPoints(nullptr, frame_, reinterpret_cast<POINT*>(&place), 2);
        return place;
    };
    const RECT tree = placeOf(tree_.handle());
    const int border = GetSystemMetrics(SM_CXEDGE);
    return {tree.right - border, tree.top, placeOf(list_.handle()).left + border, tree.bottom};
}

void FrameControls::layOut() {
    if (changed_) {
        alignToFrame();
        setWindowText(treeTitle_.handle(), form_.lblTitle[0].text());
        setWindowText(listTitle_.handle(), form_.lblTitle[1].text());
        place();
        statusBar_.show();
        changed_ = false;
    }
    // The rows move by more than the models tell.
    preview_.show(form_.picPreview.picture() ? list_.roomBelowRows() : RECT{}, dpi_);
}

/// Toolbar and status bar stick to the frame's edges.
void FrameControls::alignToFrame() {
    RECT client{};
    GetClientRect(frame_, &client);
    const float width = toTwips(client.right, dpi_);
    form_.tbToolBar.setWidth(width);
    form_.sbStatusBar.setWidth(width);
    form_.sbStatusBar.setTop(toTwips(client.bottom, dpi_) - form_.sbStatusBar.height());
}

void FrameControls::place() {
    const Inset strip{titleInset, form_.picTitles.top()};
    HDWP moves = BeginDeferWindowPos(7);
    splitterBar_.place(moves, dpi_);
    treeTitle_.place(moves, dpi_, strip);
    listTitle_.place(moves, dpi_, strip);
    tree_.place(moves, dpi_);
    list_.place(moves, dpi_);
    toolBar_.place(moves, dpi_);
    statusBar_.place(moves, dpi_);
    EndDeferWindowPos(moves);
    toolBar_.fit();
}

std::optional<LRESULT> FrameControls::notify(NMHDR& header) {
    if (isTree(header.hwndFrom)) return tree_.notify(header);
    if (isList(header.hwndFrom)) return list_.notify(header);
    return std::nullopt;
}

}  // namespace blattwart
