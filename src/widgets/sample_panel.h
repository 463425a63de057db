#pragma once
// The sample choice of the length-based analyses: the list of samples (all selected at load),
// the three transformations and temporal weighting with its help button.
#include <QWidget>
#include <array>
#include <vector>

#include "base/user_notice.h"
#include "data/lfq_data.h"

class QCheckBox;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace norvo {
enum class CcTransform : int;
}

namespace norvo::gui {

inline constexpr std::array<const char*, 3> kTransformCaptions = {
    "Raw data (no transformation)", "Percent of sample total", "Square-root of sample total"};
inline constexpr std::array<const char*, 3> kTransformHints = {
    "Use when samples represent catch per effort", "Use when sample sizes are very dissimilar",
    "Use when sample sizes are roughly similar"};
inline constexpr const char* kTemporalCaption = "Apply temporal weigthing";

class SamplePanel : public QWidget {
    Q_OBJECT
  public:
    SamplePanel(DialogService& dialogs, QWidget* parent = nullptr);
    // Lists the samples of a file, every one selected.
    void setData(const LfqData& data);
    std::vector<bool> selected() const;
    void setSelected(int sample, bool on);  // 0-based
    CcTransform transform() const;
    void setTransform(CcTransform kind);
    bool temporal() const;
    void setTemporal(bool on);
    QListWidget* list() const { return list_; }
    QPushButton* helpButton() const { return help_; }

  Q_SIGNALS:
    void changed();

  private:
    DialogService& dialogs_;
    QListWidget* list_;
    std::array<QRadioButton*, 3> options_{};
    QCheckBox* temporal_;
    QPushButton* help_;
};

}  // namespace norvo::gui
