#include "host/Layout.h"

#include "platform/Conversions.h"

namespace blattwart::host {

namespace {

constexpr std::wstring_view layout = L"Layout";

}  // namespace

std::wstring Layout::Name() const {
    return getText({layout, L"Name"});
}

void Layout::putName(const std::wstring& name) const {
    object().put({layout, L"Name"}, name);
}

std::wstring Layout::Handle() const {
    return getText({layout, L"Handle"});
}

void Layout::Delete() const {
    object().call({layout, L"Delete"});
}

std::int32_t Layout::ObjectID() const {
    std::int32_t id = 0;
    ignoringErrors([&] {
        id = toInt32(hostNumber(withIds([this](const Member& member) { return object().get(member); },
                                        {layout, L"ObjectID32"}, {layout, L"ObjectID"})));
    });
    return id;
}

host::Block Layout::Block() const {
    return getObject<host::Block>({layout, L"Block"});
}

std::int32_t Layout::TabOrder() const {
    return getNumber({layout, L"TabOrder"});
}

void Layout::putTabOrder(std::int32_t place) const {
    object().put({layout, L"TabOrder"}, place);
}

bool Layout::ModelType() const {
    return getNumber({layout, L"ModelType"}) != 0;
}

std::wstring Layout::ConfigName() const {
    return getText({layout, L"ConfigName"});
}

std::wstring Layout::CanonicalMediaName() const {
    return getText({layout, L"CanonicalMediaName"});
}

std::wstring Layout::GetLocaleMediaName(const std::wstring& canonicalName) const {
    return hostText(object().call({layout, L"GetLocaleMediaName"}, {Value(canonicalName)}));
}

PaperSize Layout::GetPaperSize() const {
    Value width(0.0);
    Value height(0.0);
    object().call({layout, L"GetPaperSize"}, {Argument(&width), Argument(&height)});
    return {hostNumber(width), hostNumber(height)};
}

std::int32_t Layout::PlotRotation() const {
    return getNumber({layout, L"PlotRotation"});
}

std::int32_t Layout::PlotType() const {
    return getNumber({layout, L"PlotType"});
}

std::wstring Layout::StyleSheet() const {
    return getText({layout, L"StyleSheet"});
}

std::int32_t Layouts::Count() const {
    return getNumber({L"Layouts", L"Count"});
}

Layout Layouts::Add(const std::wstring& name) const {
    return face<Layout>(toObject(object().call({L"Layouts", L"Add"}, {Value(name)})));
}

Layout Layouts::Item(const std::wstring& name) const {
    return face<Layout>(toObject(object().call({L"Layouts", L"Item"}, {Value(name)})));
}

}  // namespace blattwart::host
