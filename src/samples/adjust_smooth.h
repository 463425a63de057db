#pragma once
// A new class interval for a file (adjust), and a running average over 3 or 5 classes (smooth).
#include <string>
#include <vector>

#include "samples/sample_tools.h"

namespace norvo {

inline constexpr const char* kAdjustInvalidSizeText =
    "The input for the class size is invalid. Please check input.";
inline constexpr const char* kAdjustInvalidSizeTitle = "Norvo II";
inline constexpr double kAdjustMinSize = 0.25;
inline constexpr double kAdjustMaxSize = 10.0;
inline constexpr const char* kAdjustAskTitle = "Processing time...";
inline constexpr const char* kAdjustAskText =
    "Depending on the speed of the computer, this may take awhile. Proceed?";
inline constexpr const char* kAdjustDonePrefix = "The adjusted file has been saved to ";

inline constexpr const char* kSmoothDonePrefix = "The file has been saved to ";
inline constexpr const char* kSmoothTooFewText =
    "The file has fewer classes than the running average spans. Please choose a smaller window.";
inline constexpr const char* kSmoothBadWindowText =
    "The running average is taken over 3 or 5 classes.";

// The frequencies on a grid of class size `newInterval` whose first class keeps the old lower
// bound; trailing rows that no frequency reached are dropped. Refused when the size lies
// outside 0.25..10.
SampleFileRun AdjustData(const LfqData& data, const std::vector<LfqSample>& samples,
                         double newInterval);

struct AdjustOptions {
    std::string source;
    std::string destination;
    double newInterval = 0;
};
SampleFileRun RunAdjust(const AdjustOptions& options, const std::string& programFolder);

// The running mean over `window` (3 or 5) adjacent classes, centred: rows - window + 1 classes
// from M1 + (window - 1) / 2 * d.
SampleFileRun SmoothData(const LfqData& data, const std::vector<LfqSample>& samples, int window);

struct SmoothOptions {
    std::string source;
    std::string destination;
    int window = 3;
};
SampleFileRun RunSmooth(const SmoothOptions& options, const std::string& programFolder);

}  // namespace norvo
