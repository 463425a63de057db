#include "support/xyf_fixtures.h"

#include <filesystem>

#include "data/data_store.h"
#include "support/test_paths.h"

namespace norvo::test {

std::string MakeXyfFile(const std::string& path, const std::vector<std::pair<float, float>>& xy,
                        const XyfTitles& titles) {
    std::filesystem::copy_file(BinDir() / "Templates" / "Template.XYF", path);
    DataStore store = DataStore::open(path);
    {
        Records h = store.openRecords("XYF");
        h.addNew();
        h.setField("Graph_Title", titles.graph);
        h.setField("X_axis", titles.x);
        h.setField("Y_axis", titles.y);
        h.setField("Remarks", titles.remarks);
        h.update();
        h.close();
    }
    Records rs = store.openRecords("XYF_Measures");
    for (const auto& [x, y] : xy) {
        rs.addNew();
        rs.setField("X", static_cast<double>(x));
        rs.setField("Y", static_cast<double>(y));
        rs.update();
    }
    rs.close();
    store.close();
    return path;
}

}  // namespace norvo::test
