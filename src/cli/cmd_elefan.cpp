#include "cli/cmd_elefan.h"

namespace norvo::cli {

CLI::App& ElefanCommand(CLI::App& app) {
    const auto found =
        app.get_subcommands([](CLI::App* sub) { return sub->get_name() == "elefan"; });
    if (!found.empty()) return *found.front();
    auto* cmd = app.add_subcommand("elefan", "ELEFAN I: scores and searches of growth parameters");
    cmd->require_subcommand(1);
    return *cmd;
}

}  // namespace norvo::cli
