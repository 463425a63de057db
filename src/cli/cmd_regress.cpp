// norvo-cli regress FILE.xyf [--functional]: the seventeen slots of a straight-line fit through
// the pairs of a two-column file.
#include <array>
#include <charconv>
#include <cstdio>
#include <memory>

#include "cli/cli_support.h"
#include "data/data_store.h"
#include "data/store_routines.h"
#include "data/xyf_file.h"
#include "numerics/regression.h"

namespace norvo::cli {
namespace {

constexpr std::array<const char*, 18> kSlotNames = {
    "",      "n",     "a",     "b",   "seA", "seB", "aLow", "aHigh", "bLow",
    "bHigh", "meanX", "meanY", "sdX", "sdY", "r",   "rLow", "rHigh", "F"};

struct RegressOptions {
    std::string path;
    bool functional = false;
};

std::string FloatText(float v) {
    char buf[32];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, res.ptr);
}

void RunRegress(Context& ctx, const RegressOptions& o) {
    XyfData data;
    try {
        data = ReadXYF(o.path);
    } catch (const StoreError&) {
        throw Refusal(kInvalidDataTitle, kCorruptedOrWrongFormat);
    }
    RegressionResult r;
    const auto last = static_cast<int32_t>(data.x.size()) - 1;
    if (o.functional) {
        if (last > 32767) throw Refusal(kInvalidDataTitle, kCorruptedOrWrongFormat);
        FunctionalRegression(data.x, data.y, 0, static_cast<int16_t>(last), r);
    } else {
        LinearRegression(data.x, data.y, 0, last, r);
    }
    if (ctx.json) {
        nlohmann::json slots = nlohmann::json::object();
        for (int i = 1; i <= RegressionResult::kSlots; ++i) {
            double d = 0;
            const std::string t = FloatText(r[i]);
            std::from_chars(t.data(), t.data() + t.size(), d);
            slots[kSlotNames[static_cast<size_t>(i)]] = d;
        }
        ctx.print(
            {{"function", o.functional ? "Y = a' + b' * X" : "Y = a + b * X"}, {"slots", slots}});
        return;
    }
    for (int i = 1; i <= RegressionResult::kSlots; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "%2d  %-6s ", i, kSlotNames[static_cast<size_t>(i)]);
        std::cout << line << FloatText(r[i]) << "\n";
    }
}

RegisterCommand reg{[](CLI::App& app, Context& ctx) {
    auto o = std::make_shared<RegressOptions>();
    auto* cmd = app.add_subcommand("regress", "Fit a straight line through the pairs of a file");
    cmd->add_option("FILE", o->path, "Two-column regression file (.xyf)")->required();
    cmd->add_flag("--functional", o->functional, "Geometric-mean (functional) regression");
    cmd->callback([&ctx, o] { RunRegress(ctx, *o); });
}};

}  // namespace
}  // namespace norvo::cli
