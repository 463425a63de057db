#pragma once
// The shared image of a grouped length-frequency file (filled by ReadLFQ).
#include <string>
#include <vector>

namespace norvo {

struct LfqData {
    std::string path;  // what the image holds
};

}  // namespace norvo
