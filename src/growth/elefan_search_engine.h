#pragma once
// The ELEFAN I scoring engine of a grouped length-frequency file, as the searches see it.
#include <memory>
#include <utility>

#include "data/lfq_data.h"
#include "growth/elefan.h"
#include "growth/elefan_search.h"

namespace norvo {

class ElefanFileScorer : public RnScorer {
  public:
    // The default starting point (sample, length) chosen against the given Loo.
    virtual std::pair<float, float> defaultStart(float loo) const = 0;
};

// Restructures the file once; the result scores on any number of threads at once.
std::unique_ptr<ElefanFileScorer> MakeElefanScorer(const LfqData& data);
std::unique_ptr<ElefanFileScorer> MakeElefanScorerFromInput(const ElefanInput& input);

}  // namespace norvo
