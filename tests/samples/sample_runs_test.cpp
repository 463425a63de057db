// The tools from file to file: what lands on disk, and that sources and refused destinations
// stay as they were.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "data/lfq_file.h"
#include "data/store_routines.h"
#include "sample_fixtures.h"
#include "samples/adjust_smooth.h"
#include "samples/merge_pool.h"
#include "samples/raise.h"
#include "samples/sample_weight.h"

namespace norvo {
namespace {

using test::BinDir;
using test::TempDir;

std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::string MakeFile(const TempDir& dir, const std::string& name, float smallest, float interval,
                     const std::vector<std::vector<double>>& bySample, int firstMonth = 1) {
    std::vector<LfqSample> samples;
    for (size_t s = 0; s < bySample.size(); ++s) {
        samples.push_back(
            test::SampleOn(static_cast<int>(s + 1), 1, firstMonth + static_cast<int>(s), 2020));
        samples.back().lwA = 0.01f;
        samples.back().lwB = 3;
    }
    return test::MakeLfqFile(dir.file(name), test::LfqHeaderOf("Sp", "cm", smallest, interval),
                             samples, test::ByClass(bySample));
}

TEST(SampleRuns, MergeWritesTheInterleavedFileAndLeavesSources) {
    TempDir dir;
    const auto a = MakeFile(dir, "a.lfq", 10.5f, 1, {{1, 2}, {3, 4}}, 1);
    const auto b = MakeFile(dir, "b.lfq", 12.5f, 1, {{5, 6}}, 2);
    const std::string before = Bytes(a);
    const auto out = dir.file("m.lfq");
    const auto run = RunMerge({a, b, out}, BinDir().string());
    ASSERT_TRUE(run.ok()) << test::RefusalText(run);
    EXPECT_EQ(run.notices.back().text,
              "Merging process completed successfully. A new file (" + out + ") was created.");
    EXPECT_EQ(Bytes(a), before);
    const auto m = ReadLFQ(out);
    ASSERT_TRUE(m.ok());
    EXPECT_EQ(m->noOfSamples, 3);
    EXPECT_EQ(m->noOfClasses, 4);  // 10.5 .. 13.5
    EXPECT_EQ(m->month, (std::vector<int16_t>{1, 2, 2}));
    EXPECT_EQ(m->freq[0][2], 0);  // 10.5 of the second file: empty, saved as 0
    EXPECT_EQ(m->freq[3][2], 6);
}

TEST(SampleRuns, RefusalsWriteNothing) {
    TempDir dir;
    const auto a = MakeFile(dir, "a.lfq", 10.5f, 1, {{1, 2}});
    const auto b = MakeFile(dir, "b.lfq", 10.5f, 2, {{1, 2}});
    const auto out = dir.file("out.lfq");
    const std::string folder = BinDir().string();
    EXPECT_EQ(test::RefusalText(RunMerge({a, b, out}, folder)), kMergeIncompatibleText);
    EXPECT_EQ(test::RefusalText(RunMerge({a, "", out}, folder)), kCompleteTheInputsText);
    EXPECT_EQ(test::RefusalText(RunMerge({a, dir.file("none.lfq"), out}, folder)),
              kMergeMissingText);
    EXPECT_EQ(test::RefusalText(RunMerge({a, b, b}, folder)), kDestinationIsSourceText);
    EXPECT_EQ(test::RefusalText(RunAdjust({a, out, 0.24}, folder)), kAdjustInvalidSizeText);
    EXPECT_EQ(test::RefusalText(RunAdjust({a, "", 1}, folder)), kCompleteInputsText);
    EXPECT_EQ(test::RefusalText(RunRaise({a, "", RaiseOption::Constant, 2, {}}, folder)),
              kRaisePathsText);
    EXPECT_EQ(test::RefusalText(RunRaise({a, out, RaiseOption::CatchPerWeight, 1, {}}, folder)),
              kRaiseZeroWeightText);
    EXPECT_FALSE(FileExists(out));
}

TEST(SampleRuns, PoolWritesDatesOnlyAndTwoDecimals) {
    TempDir dir;
    const auto a = MakeFile(dir, "a.lfq", 10, 1, {{1.234, 1}, {2, 1}, {4, 4}});
    const auto out = dir.file("p.lfq");
    const auto run = RunPool({a, out, {{{0, 1}, 15, 3, 2021}}}, BinDir().string());
    ASSERT_TRUE(run.ok()) << test::RefusalText(run);
    const auto p = ReadLFQ(out);
    ASSERT_TRUE(p.ok());
    ASSERT_EQ(p->noOfSamples, 2);
    EXPECT_FLOAT_EQ(p->freq[0][1], 3.23f);
    EXPECT_EQ(p->day[1], 15);
    EXPECT_EQ(ReadSampleHeaders(out)[0].lwA, 0);  // dates only
}

TEST(SampleRuns, SampleWeightWritesIntoTheSource) {
    TempDir dir;
    const auto a = MakeFile(dir, "a.lfq", 10.5f, 1, {{1, 2}, {0, 0}});
    const auto run = RunSampleWeight(a);
    ASSERT_TRUE(run.ok()) << test::RefusalText(run);
    EXPECT_EQ(run.notices.back().title, "Notice!");
    const auto rec = ReadSampleHeaders(a);
    EXPECT_FLOAT_EQ(rec[0].wtSample, static_cast<float>(run.samples[0].weight));
    EXPECT_GT(rec[0].wtSample, 0);
    EXPECT_EQ(rec[1].wtSample, 0);
    EXPECT_EQ(rec[0].lwB, 3);  // the other fields stay
}

}  // namespace
}  // namespace norvo
