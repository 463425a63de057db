#pragma once
// The tips of the editors: a few lines of advice with a check box that stores "Hide" under the
// tip's settings key, so that it does not come back. Tip1 is shown when the first sample is
// added to a new grouped-frequency file; Tip2 after the catches of a scenario are saved.
#include <QDialog>
#include <initializer_list>

#include "base/settings_store.h"

class QCheckBox;

namespace norvo::gui {

inline constexpr const char* kTip1Key = "Tip1";
inline constexpr const char* kTip2Key = "Tip2";
inline constexpr const char* kTipShow = "Show";
inline constexpr const char* kTipHide = "Hide";
inline constexpr const char* kTip1Text1 =
    "By default, 10 classes are automatically created. However, more can be added when the cell "
    "pointer moves to a non-existing row using either the <ENTER> key or down arrow key.";
inline constexpr const char* kTip1Text2 =
    "Note that rows beyond the largest recorded sample will be deleted automatically when the "
    "file is saved to a media.";
inline constexpr const char* kTip2Text1 =
    "The catches of a combination are paired with the species' length classes by their "
    "midlengths. Record the catches and the selection parameters of every species and fleet "
    "combination before running the Thompson and Bell prediction.";
inline constexpr const char* kTip2Text2 =
    "Tick \"Compute F from the selection data\" to have the prediction take each fleet's F from "
    "its selection ogive and the species' terminal F; otherwise the F-array of the species file "
    "is shared among the fleets in proportion to their catches.";
inline constexpr const char* kTipDontShow = "Do not show this tip again";

class FrmTip : public QDialog {
    Q_OBJECT
  public:
    FrmTip(SettingsStore& settings, const char* key, std::initializer_list<const char*> texts,
           QWidget* parent = nullptr);
    // False when the user asked not to see the tip of `key` again.
    static bool wanted(const SettingsStore& settings, const char* key);
    QCheckBox* dontShowBox() const { return chkTip_; }

    void done(int result) override;

  private:
    SettingsStore& settings_;
    const char* key_;
    QCheckBox* chkTip_;
};

class FrmTip1 : public FrmTip {
  public:
    explicit FrmTip1(SettingsStore& settings, QWidget* parent = nullptr);
    static bool wanted(const SettingsStore& settings) { return FrmTip::wanted(settings, kTip1Key); }
};

class FrmTip2 : public FrmTip {
  public:
    explicit FrmTip2(SettingsStore& settings, QWidget* parent = nullptr);
    static bool wanted(const SettingsStore& settings) { return FrmTip::wanted(settings, kTip2Key); }
};

}  // namespace norvo::gui
