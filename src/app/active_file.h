#pragma once
// "LastActive": the one slot naming the most recently activated data file. Its kind is the
// rightmost three characters of the path, upper-cased; there is no active file per kind.
#include <string>

#include "base/settings_store.h"
#include "base/user_notice.h"

namespace norvo {

// The rightmost three characters of `path`, upper-cased (fewer when the path is shorter).
std::string RightmostThreeUpper(const std::string& path);

class ActiveFileSet {
  public:
    explicit ActiveFileSet(SettingsStore& settings) : settings_(settings) {}

    // The stored path, or "No Active File" when none was ever stored.
    std::string path() const;
    // The kind the slot serves: the rightmost three characters of the path, upper-cased.
    std::string kind() const { return RightmostThreeUpper(path()); }
    // True when the slot holds a path of `kind`. "No Active File" ("ILE") and paths shorter
    // than three characters never match a real kind.
    bool serves(const std::string& kind) const;

    void setActive(const std::string& path);
    // Start of a session: the active file does not survive from one run to the next.
    void reset();

  private:
    SettingsStore& settings_;
};

// The gate of a command that needs a file of `kind`: passes at once when "LastActive" is of that
// kind, otherwise asks the Yes/No warning (`title`, `text`) and passes only on Yes.
bool GateCheck(SettingsStore& settings, DialogService& dialogs, const std::string& kind,
               const std::string& title, const std::string& text);

}  // namespace norvo
