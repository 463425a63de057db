#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "data/lfq_file.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

std::string TwoSampleFile(const test::TempDir& dir) {
    return test::MakeLfqFile(dir.file("two.lfq"), test::LfqHeaderOf("Upeneus", "mm", 25, 5),
                             {test::SampleOn(1, 3, 4, 1995), test::SampleOn(2, 30, 11, 1995)},
                             {{1.5, 0}, {12, 3}});
}

TEST(LfqInfoCli, PrintsHeaderDatesAndFrequencyTable) {
    test::TempDir dir;
    const std::string path = TwoSampleFile(dir);
    const auto r = test::RunCli("info " + path);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("Grouped length frequencies: 2 samples, 2 classes (midlengths 25.00 to "
                         "30.00 mm, interval 5.00)"),
              std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find("    1  03/04/1995\n    2  30/11/1995\n"), std::string::npos);
    EXPECT_NE(r.out.find("      ML  03/04/1995  30/11/1995\n"
                         "   25.00         1.5           0\n"
                         "   30.00          12           3\n"),
              std::string::npos)
        << r.out;

    const auto j = test::RunCli("info --json " + path);
    ASSERT_EQ(j.exitCode, 0) << j.err;
    const auto lfq = nlohmann::json::parse(j.out)["lfq"];
    EXPECT_EQ(lfq["noOfSamples"], 2);
    EXPECT_EQ(lfq["samples"][1]["date"], "30/11/1995");
    EXPECT_EQ(lfq["classes"][0]["frequencies"][0], 1.5);
    EXPECT_EQ(lfq["classes"][1]["midlength"], 30.0);
}

TEST(LfqInfoCli, ShortMeasuresAreRefused) {
    test::TempDir dir;
    const std::string path = TwoSampleFile(dir);
    WriteDatesOnly(path, {"1/1/1995", "2/1/1995", "3/1/1995"});  // a third sample without data
    const auto r = test::RunCli("info " + path);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("The file is corrupted or has the wrong data format."), std::string::npos)
        << r.err;
}

}  // namespace
}  // namespace norvo
