#pragma once

#include <algorithm>
#include <map>
#include <set>

#include "platform/Installations.h"

namespace blattwart::test {

/// A machine on which no release is entered unless the test does so.
class FakeInstallations : public Installations {
  public:
    std::vector<InstalledProduct> entered;
    std::map<std::wstring, std::wstring> classes;  ///< by program name
    std::set<std::wstring> withoutServer;          ///< classes

    /// Enters a release with a name of its own; that of its family is for the one entered first.
    void install(const std::wstring& release, const std::wstring& product) {
        entered.push_back({L"R" + release, L"ACAD-7101:407", product});
        for (const std::wstring& number : {release, release.substr(0, release.find(L'.'))})
            classes.try_emplace(L"AutoCAD.Application." + number, L"{" + number + L"}");
    }

    std::vector<InstalledProduct> products() override { return entered; }
    std::wstring classOf(const std::wstring& programName) override {
        const auto found = classes.find(programName);
        return found == classes.end() ? L"" : found->second;
    }
    bool hasServer(const std::wstring& classId) override {
        const auto isClass = [&](const auto& each) { return each.second == classId; };
        return std::ranges::any_of(classes, isClass) && !withoutServer.contains(classId);
    }
};

}  // namespace blattwart::test
