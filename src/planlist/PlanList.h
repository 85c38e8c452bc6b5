#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "controls/ListView.h"
#include "host/Document.h"

namespace blattwart {

/// One paper layout as it was read. A fact that could not be read is empty.
struct PlanRow {
    int number = 0;  ///< stays with the layout as long as the program runs; key "P" + number in the list
    std::wstring name;
    std::optional<std::int32_t> tabOrder;
    std::optional<std::wstring> device;
    std::optional<std::wstring> canonicalPaper;
    std::wstring paper;  ///< readable; the canonical name until, or where, that is not to be had
    std::optional<std::wstring> styleSheet;
    host::Layout layout;  ///< empty while the list has let go of the host
};

/// One open drawing with its paper layouts.
struct PlanDrawing {
    std::wstring identity;  ///< full name, or the default name, in upper case, with an ordinal
    std::wstring folder;    ///< without a backslash at its end; "" for a drawing never saved
    std::wstring name;      ///< with extension
    std::wstring shownName;
    std::wstring modelName = L"Model";  ///< what the host calls the layout of model space
    std::optional<std::wstring> currentLayout;
    bool changed = false;  ///< since it was saved last
    bool readOnly = false;
    bool complete = false;  ///< all of `rows` were read; only then they are shown
    std::vector<PlanRow> rows;
    host::Document document;  ///< empty while the list has let go of the host

    bool everSaved() const { return !folder.empty(); }
    /// Folder, backslash, name; the name alone for a drawing never saved.
    std::wstring fullName() const { return everSaved() ? folder + L"\\" + name : name; }
    /// The file's name without its extension.
    std::wstring title() const { return name.substr(0, name.rfind(L'.')); }
};

/// Model columns of the list, counted from 1 as the ListView does.
enum class PlanColumn { layout = 1, drawing, number, device, paper, style, status };
inline constexpr int planColumns = 7;

/// The paper layouts of all open drawings, and how they are shown. Knows the host's objects and calls none.
class PlanList {
  public:
    explicit PlanList(const Locale& locale) : locale_(locale) {}

    /// A row and the drawing it belongs to; null when there is none. Valid until drawings or rows change.
    struct Place {
        PlanDrawing* drawing = nullptr;
        PlanRow* row = nullptr;
        explicit operator bool() const { return row != nullptr; }
    };

    /// In the order in which they are shown: naturally by shown name.
    std::span<PlanDrawing> drawings() { return drawings_; }
    std::span<const PlanDrawing> drawings() const { return drawings_; }
    PlanDrawing* findDrawing(std::wstring_view identity);
    Place find(int rowNumber);
    /// By the name of a layout of the drawing, case ignored.
    PlanRow* findRow(PlanDrawing& drawing, std::wstring_view name) const;
    static std::wstring keyOf(const PlanRow& row) { return keyOf(row.number); }
    static std::wstring keyOf(int rowNumber) { return L"P" + std::to_wstring(rowNumber); }
    /// Of the item with this key.
    static int numberOf(const std::wstring& key) { return std::stoi(key.substr(1)); }
    /// Paper layouts of all complete drawings, hidden ones included.
    int layoutCount() const;

    /// Takes the drawings that are open now, in the host's order, with document, folder and name set. Those
    /// known already keep what was read of them; the others have no rows and are not complete.
    void setDrawings(std::vector<PlanDrawing> open);
    /// Gives a drawing the rows read for it, which makes it complete. They get their numbers and their order.
    void setRows(PlanDrawing& drawing, std::vector<PlanRow> rows);
    /// Drops drawings that are closed or could not be read.
    void remove(std::span<const std::wstring> identities);
    /// The layout is called so from now on and keeps its row number. It keeps its place until `arrange`.
    void rename(const PlanDrawing& drawing, PlanRow& row, const std::wstring& name);
    /// Puts the rows of a drawing in order again after names or tab numbers have changed.
    void arrange(PlanDrawing& drawing) const;
    /// Drops all objects of the host; the facts stay.
    void letGo();

    /// The seven cells as shown, in model columns.
    std::vector<std::wstring> cells(const PlanDrawing& drawing, const PlanRow& row) const;
    /// Fills a list with the rows of all complete drawings in which the filter's words occur; row "P7" stays
    /// the item "P7", with selection and focus. A hidden row loses its mark.
    void fill(ListView& list, std::wstring_view filter) const;

  private:
    std::wstring rowIdentity(const PlanDrawing& drawing, std::wstring_view name) const;
    int numberFor(const PlanDrawing& drawing, std::wstring_view name);
    void nameDrawings();
    std::wstring statusText(const PlanDrawing& drawing, const PlanRow& row) const;
    bool isCurrent(const PlanDrawing& drawing, const PlanRow& row) const;

    const Locale& locale_;
    std::vector<PlanDrawing> drawings_;
    std::map<std::wstring, int> numbers_;
    int lastNumber_ = 0;
};

}  // namespace blattwart
