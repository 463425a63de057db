#pragma once
// Selecting plot points with the mouse: a hit test on the percentage canvas, a toggling
// selection of single points, and the start/end range selection of the axis-engine plots.
#include <string>
#include <vector>

#include "base/user_notice.h"
#include "chart/chart_canvas.h"

namespace norvo {

inline constexpr const char* kNotAvailable = "n.a.";
inline constexpr const char* kInvalidActionTitle = "Invalid Action...";
inline constexpr const char* kRangeOrderTitle = "Invalid Action";
inline constexpr const char* kRangeOrderMessage =
    "Second point should be right of the first selected point.";

// Half sizes of a point's hit box, in percentage-canvas units.
inline constexpr double kHitHalfWidth = 4.0;
inline constexpr double kHitHalfHeight = 1.0;

// Index of the first point whose box px - 4 < x < px + 4, py - 1 < y < py + 1 holds (x, y),
// or -1. Testing in order makes the lower index win where boxes overlap or touch.
int HitTest(const std::vector<UserPoint>& points, double x, double y);

// The "Invalid Action..." notice of a click on a plot where points are not selected.
// `plotName` is e.g. "Gulland and Holt Plot".
void NotifySelectOnOtherPlot(DialogService& dialogs, const std::string& plotName);

// Points that toggle between selected and not by click, with the active (hovered) point.
class PointSelection {
  public:
    // Replaces the points; their flags start as given (1 selected), or all 1 when empty.
    void setPoints(std::vector<UserPoint> points, std::vector<int> flags = {});
    const std::vector<UserPoint>& points() const { return points_; }
    const std::vector<int>& flags() const { return flags_; }

    // Mouse move: the hit point becomes active; returns whether one was hit (hot cursor).
    bool mouseMove(double x, double y);
    // Index of the active point, or -1 when none.
    int active() const { return active_; }
    // Click: toggles the active point's flag; returns whether anything changed (the caller
    // then redraws the plot and recomputes the analysis).
    bool click();
    // Read-out text of the active point, or "n.a." when none.
    std::string readOut(const std::vector<std::string>& texts) const;

  private:
    std::vector<UserPoint> points_;
    std::vector<int> flags_;
    int active_ = -1;
};

// Start and end of a range of points chosen by two clicks, left to right.
class RangeSelection {
  public:
    enum class Outcome { StartSet, EndSet, Refused };
    // A click on the point with index `index` at world x `x`.
    Outcome click(int index, float x, DialogService& dialogs);
    void reset();

    int startIndex() const { return startIndex_; }
    int endIndex() const { return endIndex_; }
    bool complete() const { return startIndex_ >= 0 && endIndex_ >= 0; }
    // The x values of start and end, or the one-element {-9999} before a complete range.
    std::vector<float> result() const;

  private:
    int startIndex_ = -1;
    int endIndex_ = -1;
    float startX_ = 0;
    float endX_ = 0;
};

}  // namespace norvo
