#pragma once
// Two-column regression files for tests: the template copied, the header record and the pairs
// written in order.
#include <string>
#include <utility>
#include <vector>

namespace norvo::test {

struct XyfTitles {
    std::string graph = "Length-weight";
    std::string x = "Length";
    std::string y = "Weight";
    std::string remarks;
};

// Writes `path` (which must not exist) and returns it.
std::string MakeXyfFile(const std::string& path, const std::vector<std::pair<float, float>>& xy,
                        const XyfTitles& titles = {});

}  // namespace norvo::test
