#pragma once
// The parts of the relative yield-per-recruit analyses that the knife-edge and the selection
// ogive share: the 21-element table of Y'/R and B'/R over E, the reference points E-10, E-50
// and E-max found from it, the curves of the 2-D plot and the tops of the Y' axis. The model
// itself comes in as an evaluator of one E; inputs are 32-bit as the screens store them, and
// an evaluator may write a guarded E back through its argument.
#include <array>
#include <functional>
#include <vector>

namespace norvo {

// Y'/R or B'/R at one E. The evaluator may change e (the guard that keeps E below 1).
using YprEvaluator = std::function<double(float& e)>;

// Y'/R and B'/R at E = 0.05 i for i from 1 to 20, element 20 at E = 0.99. Element 0 of y is
// set to 0 by the E-10 search; element 0 of b stays 0.
struct YieldCurveTable {
    std::array<float, 21> y{};
    std::array<float, 21> b{};
};

// Fills the table from e = 0.05, each next E rounded to hundredths so that no error builds up.
YieldCurveTable FillYieldCurveTable(const YprEvaluator& yield, const YprEvaluator& biomass);

// E at which B'/R falls to 0.5 by interpolation in the table; 1 when it never does, 0 when
// the bracketing step does not fall.
double FindE50(const YieldCurveTable& table);

// E of the highest Y'/R: after the first fall in the table, a search in steps of 0.001 over
// the two table steps around it. 1 when the table never falls or no value beats the table's.
double FindEmax(const YieldCurveTable& table, const YprEvaluator& yield);

// E at which the slope of Y'/R is a tenth of its slope at the origin, minus one table step.
// `yield` serves every evaluation but one; `yieldAtA` re-evaluates the new lower point of
// the bracket. Sets table.y[0] to 0. An arithmetic fault after 100000 passes.
double FindE10(double eMax, YieldCurveTable& table, const YprEvaluator& yield,
               const YprEvaluator& yieldAtA);

// A point of a 2-D curve: the E the routine worked at and its value.
struct CurvePoint {
    float e = 0;
    double value = 0;
};
// The curve over E from 0 in steps of 0.1 while E is below 1.04, with a 32-bit counter that
// the evaluator's guard may change: the 11th point lies at the guarded E.
std::vector<CurvePoint> YprCurve(const YprEvaluator& f);

// The report's rows: E = 0.1, 0.2, ..., 0.9 and 0.99.
inline constexpr std::array<float, 10> kYprReportE = {0.1f, 0.2f, 0.3f, 0.4f, 0.5f,
                                                      0.6f, 0.7f, 0.8f, 0.9f, 0.99f};
struct YprRow {
    float e = 0;
    double y = 0, b = 0;
};
std::vector<YprRow> YprReportRows(const YprEvaluator& yield, const YprEvaluator& biomass);

// Tops of the Y' axis from the largest Y'/R found: the surface's form truncates
// (0.1 y + y) to hundredths, the 2-D form rounds 1.1 y to hundredths, halves to even.
float YPrimeTopTruncated(double largest);
float YPrimeTopRounded(double largest);

// One row of a surface: the E of the row (as the guard left it) and a value per column.
struct SurfaceRow {
    float e = 0;
    std::vector<double> values;
};

}  // namespace norvo
