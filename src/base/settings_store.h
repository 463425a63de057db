#pragma once
// Persistent (application, section, key) -> text map. Two application names are used on purpose
// and never mixed: the program's title for window geometry, "Norvo" for run-time state.
#include <map>
#include <string>
#include <tuple>

namespace norvo {

inline constexpr const char* kAppTitle = "Norvo II";  // window geometry lives here
inline constexpr const char* kSectionSettings = "Settings";
inline constexpr const char* kRunTimeApp = "Norvo";  // run-time state lives here
inline constexpr const char* kSectionRunTime = "RunTime";

inline constexpr const char* kKeyLastActive = "LastActive";
inline constexpr const char* kNoActiveFile = "No Active File";

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    // The stored text, or `fallback` when the key is missing.
    virtual std::string get(const std::string& app, const std::string& section,
                            const std::string& key, const std::string& fallback) const = 0;
    virtual void set(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) = 0;

    // Shorthands for the run-time section ("Norvo", "RunTime").
    std::string runTime(const std::string& key, const std::string& fallback) const {
        return get(kRunTimeApp, kSectionRunTime, key, fallback);
    }
    void setRunTime(const std::string& key, const std::string& value) {
        set(kRunTimeApp, kSectionRunTime, key, value);
    }
};

// In-memory store for tests and the command-line front end.
class MemorySettingsStore : public SettingsStore {
  public:
    std::string get(const std::string& app, const std::string& section, const std::string& key,
                    const std::string& fallback) const override {
        auto it = values_.find({app, section, key});
        return it == values_.end() ? fallback : it->second;
    }
    void set(const std::string& app, const std::string& section, const std::string& key,
             const std::string& value) override {
        values_[{app, section, key}] = value;
    }
    bool contains(const std::string& app, const std::string& section,
                  const std::string& key) const {
        return values_.count({app, section, key}) != 0;
    }

  private:
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};

}  // namespace norvo
