#include "planlist/PlotSettings.h"

#include <algorithm>
#include <cmath>

#include "platform/Conversions.h"
#include "views/PlotTexts.h"

namespace blattwart {

namespace {

bool near(double a, double b) {
    constexpr double tolerance = 1e-6;
    return std::abs(a - b) <= tolerance * std::max({1.0, std::abs(a), std::abs(b)});
}

bool near(const std::pair<double, double>& a, const std::pair<double, double>& b) {
    return near(a.first, b.first) && near(a.second, b.second);
}

template <class Fact>
bool lacks(const std::optional<Fact>& wanted, const std::optional<Fact>& present) {
    return wanted && wanted != present;
}

bool areaDiffers(const PlotSettings& wanted, const PlotSettings& present) {
    if (lacks(wanted.area, present.area)) return true;
    if (wanted.area == plotArea::view) return lacks(wanted.view, present.view);
    if (wanted.area != plotArea::window || !wanted.window) return false;
    if (!present.window) return true;
    for (std::size_t i = 0; i < wanted.window->size(); ++i)
        if (!near((*wanted.window)[i], (*present.window)[i])) return true;
    return false;
}

/// A scale is what comes of it, whether it has a code of its own or not.
bool scaleDiffers(const PlotSettings& wanted, const PlotSettings& present) {
    if (!wanted.usesStandardScale) return false;
    if (!present.usesStandardScale || wanted.fitsPaper() != present.fitsPaper()) return true;
    if (wanted.fitsPaper() || !wanted.ratio) return false;
    if (!present.ratio) return true;
    return !near(wanted.ratio->first * present.ratio->second, present.ratio->first * wanted.ratio->second);
}

bool offsetDiffers(const PlotSettings& wanted, const PlotSettings& present) {
    if (lacks(wanted.centred, present.centred)) return true;
    if (wanted.centred == true || !wanted.offset) return false;
    return !present.offset || !near(*wanted.offset, *present.offset);
}

std::wstring areaText(std::int32_t area) {
    constexpr std::array<const wchar_t*, 6> texts{
        L"Anzeige", L"Grenzen (Zeichnung)", L"Limiten", L"Ansicht", L"Fenster", L"Layout"};
    return area >= 0 && area < 6 ? texts[static_cast<std::size_t>(area)] : L"";
}

std::wstring scaleText(const PlotSettings& settings, const Locale& locale) {
    if (settings.fitsPaper()) return L"angepasst";
    if (!settings.ratio || !(settings.ratio->first > 0) || !(settings.ratio->second > 0)) return {};
    const auto [paper, drawing] = *settings.ratio;
    const bool smaller = drawing >= paper;
    const double factor = smaller ? drawing / paper : paper / drawing;
    const double whole = std::round(factor);
    const std::wstring text = near(factor, whole) && whole < 1e9
                                  ? std::to_wstring(static_cast<std::int64_t>(whole))
                                  : formatTwoDecimals(factor, locale);
    return smaller ? L"1:" + text : text + L":1";
}

}  // namespace

std::vector<PlotProperty> differences(const PlotSettings& wanted, const PlotSettings& present) {
    std::vector<PlotProperty> found;
    const auto note = [&](bool differs, PlotProperty property) {
        if (differs) found.push_back(property);
    };
    note(lacks(wanted.device, present.device), PlotProperty::device);
    note(lacks(wanted.paper, present.paper), PlotProperty::paper);
    note(lacks(wanted.paperUnits, present.paperUnits), PlotProperty::units);
    note(lacks(wanted.rotation, present.rotation), PlotProperty::orientation);
    note(areaDiffers(wanted, present), PlotProperty::area);
    note(scaleDiffers(wanted, present), PlotProperty::scale);
    note(offsetDiffers(wanted, present), PlotProperty::offset);
    note(lacks(wanted.styleSheet, present.styleSheet), PlotProperty::style);
    bool options = false;
    for (std::size_t i = 0; i < wanted.options.size(); ++i)
        options = options || lacks(wanted.options[i], present.options[i]);
    note(options, PlotProperty::options);
    return found;
}

std::vector<PlotProperty> unread(const PlotSettings& settings) {
    std::vector<PlotProperty> found;
    const auto note = [&](bool known, PlotProperty property) {
        if (!known) found.push_back(property);
    };
    const bool window = settings.area != plotArea::window || settings.window;
    const bool view = settings.area != plotArea::view || settings.view;
    const bool ratio = settings.standardScale && settings.ratio;
    note(settings.device.has_value(), PlotProperty::device);
    note(settings.paper.has_value(), PlotProperty::paper);
    note(settings.paperUnits.has_value(), PlotProperty::units);
    note(settings.rotation.has_value(), PlotProperty::orientation);
    note(settings.area && window && view, PlotProperty::area);
    note(settings.usesStandardScale && ratio, PlotProperty::scale);
    note(settings.centred && settings.offset, PlotProperty::offset);
    note(settings.styleSheet.has_value(), PlotProperty::style);
    note(std::ranges::all_of(settings.options, &std::optional<bool>::has_value), PlotProperty::options);
    return found;
}

std::wstring plotPropertyName(PlotProperty property) {
    constexpr std::array<const wchar_t*, 9> names{L"Plotgerät",    L"Papierformat", L"Papiereinheit",
                                                  L"Ausrichtung",  L"Plotbereich",  L"Maßstab",
                                                  L"Plot-Abstand", L"Plotstil",     L"Plotoptionen"};
    return names[static_cast<std::size_t>(property)];
}

std::wstring plotPropertyText(const PlotSettings& settings, PlotProperty property, const Locale& locale) {
    switch (property) {
        case PlotProperty::device:
            return settings.device.value_or(L"");
        case PlotProperty::paper:
            return settings.paper.value_or(L"");
        case PlotProperty::orientation:
            return orientationText(settings.rotation.value_or(-1));
        case PlotProperty::area:
            return areaText(settings.area.value_or(-1));
        case PlotProperty::scale:
            return scaleText(settings, locale);
        case PlotProperty::style:
            return settings.styleSheet ? plotStyleText(*settings.styleSheet) : L"";
        default:
            return {};
    }
}

std::wstring changeText(const std::wstring& before, const std::wstring& after) {
    return before == after ? before : before + L" → " + after;
}

}  // namespace blattwart
