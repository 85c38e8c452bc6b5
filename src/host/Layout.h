#pragma once

#include "host/Entity.h"

namespace blattwart::host {

/// Paper size, millimetres, not turned by the plot rotation.
struct PaperSize {
    double width = 0;
    double height = 0;
};

class Layout : public HostObject {
  public:
    using HostObject::HostObject;

    std::wstring Name() const;
    void putName(const std::wstring& name) const;
    /// Hexadecimal text, the same as long as there is the layout.
    std::wstring Handle() const;
    /// Fails for the last paper layout and for that of model space.
    void Delete() const;
    /// The 32-bit id; 0 where the host has only wider ones or gives none. The first asking may cost a second
    /// round trip. Does not throw for what the host does.
    std::int32_t ObjectID() const;
    host::Block Block() const;
    /// Place among the tabs: 0 for model space, the others from 1.
    std::int32_t TabOrder() const;
    void putTabOrder(std::int32_t place) const;
    /// Whether it is the layout of model space.
    bool ModelType() const;

    std::wstring ConfigName() const;
    std::wstring CanonicalMediaName() const;
    /// The readable name of a paper; fails where the plot device is not there.
    std::wstring GetLocaleMediaName(const std::wstring& canonicalName) const;
    PaperSize GetPaperSize() const;
    /// Quarter turns, 0 to 3.
    std::int32_t PlotRotation() const;
    /// 0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout.
    std::int32_t PlotType() const;
    /// "" when there is none.
    std::wstring StyleSheet() const;

  private:
    friend class Document;
};

class Layouts : public HostObject {
  public:
    using HostObject::HostObject;

    /// Model space included, not in the order of the tabs.
    std::vector<Layout> all() const {
        return elements<Layout>(L"Layouts", [] { return true; });
    }
    /// Model space included.
    std::int32_t Count() const;
    /// A new layout, which does not become the current one. Fails where the name is taken or not allowed.
    Layout Add(const std::wstring& name) const;
    /// By name, without regard to case. Fails when there is none.
    Layout Item(const std::wstring& name) const;
};

}  // namespace blattwart::host
