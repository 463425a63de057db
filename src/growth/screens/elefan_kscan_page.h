#pragma once
// The K Scan tab of the ELEFAN I screen: the scan of K at a given Loo, its best setting, the
// trend line over the scores, and the scan's picture.
#include <QWidget>
#include <optional>

#include "growth/elefan_defaults.h"
#include "growth/screens/elefan_shared.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QScrollBar;

namespace norvo::gui {

class PlotView;

inline constexpr const char* kFixStartingPoint = "Fix the starting point";
inline constexpr const char* kApplyTrendLine = "Apply trend line";

class ElefanKScanPage : public QWidget {
  public:
    ElefanKScanPage(ElefanShared& shared, QWidget* parent = nullptr);

    void setDefaults(const ElefanDefaults& d);
    // A new file: its starting lists with the proposed point chosen, and no results.
    void load(float ss, float sl);
    // The Loo that the scan runs at, as the field holds it.
    float loo() const;
    // "Compute": the scan; nothing changes when it is cancelled.
    void compute();
    // The trend line with the scroll bar's span, and its best setting in fields 13 to 19.
    void smooth();
    // "P&lot": the best setting goes to the plot screen (six empty values before a scan).
    void plot();
    // "Report": the page with the scan's picture and best setting.
    void report();

    QLineEdit* looField() const { return loo_; }
    QLineEdit* cField() const { return c_; }
    QLineEdit* wpField() const { return wp_; }
    QCheckBox* fixStart() const { return chkSP_; }
    QComboBox* ssList() const { return ss_; }
    QComboBox* slList() const { return sl_; }
    // txtELEFAN1 6..12 (the scan's best) and 13..19 (the trend line's).
    const ResultFields& bestFields() const { return best_; }
    const ResultFields& trendFields() const { return trend_; }
    QCheckBox* trendLine() const { return chkTrend_; }
    QScrollBar* span() const { return hscr_; }
    const ChartCanvas& canvas() const;
    const std::optional<KScanResult>& result() const { return result_; }

  private:
    // A change of a scan field: the picture, the trend fields and the trend box are cleared.
    void clearPlot();
    void drawScan(float loo);

    ElefanShared& shared_;
    std::optional<KScanResult> result_;
    bool filling_ = false;

    QLineEdit* loo_ = nullptr;
    QLineEdit* c_ = nullptr;
    QLineEdit* wp_ = nullptr;
    QCheckBox* chkSP_ = nullptr;
    QComboBox* ss_ = nullptr;
    QComboBox* sl_ = nullptr;
    ResultFields best_{};
    ResultFields trend_{};
    QCheckBox* chkTrend_ = nullptr;
    QScrollBar* hscr_ = nullptr;
    QLabel* spanLabel_ = nullptr;
    PlotView* view_ = nullptr;
};

}  // namespace norvo::gui
