#pragma once
// The sample sub-header dialogue of the grouped-frequency editor: date and the other
// attributes of one Sample_LF record. OK checks the date and writes the record to the file at
// once; Cancel leaves the file alone.
#include <QDialog>
#include <QString>
#include <array>
#include <string>

#include "base/user_notice.h"
#include "data/lfq_data.h"

class QComboBox;
class QLineEdit;

namespace norvo::gui {

inline constexpr const char* kInvalidDateText = "The date input is invalid. Please correct input.";
inline constexpr const char* kSubheaderNote =
    "NOTE: The following are other sample identifiers. Please note that the inputs will not be "
    "validated but users are encouraged to encode the values using standard formats.";
inline constexpr const char* kLengthWeightNote =
    "Enter coefficients of the length-weigth relationship (L=aW^b).";
inline constexpr std::array<const char*, 4> kSexList = {"male", "female", "both", "unknown"};
inline constexpr std::array<const char*, 11> kBottomList = {
    "Boulder",         "Cobble",      "Pebble",      "Granule",
    "Very couse sand", "Coarse sand", "Medium sand", "Fine sand",
    "Very fine sand",  "Silt",        "Clay"};

class FrmLfqSub : public QDialog {
    Q_OBJECT
  public:
    // `numericKeys` are the characters the numeric boxes accept ("0123456789" and the
    // locale's decimal separator).
    FrmLfqSub(const std::string& path, int sampleNo, DialogService& dialogs,
              const std::string& numericKeys, QWidget* parent = nullptr);

    // Fills the boxes from the file's record for this sample, if there is one.
    void ReadData();
    // Writes the record (all fields) to the file at once.
    void SaveData();

    // The date taken on OK; day 0 when the dialogue was cancelled.
    int day() const { return day_; }
    int month() const { return month_; }
    int year() const { return year_; }

    // The boxes, for the editor's tests and for typing into by name.
    QComboBox* dayBox() const { return cmbDay_; }
    QComboBox* monthBox() const { return cmbMonth_; }
    QLineEdit* yearBox() const { return txtYear_; }
    // The sample as the boxes now stand (empty numbers as 0).
    LfqSample sampleFromBoxes() const;

  public Q_SLOTS:
    void ok();
    void cancel();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLineEdit* addLine(const char* name);
    QLineEdit* addNumber(const char* name);
    QComboBox* addCombo(const char* name);

    std::string path_;
    int sampleNo_;
    DialogService& dialogs_;
    QString numericKeys_;
    int day_ = 0, month_ = 0, year_ = 0;

    QComboBox* cmbDay_;
    QComboBox* cmbMonth_;
    QLineEdit* txtYear_;
    QComboBox* cmbSex_;
    QLineEdit* txtTime_;
    QLineEdit* txtArea_;
    QLineEdit* txtLatitude_;
    QLineEdit* txtLongitude_;
    QLineEdit* txtDepth_;
    QComboBox* cmbBottom_;
    QLineEdit* txtLwA_;
    QLineEdit* txtLwB_;
    QLineEdit* txtCatchType_;
    QLineEdit* txtWtSample_;
    QLineEdit* txtTwtSpecies_;
    QLineEdit* txtTwtCatch_;
    QLineEdit* txtEffort_;
    QLineEdit* txtVessel_;
    QLineEdit* txtGearType_;
    QLineEdit* txtMeshSize_;
    QLineEdit* txtGearChar_;
    QLineEdit* txtRemarks_;
    QList<QWidget*> order_;  // Enter moves along these
};

}  // namespace norvo::gui
