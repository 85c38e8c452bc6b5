#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Installations.h"
#include "platform/Settings.h"

namespace blattwart {

/// A release of AutoCAD, such as 24.3.
struct Release {
    int family = 0;
    int minor = 0;

    friend bool operator==(const Release&, const Release&) = default;
    std::wstring text() const { return std::to_wstring(family) + L"." + std::to_wstring(minor); }
    /// The release at the beginning of a text ("24.3s (LMS Tech)"); none for any other text.
    static std::optional<Release> parse(std::wstring_view text);
};

/// A release that is installed.
struct InstalledRelease {
    Release release;
    std::wstring product;  ///< "AutoCAD 2024 – Deutsch"
    /// Without the language: "AutoCAD 2024".
    std::wstring shortName() const;
};

/// A name by which a host is found or started.
struct HostName {
    std::wstring programName;
    std::wstring classId;  ///< "" where the system does not know the name
    /// The releases that are meant; none for any.
    std::vector<Release> releases;

    /// Whether a host of this version is meant.
    bool means(Release version) const;
};

/// Which AutoCAD the program works with: the release that the user has chosen, or automatically the first of
/// an order. No message goes to a host.
class HostChoice {
  public:
    /// The release family whose class name is older than the choice among releases: it comes first, and its
    /// version is not asked for.
    static constexpr int establishedFamily = 18;
    static constexpr const wchar_t* establishedName = L"AutoCAD.Application.18";

    HostChoice(Installations& installations, Settings& settings)
        : installations_(installations), settings_(settings) {}

    /// The newest first. Read once.
    const std::vector<InstalledRelease>& installed();
    /// None for automatic; that also stands for a chosen release that is not installed any more.
    std::optional<Release> chosen();
    /// Keeps the choice for this user. Returns false where it cannot be stored; it holds all the same.
    bool choose(std::optional<Release> release);

    /// The names of the chosen release, or of all in the order of the automatic choice, each class once. At
    /// least one, which may be unknown to the system.
    std::vector<HostName> names() { return names(chosen()); }
    /// The same as if that were chosen.
    std::vector<HostName> names(std::optional<Release> choice);
    /// Whether a host of this name can be started.
    bool canStart(const HostName& name) { return installations_.hasServer(name.classId); }

  private:
    std::vector<HostName> namesOf(Release release);
    std::wstring classOf(const std::wstring& number);
    /// Whether its own server exists; that of its family counts for it unless it must be another release's.
    bool isThere(Release release, const std::vector<InstalledRelease>& entered);
    bool isInstalled(Release release);

    Installations& installations_;
    Settings& settings_;
    std::optional<std::vector<InstalledRelease>> installed_;
    bool choiceRead_ = false;
    std::optional<Release> chosen_;
};

}  // namespace blattwart
