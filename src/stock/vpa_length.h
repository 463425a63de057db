#pragma once
// Virtual population analysis by length class (length-cohort analysis): population N, fishing
// mortality F and steady-state biomass of each class from the catches of one or more samples of
// a grouped length-frequency file. Arrays of a run are 1-based by class (index 0 unused).
//
// Classes from `nUsed` + 1 to n are plus-groups: their catches join the terminal class nUsed,
// and they get F = Ft with no population. Loo limits the classes that can be used: a class
// must end below Loo to have a duration.
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "data/species_files.h"
#include "mortality/catch_curve.h"

namespace norvo {

// Texts.
inline constexpr const char* kVpaLengthTitle = "Length-Structured VPA";
inline constexpr const char* kVpaNoSampleTitle = "Invalid Action";
inline constexpr const char* kVpaNoSampleText =
    "No data was selected. Please select at least one sample to include in the analysis to "
    "continue.";
inline constexpr const char* kVpaPlusAdjustedTitle = "Norvo II";
inline constexpr const char* kVpaPlusAdjustedText =
    "The current value of Loo does not allow calculation of LCA with all length-groups "
    "as defined. The number of plus-groups was automatically adjusted to allow correct "
    "calculations.";
inline constexpr const char* kVpaLengthInputTitle = "Invalid Input";
inline constexpr const char* kVpaLengthFtText =
    "The terminal fishing mortality (F) must be above 0: the population of the terminal class "
    "is derived by dividing by it. Please correct input.";
inline constexpr const char* kVpaLengthKText =
    "The growth constant K must be above 0: the time to grow through a class is divided by it. "
    "Please correct input.";
inline constexpr const char* kVpaLengthMText =
    "The natural mortality (M) cannot be negative. Please correct input.";
inline constexpr const char* kVpaPlusGroupsText =
    "The number of plus-groups must be at least 0 and leave at least two length groups for the "
    "analysis. Please correct input.";
inline constexpr const char* kVpaLooInFirstClassText =
    "The current value of Loo lies within the first length group, so no length group can be "
    "used. Please correct Loo.";
inline constexpr const char* kVpaNoClassesText = "The file holds no length groups to analyse.";

// LengthCohortStep's iteration: at most this many rounds, stopping on this change of Er.
inline constexpr int kLcaRoundLimit = 100;
inline constexpr double kLcaTolerance = 1e-5;
// Stands in for an empty next class so that the step still has a population to start from.
inline constexpr double kLcaEmptyNext = 1e-15;

// Number of whole classes of width dL from L1 that lie below Loo: Fix((Loo - L1) / dL).
int ClassesBelowLoo(double l1, double dL, double loo);

// Mean weight over a class of width w from L, without division by w:
// (a / (b + 1)) ((L + w)^(b + 1) - L^(b + 1)).
double ClassWeight(double l, double w, double a, double b);

struct CohortStep {
    double n = 0;    // population at the start of the class
    double f = 0;    // fishing mortality per year
    int rounds = 0;  // rounds of the iteration (0 when the catch is 0)
};
// One class back from the next one's population Nn, with catch C, M and the class duration dt.
CohortStep LengthCohortStep(double nn, double c, double m, double dt);

struct LengthVpaOptions {
    std::vector<bool> selected;  // by sample, 0-based; empty selects all
    CcTransform transform = CcTransform::Raw;
    bool temporal = false;
    float raise = 0;  // catches of the used classes are multiplied by 10^raise
    float a = 0.0001f, b = 3.0f;
    float m = 0, ft = 0, loo = 0, k = 0;
    int plusGroups = 0;
};

struct LengthVpaResult : Outcome {
    int n = 0;           // classes of the file
    int nUsed = 0;       // classes in the calculation, the last one terminal
    int plusGroups = 0;  // after the adjustment to Loo
    bool plusAdjusted = false;
    double L1 = 0, dL = 0;
    std::vector<double> mid, Dt;          // 1..n
    std::vector<float> C, N, F, Biomass;  // 1..n
    double cPlus = 0;                     // catch of the terminal class with its plus-groups
    std::vector<int> rounds;              // 1..n
};

// Validates the options against the file; refused with the first failing check.
Outcome CheckLengthVpa(const LfqData& data, const LengthVpaOptions& options);

// The catch vector C[1..n] (32-bit sums over the selected samples, after transformation and
// temporal weighting, the used classes raised by 10^e). The options must have passed the check.
std::vector<float> LengthVpaCatches(const LfqData& data, const LengthVpaOptions& options,
                                    int nUsed);

// The whole analysis, with the plus-group notice when Loo forced more plus-groups.
LengthVpaResult RunLengthVpa(const LfqData& data, const LengthVpaOptions& options);

inline constexpr const char* kSpeciesSavedTitle = "File Saved...";
std::string SpeciesSavedText(const std::string& name);

// The species file of a run: the header from the file and the inputs, Recruit the first class's
// population, and per class its mid-length, F and the default value.
SpeciesData LengthVpaSpecies(const LfqData& data, const LengthVpaOptions& options,
                             const LengthVpaResult& r);
// Writes it as a new file made from the SPC template beside the program; the file appears
// whole or not at all.
void SaveLengthVpaSpecies(const std::string& path, const std::string& programFolder,
                          const SpeciesData& species);

}  // namespace norvo
