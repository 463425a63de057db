#pragma once
// An example for the --help of every command, kept in one table so that a command cannot come
// without one (the tests walk every command's help).
#include <CLI/CLI.hpp>

namespace norvo::cli {

// Puts "Example:" and the command's example under the help of each subcommand, at any depth.
void AddExamples(CLI::App& app);

}  // namespace norvo::cli
