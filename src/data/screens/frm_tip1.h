#pragma once
// The tip shown when the first sample is added to a new grouped-frequency file. Its check box
// stores "Tip1" = "Hide" so that it does not come back.
#include <QDialog>

#include "base/settings_store.h"

class QCheckBox;

namespace norvo::gui {

inline constexpr const char* kTip1Key = "Tip1";
inline constexpr const char* kTipShow = "Show";
inline constexpr const char* kTipHide = "Hide";
inline constexpr const char* kTip1Text1 =
    "By default, 10 classes are automatically created. However, more can be added when the cell "
    "pointer moves to a non-existing row using either the <ENTER> key or down arrow key.";
inline constexpr const char* kTip1Text2 =
    "Note that rows beyond the largest recorded sample will be deleted automatically when the "
    "file is saved to a media.";
inline constexpr const char* kTipDontShow = "Do not show this tip again";

class FrmTip1 : public QDialog {
    Q_OBJECT
  public:
    FrmTip1(SettingsStore& settings, QWidget* parent = nullptr);
    // False when the user asked not to see the tip again.
    static bool wanted(const SettingsStore& settings);
    QCheckBox* dontShowBox() const { return chkTip_; }

    void done(int result) override;

  private:
    SettingsStore& settings_;
    QCheckBox* chkTip_;
};

}  // namespace norvo::gui
