#pragma once

#include "demo/host/DrawingParts.h"

namespace demo {

/// What all entities have beyond other database objects.
class EntityPart : public DrawingPart {
  public:
    using DrawingPart::DrawingPart;

  protected:
    std::wstring className() const override;
    void erase() override;

    blattwart::Value layer();
    blattwart::Value entityName();
    blattwart::Value entityType();

    template <class Self>
    static std::vector<MemberSlot<Self>> withEntityMembers(std::vector<MemberSlot<Self>> own) {
        own.push_back(property<Self>(0x501, L"Layer", &Self::layer));
        own.push_back(property<Self>(0x575, L"EntityName", &Self::entityName));
        own.push_back(property<Self>(0x576, L"EntityType", &Self::entityType));
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
    blattwart::Value center();
    blattwart::Value width();
    blattwart::Value height();
    blattwart::Value viewportOn();
    blattwart::Value displayLocked();
    blattwart::Value standardScale();
    blattwart::Value customScale();
    blattwart::Value twistAngle();
};

class BlockReferenceObject final : public HostClass<BlockReferenceObject, EntityPart> {
    friend class DrawingPart;
    friend class EntityPart;

  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<BlockReferenceObject>> members();

  private:
    static std::vector<MemberSlot<BlockReferenceObject>> placementMembers();

    /// The block that a dynamic block's anonymous copy was made from; null for other blocks.
    const Block* dynamicBlock() const;

    blattwart::Value name();
    blattwart::Value effectiveName();
    blattwart::Value isDynamicBlock();
    blattwart::Value insertionPoint();
    blattwart::Value xScale();
    blattwart::Value yScale();
    blattwart::Value zScale();
    blattwart::Value rotation();
};

}  // namespace demo
