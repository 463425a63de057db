#pragma once
// A mixture of normal distributions over length classes, fitted by maximum likelihood with the
// simplex. A component is (mean, sd, proportion); the last component's proportion is implied
// (1 minus the others), so n components take 3n - 1 parameters.
#include <vector>

#include "base/outcome.h"
#include "numerics/simplex.h"

namespace norvo {

inline constexpr const char* kMixtureFailedText =
    "The routine could not find a set of acceptable parameter estimates with the starting "
    " estimates provided. Please check and provide another set of starting estimates.";
inline constexpr const char* kMixtureTitle = "Separation of Normal Distributions";
inline constexpr const char* kMixtureNoMeanText = "At least one start mean is required.";
inline constexpr const char* kMixtureEmptyText =
    "The sample holds no fish: its frequencies add up to nothing.";

// The classes of a sample: midpoints at first + i * width, and their frequencies.
struct MixtureClasses {
    double firstMid = 0;
    double width = 0;
    std::vector<double> observed;
    // The span of the occupied classes: lower limit of the first, upper limit of the last.
    double low() const;
    double high() const;
    double mid(size_t i) const { return firstMid + static_cast<double>(i) * width; }
};

// Number of components of a parameter vector: the integer part of (length + 1) / 3.
int ComponentCount(size_t parameters);

// -sum O[i] ln E[i] over the classes with O[i] > 0 and E[i] > 0, where E[i] is the mixture's
// density at the class midpoint, each component truncated to the occupied span.
double NegLogLikelihood(const std::vector<double>& parameters, const MixtureClasses& classes);

struct MixtureComponent {
    double mean = 0, sd = 0, proportion = 0;
};

struct MixtureFit : Outcome {
    int code = 0;  // the simplex's result code
    double nll = 0;
    int restarts = 0;
    int64_t evaluations = 0;
    std::vector<MixtureComponent> components;  // in the order of the start means
};

struct MixtureOptions {
    double tolerance = 1e-8;
    double step = 0.15;
    int64_t limit = 100000;
    double spacingLimit = 0;  // lowest relative spacing of the sorted means
};

// The start vector: the means as given, sd = max(w/2, (high - low)/(4n)), proportions 1/n.
std::vector<double> MixtureStart(const std::vector<double>& means, const MixtureClasses& classes);
// Box and further condition of the mixture's parameters (see the .cpp).
SimplexOptions MixtureLimits(size_t parameters, const MixtureClasses& classes,
                             const MixtureOptions& options);

// Fits the mixture from the start means. Refused without a start mean or without fish, and
// with the failure notice when the simplex does not converge.
MixtureFit FitNormalMixture(const MixtureClasses& classes, const std::vector<double>& startMeans,
                            const MixtureOptions& options = {});

}  // namespace norvo
