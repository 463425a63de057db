#pragma once
// Relative yield and biomass per recruit with a logistic selection ogive in place of the
// knife-edge: the sum over the length classes of a selection table, the lengths L-50 and L-75
// read from the table, the 2-D analysis and the 20 x 20 surface over E and L50/Loo.
#include <string>
#include <vector>

#include "base/outcome.h"
#include "stock/relative_ypr.h"

namespace norvo {

inline constexpr const char* kOgiveTableText =
    "The selection table needs at least two rows of lengths. Please load a selection file.";
inline constexpr const char* kOgiveL50Text =
    "No length at 50% selection (L-50) could be found: the probabilities stay below 0.5. "
    "Please enter L-50 and L-75.";
inline constexpr const char* kOgiveL75Text = "L-75 must differ from L-50. Please check input.";
inline constexpr const char* kOgiveLooText = "Loo must be a number above zero. Please check input.";

// The classes of the integration and the two lengths of the ogive's scale. Li = l1 + (i - 1) dL
// for i from 1 to n.
struct OgiveClasses {
    float l1 = 0, dL = 0;
    int n = 0;
    float l50Box = 0, l75Box = 0;  // the lengths as the boxes show them
};

// Y'/R (E of 1 or more becomes 0.99) and B'/R (0.99999) at one point. All arguments may be
// changed as the guards write back: a negative L50/Loo becomes 0.01.
double RelativeYieldSelection(const OgiveClasses& cls, float& mk, float& l50Loo, float& loo,
                              float& e);
double RelativeBiomassSelection(const OgiveClasses& cls, float& mk, float& l50Loo, float& loo,
                                float& e);

// The lengths at 50% and 75% selection from the table's rows: linear between the first row
// above the level and the row before it, walking from the second row.
struct OgiveLengths {
    double l50 = 0, l75 = 0;
    std::string l50Text, l75Text;  // "#0.00"
};
OgiveLengths FindOgiveLengths(const std::vector<float>& length, const std::vector<float>& prob);
// Loo proposed from the table when none is typed: last length x 1.05, "#0.00".
std::string ProposedLooText(const std::vector<float>& length);

// Refused when the table can't give a class width, when L-50 is 0 or equals L-75, or Loo is
// not above 0.
Outcome CheckOgiveInputs(const OgiveClasses& cls, float mk, float loo);
// The classes of a table (its first two lengths and row count) with the boxes' lengths.
OgiveClasses ClassesOfTable(const std::vector<float>& length, float l50Box, float l75Box);

// Top of the Y' axis: the largest Y'/R over L50/Loo = i/30 (i 0..29) and E = j/20 (j 0..19),
// times 1.1, not rounded.
float FindYPrimeMaxSelection(const OgiveClasses& cls, float mk, float loo);

struct OgiveAnalysis : Outcome {
    float mk = 0, l50Loo = 0, loo = 0;
    YieldCurveTable table;
    double e10 = 0, e50 = 0, eMax = 0;
    std::vector<CurvePoint> curveY, curveB;
    std::vector<YprRow> report;
    double yAtE10 = 0, bAtE50 = 0, yAtEmax = 0;
};
OgiveAnalysis AnalyseOgive(const OgiveClasses& cls, float mk, float l50Loo, float loo);

// The surface: rows E = sum of i twentieths in a 32-bit float (i 1..20), columns
// L50/Loo = (j - 1)/20 (j 1..20).
std::vector<SurfaceRow> OgiveSurface(const OgiveClasses& cls, float mk, float loo, bool biomass);

}  // namespace norvo
