#pragma once
// The "elefan" subcommand of norvo-cli and what its subcommands share. Each of its own
// subcommands (rn, kscan, ...) lives in its own file and adds itself under the parent returned
// here.
#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <utility>

#include "cli/cli_support.h"
#include "cli/interrupt.h"
#include "data/lfq_data.h"
#include "growth/elefan_search.h"

namespace norvo::cli {

// The "elefan" subcommand of `app`, created on first use.
CLI::App& ElefanCommand(CLI::App& app);

// A float as the shortest decimal that reads back as the same float.
double Shortest(float v);

// "A:B" as two 32-bit floats; anything else refuses the command naming `option`.
std::pair<float, float> ParsePair(const std::string& text, const std::string& option);

// Progress of a search on a terminal's stderr; Ctrl-C cancels the run between two steps.
class CliSink : public SearchSink {
  public:
    explicit CliSink(const char* label) : line_(label) {}
    void progress(int done, int total) override { line_.show(done, total); }
    bool cancelled() override { return Interrupted(); }

  private:
    ProgressLine line_;
};

// A response surface: as JSON (k, loo, grid, min, max) with --json, else as a table on stdout.
void PrintSurface(Context& ctx, const SurfaceResult& r);

// The result of a run, or the end of the command when Ctrl-C cancelled it.
template <class T>
T Finished(std::optional<T> result) {
    if (!result) throw Stopped();
    return std::move(*result);
}

}  // namespace norvo::cli
