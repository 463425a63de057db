#include "support/growth_fit_fixtures.h"

#include <cmath>
#include <filesystem>

#include "data/data_store.h"
#include "support/test_paths.h"

namespace norvo::test {
namespace {

constexpr int kMonthStart[13] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
constexpr double kPiTwo = 2 * 3.1416;

}  // namespace

std::string MakeLaaFile(const std::string& path, const std::vector<LaaRowIn>& rows,
                        const std::string& ageUnit, const std::string& species) {
    std::filesystem::copy_file(BinDir() / "Templates" / "Template.LAA", path);
    DataStore store = DataStore::open(path);
    {
        Records h = store.openRecords("LAA");
        h.addNew();
        h.setField("Speciesname", species);
        h.setField("Other_ID", std::string("Test"));
        h.setField("Unit_Of_Length_Measurement", std::string("cm"));
        h.setField("Unit_Of_Age_Measurement", ageUnit);
        h.update();
        h.close();
    }
    Records rs = store.openRecords("LAA_Measures");
    for (const auto& r : rows) {
        rs.addNew();
        rs.setField("Age", static_cast<double>(r[0]));
        rs.setField("Length", static_cast<double>(r[1]));
        rs.setField("WF", static_cast<double>(r[2]));
        rs.update();
    }
    rs.close();
    store.close();
    return path;
}

std::vector<LaaRowIn> ExactLaaRows(double loo, double k, double t0, int n, double divisor) {
    std::vector<LaaRowIn> rows;
    for (int i = 0; i < n; ++i) {
        const float age = static_cast<float>((0.5 + 0.6 * i) * divisor);
        const double t = static_cast<float>(age / divisor);
        rows.push_back({age, static_cast<float>(loo * (1 - std::exp(-k * (t - t0)))), 1.0f});
    }
    return rows;
}

std::string MakeGinFile(const std::string& path, const std::vector<GinRowIn>& rows) {
    std::filesystem::copy_file(BinDir() / "Templates" / "Template.GIN", path);
    DataStore store = DataStore::open(path);
    {
        Records h = store.openRecords("GIN");
        h.addNew();
        h.setField("Speciesname", std::string("Tagged fish"));
        h.setField("Other_ID", std::string("Test"));
        h.setField("Unit_Of_Measurement", std::string("cm"));
        h.update();
        h.close();
    }
    static const char* kFields[8] = {"Day1", "Month1", "Year1", "Length1",
                                     "Day2", "Month2", "Year2", "Length2"};
    Records rs = store.openRecords("GIN_Measures");
    for (const auto& r : rows) {
        rs.addNew();
        for (int c = 0; c < 8; ++c) rs.setField(kFields[c], static_cast<double>(r[c]));
        rs.update();
    }
    rs.close();
    store.close();
    return path;
}

std::vector<GinRowIn> SeasonalGinRows(int n, double loo, double k, double c, double wp) {
    std::vector<GinRowIn> rows;
    for (int i = 0; i < n; ++i) {
        const int m1 = 1 + (i * 5) % 12, m2 = 1 + (i * 7 + 4) % 12;
        const float d1 = static_cast<float>(1 + i % 27), d2 = static_cast<float>(3 + (i * 3) % 25);
        const float y1 = 2000, y2 = 2001 + static_cast<float>(i % 2);
        const float l1 = static_cast<float>(15 + 6 * i);
        const double tb = static_cast<float>((y1 * 365.0 + kMonthStart[m1] + d1) / 365);
        const double ta = static_cast<float>((y2 * 365.0 + kMonthStart[m2] + d2) / 365);
        const double s = (k * c / kPiTwo) * (std::sin(kPiTwo * (ta - (wp - 0.5))) -
                                             std::sin(kPiTwo * (tb - (wp - 0.5))));
        // Lengths kept to two decimals, as the file stores them.
        const double l2 = l1 + (loo - l1) * (1 - std::exp(-k * (ta - tb) - s));
        rows.push_back({d1, static_cast<float>(m1), y1, l1, d2, static_cast<float>(m2), y2,
                        static_cast<float>(std::round(l2 * 100) / 100)});
    }
    return rows;
}

}  // namespace norvo::test
