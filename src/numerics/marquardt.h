#pragma once
// Constrained nonlinear least squares by Marquardt's method with numerical derivatives, for the
// growth models below (chosen by number). Estimates and limits are 32-bit; the work is 64-bit.
// Parameters with equal lower and upper limits are constants: they keep their start values.
#include <functional>
#include <string>
#include <vector>

namespace norvo {

// The model numbers.
inline constexpr int kMarquardtVbgf = 1;               // Loo, K, t0
inline constexpr int kMarquardtSeasonal = 2;           // Loo, K, t0, C, WP
inline constexpr int kMarquardtAppeldoorn = 3;         // Loo, K, C, WP on growth increments
inline constexpr double kMarquardtPiTwo = 2 * 3.1416;  // the four-decimal two pi of the models
inline constexpr int kMarquardtMaxParams = 5;
inline constexpr int kMarquardtMaxIterations = 1000;
inline constexpr float kMarquardtLeftOut = -9999.0f;  // x of an observation left out

// Fit messages, by end state.
inline constexpr const char* kMqAssumptionsNotMet = "NOTE: Assumptions not met";
inline constexpr const char* kMqLambdaLarge =
    "NOTE: Convergence criterion met, but lambda is large.";
inline constexpr const char* kMqImpossible = "NOTE: Algorithm impossibility. Error.";
// The wording is the program's own (it means "no further improvement possible").
inline constexpr const char* kMqNoImprovement =
    "NOTE: No further improvement impossible.  Convergence assumed.";
inline constexpr const char* kMqConverged = "NOTE: Convergence criterion met.";

// Marks of the estimates.
inline constexpr const char* kMqAtMinimum = "*";
inline constexpr const char* kMqAtMaximum = "**";
inline constexpr const char* kMqConstant = "***";

// One observation: x the independent variable (t, or the recapture time ta of model 3), y the
// dependent one; model 3 adds the release time tb and the length at tagging.
struct MarquardtObs {
    float x = 0;
    float y = 0;
    float tb = 0;
    float length = 0;
};

struct MarquardtOptions {
    int model = kMarquardtVbgf;
    std::vector<float> start;  // one per parameter, in the model's order
    std::vector<float> lower;
    std::vector<float> upper;
    // Receives the iteration count before each iteration.
    std::function<void(int)> progress;
};

struct MarquardtResult {
    int icon = 0;         // end state: 0 converged, -1 no improvement, -4 lambda large, ...
    std::string message;  // "" when the iterations ran out
    int iterations = 0;
    double lambda = 0;
    std::vector<float> b;       // estimates
    std::vector<float> stdErr;  // asymptotic standard errors; 0 where not estimable
    std::vector<std::string> stars;
    std::vector<float> fitted;  // model values; -9999 for left-out observations
    bool assessed = false;      // false when the fit was not run (too many parameters)
    double phi = 0;             // sum of squares at the estimates
    double r2 = 0;
    double adjustedR2 = 0;
};

// Model value at one observation, in 64-bit floats; an overflow is an arithmetic fault.
double MarquardtModel(int model, const std::vector<double>& b, const MarquardtObs& obs);

// The fit. Faults: an overflow in the model, no degrees of freedom left for the standard
// errors, a singular information matrix, no spread in y.
MarquardtResult MarquardtFit(const std::vector<MarquardtObs>& data,
                             const MarquardtOptions& options);

}  // namespace norvo
