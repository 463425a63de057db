#pragma once
// What a core routine reports besides its numbers: whether it ran to its end or was refused,
// and the notices it has for the user (title + text), in the order they arose. Results derive
// from it, so the screen shows the notices and the command-line program prints them.
#include <string>
#include <utility>
#include <vector>

#include "base/user_notice.h"

namespace norvo {

enum class RunStatus { Done, Refused };

struct Outcome {
    RunStatus status = RunStatus::Done;
    std::vector<UserNotice> notices;

    bool ok() const { return status == RunStatus::Done; }
    // A notice that leaves the run going on.
    void note(std::string text, std::string title, Icon icon = Icon::None) {
        notices.push_back({std::move(text), std::move(title), Buttons::Ok, icon});
    }
    // The notice that ends the run with nothing computed.
    void refuse(std::string text, std::string title, Icon icon = Icon::Warning) {
        note(std::move(text), std::move(title), icon);
        status = RunStatus::Refused;
    }
    // The refusing notice (the last one) of a refused run; null otherwise.
    const UserNotice* refusal() const {
        return ok() || notices.empty() ? nullptr : &notices.back();
    }
    // Takes over another run's notices (and its refusal).
    void absorb(const Outcome& other) {
        notices.insert(notices.end(), other.notices.begin(), other.notices.end());
        if (!other.ok()) status = RunStatus::Refused;
    }
};

// Shows each notice through the dialogs, in order. True when the run was not refused.
inline bool ShowNotices(const Outcome& outcome, DialogService& dialogs) {
    for (const UserNotice& n : outcome.notices) dialogs.notify(n);
    return outcome.ok();
}

}  // namespace norvo
