#pragma once
// Beverton and Holt relative yield and biomass per recruit under knife-edge selection, as
// functions of the exploitation ratio E, of M/K and of Lc/Loo: the formulae, the 2-D analysis
// with its reference points and the 10 x 10 surface. Inputs are 32-bit as the screens hold
// them; the guarded routines write E = 0.99999 back through the argument when E reaches 1.
#include <vector>

#include "base/outcome.h"
#include "stock/relative_ypr.h"

namespace norvo {

inline constexpr const char* kYprInputTitle = "Invalid Input";
inline constexpr const char* kYprMkText = "M/K must be a number above zero. Please check input.";
inline constexpr const char* kYprLcLooText =
    "Lc/Loo must be a number from 0 to 1. Please check input.";

// T(x) = 1 - 3U/(1 + x) + 3U^2/(1 + 2x) - U^3/(1 + 3x).
double KnifeT(double u, double x);
// Y'/R = E U^(M/K) T((1 - E)/(M/K)), U = 1 - Lc/Loo; E of 1 or more becomes 0.99999 first.
double RelativeYieldKnife(float mk, float lcLoo, float& e);
// B'/R = (1 - E) T((1 - E)/(M/K)) / T(1/(M/K)), with the same guard on E.
double RelativeBiomassKnife(float mk, float lcLoo, float& e);
// Y'/R without the guard: E = 1 is computed as it stands.
double RelativeYieldAt(float e, float mk, float lcLoo);

// The top of the Y' axis when the 2-D screen opens from the surface: the largest Y'/R over
// E = i/20 (i 1..20) and Lc/Loo = (j - 1)/20 (j 1..20), truncated form.
float YPrimeMaxFromSurface(float mk);
// After a change of M/K: over Lc/Loo = i/30 (i 0..29) and E = j/20 (j 0..19), rounded form.
float FindYPrimeMaxKnife(float mk);

// Refused unless M/K is above 0 and Lc/Loo lies in 0..1.
Outcome CheckKnifeInputs(float mk, float lcLoo);

// The 2-D analysis at one Lc/Loo.
struct KnifeAnalysis : Outcome {
    float mk = 0, lcLoo = 0;
    YieldCurveTable table;
    double e10 = 0, e50 = 0, eMax = 0;
    std::vector<CurvePoint> curveY, curveB;
    std::vector<YprRow> report;
    // Heights of the reference marks: Y' at E-10 and E-max, B' at E-50.
    double yAtE10 = 0, bAtE50 = 0, yAtEmax = 0;
};
KnifeAnalysis AnalyseKnife(float mk, float lcLoo);

// The surface: rows E = sum of i tenths in a 32-bit float (i 1..10), columns
// Lc/Loo = (j - 1)/10 (j 1..10); Y'/R or B'/R per cell.
std::vector<SurfaceRow> KnifeSurface(float mk, bool biomass);

}  // namespace norvo
