#pragma once
// The persistent settings store of the program: one INI file per application name, so that
// "Norvo II" and "Norvo" keep their keys apart; a section is a group inside the file.
#include <QString>

#include "base/settings_store.h"

namespace norvo::gui {

class QtSettingsStore : public SettingsStore {
  public:
    // `folder` holds the files; empty means the user's configuration folder.
    explicit QtSettingsStore(QString folder = {});

    std::string get(const std::string& app, const std::string& section, const std::string& key,
                    const std::string& fallback) const override;
    void set(const std::string& app, const std::string& section, const std::string& key,
             const std::string& value) override;

    // The file holding an application's keys.
    QString fileOf(const std::string& app) const;

  private:
    QString folder_;
};

}  // namespace norvo::gui
