#pragma once
// The catch curve from file to probabilities of capture, in the steps the screen takes as the
// user reaches them and in one call (RunCatchCurve) for the command-line program.
#include "mortality/catch_curve.h"

namespace norvo {

// The whole analysis: the growth check, the curve, the default stretch or the chosen one with
// its fit, and, when options.extrapolate is set, the probabilities of capture. The run carries
// every notice on the way and the refusal that stopped it.
CatchCurveRun RunCatchCurve(const LfqData& data, const CatchCurveOptions& options);

// Sets and fits a chosen stretch (its ends in either order). Refused, with the run unchanged,
// when an end lies outside FirstClass..LastClass or the ends are fewer than 2 apart.
Outcome ChoosePoints(CatchCurveRun& run, int first, int last);

// Whether the probabilities of capture can be extrapolated: a fitted stretch on a plain
// (C = 0) curve.
Outcome CheckExtrapolation(const CatchCurveRun& run);

// M from the mean water temperature by Pauly's formula, with the temperature it took (the
// cold-water correction applied). Refused when the temperature is out of -2..31.
struct TemperatureMortality : Outcome {
    double t = 0;
    double m = 0;
};
TemperatureMortality MortalityAtTemperature(double t, const GrowthParams& growth);

// The mortalities checked, then the extrapolation; refused as CheckMortalities refuses.
Extrapolation ExtrapolateWith(const CatchCurveRun& run, double z, double m, double t);

// A value as the mortality dialogue shows it and reads it back: rounded to three decimals.
double AsShownInDialog(double v);
// The Z to use as the dialogue presets it from the curve's Z: two decimals.
double ZAsShownInDialog(double z);

}  // namespace norvo
