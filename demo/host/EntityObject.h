#pragma once

#include "demo/host/DrawingParts.h"

namespace demo {

/// What all entities have beyond other database objects.
class EntityPart : public DrawingPart {
  public:
    using DrawingPart::DrawingPart;

  protected:
    std::wstring className() const override { return L"AcDbEntity"; }
    void erase() override;

    blattwart::Value layer();

    template <class Self>
    static std::vector<MemberSlot<Self>> withEntityMembers(std::vector<MemberSlot<Self>> own) {
        own.push_back(property<Self>(0x501, L"Layer", &Self::layer));
        return withOwnMembers<Self>(std::move(own));
    }
};

/// An entity of which clients see only what all entities have.
class EntityObject final : public HostClass<EntityObject, EntityPart> {
    friend class DrawingPart;
    friend class EntityPart;

  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<EntityObject>> members();
};

/// A viewport of a layout, or the one that stands for the sheet.
class ViewportObject final : public HostClass<ViewportObject, EntityPart> {
    friend class DrawingPart;
    friend class EntityPart;

  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<ViewportObject>> members();

  private:
    std::wstring className() const override { return L"AcDbViewport"; }
    blattwart::Value customScale();
};

class BlockReferenceObject final : public HostClass<BlockReferenceObject, EntityPart> {
    friend class DrawingPart;
    friend class EntityPart;

  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<BlockReferenceObject>> members();

  private:
    std::wstring className() const override;
    /// The block that a dynamic block's anonymous copy was made from; null for other blocks.
    const Block* dynamicBlock() const;

    blattwart::Value name();
    blattwart::Value effectiveName();
};

}  // namespace demo
