#include "autocad/HostChoice.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

constexpr const wchar_t* generalName = L"AutoCAD.Application";
constexpr std::wstring_view choiceSetting = L"AutoCADVersion";

/// The digits at the beginning of a text, which they are taken off; none where there are none or too many.
std::optional<int> takeNumber(std::wstring_view& text) {
    constexpr std::size_t mostDigits = 4;
    std::size_t digits = 0;
    int number = 0;
    for (; digits < text.size() && text[digits] >= L'0' && text[digits] <= L'9'; ++digits) {
        if (digits == mostDigits) return std::nullopt;
        number = number * 10 + (text[digits] - L'0');
    }
    if (digits == 0) return std::nullopt;
    text.remove_prefix(digits);
    return number;
}

/// Whether it is AutoCAD itself or built on it: others (LT, OEM, TrueView) cannot be driven from outside. A
/// product's key ends in two digits for its kind, a colon and its language.
bool isDriven(const std::wstring& productKey) {
    const std::size_t end = productKey.find(L':');
    if (end == std::wstring::npos || !productKey.starts_with(L"ACAD-")) return false;
    std::wstring kind = productKey.substr(end - 2, 2);
    if (kind[1] == L'a') kind[1] = L'A';
    constexpr std::array<std::wstring_view, 3> others{L"09", L"0A", L"28"};
    return std::ranges::find(others, kind) == others.end();
}

std::wstring programName(const std::wstring& number) {
    return std::wstring(generalName) + L"." + number;
}

/// Whether of two products of a release this one's name stands for it: plain AutoCAD, else the first key.
bool standsBefore(const InstalledProduct& product, const InstalledProduct& other) {
    const auto rank = [](const InstalledProduct& each) {
        return std::pair(each.key.find(L"01:") == std::wstring::npos, each.key);
    };
    return rank(product) < rank(other);
}

}  // namespace

std::optional<Release> Release::parse(std::wstring_view text) {
    const auto family = takeNumber(text);
    if (!family || !text.starts_with(L'.')) return std::nullopt;
    text.remove_prefix(1);
    const auto minor = takeNumber(text);
    if (!minor) return std::nullopt;
    return Release{*family, *minor};
}

std::wstring InstalledRelease::shortName() const {
    const std::size_t language = std::min(product.rfind(L" – "), product.rfind(L" - "));
    return product.substr(0, language);
}

bool HostName::means(Release version) const {
    return releases.empty() || std::ranges::find(releases, version) != releases.end();
}

const std::vector<InstalledRelease>& HostChoice::installed() {
    if (installed_) return *installed_;
    std::vector<InstalledProduct> products = installations_.products();
    std::ranges::sort(products, standsBefore);
    installed_.emplace();
    for (const InstalledProduct& product : products) {
        if (!product.release.starts_with(L'R') || !isDriven(product.key)) continue;
        const auto release = Release::parse(std::wstring_view(product.release).substr(1));
        if (!release) continue;
        if (std::ranges::find(*installed_, *release, &InstalledRelease::release) != installed_->end())
            continue;
        installed_->push_back(
            {*release, product.name.empty() ? L"AutoCAD " + release->text() : product.name});
    }
    const std::vector<InstalledRelease> entered = *installed_;
    std::erase_if(*installed_, [&](const InstalledRelease& each) { return !isThere(each.release, entered); });
    std::ranges::sort(*installed_, std::greater(), [](const InstalledRelease& each) {
        return std::pair(each.release.family, each.release.minor);
    });
    return *installed_;
}

std::wstring HostChoice::classOf(const std::wstring& number) {
    return installations_.classOf(programName(number));
}

bool HostChoice::isThere(Release release, const std::vector<InstalledRelease>& entered) {
    const std::wstring own = classOf(release.text());
    if (!own.empty()) return installations_.hasServer(own);
    const auto isNamedSister = [&](const InstalledRelease& each) {
        return each.release.family == release.family && !classOf(each.release.text()).empty();
    };
    // The first release of a family may have the family's name only. Another one without a name of its own is
    // a leftover where sisters have theirs: the family's name starts one of them.
    if (release.minor != 0 && std::ranges::any_of(entered, isNamedSister)) return false;
    return installations_.hasServer(classOf(std::to_wstring(release.family)));
}

bool HostChoice::isInstalled(Release release) {
    return std::ranges::find(installed(), release, &InstalledRelease::release) != installed().end();
}

std::optional<Release> HostChoice::chosen() {
    if (!choiceRead_) {
        choiceRead_ = true;
        chosen_ = Release::parse(settings_.get(choiceSetting, L""));
        if (chosen_ && !isInstalled(*chosen_)) chosen_.reset();
    }
    return chosen_;
}

bool HostChoice::choose(std::optional<Release> release) {
    choiceRead_ = true;
    chosen_ = release;
    return ignoringErrors([&] { settings_.set(choiceSetting, release ? release->text() : L""); });
}

std::vector<HostName> HostChoice::namesOf(Release release) {
    std::vector<HostName> names;
    for (const std::wstring& number : {release.text(), std::to_wstring(release.family)})
        if (std::wstring id = classOf(number); !id.empty())
            names.push_back({programName(number), std::move(id), {release}});
    return names;
}

std::vector<HostName> HostChoice::names(std::optional<Release> choice) {
    if (choice) {
        std::vector<HostName> known = namesOf(*choice);
        // It has been removed since it was read: nothing is found under its name.
        if (known.empty()) known.push_back({programName(choice->text()), {}, {*choice}});
        return known;
    }
    std::vector<HostName> all{{establishedName, installations_.classOf(establishedName), {}}};
    const auto add = [&all](HostName name) {
        const auto same = std::ranges::find(all, name.classId, &HostName::classId);
        if (same == all.end()) {
            all.push_back(std::move(name));
        } else if (!same->releases.empty()) {
            same->releases.push_back(name.releases.front());
        }
    };
    for (const InstalledRelease& each : installed())
        for (HostName& name : namesOf(each.release)) add(std::move(name));
    const std::wstring general = installations_.classOf(generalName);
    const bool known = std::ranges::find(all, general, &HostName::classId) != all.end();
    if (!general.empty() && !known) all.push_back({generalName, general, {}});
    return all;
}

}  // namespace blattwart
