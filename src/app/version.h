#pragma once
// The product's version and the captions built from it.
#include <string>

namespace norvo {

inline constexpr int kVersionMajor = NORVO_VERSION_MAJOR;
inline constexpr int kVersionMinor = NORVO_VERSION_MINOR;
inline constexpr int kVersionRevision = NORVO_VERSION_PATCH;

// "(Version 2.0.0)", as the splash screen and the About box show it.
inline std::string VersionLabel() {
    return "(Version " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
           std::to_string(kVersionRevision) + ")";
}

// The main window's caption: "Norvo II (Version 2.0.0)...".
inline std::string MainCaption() {
    return "Norvo II " + VersionLabel() + "...";
}

}  // namespace norvo
