#pragma once
// Gillnet selection: the catches of two nets of different mesh sizes, one sample each in a
// grouped length-frequency file, give the log catch ratio by length; its straight line gives
// the length of best selection of each net and their selection curves. Arrays are 1-based by
// class (index 0 unused), as in the other length-based analyses.
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "numerics/regression.h"

namespace norvo {

inline constexpr const char* kGnInvalidInputsTitle = "Invalid Inputs...";
inline constexpr const char* kGnIncompleteText =
    "ERROR! Please complete the inputs for the sample and mesh sizes.";
inline constexpr const char* kGnMeshSizesText =
    "ERROR! Please check the inputs for the mesh sizes.";
inline constexpr const char* kGnInvalidFileTitle = "Invalid File...";
inline constexpr const char* kGnOverlapText =
    "ERROR! Insufficient overlap of classes to compute with condifence the selection parameters.";
inline constexpr const char* kGnCaption = "Gillnet Selection...";
inline constexpr const char* kGnReportTitle = "Gillnet Selection";
inline constexpr const char* kGnPrbRemarks = "Estimated from multiple gillnet survey.";
inline constexpr const char* kGnSaveTitle = "Save File...";
inline constexpr const char* kGnPrbFilter = "Probabilities (*.prb)|*.prb|All Files (*.*)|*.*";

// Two nets: the sample (1-based, 0 when not chosen) and mesh size (absent when not given) of
// the smaller and of the bigger mesh, and the plot form.
struct GillnetOptions {
    int sampleA = 0, sampleB = 0;
    std::optional<float> meshA, meshB;
    bool logNormal = false;
};

struct GillnetResult : Outcome {
    int nC = 0;
    double w = 0, firstMid = 0;
    float meshA = 0, meshB = 0;
    bool logNormal = false;
    std::vector<float> catchA, catchB;    // by class 1..nC
    std::vector<float> lnRatio, lengthX;  // the fitted points 1..points
    int points = 0;
    RegressionResult fit;
    double lA = 0, lB = 0;                      // lengths of best selection
    float s = 0;                                // spread of both curves (slot 4 of the fit)
    std::vector<float> selectionA, selectionB;  // by class 1..nC

    double midlength(int i) const { return (i - 1) * w + firstMid; }
};

// The checks in order, then the fit and the curves. Refused with the first failing check's
// notice; a slope or spread of 0 is the division fault.
GillnetResult ComputeGillnet(const LfqData& data, const GillnetOptions& options);

// The three probability files of a run: the sum of both curves, then each net's.
struct GillnetFiles {
    std::string sum, net1, net2;
};
// The base of the files: the chosen path without its extension.
GillnetFiles GillnetFileNames(const std::string& chosenPath);
// "The cummulative probability curve will be saved on <base>.PRB and ..."
std::string GillnetSaveQuestion(const std::string& base);
// Rows [length, probability] of one file: 0 the sum, 1 the smaller mesh, 2 the bigger.
std::vector<std::pair<double, double>> GillnetPrbRows(const GillnetResult& run, int which);
// Writes the three files from the PRB template, each with the source's header.
void SavePRBAll(const GillnetFiles& files, const std::string& programFolder, const LfqData& source,
                const GillnetResult& run);

}  // namespace norvo
