#pragma once
// The regression tool: a straight line through pairs (X, Y) after one of nine transformations
// picked from a list. Each pair is transformed from its 32-bit values and stored as a 32-bit
// pair, which the common fits then take as they are.
#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "numerics/regression.h"

namespace norvo {

// The function forms, in the order of the list.
inline constexpr int kRegressFormCount = 9;
inline constexpr std::array<const char*, kRegressFormCount> kRegressForms = {
    "Y = a + b * X",         "Y = a' + b' * X",    "log(Y) = a + b * log(X)",
    "ln(Y) = a + b * X",     "Y = a + b * log(X)", "Y/X = a + b * X",
    "ln(1-Y/C) = a + b * X", "Y^C = a + b * X",    "Y = a + b * X^C"};
inline constexpr int kFormLinear = 0;
inline constexpr int kFormFunctional = 1;
inline constexpr int kFormLogLog = 2;
inline constexpr int kFormLnY = 3;
inline constexpr int kFormLogX = 4;
inline constexpr int kFormRatio = 5;
inline constexpr int kFormLnOneMinus = 6;
inline constexpr int kFormPowerY = 7;
inline constexpr int kFormPowerX = 8;

inline constexpr const char* kRegressFunctionPrefix = "Function: ";
inline constexpr const char* kRegressConstantPrompt = "Enter constant (C) to use.";
inline constexpr const char* kRegressInvalidInputTitle = "invalid Input";
inline constexpr const char* kRegressConstantAbove =
    "Input caused an undefined results. Constant should be greater than ";
inline constexpr const char* kRegressTryAgain = ". Please try again.";
inline constexpr const char* kRegressConstantBelow32 =
    "Input caused undefined results. Constant should less than 32. Please try again.";
inline constexpr float kRegressConstantLimit = 32.0f;

// Our own notices for what the list's guards leave open.
inline constexpr const char* kRegressConstantNotNumber =
    "The constant (C) must be a number. Please try again.";
inline constexpr const char* kRegressTooFewPairs =
    "The file holds fewer than two pairs (X, Y): no line can be fitted.";
inline constexpr const char* kRegressTooManyPairs =
    "The functional regression takes at most 32768 pairs.";
inline constexpr const char* kRegressUnknownForm = "There is no function form ";
inline constexpr const char* kRegressPairPrefix = "Pair ";
inline constexpr const char* kRegressPairCannot = " cannot be transformed: ";
inline constexpr const char* kRegressWhyLog =
    "the logarithm of a value at or below 0 is undefined.";
inline constexpr const char* kRegressWhyXZero = "Y/X is undefined for X = 0.";
inline constexpr const char* kRegressWhyCZero = "Y/C is undefined for C = 0.";
inline constexpr const char* kRegressWhyOneMinus =
    "1 - Y/C is at or below 0, so its logarithm is undefined.";
inline constexpr const char* kRegressWhyFractional =
    "a negative number to a fractional power C is undefined.";
inline constexpr const char* kRegressWhyZeroNegative = "0 to a negative power C is undefined.";

// Whether a form asks for the constant C (forms 6, 7 and 8).
bool FormNeedsConstant(int form);
// "Function: " + the form's text.
std::string FunctionTitle(int form);

// The guards on C: a number of the 32-bit range, above the 32-bit largest Y for form 6, below
// 32 for forms 7 and 8. Refused with the title "invalid Input" and the guard's text; the
// largest Y is shown in "#0.000" with `decimalSeparator`. A form without C is never refused.
Outcome CheckConstant(int form, double c, std::span<const float> y, char decimalSeparator = '.');

// Which axes carry a logarithm: both in form 2, y in forms 3 and 6, x in form 4.
bool AxisHasLog(int form, bool yAxis);
// The axis title: "log(" + title + ")" on an axis with a logarithm, the title otherwise.
std::string AxisTitle(int form, bool yAxis, const std::string& title);
// Whether an axis shows its numbers through an inverse: both axes of form 2, y in forms 3 and 6
// (form 4 keeps ln X on its x axis).
bool AxisHasInverse(int form, bool yAxis);
// The number an axis shows for a value of the transformed space: 10^v on both axes of form 2,
// exp(v) on y in forms 3 and 6, v elsewhere.
double AxisNumber(int form, bool yAxis, double v);

// The pairs of a form in the transformed space, in the order given. Refused, with the first
// pair the form cannot transform named in the notice (rows counted from 1), before any fit.
struct TransformedPairs : Outcome {
    std::vector<float> x;
    std::vector<float> y;
};
TransformedPairs TransformPairs(int form, std::span<const float> x, std::span<const float> y,
                                float c, char decimalSeparator = '.');

struct RegressOptions {
    int form = kFormLinear;
    double c = 0;                 // read for forms 6 to 8 only, as a 32-bit number
    char decimalSeparator = '.';  // of the numbers in the notices
};

// One run of the tool: the constant checked, the pairs transformed and the straight line fitted
// (the functional fit for form 1, the ordinary one otherwise). A fault of the fit itself (a
// single pair, a constant x with varying y) is raised as the fit raises it.
struct RegressRun : Outcome {
    int form = kFormLinear;
    std::optional<float> c;  // the constant taken, for forms 6 to 8
    std::vector<float> x;    // the transformed pairs
    std::vector<float> y;
    RegressionResult fit;
};
RegressRun RunRegression(std::span<const float> x, std::span<const float> y,
                         const RegressOptions& options);

}  // namespace norvo
