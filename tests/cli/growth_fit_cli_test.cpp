#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "growth/appeldoorn.h"
#include "growth/length_at_age.h"
#include "support/growth_fit_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

TEST(LaaCli, FitJsonWeightsAndPlot) {
    test::TempDir dir;
    auto rows = test::ExactLaaRows(80, 0.4, -0.3, 10, 30);
    rows[0][2] = 0.5f;
    const auto path = test::MakeLaaFile(dir.file("a.laa"), rows, "Months");
    const auto before = std::filesystem::last_write_time(path);
    auto r = test::RunCli("--json laa " + path + " --constraints 'T0=-2,0,2' --plot " +
                          dir.file("a.png"));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["model"], 1);
    EXPECT_EQ(j["params"], nlohmann::json::array({"Loo", "K", "t0"}));
    EXPECT_EQ(j["n_obs"], 95);  // 5 + 9 x 10
    EXPECT_EQ(j["weights"]["asked"], true);
    EXPECT_EQ(j["weights"]["times10"], true);
    EXPECT_EQ(j["weights"]["age_divisor"], 30);
    EXPECT_NEAR(j["estimates"]["Loo"].get<double>(), 80, 1e-3);
    EXPECT_NEAR(j["estimates"]["t0"].get<double>(), -0.3, 1e-4);
    EXPECT_EQ(j["message"], kMqConverged);
    EXPECT_EQ(j["constraints"]["t0"], nlohmann::json::array({-2, 0, 2}));
    EXPECT_EQ(j["notices"], nlohmann::json::array());
    EXPECT_GT(std::filesystem::file_size(dir.file("a.png")), 1000u);
    EXPECT_EQ(std::filesystem::last_write_time(path), before);

    r = test::RunCli("--json laa " + path + " --weights no");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(nlohmann::json::parse(r.out)["n_obs"], 10);

    // Refusals and usage errors.
    r = test::RunCli("--json laa " + path + " --constraints 'K=2,1,3'");
    EXPECT_EQ(r.exitCode, 2);
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["refused"]["message"], kLaaInvalidInputText);
    // Usage errors: neither a result nor a refusal.
    for (const char* args : {" --constraints 'Q=1,2,3'", " --constraints 'K=1,2'", " --plot "}) {
        const int code = test::RunCli("laa " + path + args + (args[3] == 'p' ? path : "")).exitCode;
        EXPECT_TRUE(code != 0 && code != 2 && code != 3) << args;
    }

    const auto six = test::MakeLaaFile(dir.file("six.laa"), test::ExactLaaRows(80, 0.4, 0, 6));
    r = test::RunCli("--json laa " + six);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["title"], kLaaInsufficientTitle);
}

TEST(AppeldoornCli, FitAndCountRefusal) {
    test::TempDir dir;
    const auto path = test::MakeGinFile(dir.file("t.gin"), test::SeasonalGinRows(12));
    auto r = test::RunCli("--json appeldoorn " + path);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["model"], 3);
    EXPECT_EQ(j["n_obs"], 12);
    EXPECT_NEAR(j["estimates"]["Loo"].get<double>(), 90, 0.5);
    EXPECT_NEAR(j["estimates"]["WP"].get<double>(), 0.4, 0.02);
    EXPECT_TRUE(j["cv"]["K"].is_number());
    ASSERT_EQ(j["notices"].size(), 1u);
    EXPECT_EQ(j["notices"][0]["title"], kApSuccessTitle);

    r = test::RunCli("--json appeldoorn " + path + " --constraints 'C=0,0,0 WP=0,0,0'");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["stars"]["C"], "***");
    EXPECT_EQ(j["se_na"]["WP"], true);
    EXPECT_TRUE(j["cv"]["WP"].is_null());

    const auto four = test::MakeGinFile(dir.file("f.gin"), test::SeasonalGinRows(4));
    r = test::RunCli("--json appeldoorn " + four);
    EXPECT_EQ(r.exitCode, 2);
    j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["refused"]["message"], kMoreParamsText);
    ASSERT_EQ(j["notices"].size(), 2u);
    EXPECT_EQ(j["notices"][1]["text"], kApSuccessText);

    r = test::RunCli("--json appeldoorn " + path + " --constraints 'Loo=10,100,200'");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(nlohmann::json::parse(r.out)["refused"]["message"], kApLooBelowTaggedText);
}

}  // namespace
}  // namespace norvo
