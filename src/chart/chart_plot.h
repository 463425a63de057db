#pragma once
// The axis engine of the modal-progression plots: a plot record with margins and a world
// range, two axes with ticks and labels, and the mapping from world to user coordinates.
// Fields are 32-bit where the plot record keeps them so (stored through R4).
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"

namespace norvo {

// "Not given" for a tick start or step, and the result of a range selection before any.
inline constexpr float kChartNoValue = -9999.0f;

struct ChartText {
    std::string text;
    std::string face = kPlotFontFace;
    float size = 8.0f;   // points
    float angle = 0.0f;  // degrees (90 reads upwards)
    bool italic = false;
    bool underline = false;
    int length = 0;            // characters
    float widthPoints = 0.0f;  // estimate: size x 0.5 x length
};

struct ChartAxis {
    bool present = false;
    float crossing = 0.0f;  // x axis: world y where it lies; y axis: world x
    bool crossingGiven = false;
    bool hasTitle = false;
    ChartText title;
    std::int32_t lineStyle = 0;  // 0 solid, otherwise dashed
    std::int32_t lineWidth = 1;
    float axisMin = 0.0f, axisMax = 0.0f;
    bool hasTicks = false;
    bool ticksAuto = false;
    float firstTick = 0.0f, tickStep = 0.0f;
    std::int32_t tickCount = 0;
    std::vector<float> ticks;
    std::int32_t tickKind = 1;  // 1 outside, 2 centred, 3 inside
    float tickLengthPercent = 1.0f;
    ChartText labelFont;
    std::string labelFormat = "0.0";
    std::int32_t labelPowerOfTen = 0;
};

struct ChartPlot {
    bool autoRedraw = true;
    Colour backColour = kWhite;
    std::int32_t canvasWidthTwips = 0, canvasHeightTwips = 0;
    float canvasLeft = 0, canvasRight = 100, canvasBottom = 100, canvasTop = 0;
    float canvasWidth = 100, canvasHeight = 100;
    std::int16_t signX = 1, signY = 1;
    double marginBottom = 0, marginTop = 0, marginLeft = 0, marginRight = 0;
    double unitTwipsX = 0, unitTwipsY = 0;
    float plotLeft = 0, plotRight = 0, plotWidth = 0, plotBottom = 0, plotTop = 0, plotHeight = 0;
    float worldMinX = 0, worldMaxX = 0, worldRangeX = 0;
    float worldMinY = 0, worldMaxY = 0, worldRangeY = 0;
    float scaleX = 0, scaleY = 0;
    ChartAxis xAxis, yAxis;
};

struct ChartPointStyle {
    PenStyle lineStyle = PenStyle::Solid;
    int penWidth = 1;
    Colour colour = kBlack;
};

struct ChartBarStyle {
    Colour borderColour = kBlack;
    Colour fillColour = kWhite;
    FillStyle fillStyle = FillStyle::Solid;
    float barWidth = 1.0f;  // world units along x
    int count = 0;          // bars to draw (0: as many as values)
};

// Axis numbers of ChartDefineAxis and the user mapping.
inline constexpr int kChartXAxis = 1;
inline constexpr int kChartYAxis = 2;

// Stores the geometry and computes the derived fields. `xAxisCrossing` is the world y at
// which the x axis lies, `yAxisCrossing` the world x of the y axis; absent means the minimum.
void ChartPrepare(ChartPlot& plot, Colour backColour, float left, float right, float top,
                  float bottom, double marginBottom, double marginTop, double marginLeft,
                  double marginRight, float worldMinX, float worldMaxX, float worldMinY,
                  float worldMaxY, std::optional<float> xAxisCrossing,
                  std::optional<float> yAxisCrossing, bool autoRedraw = true);
// The default geometry of the frequency and log-difference plots: white, canvas 0..100 with
// y downwards, margins bottom 20, top 5, left 10, right 2.
void ChartPrepareDefault(ChartPlot& plot, float worldMinX, float worldMaxX, float worldMinY,
                         float worldMaxY);

void ChartSetFont(ChartText& text, const std::string& face, float size, float angle,
                  bool italic = false, bool underline = false);
// Sets the string and its length and estimated width.
void ChartSetText(ChartText& text, const std::string& value);

// Ticks of an axis: an explicit list, or a series from a start and a step in which
// kChartNoValue stands for "not given"; autoOrigin starts from the other axis's crossing.
struct ChartTicks {
    std::vector<float> list;
    bool useList = false;
    bool autoOrigin = false;
    float start = kChartNoValue;
    float step = kChartNoValue;

