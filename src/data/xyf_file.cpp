#include "data/xyf_file.h"

#include <exception>

#include "data/data_store.h"

namespace norvo {

ReadResult<XyfData> ReadXYF(const std::string& path) {
    XyfData out;
    out.header.path = path;
    try {
        DataStore store = DataStore::open(path);
        {
            Records header = store.openRecords(std::string("SELECT * FROM [") + kTableXyf + "]");
            if (!header.endOfRecords()) {
                header.moveFirst();
                out.graphTitle = AsText(header.getField("Graph_Title"));
                out.xAxis = AsText(header.getField("X_axis"));
                out.yAxis = AsText(header.getField("Y_axis"));
                out.header.remarks = AsText(header.getField("Remarks"));
            }
            header.close();
        }
        Records rows = store.openRecords(std::string("SELECT * FROM [") + kTableXyfMeasures + "]");
        while (!rows.endOfRecords()) {
            out.x.push_back(AsFloat(rows.getField("X")));
            out.y.push_back(AsFloat(rows.getField("Y")));
            rows.moveNext();
        }
        rows.close();
        store.close();
    } catch (const std::exception&) {
        return InvalidDataError(path);
    }
    return out;
}

}  // namespace norvo
