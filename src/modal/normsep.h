#pragma once
// NORMSEP: one sample split into normal components by maximum likelihood (the mixture fitted
// with the simplex), from start means typed by the user or taken from Bhattacharya's method.
#include <optional>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "numerics/normal_mixture.h"

namespace norvo {

inline constexpr const char* kNsCaption = "NORMSEP";
inline constexpr const char* kNsReportTitle =
    "Separation of Normal Distributions Using NORMSEP (Simplex algorithm)";
inline constexpr const char* kNsMeansTitle = "Invalid Input";
inline constexpr const char* kNsNoMeansText =
    "Please insert the start estimates for the means of the distributions";
inline constexpr const char* kNsNotAllMeansText =
    "Please insert the start estimates for the means of  all the distributions";

// The tolerance, start step and limit of a NORMSEP run.
MixtureOptions NormsepOptions();

// The classes of sample `sample` (1-based) of the file.
MixtureClasses SampleClasses(const LfqData& data, int sample);

struct NsComponent {
    double mean = 0, sd = 0, proportion = 0, population = 0;
    std::optional<double> si;  // (m[k] - m[k-1]) / ((s[k-1] + s[k]) / 2); none for the first
};

struct NormsepResult : Outcome {
    MixtureFit fit;
    double total = 0;                     // fish in the sample
    std::vector<NsComponent> components;  // in the order of the start means
};

// The run for one sample. `means` are the grid's start means, an empty cell being none:
// refused when none or only some are given, when there is no such sample, and with the
// mixture's failure notice when the fit does not converge.
NormsepResult RunNormsep(const LfqData& data, int sample,
                         const std::vector<std::optional<double>>& means);

}  // namespace norvo
