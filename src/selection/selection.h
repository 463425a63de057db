#pragma once
// Trawl-type selection: from the probability of capture of each length class, the lengths at
// which 25%, 50% and 75% of the fish are retained, by a logistic fit on logits or by a running
// average. Arrays are 1-based by class like those of the catch curve; index 0 is the position
// before the first class.
#include <string>
#include <vector>

#include "base/outcome.h"
#include "numerics/regression.h"

namespace norvo {

// The plain notice of a refused logit fit carries the program's name as its title.
inline constexpr const char* kSelNoticeTitle = "Norvo II";
inline constexpr const char* kSelPositiveSlopeText =
    "ERROR! Redo point selection to get a positive slope or use moving average for this data.";
inline constexpr const char* kSelInvalidActionTitle = "Invalid Action";
inline constexpr const char* kSelTooFewPointsText =
    "More than 2 points are required by this method. Please check.";
inline constexpr const char* kSelNoSelectionTitle = "No Selection";
inline constexpr const char* kSelNoSelectionText =
    "Position the cursor to the desired point that should be selected and click the mouse.";
inline constexpr const char* kSelClickNote = "NOTE: Click the data points to select or deselect.";
inline constexpr const char* kSelChooseOption =
    "Please select the option to use for the estimation of the the selection parameters.";
inline constexpr const char* kSelPlotTitle = "Probability of Capture";
inline constexpr const char* kSelPlotYLabel = "Probability";
inline constexpr const char* kSelLogitTitle = "Logistic Transformation";
inline constexpr const char* kSelLogitYLabel = "Logits";
inline constexpr const char* kSelTrawlTitle = "Trawl-Type Selection Curve";
inline constexpr const char* kSelPrbRemarks = "Estimated from Length-converted Catch Curve";
inline constexpr const char* kSelPrbFilter = "Probabilities (*.prb)|*.prb|All Files (*.*)|*.*";

// "Length Classes (<unit>)"
std::string LengthClassesLabel(const std::string& unit);

// What both estimators work on: probabilities by class 1..nC (index 0 unused), the first
// usable class and the first point of the catch curve's fitted stretch.
struct SelectionInput {
    std::vector<float> probability;
    int nC = 0;
    int firstClass = 1;
    int firstPoint = 1;
    double w = 1;
    double firstMid = 0;
    double midlength(int i) const { return (i - 1) * w + firstMid; }
};

// The input from a probabilities file: the first class is the first with a probability above
// 0, the first point the first from there with a probability of 1 (the last class if none).
SelectionInput SelectionInputFromPrb(const std::vector<float>& length,
                                     const std::vector<float>& probability);

// Logit points: index 0 is the leading point at firstMid - w (logit 0), then firstClass..nC.
struct LogitPoints {
    std::vector<float> logit, x;
    std::vector<bool> selected;
    int firstClass = 1;
};
// Builds the points; a probability of 1 or more is stored back as 0.99999.
LogitPoints MakeLogitPoints(SelectionInput& input);
int SelectedCount(const LogitPoints& points);

// The fit of the selected points. A slope of 0 or below (or fewer than two points) refuses it
// before anything is divided by it; the refused fit carries nothing.
struct LogitFit : Outcome {
    RegressionResult fit;
};
LogitFit Regress1(const LogitPoints& points);
// Toggles point i; refused, with no change, when fewer than 3 would remain.
Outcome TogglePoint(LogitPoints& points, int i);

struct SelectionCurve {
    std::vector<float> smoothed;      // at midlengths, index 0 the leading point
    std::vector<float> smoothedEdge;  // at the lower limit of each class
    float l25 = 0, l50 = 0, l75 = 0;
    double a = 0, b = 0, r = 0;  // of the logit fit; 0 for the running average
};
// The logistic curve of a logit fit with b > 0.
SelectionCurve LogisticCurve(const SelectionInput& input, const LogitPoints& points, double a,
                             double b);
// The running-average estimator with its forced ones and the half-class interpolation.
// Changes the input's probabilities as the method does.
SelectionCurve RunningAverage(SelectionInput& input);

// Writes a PRB file from its empty template: one header row, one row per class.
struct PrbHeader {
    std::string speciesname, otherId, unit;
};
// Refused, with nothing written, when the path is not a .prb file (the file would be of no kind
// the program opens) or the file cannot be written.
Outcome SaveProbabilities(const std::string& path, const std::string& programFolder,
                          const PrbHeader& header, const SelectionInput& input);

}  // namespace norvo
