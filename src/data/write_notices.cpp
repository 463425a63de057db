#include "data/write_notices.h"

namespace norvo {

std::string CannotWriteText(const std::string& path) {
    return "The file " + path +
           " could not be written. The folder may be read-only or the disk full. Please choose "
           "another place and try again.";
}

std::string FileExistsText(const std::string& path) {
    return "The file " + path + " already exists and was left as it is.";
}

}  // namespace norvo
