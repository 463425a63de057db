#pragma once
// Natural mortality from growth parameters and mean habitat temperature (Pauly's equation), in
// a length form and a weight form.
#include "base/outcome.h"

namespace norvo {

enum class PaulyForm { Length, Weight };

inline constexpr const char* kPaulyLengthCaption = "Asymptotic lenth, Loo (cm):";
inline constexpr const char* kPaulyWeightCaption = "Asymptotic weight, Woo (g):";
inline constexpr const char* kPaulyLengthFormula =
    "log(M) = -0.0066 - 0.279 log(Loo) + 0.6543 log(K) + 0.4634 log(T)";
inline constexpr const char* kPaulyWeightFormula =
    "log(M) = -0.2107 - 0.0824 log(Woo) + 0.6757 log(K) + 0.4687 log(T)";
inline constexpr const char* kPaulyLengthRemark =
    "Loo is the asymptotic length measured in total length";
inline constexpr const char* kPaulyWeightRemark =
    "Woo is the asymptotic weight measured in total length";
inline constexpr const char* kPaulyLengthReportCaption = "Asymptotic length (Loo; in cm):";
inline constexpr const char* kPaulyWeightReportCaption = "Asymptotic weight (Woo; in g):";

inline constexpr const char* kPaulyInvalidTitle = "Invalid Input";
inline constexpr const char* kPaulyKMessage =
    "The K input exceeds limit (10 to 0.01). Please correct input.";
inline constexpr const char* kPaulyTMessage =
    "The mean habitat temperature input exceeds limit (31 to -2). Please correct input.";
// The weight form's size limits (0.5 .. 999999) carry this text.
inline constexpr const char* kPaulyCmSizeMessage =
    "The Loo input exceeds limit (999,999 to 0.5 cm). Please correct input.";
// The length form's size limits (1e-5 .. 999999999) carry this text.
inline constexpr const char* kPaulyGramSizeMessage =
    "The Loo input exceeds limit (1E-4 to 1E+9 g). Please correct input.";

inline constexpr const char* kPaulyMFormat = "#0.000";

// Temperatures at or below this are replaced by exp(2.4629 - 0.3042 T).
inline constexpr float kPaulyColdLimit = 3.5f;

struct PaulyInput {
    PaulyForm form = PaulyForm::Length;
    float size = 0;  // Loo in cm or Woo in g
    float k = 0;
    float t = 0;  // mean habitat temperature, deg C
};

struct PaulyResult : Outcome {
    double m = 0;
    double temperatureUsed = 0;  // T after the cold-water correction
};

// The temperature the formulas take for a typed T: at or below 3.5 deg C it is replaced by
// exp(2.4629 - 0.3042 T). The calculator and the catch curve both go through here.
double PaulyTemperature(double t);

// M by the length formula as displayed, log10 M = -0.0066 - 0.279 log10 Loo + 0.6543 log10 K +
// 0.4634 log10 T, computed in natural logarithms with the coefficients brought over as they
// stand (the catch curve's M). `t` is the temperature after PaulyTemperature.
double PaulyM(double loo, double k, double t);

PaulyResult ComputePaulyM(const PaulyInput& in);

}  // namespace norvo
