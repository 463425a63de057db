#include "growth/screens/scan_parts.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QSplitter>
#include <QTableWidget>

#include "growth/screens/elefan_kscan_page.h"
#include "growth/screens/elefan_shared.h"
#include "widgets/command_boundary.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {
constexpr const char* kGroupTrend = "Trend line";
constexpr const char* kLabelSpan = "Span:";
constexpr int kDefaultSpan = 5;
}  // namespace

KScanTrendGroup MakeKScanTrendGroup(QWidget* parent, const QString& applyName,
                                    const QString& spanName) {
    KScanTrendGroup t;
    t.box = new QGroupBox(kGroupTrend, parent);
    t.form = new QFormLayout(t.box);
    t.apply = new QCheckBox(kApplyTrendLine, t.box);
    t.apply->setObjectName(applyName);
    t.form->addRow(t.apply);
    t.span = new QScrollBar(Qt::Horizontal, t.box);
    t.span->setObjectName(spanName);
    t.span->setRange(1, 51);
    t.span->setValue(kDefaultSpan);
    t.spanLabel = new QLabel(QString::number(kDefaultSpan), t.box);
    auto* row = new QHBoxLayout;
    row->addWidget(t.span, 1);
    row->addWidget(t.spanLabel);
    t.form->addRow(kLabelSpan, row);
    return t;
}

void ConnectKScanTrend(QWidget* page, DialogService& dialogs, const KScanTrendGroup& trend,
                       PlotView* view, const bool& filling, std::function<void()> smooth) {
    QCheckBox* apply = trend.apply;
    QLabel* label = trend.spanLabel;
    QObject::connect(apply, &QCheckBox::toggled, page,
                     Guarded(dialogs, [view, &filling, smooth](bool on) {
                         if (filling) return;
                         if (on) {
                             smooth();
                         } else if (view->hasCleanCopy()) {
                             view->restoreClean();
                         }
                     }));
    QObject::connect(trend.span, &QScrollBar::valueChanged, page,
                     Guarded(dialogs, [apply, label, smooth](int w) {
                         label->setText(QString::number(w));
                         if (apply->isChecked()) smooth();
                     }));
}

PlotView* MakeScanView(QWidget* parent, const QString& name, int minWidth, int minHeight) {
    auto* view = new PlotView(parent);
    view->setObjectName(name);
    view->setTracksWidgetSize(false);
    view->setMinimumSize(minWidth, minHeight);
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    return view;
}

SurfaceSplit MakeSurfaceSplit(QWidget* parent, const QString& tableName) {
    SurfaceSplit s;
    s.split = new QSplitter(Qt::Horizontal, parent);
    s.table = MakeSurfaceTable(s.split, tableName);
    s.heatMap = MakeScanView(s.split, "picSurface", 300, 250);
    s.split->addWidget(s.table);
    s.split->addWidget(s.heatMap);
    s.split->setStretchFactor(0, 3);
    s.split->setStretchFactor(1, 2);
    return s;
}

}  // namespace norvo::gui
