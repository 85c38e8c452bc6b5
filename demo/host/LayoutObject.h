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
    Layout& layout() const;

  private:
    static std::vector<MemberSlot<LayoutObject>> plotMembers();

    std::wstring className() const override { return L"AcDbLayout"; }
    void erase() override;
    void changePlotSettings(const std::function<void(PlotSettings&)>& change);

    blattwart::Value name();
    void putName(const blattwart::Value& value);
    blattwart::Value modelType();
    blattwart::Value tabOrder();
    void putTabOrder(const blattwart::Value& value);
    blattwart::Value block();

    // Plot settings

    template <auto Field>
    blattwart::Value fact();
    template <auto Field>
    void putText(const blattwart::Value& value);
    template <auto Field, std::int32_t highest>
    void putChoice(const blattwart::Value& value);
    template <std::int32_t bit>
    blattwart::Value flag();
    template <std::int32_t bit>
    void putFlag(const blattwart::Value& value);

    blattwart::Value configName();
    void putConfigName(const blattwart::Value& value);
    void putCanonicalMediaName(const blattwart::Value& value);
    blattwart::Value localeMediaName(Arguments arguments);
    blattwart::Value paperSize(Arguments arguments);
    void putStandardScale(const blattwart::Value& value);
    blattwart::Value customScale(Arguments arguments);
    blattwart::Value setCustomScale(Arguments arguments);
    void putStyleSheet(const blattwart::Value& value);
    blattwart::Value plotOrigin();
    void putPlotOrigin(const blattwart::Value& value);
    blattwart::Value windowToPlot(Arguments arguments);
    blattwart::Value setWindowToPlot(Arguments arguments);
    blattwart::Value refreshPlotDeviceInfo(Arguments);
    blattwart::Value copyFrom(Arguments arguments);
    blattwart::DoubleArray pairOf(const blattwart::Value& value) const;
    void answerNumbers(Arguments arguments, double first, double second) const;
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
