// The sample tools from the command line: the file written, its JSON, refusals and exit codes.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "data/lfq_file.h"
#include "data/store_routines.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

std::string Lfq(const test::TempDir& dir, const std::string& name, float smallest, float width,
                const std::vector<std::vector<double>>& bySample) {
    std::vector<LfqSample> samples;
    for (size_t s = 0; s < bySample.size(); ++s) {
        samples.push_back(
            test::SampleOn(static_cast<int>(s + 1), 1, static_cast<int>(s + 1), 2020));
        samples.back().lwA = 0.01f;
        samples.back().lwB = 3;
    }
    return test::MakeLfqFile(dir.file(name), test::LfqHeaderOf("Sp", "cm", smallest, width),
                             samples, test::ByClass(bySample));
}

TEST(SamplesCli, MergeAndPoolPrintTheFileWritten) {
    test::TempDir dir;
    const auto a = Lfq(dir, "a.lfq", 10.5f, 1, {{1, 2}});
    const auto b = Lfq(dir, "b.lfq", 12.5f, 1, {{3, 4}});
    const auto out = dir.file("m.lfq");
    auto r = test::RunCli("--json merge " + a + " " + b + " " + out);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["path"], out);
    EXPECT_EQ(j["first_mid"], 10.5);
    EXPECT_EQ(j["class_width"], 1.0);
    EXPECT_EQ(j["freq"], nlohmann::json::parse("[[1,0],[2,0],[0,3],[0,4]]"));
    EXPECT_EQ(j["dates"][1]["month"], 1);
    EXPECT_EQ(j["notices"][0]["title"], "Done!");

    // The destination exists now: not replaced unasked.
    r = test::RunCli("merge " + a + " " + b + " " + out);
    EXPECT_EQ(r.exitCode, 2);
    r = test::RunCli("--json pool " + a + " " + dir.file("p.lfq") +
                     " --samples 1 --date 15/03/2021");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["dates"][0], nlohmann::json::parse(R"({"day":15,"month":3,"year":2021})"));
    EXPECT_EQ(j["remarks"], " Some samples were pooled.");
}

TEST(SamplesCli, OneFileToolsAndTheirRefusals) {
    test::TempDir dir;
    const auto a = Lfq(dir, "a.lfq", 10.5f, 1, {{1, 2, 3, 4, 5}, {0, 0, 0, 0, 0}});
    auto run = [&](const std::string& args) { return test::RunCli("--json " + args); };

    auto r = run("adjust " + a + " " + dir.file("adj.lfq") + " --ci 0.25");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(nlohmann::json::parse(r.out)["freq"].size(), 20u);
    r = run("adjust " + a + " " + dir.file("x.lfq") + " --ci 0.24");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"],
              "The input for the class size is invalid. Please check input.");

    r = run("smooth " + a + " " + dir.file("s.lfq") + " --window 5");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["first_mid"], 12.5);
    EXPECT_EQ(j["freq"], nlohmann::json::parse("[[3,0]]"));

    r = run("correct " + a + " " + dir.file("c.lfq") + " --ogive 11,12,0,0");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    r = run("correct " + a + " " + dir.file("c2.lfq") + " --prb " + dir.file("none.prb"));
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"],
              "The probability file cannot be located. Please check the input.");

    r = run("convert " + a + " " + dir.file("cv.lfq") + " --fn 2 --d 0 --e 10 --f 1");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(nlohmann::json::parse(r.out)["class_width"], 10.0);

    r = run("raise " + a + " " + dir.file("r.lfq") + " --option 4 --samples 1");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    double sum = 0;
    for (const auto& row : j["freq"]) sum += row[0].get<double>();
    EXPECT_NEAR(sum, 1, 1e-6);
    r = run("raise " + a + " " + dir.file("r2.lfq") + " --option 4");
    EXPECT_EQ(r.exitCode, 2);  // sample 2 has no fish
    EXPECT_FALSE(FileExists(dir.file("r2.lfq")));

    r = run("sampleweight " + a);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["samples"][1]["mean_weight"], 0.0);
    EXPECT_NEAR(j["samples"][0]["sum_f"].get<double>(), 15, 1e-9);
    EXPECT_FLOAT_EQ(ReadSampleHeaders(a)[0].wtSample,
                    static_cast<float>(j["samples"][0]["weight"].get<double>()));
}

}  // namespace
}  // namespace norvo
