#pragma once
// Fills the scoring engine's input from the image of a grouped length-frequency file.
#include "base/outcome.h"
#include "data/lfq_data.h"
#include "growth/elefan.h"

namespace norvo {

// Class interval, first midlength and frequencies are taken as 32-bit floats, as the screen
// copies them.
ElefanInput ElefanInputFromLfq(const LfqData& data);

inline constexpr const char* kElefanNoFishText =
    "The file holds no fish: every frequency in it is 0. ELEFAN I needs at least one sample "
    "with fish.";

// Refuses a file without a single non-zero frequency: the restructuring would have no sample
// to work on and no peak to score.
Outcome CheckElefanFile(const LfqData& data);

}  // namespace norvo
