#include "plot/render/canvas_renderer.h"

#include <gtest/gtest.h>

#include <cmath>

#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QRawFont>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

#include "chart/demo_plots.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

// True when a pixel of exactly `colour` lies within `radius` pixels of (x, y).
bool ColourNear(const QImage& image, double x, double y, QRgb colour, int radius = 2) {
    const int cx = static_cast<int>(x), cy = static_cast<int>(y);
    for (int dy = -radius; dy <= radius; ++dy) {
        for (int dx = -radius; dx <= radius; ++dx) {
            const int px = cx + dx, py = cy + dy;
            if (px < 0 || py < 0 || px >= image.width() || py >= image.height()) continue;
            if ((image.pixel(px, py) & 0xFFFFFF) == (colour & 0xFFFFFF)) return true;
        }
    }
    return false;
}

// Copies a picture to $NORVO_TEST_OUTPUT, when set, for a look by eye.
void Keep(const std::string& path) {
    if (const char* out = std::getenv("NORVO_TEST_OUTPUT")) {
        std::filesystem::copy_file(
            path, std::filesystem::path(out) / std::filesystem::path(path).filename(),
            std::filesystem::copy_options::overwrite_existing);
    }
}

std::string Slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

TEST(PlotFont, ArialResolvesToAnArialMetricFontWithGlyphs) {
    const QFont font = PlotFont(FontStyle{});
    EXPECT_EQ(QFontInfo(font).family(), "Liberation Sans");
    const QRawFont raw = QRawFont::fromFont(font);
    ASSERT_TRUE(raw.isValid());
    for (char32_t ch : std::u32string_view(U"AZaz09.()^"))
        EXPECT_TRUE(raw.supportsCharacter(ch)) << char(ch);
    // 8 points at 96 dots per inch, and twice that at scale 2.
    EXPECT_EQ(font.pixelSize(), 11);
    EXPECT_EQ(PlotFont(FontStyle{}, 2.0).pixelSize(), 21);
    EXPECT_EQ(ResolveFontFamily("Courier New"), "Courier New");
}

TEST(RenderCanvas, PercentDemoAt800x600HasWhitePageBlackFrameAndRedCurve) {
    test::TempDir dir;
    ChartCanvas canvas;
    const GrowthDemo demo;
    DrawPercentDemo(canvas, demo);
    const std::string path = dir.file("kind_a.png");
    ASSERT_TRUE(SavePlot(canvas, path, 800, 600));
    Keep(path);
    const QImage image(QString::fromStdString(path));
    ASSERT_EQ(image.size(), QSize(800, 600));

    // Background: corners and the empty plot area above the curve's end.
    for (auto [x, y] : {std::pair{2, 2}, {797, 2}, {797, 597}, {700, 150}}) {
        EXPECT_EQ(image.pixel(x, y) & 0xFFFFFF, 0xFFFFFFu) << x << "," << y;
    }
    // Bottom axis y = 85 (pixel 510) from x = 20 to 95; left axis x = 20 (pixel 160).
    for (double ux : {25.0, 50.0, 90.0})
        EXPECT_TRUE(ColourNear(image, ux * 8, 510, qRgb(0, 0, 0), 1));
    for (double uy : {20.0, 50.0, 80.0})
        EXPECT_TRUE(ColourNear(image, 160, uy * 6, qRgb(0, 0, 0), 1));
    EXPECT_FALSE(ColourNear(image, 50 * 8, 530, qRgb(0, 0, 0), 1));  // nothing under the axis there
    // The curve in red at t = 2, 5 and 9.
    for (double t : {2.0, 5.0, 9.0}) {
        const double px = demo.xAt(t) * 8, py = demo.yAt(demo.lengthAt(t)) * 6;
        EXPECT_TRUE(ColourNear(image, px, py, qRgb(255, 0, 0))) << "t=" << t;
        EXPECT_FALSE(ColourNear(image, px, py - 30, qRgb(255, 0, 0))) << "t=" << t;
    }
    // The "110" of the top tick is drawn left of the axis, just above the tick.
    int dark = 0;
    for (int y = 70; y < 92; ++y) {
        for (int x = 125; x < 155; ++x) dark += qGray(image.pixel(x, y)) < 100;
    }
    EXPECT_GT(dark, 10);
}

TEST(RenderCanvas, EngineDemoAt800x600HasAxesBarsAndRedCurve) {
    test::TempDir dir;
    ChartCanvas canvas;
    ChartPlot plot;
    const FrequencyDemo demo = MakeFrequencyDemo();
    DrawEngineDemo(canvas, plot, demo);
    const std::string path = dir.file("kind_b.png");
    ASSERT_TRUE(SavePlot(canvas, path, 800, 600));
    Keep(path);
    const QImage image(QString::fromStdString(path));
    ASSERT_EQ(image.size(), QSize(800, 600));

    EXPECT_EQ(image.pixel(5, 5) & 0xFFFFFF, 0xFFFFFFu);
    // The x axis lies at the plot's bottom (user 80), the y axis at its left (user 10).
    const double axisY = ChartToUserY(plot, 0) * 6, axisX = ChartToUserX(plot, 0) * 8;
    EXPECT_NEAR(axisY, 480, 0.01);
    EXPECT_NEAR(axisX, 80, 0.01);
    EXPECT_TRUE(ColourNear(image, 700, axisY, qRgb(0, 0, 0), 1));
    EXPECT_TRUE(ColourNear(image, axisX, 60, qRgb(0, 0, 0), 1));
    // A yellow bar inside the class at 21 cm, halfway up its frequency.
    const float mid = 21.0f, f = demo.frequencies[10];
    EXPECT_EQ(image.pixel(ChartToUserX(plot, mid) * 8, ChartToUserY(plot, f / 2) * 6) & 0xFFFFFF,
              0xFFFF00u);
    // The red curve over the mean and in the tails.
    for (std::size_t i : {10u, 42u, 70u}) {
        EXPECT_TRUE(ColourNear(image, ChartToUserX(plot, demo.curveX[i]) * 8,
                               ChartToUserY(plot, demo.curveY[i]) * 6, qRgb(255, 0, 0)))
            << i;
    }
}

