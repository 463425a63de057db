#pragma once
// Reader of two-column regression files (kind XYF): the header table XYF and the pairs of
// XYF_Measures in the order of the grid.
#include <string>
#include <vector>

namespace norvo {

inline constexpr const char* kTableXyf = "XYF";
inline constexpr const char* kTableXyfMeasures = "XYF_Measures";

struct XyfData {
    std::string graphTitle;
    std::string xAxis;
    std::string yAxis;
    std::string remarks;
    std::vector<float> x;  // one entry per row, null read as 0
    std::vector<float> y;
};

// Reads the whole file. Throws StoreError when the file cannot be opened or read.
XyfData ReadXYF(const std::string& path);

}  // namespace norvo
