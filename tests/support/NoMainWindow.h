#pragma once

#include "data/NavigatorEvents.h"

namespace blattwart::test {

/// There is no main window.
struct NoMainWindow : NavigatorEvents {
    void hostChanged() override {}
    void RefreshTree() override {}
    void ShowNodeStatus() override {}
    void showSelectedNode() override {}
    void setDragMode() override {}
    void VisbibleMnuMenu() override {}
    void showHint(const std::wstring&) override {}
    void showNote(const std::wstring&) override {}
};

}  // namespace blattwart::test
