#pragma once

#include <set>

#include "demo/dxf/Drawing.h"

namespace demo {

/// Copies objects of a drawing with new handles, into the same drawing or into another one. What a copy owns
/// is copied too. In another drawing, records of tables, named objects and blocks that the copies refer to
/// are found by their names or copied as well.
///
/// Use: copy, put the copies into the drawing, then `finish`.
class ObjectCopier {
  public:
    ObjectCopier(const Drawing& source, Drawing& target);

    std::unique_ptr<Object> copy(const Object& original);
    /// Copies a block with its record and entities and adds it to the target.
    Block& copyBlock(const Block& original, const std::wstring& name);
    /// Copies what the copies own and makes all references between them point to copies.
    void finish();

  private:
    bool sameDrawing() const { return &source_ == &target_; }

    void rewrite(Object& copy);
    void rewriteReactors(Object& copy);
    void rewriteHandle(const Object& copy, Group& group);
    Handle resolve(Handle handle, bool hard);
    Handle resolveRecord(const Object& tableHead, const Object& original);
    Handle resolveEntry(const Object& dictionary, const Object& original);
    Handle resolveBlock(const Object& record);
    void bringNamed(Object& copy);
    void bringRecord(std::wstring_view table, const std::wstring& name);
    void bringBlock(Group& name);
    std::wstring freeBlockName(const std::wstring& original) const;

    const Drawing& source_;
    Drawing& target_;
    std::unordered_map<Handle, Handle> handles_;  ///< original to copy
    std::vector<const Object*> owned_;            ///< originals still to be copied
    std::vector<Object*> copies_;                 ///< still to be rewritten
    std::set<std::pair<std::wstring, std::wstring>> brought_;
};

}  // namespace demo
