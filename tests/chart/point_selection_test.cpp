#include "chart/point_selection.h"

#include <gtest/gtest.h>

#include "chart/chart_plot.h"
#include "support/scripted_dialogs.h"

namespace norvo {
namespace {

TEST(HitTest, OpenBoxesOfFourByOneAndTheLowerIndexWinsOnASharedEdge) {
    const std::vector<UserPoint> pts = {{30, 50}, {37, 50}, {60, 20}};
    EXPECT_EQ(HitTest(pts, 30, 50), 0);
    EXPECT_EQ(HitTest(pts, 26.1, 50.9), 0);
    EXPECT_EQ(HitTest(pts, 33.5, 50), 0);  // inside both boxes: the lower index
    EXPECT_EQ(HitTest(pts, 34, 49.1), 1);  // past the first box's edge
    EXPECT_EQ(HitTest(pts, 41, 50), -1);   // boxes are open at their edges
    EXPECT_EQ(HitTest(pts, 60, 21), -1);
    EXPECT_EQ(HitTest(pts, 56.5, 19.5), 2);
    // Boxes that merely touch: their common edge is in neither.
    EXPECT_EQ(HitTest({{30, 50}, {38, 50}}, 34, 50), -1);
    EXPECT_EQ(HitTest({}, 0, 0), -1);
}

TEST(PointSelection, HoverActivatesClickTogglesReadOutSaysNa) {
    PointSelection sel;
    sel.setPoints({{30, 50}, {60, 20}});
    EXPECT_EQ(sel.flags(), (std::vector<int>{1, 1}));
    const std::vector<std::string> texts = {"first", "second"};

    EXPECT_TRUE(sel.mouseMove(61, 20.5));
    EXPECT_EQ(sel.active(), 1);
    EXPECT_EQ(sel.readOut(texts), "second");
    EXPECT_TRUE(sel.click());
    EXPECT_EQ(sel.flags(), (std::vector<int>{1, 0}));
    EXPECT_TRUE(sel.click());
    EXPECT_EQ(sel.flags()[1], 1);

    EXPECT_FALSE(sel.mouseMove(0, 0));
    EXPECT_EQ(sel.active(), -1);
    EXPECT_EQ(sel.readOut(texts), "n.a.");
    EXPECT_FALSE(sel.click());
    EXPECT_EQ(sel.flags(), (std::vector<int>{1, 1}));
}

TEST(RangeSelection, StartThenARightEndWithARefusalForTheWrongSide) {
    RangeSelection range;
    ScriptedDialogs dialogs;
    EXPECT_EQ(range.result(), std::vector<float>{kChartNoValue});
    EXPECT_EQ(range.click(3, 20.5f, dialogs), RangeSelection::Outcome::StartSet);
    EXPECT_EQ(range.result(), std::vector<float>{-9999.0f});
    for (float x : {20.5f, 10.0f}) {
        EXPECT_EQ(range.click(1, x, dialogs), RangeSelection::Outcome::Refused);
        EXPECT_EQ(dialogs.last().text, "Second point should be right of the first selected point.");
        EXPECT_EQ(dialogs.last().title, "Invalid Action");
    }
    EXPECT_EQ(range.startIndex(), 3);
    EXPECT_EQ(range.click(7, 40.5f, dialogs), RangeSelection::Outcome::EndSet);
    EXPECT_EQ(range.result(), (std::vector<float>{20.5f, 40.5f}));
    // The next click starts a new range.
    EXPECT_EQ(range.click(2, 15.5f, dialogs), RangeSelection::Outcome::StartSet);
    EXPECT_EQ(range.endIndex(), -1);
    EXPECT_EQ(dialogs.shown.size(), 2u);

    NotifySelectOnOtherPlot(dialogs, "Gulland and Holt Plot");
    EXPECT_EQ(dialogs.last().text,
              "Please select and de-select points from the Gulland and Holt Plot.");
    EXPECT_EQ(dialogs.last().title, "Invalid Action...");
}

}  // namespace
}  // namespace norvo
