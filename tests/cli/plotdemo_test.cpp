#include <gtest/gtest.h>

#include <fmt/format.h>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <vector>

#include "support/test_paths.h"

namespace norvo {
namespace {

std::string Head(const std::string& path, std::size_t n) {
    std::ifstream in(path, std::ios::binary);
    std::string s(n, '\0');
    in.read(s.data(), static_cast<std::streamsize>(n));
    s.resize(static_cast<std::size_t>(in.gcount()));
    return s;
}

TEST(PlotDemoCli, WritesEachPictureFormatThroughTheRenderer) {
    test::TempDir dir;
    const auto png = test::RunCli("plotdemo --plot '" + dir.file("a.png") + "'");
    ASSERT_EQ(png.exitCode, 0) << png.err;
    EXPECT_EQ(png.out, "The graphic output was saved in " + dir.file("a.png") + ".\n");
    EXPECT_EQ(Head(dir.file("a.png"), 4), "\x89PNG");

    const auto bmp = test::RunCli("--json plotdemo --kind B --width 640 --height 480 --plot '" +
                                  dir.file("b.bmp") + "'");
    ASSERT_EQ(bmp.exitCode, 0) << bmp.err;
    const auto j = nlohmann::json::parse(bmp.out);
    EXPECT_EQ(j["kind"], "B");
    EXPECT_EQ(j["width"], 640);
    EXPECT_EQ(Head(dir.file("b.bmp"), 2), "BM");

    ASSERT_EQ(test::RunCli("plotdemo --kind B --plot '" + dir.file("c.svg") + "'").exitCode, 0);
    std::ifstream svg(dir.file("c.svg"));
    std::stringstream ss;
    ss << svg.rdbuf();
    EXPECT_NE(ss.str().find("Frequency (10^1)"), std::string::npos);
}

// Every command that writes a plot refuses a file it cannot write with the same title and text.
TEST(PlotOutputCli, EveryCommandRefusesAnUnwritablePlotAlike) {
    test::TempDir dir;
    const std::string data = (test::BinDir() / "Data").string();
    const std::string plot = dir.file("no/such/dir.png");
    const std::vector<std::string> commands = {
        fmt::format("lmax {}/Simull01.LFQ", data),
        fmt::format("elefan kscan {}/Simull01.LFQ --loo 40", data),
        fmt::format("shepherd kscan {}/Simull01.LFQ --loo 40", data),
        fmt::format("gulland {}/SimTag.GIN", data),
        fmt::format("laa {}/SimAge.LAA --weights no", data),
        fmt::format("tb {}/SimGulf.sce --vary Trawl --fix Gillnet=0.5", data),
        "plotdemo --kind A"};
    for (const std::string& command : commands) {
        const auto r = test::RunCli(fmt::format("--json {} --plot '{}'", command, plot));
        EXPECT_EQ(r.exitCode, 2) << command << "\n" << r.err;
        const auto j = nlohmann::json::parse(r.out, nullptr, false);
        ASSERT_TRUE(j.contains("refused")) << command << "\n" << r.out;
        EXPECT_EQ(j["refused"]["title"], "Plot Not Saved") << command;
        EXPECT_EQ(j["refused"]["message"],
                  fmt::format("The plot could not be written to {}.", plot))
            << command;
    }
}

TEST(PlotDemoCli, RefusesAnUnwritablePathAndABadSize) {
    test::TempDir dir;
    const auto bad = test::RunCli("plotdemo --plot '" + dir.file("no/such/dir.png") + "'");
    EXPECT_EQ(bad.exitCode, 2);
    EXPECT_NE(bad.err.find("Plot Not Saved"), std::string::npos);
    EXPECT_EQ(test::RunCli("plotdemo --width 5 --plot '" + dir.file("x.png") + "'").exitCode, 2);
}

}  // namespace
}  // namespace norvo
