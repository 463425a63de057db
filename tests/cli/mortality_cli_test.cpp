// The mortality and growth-index commands: JSON keys, figures, and refusals with exit code 2.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/test_paths.h"

namespace norvo {
namespace {

using test::RunCli;

nlohmann::json Json(const std::string& args) {
    const auto r = RunCli("--json " + args);
    EXPECT_EQ(r.exitCode, 0) << r.err;
    return nlohmann::json::parse(r.out);
}

TEST(MortalityCli, ResultsUnderTheirKeys) {
    EXPECT_NEAR(Json("mortality bh --loo 50 --k 0.5 --lmean 30 --lc 20")["z"].get<double>(), 1.0,
                1e-6);
    const auto ault = Json("mortality ault --loo 50 --k 0.5 --lmean 30 --lc 20 --lmax 45");
    EXPECT_NEAR(ault["z"].get<double>(), 0.895, 1e-9);
    EXPECT_NEAR(ault["exact_root"].get<double>(), 0.909047, 1e-6);

    auto h = Json("mortality hoenig --tmax 20 --tc 2 --n 62 --model1 --model2");
    EXPECT_NEAR(h["z1"].get<double>(), 0.221396, 1e-6);
    EXPECT_NEAR(h["z2"].get<double>(), 0.245387, 1e-6);
    EXPECT_NEAR(h["se2"].get<double>(), 0.879044, 1e-6);
    h = Json("mortality hoenig --tmax 20 --model1");
    EXPECT_TRUE(h["z2"].is_null() && h["se2"].is_null());

    EXPECT_NEAR(Json("mortality pauly --length --size 50 --k 0.5 --t 25")["m"].get<double>(),
                0.932542, 1e-6);
    EXPECT_NEAR(Json("mortality pauly --weight --size 1000 --k 0.5 --t 25")["m"].get<double>(),
                0.986072, 1e-6);
    EXPECT_NEAR(Json("mortality rikhter --tm 22")["m"].get<double>(), 0.004172, 1e-6);

    const auto phi = Json("phi --k 0.5 --loo 50");
    EXPECT_NEAR(phi["phi_prime"].get<double>(), 3.096910, 1e-6);
    EXPECT_TRUE(phi["phi"].is_null());
}

TEST(MortalityCli, RefusalsExitTwoWithTitleAndMessage) {
    struct Case {
        std::string args;
        std::string title;
        std::string message;
    };
    const Case cases[] = {
        {"mortality bh --loo 50 --k 10.01 --lmean 30 --lc 20", "Invalid Input",
         "Entry for K exceeds limits (0.01 to 10). Please check entry."},
        {"mortality ault --loo 50 --k 0.5 --lmean 30 --lc 20 --lmax 51", "Invalid Input",
         "Entry for Lmax exceeds limits (0.25 to 9999) or greater than Loo. Please check entry."},
        {"mortality hoenig --tmax 20", "No Selection", "No model was selected to compute Z."},
        {"mortality hoenig --tmax 20 --tc 21 --model2", "Invalid Data",
         "tc must be smaller than tmax. Please adjust the values and try again."},
        {"mortality pauly --length --size 50 --k 0.5 --t 32", "Invalid Input",
         "The mean habitat temperature input exceeds limit (31 to -2). Please correct input."},
        {"mortality rikhter --tm 0.05", "Invalid Data",
         "Input exceeds limit (0.10 - 22 years) only. Please check entry."},
    };
    for (const auto& c : cases) {
        const auto r = RunCli("--json " + c.args);
        EXPECT_EQ(r.exitCode, 2) << c.args;
        const auto j = nlohmann::json::parse(r.out);
        EXPECT_EQ(j["refused"]["title"], c.title);
        EXPECT_EQ(j["refused"]["message"], c.message);
    }
}

TEST(MortalityCli, TextOutputUsesTheScreensFormats) {
    auto r = RunCli("mortality ault --loo 50 --k 0.5 --lmean 30 --lc 20 --lmax 45");
    EXPECT_EQ(r.out,
              "Computed total mortality (Z): 0.895 /year\n"
              "Exact root of R = T (bisection): 0.909 /year\n");
    r = RunCli("mortality rikhter --tm 22");
    EXPECT_EQ(r.out, "M = 0.004 /year\n");
    // Lmean at L' divides by zero: an arithmetic fault, exit 3.
    EXPECT_EQ(RunCli("mortality bh --loo 50 --k 0.5 --lmean 30 --lc 30").exitCode, 3);
}

}  // namespace
}  // namespace norvo
