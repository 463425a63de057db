#pragma once
// The samples of the length-based analyses as the sample panel offers them: which samples, each
// sample transformed by its own total, temporal weighting, and the pool of the chosen samples.
// A negative frequency, or a sample without fish under percent or square root, refuses the file
// before anything is computed, whichever samples are chosen.
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"
#include "mortality/catch_curve.h"

namespace norvo {

// Whether sample s (0-based) is chosen; an empty mask chooses every sample.
bool IsSampleSelected(const std::vector<bool>& selected, int s);
bool AnySampleSelected(const std::vector<bool>& selected, int noOfSamples);

// Refused ("Invalid Data") at the first negative frequency, naming its sample and midlength (a
// file edited outside the program may hold one; the logarithms and roots would fail on it), or
// when the transformation divides by sample totals and a sample of the file holds no fish.
Outcome CheckSampleFrequencies(const LfqData& data, CcTransform kind);

// The file's frequencies freq[c][s], every sample transformed and, when asked, weighted by its
// temporal weight.
std::vector<std::vector<double>> PreparedFrequencies(const LfqData& data, CcTransform kind,
                                                     bool temporal);

// The pool of the chosen samples by class, 1-based (index 0 unused), summed in 32-bit floats.
std::vector<float> PoolSelectedSamples(const std::vector<std::vector<double>>& freq,
                                       const std::vector<bool>& selected);

}  // namespace norvo
