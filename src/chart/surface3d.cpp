#include "chart/surface3d.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"

namespace norvo {

namespace {

constexpr double kHalfHeight = 0.7;  // the box's half height against its half width 1
constexpr double kScreenScale = 27.0;
constexpr double kCentreX = 52.0;
constexpr double kCentreY = 54.0;

// The view: normalised box coordinates (x, y in -1..1, z in -0.7..0.7) to the canvas, and
// the depth of a point (larger is farther from the eye).
struct View {
    double cosR, sinR, cosE, sinE;
    explicit View(const SurfaceStyle& s) {
        const double r = s.rotationDeg * std::numbers::pi / 180.0;
        const double e = s.elevationDeg * std::numbers::pi / 180.0;
        cosR = std::cos(r);
        sinR = std::sin(r);
        cosE = std::cos(e);
        sinE = std::sin(e);
    }
    double rx(double x, double y) const { return x * cosR - y * sinR; }
    double ry(double x, double y) const { return x * sinR + y * cosR; }
    UserPoint project(double x, double y, double z) const {
        return {kCentreX + kScreenScale * rx(x, y),
                kCentreY - kScreenScale * (z * cosE + ry(x, y) * sinE)};
    }
    double depth(double x, double y, double z) const { return ry(x, y) * cosE - z * sinE; }
};

// The grid in normalised coordinates.
struct Frame {
    const SurfaceGrid& g;
    double zLo, zHi;
    explicit Frame(const SurfaceGrid& grid) : g(grid) {
        zLo = zHi = grid.z[0][0];
        for (const auto& row : grid.z)
            for (double v : row) {
                zLo = std::min(zLo, v);
                zHi = std::max(zHi, v);
            }
        if (zHi == zLo) {
            zLo -= 0.5;
            zHi += 0.5;
        }
    }
    double nx(double row) const { return -1 + 2 * row / std::max(1, g.rows() - 1); }
    double ny(double col) const { return -1 + 2 * col / std::max(1, g.cols() - 1); }
    double nz(double v) const { return -kHalfHeight + 2 * kHalfHeight * (v - zLo) / (zHi - zLo); }
    double t(double v) const { return (v - zLo) / (zHi - zLo); }
};

struct Cell {
    int r, c;
    double depth;
};

// Cells from the farthest to the nearest.
std::vector<Cell> PaintOrder(const Frame& f, const View& v) {
    std::vector<Cell> cells;
    for (int r = 0; r + 1 < f.g.rows(); ++r)
        for (int c = 0; c + 1 < f.g.cols(); ++c) {
            double d = 0;
            for (int k = 0; k < 4; ++k) {
                const int rr = r + (k == 1 || k == 2), cc = c + (k >= 2);
                d += v.depth(f.nx(rr), f.ny(cc), f.nz(f.g.z[size_t(rr)][size_t(cc)]));
            }
            cells.push_back({r, c, d / 4});
        }
    std::stable_sort(cells.begin(), cells.end(),
                     [](const Cell& a, const Cell& b) { return a.depth > b.depth; });
    return cells;
}

std::array<double, 4> CornerValues(const SurfaceGrid& g, int r, int c) {
    return {g.z[size_t(r)][size_t(c)], g.z[size_t(r + 1)][size_t(c)],
            g.z[size_t(r + 1)][size_t(c + 1)], g.z[size_t(r)][size_t(c + 1)]};
}

std::vector<UserPoint> CellPolygon(const Frame& f, const View& v, int r, int c,
                                   std::optional<double> flatZ) {
    const auto z = CornerValues(f.g, r, c);
    const int rr[] = {r, r + 1, r + 1, r};
    const int cc[] = {c, c, c + 1, c + 1};
    std::vector<UserPoint> pts;
    for (int k = 0; k < 4; ++k)
        pts.push_back(v.project(f.nx(rr[k]), f.ny(cc[k]), flatZ ? *flatZ : f.nz(z[size_t(k)])));
    return pts;
}

std::vector<double> Levels(const Frame& f, int count) {
    std::vector<double> levels;
    for (int k = 1; k < count; ++k) levels.push_back(f.zLo + (f.zHi - f.zLo) * k / count);
    return levels;
}

// The contour segments of one cell; on the surface itself unless `flatZ` puts them on a plane.
void DrawCellContours(ChartCanvas& canvas, const Frame& f, const View& v, int r, int c,
                      const std::vector<double>& levels, std::optional<double> flatZ,
                      std::optional<Colour> colour) {
    const auto z = CornerValues(f.g, r, c);
    for (double level : levels) {
        const double h = flatZ ? *flatZ : f.nz(level);
        for (const auto& s : CellContour(z[0], z[1], z[2], z[3], level)) {
            const UserPoint a = v.project(f.nx(r + s.u1), f.ny(c + s.v1), h);
            const UserPoint b = v.project(f.nx(r + s.u2), f.ny(c + s.v2), h);
            canvas.Line(a.x, a.y, b.x, b.y, colour ? *colour : SurfaceColour(f.t(level)));
        }
    }
}

bool Inside(const std::vector<UserPoint>& poly, UserPoint p) {
    bool in = false;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        const auto& a = poly[i];
        const auto& b = poly[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            in = !in;
    }
    return in;
}

// The floor and the two walls behind the surface, with a light grid.
void DrawWalls(ChartCanvas& canvas, const View& v, const SurfaceStyle& s) {
    const Colour wall = s.whiteWalls ? kWhite : kSurfaceWall;
    const double h = kHalfHeight;
    canvas.SetFill(wall, FillStyle::Solid);
    canvas.Polygon(
        {v.project(-1, -1, -h), v.project(1, -1, -h), v.project(1, 1, -h), v.project(-1, 1, -h)},
        kBlack);
    // Walls x = +-1 and y = +-1: the one of each pair farther from the eye.
    const double sx = v.depth(1, 0, 0) > v.depth(-1, 0, 0) ? 1 : -1;
    const double sy = v.depth(0, 1, 0) > v.depth(0, -1, 0) ? 1 : -1;
    canvas.Polygon(
        {v.project(sx, -1, -h), v.project(sx, 1, -h), v.project(sx, 1, h), v.project(sx, -1, h)},
        kBlack);
    canvas.Polygon(
        {v.project(-1, sy, -h), v.project(1, sy, -h), v.project(1, sy, h), v.project(-1, sy, h)},
        kBlack);
    canvas.SetFill(kWhite, FillStyle::Transparent);
    const Colour grid = s.whiteWalls ? Rgb(200, 200, 200) : Rgb(190, 190, 190);
    for (int k = 1; k < 5; ++k) {
        const double z = -h + 2 * h * k / 5;
        UserPoint a = v.project(sx, -1, z), b = v.project(sx, 1, z);
        canvas.Line(a.x, a.y, b.x, b.y, grid);
        a = v.project(-1, sy, z);
        b = v.project(1, sy, z);
        canvas.Line(a.x, a.y, b.x, b.y, grid);
    }
}

void DrawAxes(ChartCanvas& canvas, const Frame& f, const View& v, const SurfaceStyle& s) {
    const double h = kHalfHeight;
    // The x axis lies on the floor's edge nearer the eye, and so does the y axis.
    const double yEdge = v.depth(0, 1, 0) > v.depth(0, -1, 0) ? -1 : 1;
    const double xEdge = v.depth(1, 0, 0) > v.depth(-1, 0, 0) ? -1 : 1;
    auto label = [&](UserPoint p, const std::string& text) {
        DrawRotatedText(canvas, text, 0, kKindALabelSize, p.x - 2, p.y + 0.5);
    };
    for (int k = 0; k <= 5; ++k) {
        const double n = -1 + 2.0 * k / 5;
        const double xv = f.g.xMin + (f.g.xMax - f.g.xMin) * k / 5;
        const double yv = f.g.yMin + (f.g.yMax - f.g.yMin) * k / 5;
        UserPoint a = v.project(n, yEdge, -h), b = v.project(n, yEdge * 1.08, -h);
        canvas.Line(a.x, a.y, b.x, b.y, kBlack);
        label(v.project(n, yEdge * 1.18, -h), Format(xv, s.xFormat));
        a = v.project(xEdge, n, -h);
        b = v.project(xEdge * 1.08, n, -h);
        canvas.Line(a.x, a.y, b.x, b.y, kBlack);
        label(v.project(xEdge * 1.18, n, -h), Format(yv, s.yFormat));
    }
    // The height axis on the back corner that shows at the left.
    double bestX = 1e9, cx = -1, cy = -1;
    for (double x : {-1.0, 1.0})
        for (double y : {-1.0, 1.0}) {
            const UserPoint p = v.project(x, y, 0);
            if (p.x < bestX) {
                bestX = p.x;
                cx = x;
                cy = y;
            }
        }
    const UserPoint bottom = v.project(cx, cy, -h), top = v.project(cx, cy, h);
    canvas.Line(bottom.x, bottom.y, top.x, top.y, kBlack);
    for (int k = 0; k <= 5; ++k) {
        const double z = -h + 2 * h * k / 5;
        const UserPoint p = v.project(cx, cy, z);
        canvas.Line(p.x - 1, p.y, p.x, p.y, kBlack);
        const std::string text = Format(f.zLo + (f.zHi - f.zLo) * k / 5, s.zFormat);
        const double width = EstimatedTextWidthPoints(kKindALabelSize, text) * 96.0 / 72.0 * 100.0 /
                             canvas.widthPx();
        DrawRotatedText(canvas, text, 0, kKindALabelSize, p.x - 1.5 - width, p.y - 1.5);
    }
    DrawRotatedText(canvas, s.zTitle, 900, kKindALabelSize, std::max(1.0, bottom.x - 10),
                    (bottom.y + top.y) / 2 + 8);
    const UserPoint xt = v.project(0, yEdge * 1.7, -h);
    DrawRotatedText(canvas, s.xTitle, 0, kKindALabelSize, xt.x - 10, std::min(xt.y, 94.0));
    const UserPoint yt = v.project(xEdge * 1.7, 0, -h);
    DrawRotatedText(canvas, s.yTitle, 0, kKindALabelSize, yt.x - 4, std::min(yt.y, 94.0));
}

}  // namespace

int NextSpinAngle(int degrees) {
    return degrees >= 359 ? 360 - degrees : degrees + 1;
}

Colour SurfaceColour(double t) {
    t = std::clamp(t, 0.0, 1.0);
    // Blue, cyan, green, yellow, red at quarters.
    const double stops[5][3] = {
        {40, 60, 220}, {0, 190, 220}, {40, 180, 60}, {240, 220, 40}, {220, 40, 30}};
    const double x = t * 4;
    const int k = std::min(3, int(x));
    const double w = x - k;
    auto mix = [&](int ch) {
        return int(std::lround(stops[k][ch] * (1 - w) + stops[k + 1][ch] * w));
    };
    return Rgb(mix(0), mix(1), mix(2));
}

std::vector<CellSegment> CellContour(double z00, double z10, double z11, double z01, double level) {
    const double z[4] = {z00, z10, z11, z01};
    const double u[4] = {0, 1, 1, 0};
    const double v[4] = {0, 0, 1, 1};
    std::vector<std::pair<double, double>> cross;
    for (int k = 0; k < 4; ++k) {
        const int n = (k + 1) % 4;
        const bool a = z[k] >= level, b = z[n] >= level;
        if (a == b) continue;
        const double w = (level - z[k]) / (z[n] - z[k]);
        cross.push_back({u[k] + (u[n] - u[k]) * w, v[k] + (v[n] - v[k]) * w});
    }
    std::vector<CellSegment> out;
    for (size_t k = 0; k + 1 < cross.size(); k += 2)
        out.push_back({cross[k].first, cross[k].second, cross[k + 1].first, cross[k + 1].second});
    return out;
}

void DrawSurface(ChartCanvas& canvas, const SurfaceGrid& grid, const SurfaceStyle& style) {
    BeginPercentCanvas(canvas);
    if (!style.title.empty()) DrawPlotTitle(canvas, style.title, 2);
    if (grid.rows() < 2 || grid.cols() < 2) return;
    const Frame f(grid);
    const View v(style);
    const auto levels = Levels(f, style.contourLevels);
    const auto order = PaintOrder(f, v);
    DrawWalls(canvas, v, style);
    if (style.floor) {
        for (const Cell& c : order) {
            const auto z = CornerValues(grid, c.r, c.c);
            canvas.SetFill(SurfaceColour(f.t((z[0] + z[1] + z[2] + z[3]) / 4)), FillStyle::Solid);
            const auto poly = CellPolygon(f, v, c.r, c.c, -kHalfHeight);
            canvas.Polygon(poly, SurfaceColour(f.t((z[0] + z[1] + z[2] + z[3]) / 4)));
        }
        for (const Cell& c : order)
            DrawCellContours(canvas, f, v, c.r, c.c, levels, -kHalfHeight, kBlack);
    }
    DrawAxes(canvas, f, v, style);
    for (const Cell& c : order) {
        const auto z = CornerValues(grid, c.r, c.c);
        canvas.SetFill(SurfaceColour(f.t((z[0] + z[1] + z[2] + z[3]) / 4)), FillStyle::Solid);
        canvas.Polygon(CellPolygon(f, v, c.r, c.c, std::nullopt), kSurfaceMesh);
        if (style.isopleths) DrawCellContours(canvas, f, v, c.r, c.c, levels, std::nullopt, kBlack);
    }
    canvas.SetFill(kWhite, FillStyle::Transparent);
    if (style.ceiling)
        for (const Cell& c : order)
            DrawCellContours(canvas, f, v, c.r, c.c, levels, kHalfHeight, std::nullopt);
}

std::optional<SurfaceNode> SurfaceNodeAt(const SurfaceGrid& grid, const SurfaceStyle& style,
                                         UserPoint p) {
    if (grid.rows() < 2 || grid.cols() < 2) return std::nullopt;
    const Frame f(grid);
    const View v(style);
    std::optional<SurfaceNode> hit;
    for (const Cell& c : PaintOrder(f, v)) {
        const auto poly = CellPolygon(f, v, c.r, c.c, std::nullopt);
        if (!Inside(poly, p)) continue;
        const int rr[] = {c.r, c.r + 1, c.r + 1, c.r};
        const int cc[] = {c.c, c.c, c.c + 1, c.c + 1};
        double best = 1e300;
        for (int k = 0; k < 4; ++k) {
            const double d = std::hypot(poly[size_t(k)].x - p.x, poly[size_t(k)].y - p.y);
            if (d < best) {
                best = d;
                hit = SurfaceNode{rr[k] + 1, cc[k] + 1};
            }
        }
    }
    return hit;
}

}  // namespace norvo
