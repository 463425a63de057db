#pragma once
// Reader of two-column regression files (kind XYF): the header table XYF and the pairs of
// XYF_Measures in the order of the grid.
#include <string>
#include <vector>

#include "data/lfq_data.h"
#include "data/read_result.h"

namespace norvo {

inline constexpr const char* kTableXyf = "XYF";
inline constexpr const char* kTableXyfMeasures = "XYF_Measures";

struct XyfData {
    LfqData header;  // the shared header: path and remarks
    std::string graphTitle;
    std::string xAxis;
    std::string yAxis;
    std::vector<float> x;  // one entry per row, null read as 0
    std::vector<float> y;
};

// Reads the whole file, or gives the "Invalid Data" read error when it cannot be opened or read.
ReadResult<XyfData> ReadXYF(const std::string& path);

}  // namespace norvo
