#pragma once
// The grouped length-frequency part of `norvo-cli info`: header, sample dates and the
// frequency table of an LFQ file, as text or as JSON.
#include <string>

#include "cli/cli_support.h"

namespace norvo::cli {

// Reads the file as the analyses do; an unreadable file is a Refusal.
nlohmann::json LfqInfoJson(Context& ctx, const std::string& path);
void PrintLfqInfo(Context& ctx, const std::string& path);

}  // namespace norvo::cli
