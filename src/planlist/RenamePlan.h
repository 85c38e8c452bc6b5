#pragma once

#include <string>
#include <vector>

#include "platform/Locale.h"

namespace blattwart {

/// One name put.
struct RenameStep {
    std::size_t layout = 0;  ///< index among the names given to planRenaming
    std::wstring from;       ///< what it is called at that moment
    std::wstring to;
};

/// The order in which a drawing's layouts get their wanted names without two ever having one name, case
/// ignored: a name is put once nobody holds it any more; in a ring, and where only the case changes, one
/// layout goes by way of a temporary name. One put for each change and one more for each ring. Taking steps
/// back in reverse order is possible after any of them.
///
/// `names` are those of all layouts of the drawing, `wanted` as many, equal where nothing changes. The wanted
/// names must be distinct, case ignored.
std::vector<RenameStep> planRenaming(const std::vector<std::wstring>& names,
                                     const std::vector<std::wstring>& wanted, const Locale& locale);

}  // namespace blattwart
