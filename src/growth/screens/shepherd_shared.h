#pragma once
// What the pages of the Shepherd screen share: the shell's services, the screen's side of a run,
// the loaded file and its scorer, and the K of the last run.
#include <memory>
#include <optional>

#include "growth/elefan_report.h"
#include "growth/screens/elefan_shared.h"
#include "growth/shepherd_search.h"
#include "widgets/shell_context.h"

namespace norvo::gui {

struct ShepherdShared {
    ShepherdShared(ShellContext& c, RunHost& h) : ctx(c), host(h) {}
    ShellContext& ctx;
    RunHost& host;
    std::optional<ElefanFileInfo> file;  // what the General tab shows; none before a file
    std::unique_ptr<ShepherdScorer> scorer;
    std::unique_ptr<ParallelRn> rn;
    // The K of the last run, which a surface with one K scores in its first pass.
    float k = 1;

    bool loaded() const { return rn != nullptr; }
};

}  // namespace norvo::gui
