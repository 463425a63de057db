#pragma once
// The K Scan tab of the Shepherd screen: the scores of K at one Loo, the best point with its
// starting length, the trend line over the scores, and the scan's picture.
#include <QWidget>
#include <array>
#include <optional>

#include "growth/screens/shepherd_shared.h"
#include "growth/shepherd.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QScrollBar;

namespace norvo::gui {

class PlotView;

inline constexpr const char* kShepherdKScanLoo =
    "Enter the asymptotic length (Loo) for the K-scan plot: ";

using ShepherdFields = std::array<QLineEdit*, 5>;

class ShepherdKScanPage : public QWidget {
  public:
    ShepherdKScanPage(ShepherdShared& shared, QWidget* parent = nullptr);

    void setDefaults(const ShepherdDefaults& d);
    // A new file: no results.
    void load();
    // "Compute": the scan after the Loo check; nothing changes when it is cancelled.
    void compute();
    // The trend line with the scroll bar's span, and its best point in the trend fields.
    void smooth();
    // "P&lot": the best point goes to the plot screen (empty values before a scan).
    void plot();
    void report();

    QLineEdit* looField() const { return loo_; }
    const ShepherdFields& bestFields() const { return best_; }
    const ShepherdFields& trendFields() const { return trend_; }
    QCheckBox* trendLine() const { return chkTrend_; }
    QScrollBar* span() const { return hscr_; }
    const ChartCanvas& canvas() const;
    const std::optional<ShepherdKScanResult>& result() const { return result_; }

  private:
    void clearPlot();

    ShepherdShared& shared_;
    std::optional<ShepherdKScanResult> result_;
    bool filling_ = false;

    QLineEdit* loo_ = nullptr;
    ShepherdFields best_{};
    ShepherdFields trend_{};
    QCheckBox* chkTrend_ = nullptr;
    QScrollBar* hscr_ = nullptr;
    QLabel* spanLabel_ = nullptr;
    PlotView* view_ = nullptr;
};

}  // namespace norvo::gui
