#include <ostream>
#include <sstream>
#include <utility>

#include "demo/dxf/Drawing.h"

/// Drawings to files.
namespace demo {

/// Writes what a drawing is, and what others need to read it.
class DrawingWriter {
  public:
    explicit DrawingWriter(const Drawing& drawing) : drawing_(drawing), next_(drawing.nextHandle_) {}

    void write(std::ostream& stream) {
        writeTables();
        writeBlocks();
        writeEntities();
        writeObjects();
        std::ostringstream body = std::exchange(body_, {});
        write({{0, "SECTION"}, {2, "HEADER"}, {9, "$ACADVER"}, {1, "AC1024"}});
        write({{9, "$HANDSEED"}, handleGroup(5, next_)});
        write({{9, "$TILEMODE"}, integerGroup(70, drawing_.modelCurrent_), {0, "ENDSEC"}});
        stream << body_.str() << body.str();
    }

  private:
    void write(const Groups& groups) {
        for (const Group& group : groups) body_ << group.code << "\r\n" << group.value << "\r\n";
    }

    void begin(const std::string& type, Handle handle, Handle owner) {
        const std::int16_t code = type == "DIMSTYLE" ? 105 : 5;
        write({{0, type}, handleGroup(code, handle), handleGroup(330, owner)});
    }

    void writeXData(const Object& object) {
        for (const XDataItem& item : object.xdata()) write(xdataGroups(item));
    }

    void write(const Object& object, Handle handle, Handle owner) {
        begin(object.type(), handle, owner);
        write(object.groups());
        writeXData(object);
        for (const Object& part : object.parts()) write(part, part.handle(), handle);
    }

    Handle beginTable(const std::string& name) {
        const Handle head = next_++;
        write({{0, "TABLE"}, {2, name}, handleGroup(5, head), {330, "0"}, {100, "AcDbSymbolTable"}});
        if (name == "DIMSTYLE") write({{100, "AcDbDimStyleTable"}});
        return head;
    }

    void writeTables() {
        write({{0, "SECTION"}, {2, "TABLES"}});
        for (const char* name : {"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE"}) {
            const Handle head = beginTable(name);
            const auto table = drawing_.tables_.find(name);
            if (table != drawing_.tables_.end())
                for (const Object& record : table->second) write(record, next_++, head);
            write({{0, "ENDTAB"}});
        }
        const Handle head = beginTable("BLOCK_RECORD");
        for (const auto& block : drawing_.blocks()) {
            begin("BLOCK_RECORD", block->handle(), head);
            write({{100, "AcDbSymbolTableRecord"},
                   {100, "AcDbBlockTableRecord"},
                   textGroup(2, block->name),
                   handleGroup(340, block->layout ? block->layout->handle() : 0)});
            writeXData(*block);
        }
        write({{0, "ENDTAB"}, {0, "ENDSEC"}});
    }

    bool isInEntities(const Block& block) const {
        return block.isModelSpace() || (block.layout && block.layout == drawing_.activePaperLayout());
    }

    void writeEntities(const Block& block) {
        for (const auto& entity : block.entities) write(*entity, entity->handle(), block.handle());
    }

    void writeBlocks() {
        write({{0, "SECTION"}, {2, "BLOCKS"}});
        for (const auto& block : drawing_.blocks()) {
            begin("BLOCK", next_++, block->handle());
            write(block->groups());
            write({textGroup(2, block->name), textGroup(3, block->name)});
            if (!isInEntities(*block)) writeEntities(*block);
            begin("ENDBLK", next_++, block->handle());
            write({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockEnd"}});
        }
        write({{0, "ENDSEC"}});
    }

    void writeEntities() {
        write({{0, "SECTION"}, {2, "ENTITIES"}});
        for (const auto& block : drawing_.blocks())
            if (isInEntities(*block)) writeEntities(*block);
        write({{0, "ENDSEC"}});
    }

    void writeObjects() {
        const Handle root = next_++;
        const Handle names = next_++;
        write({{0, "SECTION"}, {2, "OBJECTS"}});
        begin("DICTIONARY", root, 0);
        write({{100, "AcDbDictionary"}, {281, "1"}, {3, "ACAD_LAYOUT"}, handleGroup(350, names)});
        begin("DICTIONARY", names, root);
        write({{100, "AcDbDictionary"}, {281, "1"}});
        for (const Layout* layout : drawing_.layouts())
            write({textGroup(3, layout->name()), handleGroup(350, layout->handle())});
        for (const Layout* layout : drawing_.layouts()) {
            begin("LAYOUT", layout->handle(), names);
            write(layout->groups());
            write({{100, "AcDbLayout"}, textGroup(1, layout->name()), integerGroup(71, layout->tabOrder())});
            write(layout->sheet());
            write({handleGroup(330, layout->blockRecord())});
            writeXData(*layout);
        }
        write({{0, "ENDSEC"}, {0, "EOF"}});
    }

    const Drawing& drawing_;
    Handle next_;
    std::ostringstream body_;
};

void Drawing::save(std::ostream& stream) const {
    DrawingWriter(*this).write(stream);
}

}  // namespace demo
