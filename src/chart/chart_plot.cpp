#include "chart/chart_plot.h"

#include <cmath>
#include <cstdlib>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/rotated_text.h"

namespace norvo {
namespace {

constexpr std::int32_t kMaxTicks = 100000;  // a step far too small for its range is a fault

std::int16_t SignOf(float v) {
    return v > 0 ? 1 : (v < 0 ? -1 : 0);
}

ChartAxis& AxisOf(ChartPlot& plot, int axisNumber) {
    if (axisNumber == kChartXAxis) return plot.xAxis;
    if (axisNumber == kChartYAxis) return plot.yAxis;
    throw SubscriptFault("ChartDefineAxis");
}

PenStyle PenOf(int lineStyle) {
    return lineStyle == 0 ? PenStyle::Solid : PenStyle::Dashed;
}

// Points to user units along x and y, through the picture's size in twips.
float PointsToUnitsX(const ChartPlot& plot, float points) {
    return R4(Div(points, plot.canvasWidthTwips / 20.0) * plot.canvasWidth);
}
float PointsToUnitsY(const ChartPlot& plot, float points) {
    return R4(Div(points, plot.canvasHeightTwips / 20.0) * plot.canvasHeight);
}

void DrawAxisLines(ChartCanvas& canvas, const ChartPlot& plot) {
    const ChartAxis& xa = plot.xAxis;
    if (xa.present) {
        canvas.SetPen(PenOf(xa.lineStyle), xa.lineWidth);
        const float y = ChartToUserY(plot, xa.crossing);
        canvas.Line(ChartToUserX(plot, plot.worldMinX), y, ChartToUserX(plot, plot.worldMaxX), y,
                    kBlack);
        if (xa.hasTicks) {
            // The tick's physical length matches that of the y axis ticks.
            const double len = plot.canvasWidth * xa.tickLengthPercent / 100.0 *
                               Div(plot.unitTwipsX, plot.unitTwipsY) * plot.signY;
            for (float t : xa.ticks) {
                const float x = ChartToUserX(plot, t);
                switch (xa.tickKind) {
                    case 1:
                        canvas.Line(x, y, x, y + len, kBlack);
                        break;
                    case 2:
                        canvas.Line(x, y - len / 2, x, y + len / 2, kBlack);
                        break;
                    case 3:
                        canvas.Line(x, y, x, y - len, kBlack);
                        break;
                    default:
                        break;
                }
            }
        }
    }
    const ChartAxis& ya = plot.yAxis;
    if (ya.present) {
        canvas.SetPen(PenOf(ya.lineStyle), ya.lineWidth);
        const float x = ChartToUserX(plot, ya.crossing);
        canvas.Line(x, ChartToUserY(plot, plot.worldMinY), x, ChartToUserY(plot, plot.worldMaxY),
                    kBlack);
        if (ya.hasTicks) {
            const double len = plot.canvasWidth * ya.tickLengthPercent / 100.0 * plot.signX;
            for (float t : ya.ticks) {
                const float y = ChartToUserY(plot, t);
                switch (ya.tickKind) {
                    case 1:
                        canvas.Line(x, y, x - len, y, kBlack);
                        break;
                    case 2:
                        canvas.Line(x - len / 2, y, x + len / 2, y, kBlack);
                        break;
                    case 3:
                        canvas.Line(x, y, x + len, y, kBlack);
                        break;
                    default:
                        break;
                }
            }
        }
    }
}

void DrawText(ChartCanvas& canvas, const ChartText& font, const std::string& text, double x,
              double y) {
    DrawRotatedText(canvas, text, static_cast<int>(std::lround(font.angle * 10.0f)), font.size, x,
                    y);
}

void DrawAxisLabels(ChartCanvas& canvas, const ChartPlot& plot) {
    const ChartAxis& xa = plot.xAxis;
    if (xa.present) {
        const float gap = plot.canvasHeight * 0.05f;
        const float rowY = ChartToUserY(plot, xa.crossing) + gap * plot.signY;
        if (xa.hasTicks) {
            for (float t : xa.ticks) {
                ChartText label = xa.labelFont;
                ChartSetText(label, ChartLabelText(xa, t));
                const float width = PointsToUnitsX(plot, label.widthPoints);
                DrawText(canvas, label, label.text, ChartToUserX(plot, t) - width / 2 * plot.signX,
                         rowY);
            }
        }
        if (xa.hasTitle) {
            // Starts at the middle of the canvas; deliberately not centred on its own width.
            const float titleHeight = PointsToUnitsY(plot, xa.title.size);
            DrawText(canvas, xa.title, xa.title.text,
                     plot.canvasLeft + plot.canvasWidth / 2 * plot.signX,
                     rowY + titleHeight * 1.1f * plot.signY);
        }
    }
    const ChartAxis& ya = plot.yAxis;
    if (ya.present) {
        const float gap = plot.canvasWidth * 0.01f;
        const float axisX = ChartToUserX(plot, ya.crossing);
        float lastLabelX = axisX - gap * plot.signX;
        if (ya.hasTicks) {
            const float halfHeight = PointsToUnitsY(plot, ya.labelFont.size) / 2;
            for (float t : ya.ticks) {
                ChartText label = ya.labelFont;
                ChartSetText(label, ChartLabelText(ya, t));
                const float width = PointsToUnitsX(plot, label.widthPoints);
                lastLabelX = axisX - (gap + width) * plot.signX;
                DrawText(canvas, label, label.text, lastLabelX,
                         ChartToUserY(plot, t) - halfHeight * plot.signY);
            }
        }
        if (ya.hasTitle) {
            ChartText title = ya.title;
            title.angle = 90.0f;
            const float heightAlongX = PointsToUnitsX(plot, title.size);
            const float extent = PointsToUnitsY(plot, title.widthPoints);
            DrawText(canvas, title, title.text, lastLabelX - 1.5f * heightAlongX * plot.signX,
                     (plot.canvasHeight / 2 + extent / 2) * plot.signY + plot.canvasTop);
        }
    }
}

}  // namespace

void ChartPrepare(ChartPlot& plot, Colour backColour, float left, float right, float top,
                  float bottom, double marginBottom, double marginTop, double marginLeft,
                  double marginRight, float worldMinX, float worldMaxX, float worldMinY,
                  float worldMaxY, std::optional<float> xAxisCrossing,
                  std::optional<float> yAxisCrossing, bool autoRedraw) {
    plot.autoRedraw = autoRedraw;
    plot.backColour = backColour;
    plot.canvasLeft = left;
    plot.canvasRight = right;
    plot.canvasTop = top;
    plot.canvasBottom = bottom;
    plot.marginBottom = marginBottom;
    plot.marginTop = marginTop;
    plot.marginLeft = marginLeft;
    plot.marginRight = marginRight;
    plot.worldMinX = worldMinX;
    plot.worldMaxX = worldMaxX;
    plot.worldMinY = worldMinY;
    plot.worldMaxY = worldMaxY;

    plot.signX = SignOf(right - left);
    plot.signY = SignOf(bottom - top);
    plot.canvasWidth = std::fabs(right - left);
    plot.canvasHeight = std::fabs(bottom - top);
    plot.plotLeft = R4(left + plot.signX * marginLeft);
    plot.plotRight = R4(right - plot.signX * marginRight);
    plot.plotBottom = R4(bottom - plot.signY * marginBottom);
    plot.plotTop = R4(top + plot.signY * marginTop);
    plot.plotWidth = plot.plotRight - plot.plotLeft;
    plot.plotHeight = plot.plotBottom - plot.plotTop;
    plot.worldRangeX = R4(double(worldMaxX) - worldMinX);
    plot.worldRangeY = R4(double(worldMaxY) - worldMinY);
    plot.scaleX = R4(Div(plot.plotWidth, plot.worldRangeX));
    plot.scaleY = R4(Div(plot.plotHeight, plot.worldRangeY));

    plot.xAxis.crossingGiven = xAxisCrossing.has_value();
    plot.xAxis.crossing = xAxisCrossing.value_or(worldMinY);
    plot.yAxis.crossingGiven = yAxisCrossing.has_value();
    plot.yAxis.crossing = yAxisCrossing.value_or(worldMinX);
    plot.xAxis.axisMin = worldMinX;
    plot.xAxis.axisMax = worldMaxX;
    plot.yAxis.axisMin = worldMinY;
    plot.yAxis.axisMax = worldMaxY;
}

void ChartPrepareDefault(ChartPlot& plot, float worldMinX, float worldMaxX, float worldMinY,
                         float worldMaxY) {
    ChartPrepare(plot, kWhite, 0, 100, 0, 100, 20, 5, 10, 2, worldMinX, worldMaxX, worldMinY,
                 worldMaxY, std::nullopt, std::nullopt, true);
}

void ChartSetFont(ChartText& text, const std::string& face, float size, float angle, bool italic,
                  bool underline) {
    text.face = face;
    text.size = size;
    text.angle = angle;
    text.italic = italic;
    text.underline = underline;
    ChartSetText(text, text.text);
}

void ChartSetText(ChartText& text, const std::string& value) {
    text.text = value;
    text.length = static_cast<int>(value.size());
    text.widthPoints = R4(EstimatedTextWidthPoints(text.size, value.size()));
}

ChartTicks ChartTicks::List(std::vector<float> values) {
    ChartTicks t;
    t.list = std::move(values);
    t.useList = true;
    return t;
}

ChartTicks ChartTicks::Series(float start, float step, bool autoOrigin) {
    ChartTicks t;
    t.start = start;
    t.step = step;
    t.autoOrigin = autoOrigin;
    return t;
}

void ChartDefineAxis(ChartPlot& plot, int axisNumber, int lineStyle, int lineWidth,
                     const ChartText& tickLabelFont, const ChartText& title, int tickKind,
                     float tickLengthPercent, const ChartTicks& ticks, const std::string& format,
                     int powerOfTen) {
    ChartAxis& axis = AxisOf(plot, axisNumber);
    const ChartAxis& other = axisNumber == kChartXAxis ? plot.yAxis : plot.xAxis;
    axis.present = true;
    axis.lineStyle = lineStyle;
    axis.lineWidth = lineWidth;
    axis.labelFont = tickLabelFont;
    axis.title = title;
    ChartSetText(axis.title, title.text);
    axis.hasTitle = !title.text.empty();
    axis.tickKind = tickKind;
    axis.tickLengthPercent = tickLengthPercent;
    axis.labelFormat = format;
    axis.labelPowerOfTen = powerOfTen;
    axis.axisMin = axisNumber == kChartXAxis ? plot.worldMinX : plot.worldMinY;
    axis.axisMax = axisNumber == kChartXAxis ? plot.worldMaxX : plot.worldMaxY;

    if (ticks.useList) {
        axis.ticksAuto = false;
        axis.ticks = ticks.list;
        axis.tickCount = static_cast<std::int32_t>(ticks.list.size());
        axis.firstTick = ticks.list.empty() ? 0.0f : ticks.list.front();
        axis.tickStep = ticks.list.size() > 1 ? ticks.list[1] - ticks.list[0] : 0.0f;
    } else {
        axis.ticksAuto = true;
        float start = ticks.start == kChartNoValue ? axis.axisMin : ticks.start;
        if (ticks.autoOrigin) start = other.crossingGiven ? other.crossing : axis.axisMin;
        const float step = ticks.step == kChartNoValue
                               ? R4((double(axis.axisMax) - axis.axisMin) / 10.0)
                               : ticks.step;
        axis.tickStep = step;
        if (step == 0.0f) {
            axis.tickCount = 1;
        } else {
            // A quotient within 1/10000 of a whole number counts as whole, so that the
            // rounding of 32-bit ranges and steps never loses the last tick.
            const float span = R4(double(axis.axisMax) - start);
            const float quotient = R4(span / step);
            const double whole = Int(quotient + 1e-4) + 1.0;
            if (whole > kMaxTicks) ThrowOverflow();
            axis.tickCount = whole < 0 ? 0 : static_cast<std::int32_t>(whole);
        }
        if (ticks.autoOrigin) {
            const std::int32_t offset = CLng(double(start) - axis.axisMin);
            const std::int32_t whole = CLng(step);
            if (whole == 0) ThrowDivisionByZero();
            axis.firstTick = R4(axis.axisMin + std::abs(offset % whole));
        } else {
            axis.firstTick = start;
        }
        axis.ticks.clear();
        axis.ticks.reserve(axis.tickCount);
        for (std::int32_t i = 0; i < axis.tickCount; ++i) {
            axis.ticks.push_back(R4(double(axis.firstTick) + double(i) * step));
        }
    }
    axis.hasTicks = tickKind >= 1 && tickKind <= 3 && axis.tickCount > 0;
}

void ChartDraw(ChartCanvas& canvas, ChartPlot& plot) {
    plot.canvasWidthTwips = static_cast<std::int32_t>(canvas.widthTwips());
    plot.canvasHeightTwips = static_cast<std::int32_t>(canvas.heightTwips());
    plot.unitTwipsX = Div(plot.canvasWidthTwips, plot.canvasWidth);
    plot.unitTwipsY = Div(plot.canvasHeightTwips, plot.canvasHeight);
    canvas.Scale(plot.canvasLeft, plot.canvasTop, plot.canvasRight, plot.canvasBottom);
    canvas.SetBackColour(plot.backColour);
    canvas.Clear();
    const PenStyle pen = canvas.penStyle();
    const int width = canvas.penWidth();
    DrawAxisLines(canvas, plot);
    canvas.SetPen(pen, width);
    DrawAxisLabels(canvas, plot);
}

float ChartToUser(const ChartPlot& plot, int axisNumber, float value) {
    if (axisNumber == kChartXAxis) {
        return R4((double(value) - plot.worldMinX) * plot.scaleX + plot.plotLeft);
    }
    if (axisNumber == kChartYAxis) {
        return R4(plot.plotBottom - (double(value) - plot.worldMinY) * plot.scaleY);
    }
    return 0.0f;
}

float ChartToUserX(const ChartPlot& plot, float x) {
    return ChartToUser(plot, kChartXAxis, x);
}

float ChartToUserY(const ChartPlot& plot, float y) {
    return ChartToUser(plot, kChartYAxis, y);
}

std::vector<float> ChartToUserX(const ChartPlot& plot, const std::vector<float>& xs) {
    std::vector<float> out;
    out.reserve(xs.size());
    for (float x : xs) out.push_back(ChartToUserX(plot, x));
    return out;
}

std::vector<float> ChartToUserY(const ChartPlot& plot, const std::vector<float>& ys) {
    std::vector<float> out;
    out.reserve(ys.size());
    for (float y : ys) out.push_back(ChartToUserY(plot, y));
    return out;
}

void ChartDrawCurve(ChartCanvas& canvas, const ChartPlot& plot, const ChartPointStyle& style,
                    const std::vector<float>& xs, const std::vector<float>& ys) {
    const std::size_t n = std::min(xs.size(), ys.size());
    std::vector<UserPoint> pts;
    pts.reserve(n);
    for (std::size_t i = 0; i < n; ++i) {
        pts.push_back({ChartToUserX(plot, xs[i]), ChartToUserY(plot, ys[i])});
    }
    const PenStyle pen = canvas.penStyle();
    const int width = canvas.penWidth();
    canvas.SetPen(style.lineStyle, style.penWidth);
    canvas.Polyline(pts, style.colour);
    canvas.SetPen(pen, width);
}

void ChartDrawPoints(ChartCanvas& canvas, const ChartPlot& plot, const ChartPointStyle& style,
                     const std::vector<float>& xs, const std::vector<float>& ys, int firstIndex,
                     int lastIndex, bool alreadyUser) {
    const int n = static_cast<int>(std::min(xs.size(), ys.size()));
    if (firstIndex < 0 || lastIndex >= n) throw SubscriptFault("ChartDrawPoints");
    const PenStyle pen = canvas.penStyle();
    const int width = canvas.penWidth();
    const Colour fill = canvas.fillColour();
    const FillStyle fillStyle = canvas.fillStyle();
    canvas.SetPen(style.lineStyle, style.penWidth);
    canvas.SetFill(style.colour, FillStyle::Solid);
    const double radius = plot.canvasWidth * 0.006;
    for (int i = firstIndex; i <= lastIndex; ++i) {
        const double x = alreadyUser ? xs[i] : ChartToUserX(plot, xs[i]);
        const double y = alreadyUser ? ys[i] : ChartToUserY(plot, ys[i]);
        canvas.Circle(x, y, radius, style.colour);
    }
    canvas.SetFill(fill, fillStyle);
    canvas.SetPen(pen, width);
}

void ChartDrawBars(ChartCanvas& canvas, const ChartPlot& plot, const ChartBarStyle& style,
                   const std::vector<float>& xs, const std::vector<float>& ys) {
    std::size_t n = std::min(xs.size(), ys.size());
    if (style.count > 0 && static_cast<std::size_t>(style.count) < n) n = style.count;
    const float base = ChartToUserY(plot, plot.xAxis.crossing);
    for (std::size_t i = 0; i < n; ++i) {
        const float left = ChartToUserX(plot, xs[i] - style.barWidth / 2);
        const float right = ChartToUserX(plot, xs[i] + style.barWidth / 2);
        const float top = ChartToUserY(plot, ys[i]);
        if (style.fillStyle == FillStyle::Solid) {
            canvas.FilledBox(left, top, right, base, style.fillColour);
        }
        canvas.Box(left, top, right, base, style.borderColour);
    }
}

std::string ChartLabelText(const ChartAxis& axis, float value) {
    double v = value;
    if (axis.labelPowerOfTen >= 1) v = Div(v, Pow(10.0, axis.labelPowerOfTen));
    return Format(v, axis.labelFormat);
}

FrequencyAxes ComputeFrequencyAxes(float classWidth, int classes, float largestFrequency,
                                   const std::string& unit) {
    FrequencyAxes f;
    int multiple = 10;
    if (classes < 10) {
        multiple = 1;
    } else if (classes <= 20) {
        multiple = 2;
    } else if (classes <= 45) {
        multiple = 5;
    }
    f.xStep = R4(double(multiple) * classWidth);
    f.xFirstTick = R4(double(f.xStep) + classWidth / 2.0);
    f.xTitle = "Length (" + unit + ")";

    double v = largestFrequency;
    while (v > 10.0) {
        v /= 10.0;
        ++f.powerOfTen;
    }
    const double unitStep = Pow(10.0, f.powerOfTen);
    const double r = Int(largestFrequency / unitStep + 0.5);
    if (r < 2) {
        f.yStep = R4(0.5 * unitStep);
    } else if (r > 5) {
        f.yStep = R4(2.0 * unitStep);
    } else {
        f.yStep = R4(unitStep);
    }
    f.yTitle = f.powerOfTen >= 1 ? "Frequency (10^" + std::to_string(f.powerOfTen) + ")"
                                 : std::string("Frequency ");
    return f;
}

namespace {

ChartText LabelFont() {
    ChartText t;
    ChartSetFont(t, kPlotFontFace, 8.0f, 0.0f);
    return t;
}

ChartText TitleFont(const std::string& text) {
    ChartText t;
    ChartSetFont(t, kPlotFontFace, 9.0f, 0.0f);
    ChartSetText(t, text);
    return t;
}

}  // namespace

FrequencyAxes ChartFrequencyPlot(ChartPlot& plot, float classWidth, int classes,
                                 float largestFrequency, const std::string& unit) {
    const FrequencyAxes f = ComputeFrequencyAxes(classWidth, classes, largestFrequency, unit);
    // An empty sample still gets a drawable frequency axis.
    const float top = largestFrequency > 0 ? R4(double(largestFrequency) * 1.2) : 1.0f;
    ChartPrepareDefault(plot, 0.0f, R4(double(classWidth) * classes), 0.0f, top);
    ChartDefineAxis(plot, kChartXAxis, 0, 1, LabelFont(), TitleFont(f.xTitle), 1, 1.0f,
                    ChartTicks::Series(f.xFirstTick, f.xStep), "0.0", 0);
    ChartDefineAxis(plot, kChartYAxis, 0, 1, LabelFont(), TitleFont(f.yTitle), 1, 1.0f,
                    ChartTicks::Series(0.0f, f.yStep), "0.0", f.powerOfTen);
    return f;
}

ChartRange LogDifferenceRangeY(const std::vector<float>& values) {
    if (values.empty()) return {-0.5f, 0.5f};
    float lo = values.front(), hi = values.front();
    for (float v : values) {
        lo = std::min(lo, v);
        hi = std::max(hi, v);
    }
    if (lo == hi) return {R4(double(lo) - 0.5), R4(double(hi) + 0.5)};
    // The top is 10 % beyond the largest value; for a negative largest value 10 % of its size
    // is added, so that the top stays above every point.
    const double top = hi >= 0 ? double(hi) * 1.1 : double(hi) + 0.1 * std::fabs(hi);
    return {lo, R4(top)};
}

void ChartLogDifferencePlot(ChartPlot& plot, float xMin, float xMax, float xStep,
                            const std::vector<float>& values, const std::string& xTitle) {
    const ChartRange r = LogDifferenceRangeY(values);
    ChartPrepareDefault(plot, xMin, xMax, r.min, r.max);
    ChartDefineAxis(plot, kChartXAxis, 0, 1, LabelFont(), TitleFont(xTitle), 1, 1.0f,
                    ChartTicks::Series(xMin, xStep > 0 ? xStep : kChartNoValue), "0.0", 0);
    ChartDefineAxis(plot, kChartYAxis, 0, 1, LabelFont(), TitleFont(kLogDifferenceTitle), 1, 1.0f,
                    ChartTicks::Series(kChartNoValue, kChartNoValue), "0.00", 0);
}

}  // namespace norvo
