#pragma once
// The "elefan" subcommand of norvo-cli and what its subcommands share. Each of its own
// subcommands (rn, kscan, ...) lives in its own file and adds itself under the parent returned
// here.
#include <CLI/CLI.hpp>
#include <string>

#include "cli/cli_support.h"
#include "data/lfq_data.h"

namespace norvo::cli {

// The "elefan" subcommand of `app`, created on first use.
CLI::App& ElefanCommand(CLI::App& app);

// Reads a grouped length-frequency file; one that can't be read refuses the command with the
// reader's notice.
// A float as the shortest decimal that reads back as the same float.
double Shortest(float v);

}  // namespace norvo::cli
