#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "data/write_notices.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::RunCli;
using test::TempDir;

TEST(CliSimulate, WritesBothFilesAndReportsTheSamples) {
    TempDir dir;
    const std::string a = dir.file("s.lfq"), b = dir.file("c.lfq");
    auto r = RunCli("--json simulate " + a + " " + b +
                    " --seed 7 --samples 4 --fish 30 --loo 40 --k 0.8 --interval 2");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["seed"], 7);
    EXPECT_EQ(j["classInterval"], 2.0);
    ASSERT_EQ(j["samples"].size(), 4u);
    EXPECT_EQ(j["samples"][3]["month"], 4);
    EXPECT_EQ(j["samples"][0]["stock"]["count"], 30);
    EXPECT_EQ(j["notices"].back()["text"], "Simulation was succesfully completed.");
    EXPECT_EQ(j["notices"].back()["title"], "Done!");
    int total = 0;
    for (const auto& row : j["ageDistribution"]) total += row["stock"].get<int>();
    EXPECT_EQ(total, 120);

    auto info = RunCli("--json info " + a);
    ASSERT_EQ(info.exitCode, 0) << info.err;
    EXPECT_NE(info.out.find("Simulated species"), std::string::npos);

    // The same seed gives the same report.
    auto again = RunCli("--json simulate " + dir.file("s2.lfq") + " " + dir.file("c2.lfq") +
                        " --seed 7 --samples 4 --fish 30 --loo 40 --k 0.8 --interval 2");
    auto j2 = nlohmann::json::parse(again.out);
    EXPECT_EQ(j2["samples"], j["samples"]);
    EXPECT_EQ(j2["ageDistribution"], j["ageDistribution"]);
}

TEST(CliSimulate, RefusesBadInputsWithTheScreensMessages) {
    TempDir dir;
    const std::string files = dir.file("s.lfq") + " " + dir.file("c.lfq");
    auto r = RunCli("simulate " + files + " --migrate");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(
        r.err.find(
            "Re-check Inputs...: Please re-check inputs for the population selection and Fmax "
            "parameters."),
        std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir.file("s.lfq")));

    // With a second area the route is valid.
    r = RunCli("simulate " + files + " --migrate --area B:9.5,12,50,51,2 --samples 2 --fish 5");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    // The files it wrote are kept by the next run, unless it is forced.
    r = RunCli("simulate " + files + " --samples 2 --fish 5");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find(FileExistsText(dir.file("s.lfq"))), std::string::npos) << r.err;
    EXPECT_EQ(RunCli("simulate " + files + " --samples 2 --fish 5 --force").exitCode, 0);

    r = RunCli("simulate " + files + " --force --k-cv 0.9");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("Invalid Input..."), std::string::npos);
    r = RunCli("simulate " + files + " --force --recruitment 1 2 3");
    EXPECT_EQ(r.exitCode, 2);
}

}  // namespace
}  // namespace norvo
