#include <gtest/gtest.h>

#include "controls/ToolBar.h"

namespace blattwart {

namespace {

TEST(ToolBarTest, clicksReachEnabledButtonsOnly) {
    ToolBar toolBar;
    toolBar.add({L"Open", L""});
    toolBar.add({L"", L"", 0, ToolBarButton::Style::separator});
    toolBar.add({L"Details", L"", 1, ToolBarButton::Style::check});
    std::vector<std::wstring> clicked;
    std::vector<int> told;
    toolBar.events.buttonClick = [&](const std::wstring& key) { clicked.push_back(key); };
    toolBar.buttonChanged = [&](int index) { told.push_back(index); };

    for (const wchar_t* key : {L"Open", L"", L"Details", L"Unbekannt"}) toolBar.userClicks(key);
    EXPECT_EQ(clicked, (std::vector<std::wstring>{L"Open", L"Details"}));
    EXPECT_TRUE(toolBar.button(3).pressed);
    toolBar.setButtonEnabled(1, false);
    toolBar.setButtonEnabled(1, false);
    toolBar.userClicks(L"Open");
    toolBar.setEnabled(false);
    toolBar.userClicks(L"Details");
    EXPECT_EQ(clicked.size(), 2U);
    EXPECT_EQ(told, (std::vector<int>{3, 1}));
}

}  // namespace

}  // namespace blattwart
