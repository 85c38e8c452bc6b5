#include "planlist/RenamePlan.h"

#include <unordered_map>
#include <unordered_set>

namespace blattwart {

namespace {

class Planner {
  public:
    Planner(const std::vector<std::wstring>& names, const std::vector<std::wstring>& wanted,
            const Locale& locale)
        : now_(names), wanted_(wanted), locale_(locale) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            held_.insert(upper(names[i]));
            known_.insert(upper(names[i]));
            known_.insert(upper(wanted[i]));
            if (names[i] != wanted[i]) waiting_[upper(wanted[i])] = i;
        }
    }

    std::vector<RenameStep> plan() {
        // First what leads to a free name, each with all that waits behind it; then only rings are left.
        for (std::size_t i = 0; i < now_.size(); ++i)
            if (changes(i) && !held_.contains(upper(wanted_[i]))) moveChain(i);
        for (std::size_t i = 0; i < now_.size(); ++i) {
            if (!changes(i)) continue;
            std::wstring freed = now_[i];
            put(i, temporaryName());
            if (const auto next = waiting_.find(upper(freed)); next != waiting_.end())
                moveChain(next->second);
        }
        return std::move(steps_);
    }

  private:
    std::wstring upper(const std::wstring& name) const { return locale_.upperCase(name); }
    bool changes(std::size_t i) const { return now_[i] != wanted_[i]; }

    /// Gives a layout its name, which is free, then the one that waits for the old name, and so on.
    void moveChain(std::size_t i) {
        while (true) {
            const std::wstring freed = upper(now_[i]);
            put(i, wanted_[i]);
            const auto next = waiting_.find(freed);
            if (next == waiting_.end() || !changes(next->second)) return;
            i = next->second;
        }
    }

    void put(std::size_t i, const std::wstring& name) {
        steps_.push_back({i, now_[i], name});
        now_[i] = name;
    }

    /// Valid on every host: letters, digits and a dollar sign, and short.
    std::wstring temporaryName() const {
        for (int n = 1;; ++n) {
            std::wstring name = L"BLATTWART$" + std::to_wstring(n);
            if (!known_.contains(name)) return name;
        }
    }

    std::vector<std::wstring> now_;
    const std::vector<std::wstring>& wanted_;
    const Locale& locale_;
    std::unordered_set<std::wstring> held_;                  // names at the beginning, in upper case
    std::unordered_map<std::wstring, std::size_t> waiting_;  // for a name in upper case
    std::unordered_set<std::wstring> known_;
    std::vector<RenameStep> steps_;
};

}  // namespace

std::vector<RenameStep> planRenaming(const std::vector<std::wstring>& names,
                                     const std::vector<std::wstring>& wanted, const Locale& locale) {
    return Planner(names, wanted, locale).plan();
}

}  // namespace blattwart
