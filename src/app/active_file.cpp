#include "app/active_file.h"

#include <cctype>

namespace norvo {

std::string RightmostThreeUpper(const std::string& path) {
    std::string tail = path.size() > 3 ? path.substr(path.size() - 3) : path;
    for (char& c : tail) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return tail;
}

std::string ActiveFileSet::path() const {
    return settings_.runTime(kKeyLastActive, kNoActiveFile);
}

bool ActiveFileSet::serves(const std::string& kind) const {
    const std::string p = path();
    if (p.size() < 3 || p == kNoActiveFile) return false;
    return RightmostThreeUpper(p) == kind;
}

void ActiveFileSet::setActive(const std::string& path) {
    settings_.setRunTime(kKeyLastActive, path);
}

void ActiveFileSet::reset() {
    settings_.setRunTime(kKeyLastActive, kNoActiveFile);
}

bool GateCheck(SettingsStore& settings, DialogService& dialogs, const std::string& kind,
               const std::string& title, const std::string& text) {
    if (ActiveFileSet(settings).serves(kind)) return true;
    return dialogs.notify({text, title, Buttons::YesNo, Icon::Warning}) == Answer::Yes;
}

}  // namespace norvo
