#pragma once
// Shepherd's score of a pair of Loo and K against a grouped length-frequency file: how far the
// square-rooted frequencies of each class agree with a wave of one year along the growth curve,
// taken at two phases a quarter of a year apart. Also the starting point of the best curve and
// the defaults of the screen's fields.
#include <optional>
#include <vector>
#include "base/outcome.h"

#include "data/lfq_data.h"
#include "growth/elefan.h"
#include "growth/shown_number.h"

namespace norvo {

// The file as the score reads it. Sample s and class k count from 1.
struct ShepherdData {
    int nS = 0;
    int nC = 0;
    float firstMid = 0;  // midlength of class 1
    float ci = 0;        // class interval
    // Lower limit of class k at index k - 1 for k = 1..nC, then the upper limit of the last
    // class: nC + 1 values, each stored as a 32-bit float.
    std::vector<float> boundary;
    std::vector<float> sampleTime;  // time of sample s in the year, at index s - 1
    std::vector<float> freq;        // nS rows of nC

    float frequency(int s, int k) const {
        return freq[static_cast<size_t>(s - 1) * static_cast<size_t>(nC) + (k - 1)];
    }
    // (nC - 1) * CI + FirstMid.
    double topMid() const { return (nC - 1) * static_cast<double>(ci) + firstMid; }
};

ShepherdData ShepherdDataOf(const ElefanInput& input);
ShepherdData ShepherdDataOf(const LfqData& data);

// Refuses a file holding a negative frequency, naming its place: the score takes the square
// root of every frequency.
Outcome CheckShepherdFile(const LfqData& data);

// The phases of the two passes, in years.
inline constexpr double kShepherdPhase1 = 0;
inline constexpr double kShepherdPhase2 = 0.25;

struct ShepherdScoreParts {
    double s1 = 0;    // the sum of the pass at phase 0
    double s2 = 0;    // the sum of the pass at phase 0.25
    float score = 0;  // sqrt(s1^2 + s2^2)
    // The phase of the pass with the larger |S|; the first on a tie.
    double phase() const;
};

// Both sums and the score. K = 0 with any class limit below Loo divides by zero.
ShepherdScoreParts ShepherdScoreOf(const ShepherdData& d, float loo, float k);
float ShepherdScore(const ShepherdData& d, float loo, float k);

// The starting length of the curve of Loo and K at `phase` for the plot screen (starting sample
// 1), cut to one decimal: the curve is raised in whole years from the first sample's time - 1
// until it reaches the top midlength, taken back one year at phase 0.25, then back whole years
// while the curve a year earlier still lies at or above the first midlength. None when Loo is
// at or below the top midlength, where the curve never reaches it.
std::optional<float> ShepherdStartLength(const ShepherdData& d, float loo, float k, double phase);

inline constexpr float kShepherdStartSample = 1;

struct ShepherdDefaults {
    float lmax = 0;              // the largest midlength as a 32-bit float
    ShownNumber surfaceLooFrom;  // Lmax / 2
    ShownNumber surfaceLooTo;    // Lmax * 1.5
    ShownNumber kscanLoo;        // Lmax * 1.05
    ShownNumber surfaceKFrom;    // 0.01
    ShownNumber surfaceKTo;      // 10
};

ShepherdDefaults ReadDefaultsShepherd(double largestMl);

}  // namespace norvo
