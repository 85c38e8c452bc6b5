#pragma once

#include "demo/host/DrawingParts.h"

namespace demo {

/// One layout, model space included.
class LayoutObject final : public HostClass<LayoutObject, DrawingPart> {
    friend class DrawingPart;

  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<LayoutObject>> members();
    /// Makes the layout current; throws when it does not belong to the document.
    void makeCurrentIn(OpenDocument& target) const;

  private:
    static std::vector<MemberSlot<LayoutObject>> plotMembers();

    std::wstring className() const override { return L"AcDbLayout"; }
    void erase() override;
    Layout& layout() const;
    void changePlotSettings(const std::function<void(PlotSettings&)>& change);
    bool deviceInstalled(const std::wstring& device) const;

    blattwart::Value name();
    void putName(const blattwart::Value& value);
    blattwart::Value modelType();
    blattwart::Value tabOrder();
    void putTabOrder(const blattwart::Value& value);
    blattwart::Value block();

    blattwart::Value configName();
    void putConfigName(const blattwart::Value& value);
    blattwart::Value canonicalMediaName();
    void putCanonicalMediaName(const blattwart::Value& value);
    blattwart::Value localeMediaName(Arguments arguments);
    blattwart::Value paperSize(Arguments arguments);
    blattwart::Value paperUnits();
    void putPaperUnits(const blattwart::Value& value);
    blattwart::Value plotRotation();
    void putPlotRotation(const blattwart::Value& value);
    blattwart::Value plotType();
    void putPlotType(const blattwart::Value& value);
    blattwart::Value styleSheet();
    void putStyleSheet(const blattwart::Value& value);
    blattwart::Value refreshPlotDeviceInfo(Arguments);
    std::int32_t choice(const blattwart::Value& value, std::int32_t highest) const;
};

/// All layouts of a document, in the order of their names.
class LayoutsObject final : public HostClass<LayoutsObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<LayoutsObject>> members();
    std::vector<blattwart::ObjectPtr> allElements() override;

  private:
    blattwart::Value count();
    blattwart::Value item(Arguments arguments);
    blattwart::Value add(Arguments arguments);
};

}  // namespace demo
