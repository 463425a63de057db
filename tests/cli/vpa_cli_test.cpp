#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "data/record_kinds.h"
#include "data/species_files.h"
#include "stock/vpa_age.h"
#include "stock/vpa_length.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

std::string WriteCaa(const test::TempDir& dir, const std::vector<double>& catches) {
    const std::string path = dir.file("cohort.caa");
    const RecordKind& kind = *FindRecordKind("CAA");
    RecordFile file;
    file.header["Speciesname"] = "Cohort fish";
    for (size_t i = 0; i < catches.size(); ++i) {
        GridRow row(kind.columns.size());
        row[static_cast<size_t>(ColumnIndex(kind, "Age"))] = static_cast<double>(i + 1);
        row[static_cast<size_t>(ColumnIndex(kind, "Catch"))] = catches[i];
        row[static_cast<size_t>(ColumnIndex(kind, "WF"))] = 1.0;
        file.rows.push_back(row);
    }
    WriteRecordFile(path, test::BinDir().string(), kind, file);
    return path;
}

TEST(VpaCli, AgeJsonPlotAndRefusals) {
    test::TempDir dir;
    // Catches of 1000 recruits under F = 0.5 and M = 0.2 for three years.
    std::vector<double> catches;
    double n = 1000;
    for (int i = 0; i < 3; ++i) {
        catches.push_back(0.5 / 0.7 * n * (1 - std::exp(-0.7)));
        n *= std::exp(-0.7);
    }
    const auto path = WriteCaa(dir, catches);
    const auto png = dir.file("age.png");
    auto r = test::RunCli("--json vpa age " + path + " --m 0.2 --ft 0.5 --dt 1 --plot " + png);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["age"], nlohmann::json::array({1, 2, 3}));
    ASSERT_EQ(j["F"].size(), 3u);
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(j["F"][i].get<double>(), 0.5, 1e-5);
    EXPECT_NEAR(j["N"][0].get<double>(), 1000, 0.01);
    EXPECT_EQ(j["newton_rounds"][2], 0);
    EXPECT_TRUE(j["notices"].empty());
    EXPECT_TRUE(fs::file_size(png) > 0);

    r = test::RunCli("--json vpa age " + path + " --m 0.2 --ft 0.5 --dt 1.5");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kVpaDtLimitsText);
    r = test::RunCli("vpa age " + path + " --m 0.2 --ft 0 --dt 1");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find(kVpaTerminalFText), std::string::npos);
}

TEST(VpaCli, LengthJsonNoticeAndSpeciesFile) {
    test::TempDir dir;
    const auto path = test::MakeLfqFile(
        dir.file("lca.lfq"), test::LfqHeaderOf("Lca fish", "cm", 15, 10),
        {test::SampleOn(1, 15, 3, 2001), test::SampleOn(2, 15, 9, 2001)},
        test::ByClass({{300, 900, 700, 400, 200, 90, 30}, {200, 800, 600, 300, 150, 60, 10}}));
    const auto spc = dir.file("out.spc");
    auto r =
        test::RunCli("--json vpa length " + path +
                     " --m 0.3 --ft 0.5 --loo 66 --k 0.4 --plus 1 --samples 1,2 --save-spc " + spc);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["n"], 7);
    EXPECT_EQ(j["n_used"], 5);
    EXPECT_EQ(j["plus"], 2);
    EXPECT_EQ(j["notice"], kVpaPlusAdjustedText);
    ASSERT_EQ(j["notices"].size(), 1u);
    EXPECT_EQ(j["notices"][0]["text"], kVpaPlusAdjustedText);
    EXPECT_EQ(j["L1"], 10.0);
    EXPECT_EQ(j["c_plus"], 540.0);
    EXPECT_EQ(j["catch"][5], 0.0);
    EXPECT_NEAR(j["biomass_tonnes"][0].get<double>(), j["biomass"][0].get<double>() / 1e6, 1e-12);

    const auto species = ReadSpeciesFile(spc);
    ASSERT_TRUE(species.ok());
    EXPECT_EQ(species->header.remarks, kLengthVpaRemarks);
    EXPECT_EQ(species->header.speciesName, "Lca fish");
    EXPECT_EQ(species->header.noGroups, 7);
    EXPECT_EQ(species->header.lowerLimit, 10);
    EXPECT_FLOAT_EQ(static_cast<float>(species->header.recruit), j["N"][0].get<float>());
    ASSERT_EQ(species->classes.size(), 7u);
    EXPECT_EQ(species->classes[0].lengthClass, 15);
    EXPECT_FLOAT_EQ(static_cast<float>(species->classes[2].f), j["F"][2].get<float>());

    // The species file is never overwritten; a refused run writes none.
    r = test::RunCli("vpa length " + path + " --m 0.3 --ft 0.5 --loo 66 --k 0.4 --save-spc " + spc);
    EXPECT_EQ(r.exitCode, 2);
    const auto other = dir.file("other.spc");
    r = test::RunCli("vpa length " + path + " --m 0.3 --ft 0 --loo 66 --k 0.4 --save-spc " + other);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find(kVpaLengthFtText), std::string::npos);
    EXPECT_FALSE(fs::exists(other));
}

}  // namespace
}  // namespace norvo
