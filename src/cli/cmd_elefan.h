#pragma once
// The "elefan" subcommand of norvo-cli. Each of its own subcommands (rn, kscan, ...) lives in
// its own file and adds itself under the parent returned here.
#include <CLI/CLI.hpp>

namespace norvo::cli {

// The "elefan" subcommand of `app`, created on first use.
CLI::App& ElefanCommand(CLI::App& app);

}  // namespace norvo::cli
