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

}  // namespace norvo
