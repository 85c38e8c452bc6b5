#pragma once

#include "data/basRegistry.h"
#include "data/CBloecke.h"
#include "data/CTypen.h"
#include "platform/Platform.h"

namespace blattwart {

/// The definition database. Each load opens the file, reads one table into memory and closes the file again.
class basDatenbank {
  public:
    /// `templateFolder` gives the host's folder of templates, "" without a host; it must not throw.
    basDatenbank(Platform& platform, const basRegistry& registry,
                 std::function<std::wstring()> templateFolder);
    ~basDatenbank() { CloseDefDB(); }
    basDatenbank(const basDatenbank&) = delete;
    basDatenbank& operator=(const basDatenbank&) = delete;

    /// The database's file.
    std::wstring file() const { return registry_.GetDatabasePath(); }
    /// Opens the database. The user is told when that fails; there is no connection then.
    void OpenDefDB();
    void CloseDefDB();
    /// Reads the types, or the blocks, again. When the table cannot be opened the previous ones stay, because
    /// they are more use to the user than none.
    void LoadTypes();
    void LoadBlocks();
    /// Replaces the blocks by the rows. Returns whether every row was read.
    bool FillBlocks(Recordset& rows);

    const CTypen& types() const { return types_; }
    const Collection<CBlock>& blocks() const { return blocks_; }

  private:
    /// Opens the database and the query, hands a clone of the record set to `read` and closes both.
    void load(std::wstring_view query, const std::function<void(Recordset&)>& read);
    void readQuery(std::wstring_view query, const std::function<void(Recordset&)>& read);

    Platform& platform_;
    const basRegistry& registry_;
    LibraryFolders folders_;
    ObjectPtr connection_;
    CTypen types_;
    Collection<CBlock> blocks_;
};

}  // namespace blattwart
