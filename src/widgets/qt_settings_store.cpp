#include "widgets/qt_settings_store.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace norvo::gui {

namespace {

QString GroupKey(const std::string& section, const std::string& key) {
    // Slashes would open nested groups; keep each section flat.
    QString s = QString::fromStdString(section);
    QString k = QString::fromStdString(key);
    s.replace('/', '_');
    k.replace('/', '_');
    return s + '/' + k;
}

}  // namespace

QtSettingsStore::QtSettingsStore(QString folder) : folder_(std::move(folder)) {
    if (folder_.isEmpty())
        folder_ =
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Norvo";
}

QString QtSettingsStore::fileOf(const std::string& app) const {
    return QDir(folder_).filePath(QString::fromStdString(app) + ".ini");
}

std::string QtSettingsStore::get(const std::string& app, const std::string& section,
                                 const std::string& key, const std::string& fallback) const {
    QSettings s(fileOf(app), QSettings::IniFormat);
    const QVariant v = s.value(GroupKey(section, key));
    return v.isValid() ? v.toString().toStdString() : fallback;
}

void QtSettingsStore::set(const std::string& app, const std::string& section,
                          const std::string& key, const std::string& value) {
    QDir().mkpath(folder_);
    QSettings s(fileOf(app), QSettings::IniFormat);
    s.setValue(GroupKey(section, key), QString::fromStdString(value));
}

}  // namespace norvo::gui
