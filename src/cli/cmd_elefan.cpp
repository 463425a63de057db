#include "cli/cmd_elefan.h"

#include <charconv>

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

double Shortest(float v) {
    char buf[32];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    double d = 0;
    std::from_chars(buf, res.ptr, d);
    return d;
}

}  // namespace norvo::cli
