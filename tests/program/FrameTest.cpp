#include "Program.h"

namespace blattwart::test {
namespace {

class Frame : public Program {
  protected:
    Frame() { start(); }
    FakeWindow& window() { return presenter.window; }
    void resize(float width, float height) {
        window().place.width = width;
        window().place.height = height;
        form().Form_Resize();
    }
};

TEST_F(Frame, OpensAtTheDefaultPlacementAndLaysOutThePanes) {
    EXPECT_EQ(window().place.left, 1000);
    EXPECT_EQ(window().place.top, 1000);
    resize(6500, 6500);
    const float x = form().imgSplitter.left();
    const float top = FakePresenter::toolBarHeight + FakePresenter::titleHeight;
    EXPECT_EQ(tree().width(), x);
    EXPECT_EQ(list().left(), x + 40);
    EXPECT_EQ(list().width(), 6500 - (x + 140));
    EXPECT_EQ(form().lblTitle[0].width(), x);
    EXPECT_EQ(form().lblTitle[1].left(), x + 60);
    EXPECT_EQ(form().lblTitle[1].width(), list().width() - 40);
    for (const Control* pane :
         {static_cast<Control*>(&tree()), static_cast<Control*>(&list()), &form().imgSplitter}) {
        EXPECT_EQ(pane->top(), top);
        EXPECT_EQ(pane->height(), 6500 - top - FakePresenter::statusHeight);
    }

    choose(L"mnuViewToolbar");
    EXPECT_EQ(tree().top(), FakePresenter::titleHeight);
    choose(L"mnuViewStatusBar");
    EXPECT_EQ(list().height(), 6500 - FakePresenter::titleHeight);
    EXPECT_FALSE(form().item(L"mnuViewStatusBar").checked());
    EXPECT_FALSE(form().sbStatusBar.visible());
}

TEST_F(Frame, KeepsItsMinimumSize) {
    resize(2000, 6500);
    EXPECT_EQ(window().place.width, 3000);
    EXPECT_EQ(tree().width(), 1500);
    // Too low for the bars: the panes keep their height.
    const float height = tree().height();
    resize(6500, 200);
    EXPECT_EQ(tree().height(), height);

    world.desktop.windows[FakeWindow::ownHandle].state = FakeDesktop::State::minimised;
    resize(100, 0);
    EXPECT_EQ(window().place.width, 100);
}

TEST_F(Frame, SplitterStopsAtItsLimits) {
    struct Case {
        float mouse;
        float bar;
        float tree;
    };
    resize(6500, 6500);
    for (const Case& c : {Case{-9000, 500, 1500}, Case{9000, 6000, 5000}, Case{2345, 2345, 2345}}) {
        form().imgSplitter_MouseDown();
        EXPECT_TRUE(form().picSplitter.visible());
        EXPECT_EQ(form().picSplitter.width(), 22);  // half of 45, halved as whole numbers
        EXPECT_EQ(form().picSplitter.height(), form().imgSplitter.height() - 20);
        form().imgSplitter_MouseMove(c.mouse - form().imgSplitter.left());
        EXPECT_EQ(form().picSplitter.left(), c.bar);
        form().imgSplitter_MouseUp();
        EXPECT_FALSE(form().picSplitter.visible());
        EXPECT_EQ(tree().width(), c.tree);
        form().imgSplitter_MouseMove(100);
        EXPECT_EQ(form().picSplitter.left(), c.bar);
    }
}

TEST_F(Frame, ViewModeIsShownEverywhereAndKept) {
    choose(L"mnuListViewMode(3)");
    EXPECT_EQ(list().mode(), ListViewMode::details);
    EXPECT_EQ(world.settings.values[L"ViewMode"], L"3");
    for (int i = 0; i < 4; ++i) {
        const std::wstring index = L"(" + std::to_wstring(i) + L")";
        for (const wchar_t* group :
             {L"mnuListViewMode", L"popListViewModeD", L"popListViewModeZ", L"popListViewModeL"})
            EXPECT_EQ(form().item(group + index).checked(), i == 3);
        EXPECT_EQ(form().tbToolBar.button(14 + i).pressed, i == 3);
    }
    form().tbToolBar.userClicks(L"Liste anzeigen");
    EXPECT_EQ(list().mode(), ListViewMode::list);

    world.settings.values[L"ViewMode"] = L"7";
    form().SetTreeViewViewBySetting();
    EXPECT_EQ(list().mode(), ListViewMode::list);
    EXPECT_EQ(world.settings.values[L"ViewMode"], L"2");
}

TEST_F(Frame, ClosingKeepsPlacementAndColumns) {
    window().place = {-150, 75.5F, 7200, 4800};
    choose(L"mnuListViewMode(2)");
    form().Form_Unload();
    EXPECT_EQ(world.settings.values[L"ViewMode"], L"2");
    EXPECT_EQ(world.settings.values[L"MainLeft"], L"-150");
    EXPECT_EQ(world.settings.values[L"MainTop"], L"75.5");
    EXPECT_EQ(world.settings.values[L"MainWidth"], L"7200");
    EXPECT_EQ(world.settings.values[L"MainHeight"], L"4800");
    EXPECT_EQ(world.settings.values[L"Col_1_0"], L"5000");
    EXPECT_EQ(world.settings.values[L"Col_5_1"], L"2500");

    // Minimised, the last placement stays; a store that cannot be written costs nothing else.
    world.desktop.windows[FakeWindow::ownHandle].state = FakeDesktop::State::minimised;
    window().place = {-32000, -32000, 160, 28};
    form().Form_Unload();
    EXPECT_EQ(world.settings.values[L"MainLeft"], L"-150");
    world.settings.fails = [](std::wstring_view) { return true; };
    form().Form_Unload();

    world.desktop.windows[FakeWindow::ownHandle].state = FakeDesktop::State::normal;
    startAgain();
    EXPECT_EQ(window().place.left, -150);
    EXPECT_EQ(window().place.top, 75.5F);
}

TEST_F(Frame, EndWithAutoCadIsStoredAndShown) {
    EXPECT_TRUE(form().item(L"mnuAutoEnd").checked());
    choose(L"mnuAutoEnd");
    EXPECT_FALSE(form().item(L"mnuAutoEnd").checked());
    EXPECT_EQ(main->registry.GetAutoEnd(), 0);
    world.registry.writable = false;
    EXPECT_EQ(hint(), L"");
    choose(L"mnuAutoEnd");
    EXPECT_FALSE(form().item(L"mnuAutoEnd").checked());
    EXPECT_EQ(hint(), L"Die Einstellung kann nicht gespeichert werden.");
    form().ctlTimer_Timer();
    EXPECT_NE(hint(), L"") << "no event of the user's";
    choose(L"mnuEnd");
    EXPECT_EQ(hint(), L"");
    EXPECT_TRUE(window().closed);
}

}  // namespace
}  // namespace blattwart::test
