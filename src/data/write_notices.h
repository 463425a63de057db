#pragma once
// The notices of a file that is not written: a place that cannot take it, or a file the user
// already has and did not ask to replace.
#include <string>

namespace norvo {

// "The file <path> could not be written. ..." (a read-only folder, a full disk).
std::string CannotWriteText(const std::string& path);
// "The file <path> already exists and was left as it is."
std::string FileExistsText(const std::string& path);

}  // namespace norvo
