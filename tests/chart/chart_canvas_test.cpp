#include "chart/chart_canvas.h"

#include <gtest/gtest.h>

#include "chart/rotated_text.h"

namespace norvo {
namespace {

TEST(ChartCanvas, RecordsPrimitivesWithTheStateTheyWereDrawnIn) {
    ChartCanvas c;
    c.Scale(0, 0, 100, 100);
    c.SetPen(PenStyle::Dashed, 2);
    c.Line(20, 85, 95, 85, kBlack);
    c.SetFill(kYellow, FillStyle::Solid);
    c.SetForeColour(kMagenta);
    c.Circle(50, 50, 1.5);
    c.FilledBox(0, 0, 10, 10, kGreen);

    const auto lines = c.commandsOf(DrawOp::Line);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].x1, 20);
    EXPECT_EQ(lines[0].y2, 85);
    const auto circles = c.commandsOf(DrawOp::Circle);
    ASSERT_EQ(circles.size(), 1u);
    EXPECT_EQ(circles[0].colour, kMagenta);  // the fore colour outlines a circle
    EXPECT_EQ(circles[0].x2, 1.5);           // radius in x units
    EXPECT_EQ(c.penStyle(), PenStyle::Dashed);
    EXPECT_EQ(c.penWidth(), 2);
    EXPECT_EQ(c.fillColour(), kYellow);
    EXPECT_EQ(kRed, Rgb(255, 0, 0));
    EXPECT_EQ(kYellow, Rgb(255, 255, 0));
}

TEST(ChartCanvas, ClearDropsEarlierDrawingButKeepsTheState) {
    ChartCanvas c;
    c.Scale(0, 100, 50, 0);
    c.SetPen(PenStyle::Dashed, 3);
    c.Line(1, 1, 2, 2, kRed);
    c.SetBackColour(kYellow);
    c.Clear();
    EXPECT_TRUE(c.commandsOf(DrawOp::Line).empty());
    ASSERT_FALSE(c.commands().empty());
    EXPECT_EQ(c.commands().front().op, DrawOp::Clear);
    EXPECT_EQ(c.commands().front().colour, kYellow);
    // A renderer replaying the list after the clear still sees the scale and pen.
    const auto scales = c.commandsOf(DrawOp::Scale);
    ASSERT_EQ(scales.size(), 1u);
    EXPECT_EQ(scales[0].y1, 100);
    EXPECT_EQ(c.commandsOf(DrawOp::SetPen).back().width, 3);
}

TEST(ChartCanvas, ImageIsASnapshotAndPutImageRestoresTheCleanPicture) {
    ChartCanvas c;
    c.Scale(0, 0, 100, 100);
    c.Line(20, 85, 95, 85, kBlack);
    const CanvasImage clean = c.Image();
    c.Line(50, 0, 50, 100, kRed);                                // an overlay, e.g. a cursor line
    EXPECT_EQ(clean.commands->size() + 1, c.commands().size());  // the image did not change
    c.SetForeColour(kGreen);
    c.PutImage(clean);
    const auto lines = c.commandsOf(DrawOp::Line);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].colour, kBlack);
    EXPECT_EQ(c.foreColour(), kGreen);  // the canvas keeps its own state
    EXPECT_EQ(c.commandsOf(DrawOp::SetForeColour).back().colour, kGreen);

    ChartCanvas other;
    other.PutImage(c);
    EXPECT_EQ(other.commandsOf(DrawOp::Line).size(), 1u);
}

TEST(ChartCanvas, PrintPlacesTextAtTheCurrentPositionThenMovesToTheNextLine) {
    ChartCanvas c(800, 600);
    c.Scale(0, 0, 100, 100);
    c.MoveTo(10, 20);
    c.Print("abc");
    c.Print("def");
    const auto prints = c.commandsOf(DrawOp::Print);
    ASSERT_EQ(prints.size(), 2u);
    EXPECT_EQ(prints[0].x1, 10);
    EXPECT_EQ(prints[0].y1, 20);
    EXPECT_EQ(prints[1].x1, 0);
    EXPECT_GT(prints[1].y1, 20);
    // 8 points = 10.67 pixels of 600 = 1.78 units; the next line is 1.15 of that lower.
    EXPECT_NEAR(c.PointsToUserY(8), 1.7778, 1e-3);
    EXPECT_NEAR(prints[1].y1 - 20, 1.15 * 1.7778, 1e-3);
}

TEST(ChartCanvas, PixelToUserFollowsAnInvertedScale) {
    ChartCanvas c;
    c.Scale(0, 10, 20, 0);  // y grows upwards
    const UserPoint p = c.PixelToUser(200, 150, 400, 300);
    EXPECT_DOUBLE_EQ(p.x, 10);
    EXPECT_DOUBLE_EQ(p.y, 5);
    EXPECT_DOUBLE_EQ(c.PixelToUser(0, 300, 400, 300).y, 0);
}

TEST(DrawRotatedText, PrintsInArialAtTheAngleAndPutsTheFontBack) {
    ChartCanvas c;
    c.Scale(0, 0, 100, 100);
    FontStyle custom;
    custom.face = "Courier New";
    custom.sizePoints = 12;
    custom.bold = true;
    c.SetFont(custom);
    DrawRotatedText(c, "Length (cm)", 900, 8, 3, 70);

    EXPECT_EQ(c.font(), custom);
    const auto prints = c.commandsOf(DrawOp::Print);
    ASSERT_EQ(prints.size(), 1u);
    EXPECT_EQ(prints[0].text, "Length (cm)");
    EXPECT_EQ(prints[0].font.face, "Arial");
    EXPECT_EQ(prints[0].font.angleTenths, 900);
    EXPECT_EQ(prints[0].font.sizePoints, 8);
    EXPECT_FALSE(prints[0].font.bold);
    EXPECT_EQ(prints[0].x1, 3);
    EXPECT_EQ(prints[0].y1, 70);
    // The font after the text is the earlier one again, also for a renderer.
    EXPECT_EQ(c.commandsOf(DrawOp::SetFont).back().font, custom);
}

}  // namespace
}  // namespace norvo
