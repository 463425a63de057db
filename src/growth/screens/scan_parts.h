#pragma once
// Parts the K-scan and response-surface tabs of the growth search screens build alike: the trend
// line group with its span, the scan's picture, and the surface table beside its heat map.
#include <QString>
#include <functional>

class QCheckBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QScrollBar;
class QSplitter;
class QTableWidget;
class QWidget;

namespace norvo {
class DialogService;
}

namespace norvo::gui {

class PlotView;

// The "Trend line" group: the apply box, then the span scroll bar (1 to 51) with its value beside
// it. The caller adds the trend's result fields to `form`.
struct KScanTrendGroup {
    QGroupBox* box = nullptr;
    QFormLayout* form = nullptr;
    QCheckBox* apply = nullptr;
    QScrollBar* span = nullptr;
    QLabel* spanLabel = nullptr;
};
KScanTrendGroup MakeKScanTrendGroup(QWidget* parent, const QString& applyName,
                                    const QString& spanName);

// Ticking the box draws the trend (`smooth`), unticking puts back the clean picture; a new span
// is shown and redraws a ticked trend. The box does nothing while `filling` is up.
void ConnectKScanTrend(QWidget* page, DialogService& dialogs, const KScanTrendGroup& trend,
                       PlotView* view, const bool& filling, std::function<void()> smooth);

// A picture of fixed size (it does not follow the widget's size) that takes the room it gets.
PlotView* MakeScanView(QWidget* parent, const QString& name, int minWidth, int minHeight);

// The surface table and its heat map side by side, the table wider (3 : 2).
struct SurfaceSplit {
    QSplitter* split = nullptr;
    QTableWidget* table = nullptr;
    PlotView* heatMap = nullptr;
};
SurfaceSplit MakeSurfaceSplit(QWidget* parent, const QString& tableName);

}  // namespace norvo::gui