TEST(SavePlot, WritesEachFormatByExtensionAndFailsQuietlyOnABadFolder) {
    test::TempDir dir;
    ChartCanvas canvas;
    DrawPercentDemo(canvas);

    ASSERT_TRUE(SavePlot(canvas, dir.file("a.bmp")));
    EXPECT_EQ(Slurp(dir.file("a.bmp")).substr(0, 2), "BM");
    EXPECT_EQ(QImage(QString::fromStdString(dir.file("a.bmp"))).size(), QSize(800, 600));

    ASSERT_TRUE(SavePlot(canvas, dir.file("a.svg"), 400, 300));
    const std::string svg = Slurp(dir.file("a.svg"));
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    EXPECT_NE(svg.find("Liberation Sans"), std::string::npos);
    EXPECT_NE(svg.find("Relative age (years)"), std::string::npos);

    ASSERT_TRUE(SavePlot(canvas, dir.file("a.pdf")));
    EXPECT_EQ(Slurp(dir.file("a.pdf")).substr(0, 5), "%PDF-");

    // Anything unknown is written as a bitmap.
    ASSERT_TRUE(SavePlot(canvas, dir.file("a.picture")));
    EXPECT_EQ(Slurp(dir.file("a.picture")).substr(0, 2), "BM");

    for (const char* ext : {"png", "bmp", "svg", "pdf"}) {
        EXPECT_FALSE(SavePlot(canvas, dir.file("missing/x.") + ext)) << ext;
    }
}

// Rows of pixels that hold any dark ink: the height of the text drawn.
int InkRows(const QImage& img) {
    int rows = 0;
    for (int y = 0; y < img.height(); ++y) {
        bool ink = false;
        for (int x = 0; x < img.width() && !ink; ++x) ink = qGray(img.pixel(x, y)) < 128;
        rows += ink;
    }
    return rows;
}

TEST(RenderCanvas, TextKeepsItsPointSizeAtAnyTargetSize) {
    ChartCanvas canvas;
    canvas.Scale(0, 0, 100, 100);
    canvas.FilledBox(0, 0, 100, 100, kWhite);
    canvas.SetForeColour(kBlack);
    canvas.MoveTo(10, 10);
    canvas.Print("Score function");
    const int small = InkRows(RenderCanvas(canvas, 300, 200));
    EXPECT_GE(small, 8);  // 8 points at 96 dots per inch: about 11 px high
    EXPECT_EQ(InkRows(RenderCanvas(canvas, 2400, 1800)), small);
}

TEST(RenderCanvas, BoxesSideBySideLeaveNoSeam) {
    // 21 rows of a heat map between y 10 and 85, each box from its own sums, as the surface
    // draws them, at many window heights.
    ChartCanvas canvas;
    canvas.Scale(0, 0, 100, 100);
    canvas.FilledBox(0, 0, 100, 100, kWhite);
    const double cellH = (85.0 - 10) / 21;
    for (int i = 0; i < 21; ++i) {
        const double y = 85 - (i + 1) * cellH;
        canvas.FilledBox(20, y, 95, y + cellH, i % 2 ? kRed : kBlack);
    }
    for (int h = 300; h <= 1000; h += 3) {
        const QImage img = RenderCanvas(canvas, 400, h);
        const int top = static_cast<int>(std::ceil(h * 0.10)) + 1;
        const int bottom = static_cast<int>(std::floor(h * 0.85)) - 1;
        for (int y = top; y <= bottom; ++y)
            ASSERT_NE(img.pixel(200, y) & 0xFFFFFF, 0xFFFFFFu) << "height " << h << " row " << y;
    }
}

TEST(RenderCanvas, TextAndPensScaleWithTheTarget) {
    ChartCanvas canvas;
    canvas.Scale(0, 0, 100, 100);
    canvas.FilledBox(0, 0, 100, 100, kWhite);
    canvas.SetPen(PenStyle::Solid, 3);
    canvas.Line(10, 50, 90, 50, kRed);
    const QImage small = RenderCanvas(canvas, 400, 300);
    const QImage large = RenderCanvas(canvas, 1600, 1200);
    auto thickness = [](const QImage& img, int x) {
        int n = 0;
        for (int y = 0; y < img.height(); ++y) n += (img.pixel(x, y) & 0xFFFFFF) == 0xFF0000;
        return n;
    };
    EXPECT_EQ(thickness(small, 200), 2);  // 3 px at 800 x 600 is 1.5 at half size
    EXPECT_EQ(thickness(large, 800), 6);
}

}  // namespace
}  // namespace norvo
