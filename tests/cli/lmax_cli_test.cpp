#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Classes 40, 42, 44, 46; one column of freq per sample.
std::string WriteFile(const test::TempDir& dir, const std::vector<std::vector<double>>& bySample) {
    return test::MakeLfqFile(
        dir.file("x.lfq"), test::LfqHeaderOf("Test fish", "cm", 40, 2, "Total length (TL)"),
        test::MonthlySamples(static_cast<int>(bySample.size()), 1, 2001), test::ByClass(bySample));
}

TEST(LmaxCli, FitOfTheFilesExtremes) {
    test::TempDir dir;
    // Extremes 40, 42, 42, 46 (see the worked example of the fit).
    const std::string path =
        WriteFile(dir, {{3, 0, 0, 0}, {5, 2, 0, 0}, {1, 1, 0, 0}, {0, 4, 0, 1}});
    const std::string plot = dir.file("lmax.png");
    const auto r = test::RunCli("--json lmax " + path + " --plot " + plot);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["extremes"], nlohmann::json({40.0, 42.0, 42.0, 46.0}));
    EXPECT_NEAR(j["u"].get<double>(), 41.171715, 1e-6);
    EXPECT_NEAR(j["beta"].get<double>(), 2.979548, 1e-6);
    EXPECT_NEAR(j["lmax"]["predicted"].get<double>(), 54.878080, 1e-6);
    ASSERT_TRUE(j["curve"].is_array());
    EXPECT_LE(j["curve"].size(), 500u);
    EXPECT_TRUE(j["curve"][0].contains("upper"));
    EXPECT_GT(fs::file_size(plot), 1000u);

    const auto text = test::RunCli("lmax " + path);
    EXPECT_NE(text.out.find("Lmax = 54.88 cm\n47.63 cm - lower limit\n62.13 cm - upper limit\n"),
              std::string::npos)
        << text.out;
}

TEST(LmaxCli, OneSampleOrNoSpreadIsRefused) {
    test::TempDir dir;
    auto r = test::RunCli("--json lmax " + WriteFile(dir, {{3, 1, 0, 0}}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["title"], "Invalid Data");

    test::TempDir dir2;
    r = test::RunCli("--json lmax " + WriteFile(dir2, {{3, 1, 0, 0}, {0, 1, 0, 0}}));
    EXPECT_EQ(r.exitCode, 2);
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["refused"]["title"], "Calculation Error");
    EXPECT_EQ(j["refused"]["message"],
              "Calculation error. Please check data and if problem persist, please contact the "
              "authors.");
}

}  // namespace
}  // namespace norvo
