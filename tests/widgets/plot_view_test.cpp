#include "widgets/plot_view.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "chart/kind_a.h"

namespace norvo::gui {
namespace {

TEST(PlotView, MapsTheMouseToUserCoordinatesAndPicksPoints) {
    PlotView view;
    view.resize(400, 300);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    BeginPercentCanvas(view.canvas());
    EXPECT_EQ(view.canvas().widthPx(), 400);  // text keeps its true size on screen
    const UserPoint centre = view.toUser(QPointF(200, 150));
    EXPECT_DOUBLE_EQ(centre.x, 50);
    EXPECT_DOUBLE_EQ(centre.y, 50);

    PointSelection selection;
    selection.setPoints({{25, 50}, {75, 20}});
    view.attachSelection(&selection);
    QSignalSpy active(&view, &PlotView::activePointChanged);
    QSignalSpy toggled(&view, &PlotView::pointToggled);
    QSignalSpy moved(&view, &PlotView::mouseMovedTo);

    QTest::mouseMove(&view, QPoint(300, 60));  // user (75, 20)
    ASSERT_TRUE(QTest::qWaitFor([&] { return moved.count() > 0; }, 1000));
    EXPECT_TRUE(view.hotCursor());
    EXPECT_EQ(view.cursor().shape(), Qt::PointingHandCursor);
    ASSERT_EQ(active.count(), 1);
    EXPECT_EQ(active.at(0).at(0).toInt(), 1);

    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(300, 60));
    ASSERT_EQ(toggled.count(), 1);
    EXPECT_EQ(selection.flags(), (std::vector<int>{1, 0}));

    QTest::mouseMove(&view, QPoint(10, 10));
    ASSERT_TRUE(QTest::qWaitFor([&] { return active.count() == 2; }, 1000));
    EXPECT_EQ(active.at(1).at(0).toInt(), -1);
    EXPECT_FALSE(view.hotCursor());
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(toggled.count(), 1);  // a click beside every point toggles nothing
}

TEST(PlotView, RestoringTheCleanCopyErasesOverlaysFromThePicture) {
    PlotView view;
    view.resize(400, 300);
    BeginPercentCanvas(view.canvas());
    DrawPercentFrame(view.canvas());
    view.storeClean();
    view.canvas().Line(50, 0, 50, 100, kRed);
    QImage withOverlay = view.grab().toImage();
    EXPECT_EQ(withOverlay.pixel(200, 50) & 0xFFFFFF, 0xFF0000u);
    view.restoreClean();
    EXPECT_TRUE(view.canvas().commandsOf(DrawOp::Line).size() == 2u);
    const QImage clean = view.grab().toImage();
    EXPECT_EQ(clean.pixel(200, 50) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(clean.pixel(200, 255) & 0xFFFFFF, 0x000000u);  // bottom axis at y = 85
}

}  // namespace
}  // namespace norvo::gui
