#pragma once
// The "mortality" subcommand of norvo-cli; each method's file adds its own sub-subcommand.
#include <CLI/CLI.hpp>

namespace norvo::cli {

// Creates the "mortality" subcommand on first use and returns it.
CLI::App& MortalityCommand(CLI::App& app);

}  // namespace norvo::cli
