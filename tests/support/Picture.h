#pragma once

#include <string>

#include "shell/frmMain.h"

namespace blattwart::test {

/// The tree, one node a line: indented, key, text, "*" bold, "<" selected.
std::wstring treeText(frmMain& form);

/// What the main window shows: tree, list, status and enabled commands, whatever the keys of the nodes, the
/// order of layouts and rows.
std::wstring picture(frmMain& form);

}  // namespace blattwart::test
