#pragma once
// Outcome of a calculator on typed values: either it computed, or one of its input checks
// refused the values, with the notice the user sees (title and text).
#include <string>

namespace norvo {

struct CalcStatus {
    bool ok = true;
    std::string title;
    std::string message;

    static CalcStatus Refused(std::string title, std::string message) {
        return {false, std::move(title), std::move(message)};
    }
};

// Inclusive range test on the 32-bit values the user typed: the limits are taken to 32 bits as
// well, so that a typed limit (0.01, 10) always passes.
inline bool InLimits(float x, float low, float high) {
    return low <= x && x <= high;
}

}  // namespace norvo
