#include "cli/cmd_elefan.h"

#include <charconv>
#include <iomanip>
#include <iostream>

#include "base/format.h"
#include "data/lfq_file.h"

namespace norvo::cli {

CLI::App& ElefanCommand(CLI::App& app) {
    const auto found =
        app.get_subcommands([](CLI::App* sub) { return sub->get_name() == "elefan"; });
    if (!found.empty()) return *found.front();
    auto* cmd = app.add_subcommand("elefan", "ELEFAN I: scores and searches of growth parameters");
    cmd->require_subcommand(1);
    return *cmd;
}

namespace {

inline constexpr const char* kBadPairTitle = "Invalid Input";
inline constexpr const char* kBadPair = "Expected two numbers separated by ':' in ";

}  // namespace

std::pair<float, float> ParsePair(const std::string& text, const std::string& option) {
    const auto colon = text.find(':');
    float a = 0, b = 0;
    if (colon != std::string::npos) {
        const char* p = text.data();
        const auto ra = std::from_chars(p, p + colon, a);
        const auto rb = std::from_chars(p + colon + 1, p + text.size(), b);
        if (ra.ec == std::errc() && ra.ptr == p + colon && rb.ec == std::errc() &&
            rb.ptr == p + text.size())
            return {a, b};
    }
    throw Refusal(kBadPairTitle, kBadPair + option + ": " + text);
}

double Shortest(float v) {
    char buf[32];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    double d = 0;
    std::from_chars(buf, res.ptr, d);
    return d;
}

void PrintSurface(Context& ctx, const SurfaceResult& r) {
    if (ctx.json) {
        nlohmann::json k = nlohmann::json::array(), loo = nlohmann::json::array(),
                       grid = nlohmann::json::array();
        for (int i = 0; i < kSurfaceSize; ++i) {
            k.push_back(Shortest(static_cast<float>(r.kHeadings[i])));
            loo.push_back(Shortest(static_cast<float>(r.looHeadings[i])));
            nlohmann::json row = nlohmann::json::array();
            for (int j = 0; j < kSurfaceSize; ++j) row.push_back(Shortest(r.grid[i][j]));
            grid.push_back(row);
        }
        ctx.print({{"k", k},
                   {"loo", loo},
                   {"grid", grid},
                   {"min", Shortest(r.min)},
                   {"max", Shortest(r.max)}});
        return;
    }
    std::cout << std::left << std::setw(7) << kSurfaceCorner;
    for (int j = 0; j < kSurfaceSize; ++j)
        std::cout << std::setw(8) << Format(r.looHeadings[j], "0.00");
    std::cout << "\n";
    for (int i = 0; i < kSurfaceSize; ++i) {
        std::cout << std::setw(7) << Format(r.kHeadings[i], "0.00");
        for (int j = 0; j < kSurfaceSize; ++j)
            std::cout << std::setw(8) << Format(r.grid[i][j], "0.000");
        std::cout << "\n";
    }
}

}  // namespace norvo::cli
