#pragma once

#include "demo/host/DrawingParts.h"

namespace demo {

/// A block: the content of a layout, or a definition.
class BlockObject final : public HostClass<BlockObject, DrawingPart> {
    friend class DrawingPart;

  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<BlockObject>> members();
    std::vector<blattwart::ObjectPtr> allElements() override;

  private:
    std::wstring className() const override { return L"AcDbBlockTableRecord"; }
    void erase() override;
    Block& block() const;

    blattwart::Value count();
    blattwart::Value name();
};

}  // namespace demo
