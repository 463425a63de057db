#pragma once
// Fills the scoring engine's input from the image of a grouped length-frequency file.
#include "data/lfq_data.h"
#include "growth/elefan.h"

namespace norvo {

// Class interval, first midlength and frequencies are taken as 32-bit floats, as the screen
// copies them.
ElefanInput ElefanInputFromLfq(const LfqData& data);

}  // namespace norvo
