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

/// Whether it is AutoCAD itself or built on it: others (LT, OEM, TrueView) cannot be driven from outside.
bool isDriven(const std::wstring& productKey) {
    const std::size_t end = std::min(productKey.find(L':'), productKey.size());
    if (end < 2) return false;
    std::wstring kind = productKey.substr(end - 2, 2);
    if (kind[1] == L'a') kind[1] = L'A';
    constexpr std::array<std::wstring_view, 3> others{L"09", L"0A", L"28"};
    return std::ranges::find(others, kind) == others.end();
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
        const bool known =
            std::ranges::find(*installed_, *release, &InstalledRelease::release) != installed_->end();
        const auto canStart = [this](const HostName& name) { return this->canStart(name); };
        if (known || std::ranges::none_of(namesOf(*release), canStart)) continue;
        installed_->push_back(
            {*release, product.name.empty() ? L"AutoCAD " + release->text() : product.name});
    }
    std::ranges::sort(*installed_, std::greater(), [](const InstalledRelease& each) {
        return std::pair(each.release.family, each.release.minor);
    });
    return *installed_;
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
    for (const std::wstring& number : {release.text(), std::to_wstring(release.family)}) {
        const std::wstring name = std::wstring(generalName) + L"." + number;
        if (std::wstring id = installations_.classOf(name); !id.empty())
            names.push_back({name, std::move(id), {release}});
    }
    return names;
}

std::vector<HostName> HostChoice::names(std::optional<Release> choice) {
    if (choice) return namesOf(*choice);
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
