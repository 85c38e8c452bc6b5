#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/Locale.h"

namespace blattwart {

/// Words that a row must hold, each in any of its cells. Case is ignored and "ß" is "SS"; umlauts are letters
/// of their own. No words accept every row.
class PlanFilter {
  public:
    PlanFilter(std::wstring_view text, const Locale& locale);

    bool accepts(std::span<const std::wstring> cells) const;

  private:
    const Locale& locale_;
    std::vector<std::wstring> words_;
};

}  // namespace blattwart
