#pragma once
// Gulland and Holt's plot: growth rate per day against mean length of tagged fish. The
// straight line through the points (or through a fixed Loo and the points' means) gives
// K = -b * 365 and Loo = -a / b; the deviations of the rates from the line are tested for a
// seasonal oscillation.
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/sample_readers.h"
#include "numerics/regression.h"

namespace norvo {

inline constexpr const char* kGhTitle = "Gulland and Holt Plot";
inline constexpr const char* kGhPlotName = "Gulland and Holt Plot";
inline constexpr const char* kGhNoFixedText = "No fixed value was encoded. Please check the input.";
inline constexpr const char* kGhNoFixedTitle = "Invalid Action...";
inline constexpr const char* kGhRefusedText =
    "Loo can not be estimated from the Gulland & Holt plot. The regression coefficient may be "
    "positive or Loo estimate is extremely high. Try fixing the Loo to estimate the other "
    "parameters.";
inline constexpr const char* kGhRefusedTitle = "Unable to compute...";
// Our own: a line needs mean lengths that differ.
inline constexpr const char* kGhSameLengthText =
    "All selected rows have the same mean length, so no line can be fitted through them.";
inline constexpr const char* kGhTooFewText = "Fewer than 3 rows are selected: no line is fitted.";
inline constexpr double kGhLooCeiling = 999;
inline constexpr double kSeasonalPi = 3.1416;
inline constexpr double kDefaultWinterDay = 296;

// The text line of an amplitude C, in the order of the tests ("not significant" below 0.05,
// "small" from 0.1 to 0.5, "strong" above 0.5 up to 1, "very significant" for all else).
std::string SeasonalText(double c);

// The straight line of rate on mean length and what it gives. `x` and `y` hold the selected
// rows only.
struct GullandHoltLine : Outcome {
    std::vector<float> x, y;
    RegressionResult regression;
    std::optional<float> fixedLoo;
    bool noResult = false;  // fewer than 3 rows: nothing computed, nothing said
    bool fitted = false;    // the regression ran
    float a = 0, b = 0;     // the line in use (through the fixed Loo when one is given)
    float loo = 0, k = 0;   // Loo is 0 when b = 0 stopped the run before the division

    int n() const { return static_cast<int>(x.size()); }
    // Whether the line and its estimates stand (not refused, fitted).
    bool hasLine() const { return ok() && fitted; }
};

// The line through the points: the fixed-value test, the count test, the regression, the
// fixed-Loo form, then the refusal when b >= 0, Loo >= 999 or Loo >= 3 x `largestLength`.
GullandHoltLine FitGullandHoltLine(std::vector<float> x, std::vector<float> y, float largestLength,
                                   std::optional<float> fixedLoo);

// The seasonal test on the deviations of the rates from the line.
struct SeasonalPoint {
    int day = 0;           // mid date as a day of the year, 0..364
    double deviation = 0;  // 100 (rate - line) / line
};
struct SeasonalFit {
    std::vector<SeasonalPoint> points;  // rows where the line is above 0
    double p = 0, q = 0;                // deviation = p sin(w d) + q cos(w d)
    double c = 0;                       // amplitude / 100
    double winterDay = kDefaultWinterDay;
    bool degenerate = true;
    std::string text;

    double winterPoint() const { return winterDay / 365.0; }
    // The fitted curve at a day of the year.
    double curve(double day) const;
};
// `days` the rows' mid days of the year, `x` their mean lengths, `y` their rates.
SeasonalFit FitSeasonal(const std::vector<int>& days, const std::vector<float>& x,
                        const std::vector<float>& y, float a, float b);

struct GullandHoltOptions {
    std::vector<bool> selected;     // by row; missing rows are selected
    std::optional<float> fixedLoo;  // present when the fixed Loo is on, as entered
};

struct GullandHoltResult : GullandHoltLine {
    std::vector<bool> selected;  // by row
    std::vector<int> rowOf;      // row index of each point
    SeasonalFit seasonal;        // filled when the line stands
};

// The whole plot from the rows of a file: rate (L2 - L1) / days and mean length per selected
// row, in 32-bit, with no pre-selection.
GullandHoltResult GullandHolt(const std::vector<GinRow>& rows, const GullandHoltOptions& options);

}  // namespace norvo
