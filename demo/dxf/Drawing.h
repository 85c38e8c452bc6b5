#pragma once

#include <iosfwd>
#include <span>
#include <unordered_map>

#include "demo/dxf/FileFormat.h"
#include "demo/dxf/Layout.h"

namespace demo {

/// Beside the model space.
inline constexpr std::size_t mostPaperLayouts = 255;

/// Throws invalidCall: the operation is not allowed for the reason given.
[[noreturn]] void refuse(const std::wstring& reason);

/// A table of named records (layers, applications, block records, ...).
struct Table {
    std::unique_ptr<Object> head;
    Objects records;

    std::wstring name() const { return head->text(2); }
};

/// A drawing: reads ASCII DXF of the releases 2000 to 2018 (AC1015 to AC1032), whatever the file is called,
/// gives access to layouts, entities and extended data, changes them, and writes everything back, known or
/// not.
///
/// Failures throw RuntimeError with a German description: fileNotFound (cannot be opened or written),
/// invalidCall (no such drawing file, damaged, operation or name not allowed), duplicateKey (name in use),
/// elementNotFound. Names compare without regard to case.
class Drawing {
  public:
    /// Reads a drawing; the stream is read to its end. `loadFile` takes the path as the system has it.
    static Drawing load(std::istream& stream);
    static Drawing loadFile(const std::wstring& path);
    /// A new drawing (release 2010) with the layouts "Model" (current) and "Layout1".
    static Drawing createEmpty();

    Drawing(Drawing&&) noexcept = default;
    Drawing& operator=(Drawing&&) noexcept = default;

    /// Writes the drawing in the release it was read in: UTF-8 from 2007 on, before that code page 1252 with
    /// \U+XXXX for all other characters. An existing file is replaced.
    void save(std::ostream& stream) const;
    void saveFile(const std::wstring& path) const;

    /// The release code, such as "AC1024".
    const std::string& version() const { return file_.release; }

    // Header variables ("$TILEMODE", "$INSUNITS", ...)

    /// First value of a header variable; null when the file does not hold it.
    const Group* headerVariable(std::string_view name) const;
    /// Changes or adds a variable of one value.
    void setHeaderVariable(std::string_view name, Group value);

    // Layouts

    /// All layouts, model space included, in the order of their tabs.
    std::vector<Layout*> layouts() const;
    /// By name or by handle; null when there is none.
    Layout* findLayout(std::wstring_view name) const;
    Layout* findLayout(Handle handle) const;
    /// The layout that a block is the content of; null for other blocks.
    Layout* layoutOfBlock(Handle blockRecord) const;
    Layout& modelLayout() const;
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
    /// A drawing of its own with this paper layout as the only one, model space empty; named blocks, layers
    /// and styles stay.
    Drawing templateOf(const Layout& layout) const;
    /// Copies paper layouts of another drawing behind all others, with the blocks, layers and styles they
    /// need (those that exist here under the same name stay as they are); all layouts when `names` is empty.
    /// Returns the layouts made; a name in use becomes unique.
    std::vector<Layout*> importLayouts(const Drawing& source, std::span<const std::wstring> names = {});

    // Blocks and objects

    const std::vector<std::unique_ptr<Block>>& blocks() const { return blocks_; }
    Block* findBlock(std::wstring_view name) const;
    Block* findBlock(Handle record) const;
    /// Any object of the drawing (entity, part of an entity, table record, layout, dictionary, ...); null
    /// when there is none. Valid until it is erased.
    Object* find(Handle handle) const;
    /// Adds an entity to a block. It gets a new handle and the block as owner; `first` puts it before all
    /// others.
    Object& addEntity(Block& block, std::string type, Groups groups, bool first = false);
    /// Removes an entity with its parts and all it owns.
    void erase(Object& entity);

    // Extended data

    std::vector<std::wstring> applications() const;
    bool isRegistered(std::wstring_view application) const;
    /// Does nothing when the application is registered already.
    void registerApplication(std::wstring_view application);
    /// Replaces the extended data of the applications that `data` names; data of others is kept. `data`
    /// consists of one run for each application, starting with its name under 1001; a run of the name alone
    /// removes that application's data. Throws invalidCall when an application is not registered, a value
    /// does not fit its code, a 1005 is not hexadecimal, a text has more than 255 bytes or the object more
    /// than 16383 bytes.
    void setXData(Object& object, const XData& data);
    /// Sets handles in extended data that name no object to 0. Returns how many there were.
    std::int32_t audit();

  private:
    friend class DrawingLoader;
    friend class ObjectCopier;

    Drawing() = default;

    void writeContent(FileWriter& writer, const Section& section) const;
    static bool isInEntities(const Block& block);
    Groups& header();
    const Groups& header() const;

    Handle newHandle() { return nextHandle_++; }
    /// Makes an object and its parts known by their handles.
    void enter(Object& object);
    /// Puts an object into a list of the drawing and makes it known.
    Object& adopt(Objects& list, std::unique_ptr<Object> object);
    /// What an object owns by its dictionary entries and its extension dictionary.
    std::vector<Object*> owned(const Object& object) const;
    /// Forgets objects that were taken out of the drawing, and removes everything that they own.
    void discard(const Objects& removed);

    Table* findTable(std::wstring_view name);
    const Table* findTable(std::wstring_view name) const;
    Object* findRecord(const Table& table, std::wstring_view name) const;
    Object& rootDictionary() const;
    /// A dictionary in the root dictionary, made when it is missing.
    Object& namedDictionary(std::wstring_view name);

    Block& addBlock(std::unique_ptr<Block> block);
    void takeBlock(Block& block, Objects& removed);
    void renameBlock(Block& block, const std::wstring& name);
    std::wstring freePaperSpaceName() const;
    Block* idlePaperSpace() const;
    Block& newPaperSpaceBlock();

    void requireNewLayoutName(std::wstring_view name, const Layout* renamed = nullptr) const;
    Layout& insertLayout(std::unique_ptr<Object> object, Block& block, std::wstring_view name,
                         std::size_t position);
    Layout& takeOver(const Drawing& from, const Layout& source, std::wstring_view name, std::size_t position);
    void linkLayout(Layout& layout);
    void noteCurrentTab(const std::wstring& name);
    std::size_t positionOf(const Layout& layout) const;
    void numberTabs();
    void makeActivePaper(Layout& layout);
    void addSheetViewport(Layout& layout);

    FileContent file_;  ///< without what is held below
    std::vector<Table> tables_;
    std::vector<std::unique_ptr<Block>> blocks_;
    Objects objects_;
    std::vector<std::unique_ptr<Layout>> layouts_;  ///< in tab order, model space first
    std::unordered_map<Handle, Object*> index_;
    std::unordered_map<Handle, Block*> blocksByRecord_;
    std::unordered_map<std::wstring, Block*> blocksByName_;
    Handle nextHandle_ = 1;
};

}  // namespace demo