    static ChartTicks List(std::vector<float> values);
    static ChartTicks Series(float start, float step, bool autoOrigin = false);
};

// `axisNumber` is kChartXAxis or kChartYAxis. A tickKind of 0 draws no ticks or labels.
void ChartDefineAxis(ChartPlot& plot, int axisNumber, int lineStyle, int lineWidth,
                     const ChartText& tickLabelFont, const ChartText& title, int tickKind,
                     float tickLengthPercent, const ChartTicks& ticks,
                     const std::string& format = "0.0", int powerOfTen = 0);

// Clears the picture in the back colour, sets the user scale, draws both axes, then the
// labels and titles of both.
void ChartDraw(ChartCanvas& canvas, ChartPlot& plot);

// World to user coordinates; an axis number other than 1 or 2 gives 0.
float ChartToUser(const ChartPlot& plot, int axisNumber, float value);
float ChartToUserX(const ChartPlot& plot, float x);
float ChartToUserY(const ChartPlot& plot, float y);
std::vector<float> ChartToUserX(const ChartPlot& plot, const std::vector<float>& xs);
std::vector<float> ChartToUserY(const ChartPlot& plot, const std::vector<float>& ys);

// Joined line through the world points.
void ChartDrawCurve(ChartCanvas& canvas, const ChartPlot& plot, const ChartPointStyle& style,
                    const std::vector<float>& xs, const std::vector<float>& ys);
// Markers at the points firstIndex..lastIndex (inclusive, 0-based); the values are taken as
// user coordinates when `alreadyUser` is set.
void ChartDrawPoints(ChartCanvas& canvas, const ChartPlot& plot, const ChartPointStyle& style,
                     const std::vector<float>& xs, const std::vector<float>& ys, int firstIndex,
                     int lastIndex, bool alreadyUser = false);
// Bars centred on xs, from the x axis up to ys.
void ChartDrawBars(ChartCanvas& canvas, const ChartPlot& plot, const ChartBarStyle& style,
                   const std::vector<float>& xs, const std::vector<float>& ys);

// Label text of a tick value with the axis's format and power of ten.
std::string ChartLabelText(const ChartAxis& axis, float value);

// Frequency axes of a length-frequency plot: x 0 .. classWidth x classes, y 0 .. 1.2 x the
// largest frequency, with the engine's tick steps, power of ten and titles.
struct FrequencyAxes {
    float xStep = 0, xFirstTick = 0;
    int powerOfTen = 0;
    float yStep = 0;
    std::string xTitle, yTitle;
};
FrequencyAxes ComputeFrequencyAxes(float classWidth, int classes, float largestFrequency,
                                   const std::string& unit);
// Prepares `plot` with the default geometry and defines both axes from ComputeFrequencyAxes.
FrequencyAxes ChartFrequencyPlot(ChartPlot& plot, float classWidth, int classes,
                                 float largestFrequency, const std::string& unit);

// The y range of a log-difference plot: smallest .. largest x 1.1, widened by 0.5 either side
// when flat (a flat zero series gives -0.5 .. 0.5).
struct ChartRange {
    float min = 0, max = 0;
};
ChartRange LogDifferenceRangeY(const std::vector<float>& values);
// Prepares `plot` for a log-difference plot over x in [xMin, xMax] and defines both axes.
void ChartLogDifferencePlot(ChartPlot& plot, float xMin, float xMax, float xStep,
                            const std::vector<float>& values, const std::string& xTitle);

inline constexpr const char* kLogDifferenceTitle = "ln(Dn)";

}  // namespace norvo
