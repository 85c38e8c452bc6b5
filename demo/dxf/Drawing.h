#pragma once

#include <iosfwd>
#include <map>
#include <span>
#include <unordered_map>

#include "demo/dxf/Layout.h"

namespace demo {

/// Beside the model space.
inline constexpr std::size_t mostPaperLayouts = 255;

/// Throws invalidCall: the operation is not allowed for the reason given.
[[noreturn]] void refuse(const std::wstring& reason);

/// Records of one of the tables LAYER, LTYPE, STYLE, DIMSTYLE and APPID.
using Records = std::vector<Object>;

/// A drawing as far as the host shows it: layouts, blocks, entities and extended data, with the layers, line
/// types, styles and applications that these name. It reads ASCII DXF from release 2000 on, whatever the file
/// is called and also behind the head and the picture of a DWG, and writes release 2010; all else that a file
/// holds is lost.
///
/// Failures throw RuntimeError with a German description: invalidCall (no such drawing file, damaged,
/// operation or name not allowed), duplicateKey (name in use), elementNotFound. Names compare without regard
/// to case.
class Drawing {
  public:
    /// Reads a drawing; the stream is read to its end.
    static Drawing load(std::istream& stream);
    /// A new drawing with the layouts "Model" (current) and "Layout1".
    static Drawing createEmpty();

    Drawing(Drawing&&) noexcept = default;
    Drawing& operator=(Drawing&&) noexcept = default;

    void save(std::ostream& stream) const;

    // Layouts

    /// All layouts, model space included, in the order of their tabs.
    std::vector<Layout*> layouts() const;
    /// By name or by handle; null when there is none.
    Layout* findLayout(std::wstring_view name) const;
    Layout* findLayout(Handle handle) const;
    Layout& modelLayout() const { return *layouts_.front(); }
    /// The layout that is shown.
    Layout& currentLayout() const;
    /// The paper layout that is or was shown last; null when the drawing has no paper layout.
    Layout* activePaperLayout() const;
    /// Shows a layout. A paper layout that is shown for the first time gets its sheet viewport.
    void setCurrentLayout(Layout& layout);

    /// Adds a layout behind all others; it is not made current. At most 255 paper layouts.
    Layout& addLayout(std::wstring_view name);
    /// Copies a paper layout with its entities and plot settings; the copy stands before the source.
    Layout& copyLayout(const Layout& source, std::wstring_view name);
    /// Model space and the last paper layout cannot be deleted. The neighbour becomes current in its place.
    void deleteLayout(Layout& layout);
    /// Model space cannot be renamed. Changing only the case is allowed.
    void renameLayout(Layout& layout, std::wstring_view name);
    /// Moves a paper layout's tab; `position` from 1 to the number of paper layouts.
    void setTabOrder(Layout& layout, std::int32_t position);
    /// `wanted` when it is free, else "wanted (2)", "wanted (3)", ...
    std::wstring uniqueLayoutName(std::wstring_view wanted) const;
    /// A drawing of its own with this paper layout as the only one, current, and model space empty.
    Drawing templateOf(const Layout& layout) const;
    /// Copies paper layouts of another drawing behind all others; all layouts when `names` is empty. The
    /// other's blocks and records come along; those that exist here under the same name stay as they are.
    /// Returns the layouts made; a name in use becomes unique.
    std::vector<Layout*> importLayouts(const Drawing& source, std::span<const std::wstring> names = {});

    // Blocks and objects

    const std::vector<std::unique_ptr<Block>>& blocks() const { return blocks_; }
    Block* findBlock(std::wstring_view name) const;
    Block* findBlock(Handle record) const;
    /// A layout, a block, an entity or a part of one; null when there is none. Valid until it is erased.
    Object* find(Handle handle) const;
    /// Adds an entity to a block. It gets a new handle and the block as owner.
    Object& addEntity(Block& block, std::string type, const Groups& groups);
    /// Removes an entity with its parts.
    void erase(Object& entity);

    // Extended data

    /// Names of the applications that are registered, in the order of registration.
    std::vector<std::wstring> applications() const;
    /// Does nothing when the application is registered already.
    void registerApplication(std::wstring_view application);
    /// Replaces the extended data of the applications that `data` names; data of others is kept. `data`
    /// consists of one run for each application, starting with its name under 1001; a run of the name alone
    /// removes that application's data. Throws invalidCall when an application is not registered, a 1005 is
    /// not hexadecimal or a text has several lines.
    void setXData(Object& object, const XData& data);
    /// Sets handles in extended data that name no object to 0. Returns how many there were.
    std::int32_t audit();

  private:
    friend class DrawingReader;
    friend class DrawingWriter;

    Drawing() = default;
    static Drawing createModelOnly();

    /// Gives an object and its parts handles and makes them known by these.
    void enter(Object& object);
    void forget(const Object& object);
    Object& place(Block& block, Object object, bool first = false);
    Block& addBlock(Object object, std::wstring name);
    Block& copyBlock(const Block& original, std::wstring name);
    void takeDefinitions(const Drawing& source);
    std::wstring freePaperSpaceName() const;

    void requireNewLayoutName(std::wstring_view name, const Layout* renamed = nullptr) const;
    Layout& insertLayout(std::unique_ptr<Layout> layout, std::wstring_view name, std::size_t position);
    Layout& takeOver(const Layout& source, std::wstring_view name, std::size_t position);
    std::size_t positionOf(const Layout& layout) const;
    void makeActivePaper(Layout& layout);
    void addSheetViewport(Layout& layout);
    void numberTabs();

    std::map<std::string, Records> tables_{{"APPID", {}}};
    std::vector<std::unique_ptr<Block>> blocks_;
    std::vector<std::unique_ptr<Layout>> layouts_;  ///< in tab order, model space first
    bool modelCurrent_ = true;
    std::unordered_map<Handle, Object*> index_;
    Handle nextHandle_ = 1;
};

}  // namespace demo
