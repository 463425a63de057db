#pragma once
// A 3-D surface over a regular grid, drawn on the percentage canvas as a projected mesh: the
// cells are filled by height and painted from the back to the front, over a floor and two back
// walls, with optional contours on the floor and the ceiling and isopleths on the surface.
// The view turns about the vertical axis; the mouse maps back to the grid node under it.
#include <optional>
#include <string>
#include <vector>

#include "chart/chart_canvas.h"

namespace norvo {

// z[row][col]: rows run along x from xMin to xMax, columns along y from yMin to yMax, both at
// equal spacing (range over the number of steps minus 1).
struct SurfaceGrid {
    std::vector<std::vector<double>> z;
    double xMin = 0, xMax = 1, yMin = 0, yMax = 1;
    int rows() const { return int(z.size()); }
    int cols() const { return z.empty() ? 0 : int(z.front().size()); }
};

struct SurfaceStyle {
    int rotationDeg = 45;    // about the vertical axis
    int elevationDeg = 25;   // of the eye above the floor
    bool floor = false;      // coloured zones and contours on the floor
    bool ceiling = false;    // contours on the ceiling
    bool isopleths = false;  // contours on the surface
    bool whiteWalls = false;
    int contourLevels = 10;
    std::string title, xTitle, yTitle, zTitle;
    std::string xFormat = "0.0", yFormat = "0.0", zFormat = "0.00";
};

inline constexpr Colour kSurfaceWall = Rgb(224, 224, 224);
inline constexpr Colour kSurfaceMesh = Rgb(40, 40, 40);

// The rotation after one tick of the spin: one degree on, and 359 is followed by 1.
int NextSpinAngle(int degrees);

// The colour of a height t from 0 (lowest) to 1 (highest): blue through green to red.
Colour SurfaceColour(double t);

// Draws the whole picture, title and axes included, on a percentage canvas.
void DrawSurface(ChartCanvas& canvas, const SurfaceGrid& grid, const SurfaceStyle& style);

// The grid node nearest to a point of the picture within the front-most cell under it, as
// 1-based row and column; nothing when the point is off the surface.
struct SurfaceNode {
    int row = 0, col = 0;
};
std::optional<SurfaceNode> SurfaceNodeAt(const SurfaceGrid& grid, const SurfaceStyle& style,
                                         UserPoint p);

// Segments where a bilinear cell crosses a level, by linear interpolation along its edges.
// The corners are given in order around the cell; each segment is two points in cell units
// (u along rows, v along columns, 0..1).
struct CellSegment {
    double u1 = 0, v1 = 0, u2 = 0, v2 = 0;
};
std::vector<CellSegment> CellContour(double z00, double z10, double z11, double z01, double level);

}  // namespace norvo
