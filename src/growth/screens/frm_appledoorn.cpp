#include "growth/screens/frm_appledoorn.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "growth/appeldoorn.h"
#include "growth/growth_fit_plot.h"
#include "numerics/text_convert.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

constexpr const char* kMatrixPattern = "0.00";
constexpr const char* kSummaryPattern = "#0.0000";
constexpr int kUseColumn = 8;

QLineEdit* ReadOnlyBox(QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setReadOnly(true);
    box->setAlignment(Qt::AlignRight);
    return box;
}

GinData DataOf(const LfqData& header, const std::vector<GinRow>& rows) {
    GinData d;
    d.header = header;
    d.rows = rows;
    return d;
}

}  // namespace

FrmAppledoorn::FrmAppledoorn(ShellContext& ctx, QWidget* parent)
    : GrowthIncrementScreen(ctx, "frmAppledoorn", kApCaption, parent) {
    // Every row enters the fit: no selection flags and no fixed Loo here.
    table()->setColumnHidden(kUseColumn, true);
    fixedBox()->hide();
    looBox()->hide();
    for (auto* label : findChildren<QLabel*>())
        if (label->text() == kGinEnterLoo) label->hide();
    // Nothing here is picked on the plot.
    for (auto* group : findChildren<QGroupBox*>())
        if (group->title() == "Selecting Points") group->hide();

    auto* params = new QWidget;
    auto* pLayout = new QVBoxLayout(params);
    auto* matrix = new QGroupBox(kApMatrixCaption, params);
    auto* grid = new QGridLayout(matrix);
    for (int c = 0; c < 3; ++c)
        grid->addWidget(new QLabel(kApColumnCaptions[static_cast<size_t>(c)], matrix), 0, c + 1);
    for (int p = 0; p < kApParams; ++p) {
        grid->addWidget(new QLabel(kApRowLabels[static_cast<size_t>(p)], matrix), p + 1, 0);
        for (int c = 0; c < 3; ++c) {
            auto* box = new QLineEdit(matrix);
            box->setAlignment(Qt::AlignRight);
            txtParam_[static_cast<size_t>(p * 3 + c)] = box;
            grid->addWidget(box, p + 1, c + 1);
        }
    }
    pLayout->addWidget(matrix);
    progress_ = new QProgressBar(params);
    progress_->setRange(0, kMarquardtMaxIterations);
    progress_->setValue(0);
    pLayout->addWidget(progress_);
    pLayout->addStretch();
    tabs()->addTab(params, kApParametersTab);

    addPlot(kApCurveTab, "Relative age:", "Length:", "0.00", "0.00", false);

    auto* stats = new QWidget;
    auto* sLayout = new QVBoxLayout(stats);
    summary_ = new QTableWidget(kApParams, 4, stats);
    QStringList heads;
    for (const char* h : kApSummaryColumns) heads << h;
    summary_->setHorizontalHeaderLabels(heads);
    summary_->verticalHeader()->hide();
    summary_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    summary_->setSelectionBehavior(QAbstractItemView::SelectRows);
    summary_->setSelectionMode(QAbstractItemView::SingleSelection);
    summary_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    sLayout->addWidget(summary_);
    auto* fit = new QFormLayout;
    r_ = ReadOnlyBox(stats);
    adjR_ = ReadOnlyBox(stats);
    fit->addRow("r     :", r_);
    fit->addRow("Adjusted r     :", adjR_);
    sLayout->addLayout(fit);
    auto* chosen = new QGroupBox(stats);
    auto* cForm = new QFormLayout(chosen);
    const char* captions[] = {"Estimate:", "s.e.:", "C.V.:"};
    for (size_t i = 0; i < selected_.size(); ++i) {
        selected_[i] = ReadOnlyBox(chosen);
        cForm->addRow(captions[i], selected_[i]);
    }
    sLayout->addWidget(chosen);
    sLayout->addWidget(new QLabel("Remarks", stats));
    remarks_ = new QPlainTextEdit(stats);
    remarks_->setReadOnly(true);
    sLayout->addWidget(remarks_, 1);
    tabs()->addTab(stats, kApSummaryTab);
    tabs()->setCurrentIndex(0);

    compute_ = new QPushButton(kApCmdCompute, this);
    buttonRow()->insertWidget(1, compute_);
    compute_->setEnabled(false);

    auto& dialogs = ctx_.dialogs;
    connect(compute_, &QPushButton::clicked, this, Guarded(dialogs, [this] { compute(); }));
    connect(summary_, &QTableWidget::currentCellChanged, this,
            Guarded(dialogs, [this](int row, int, int, int) { selectParameter(row); }));

    clearResults();
    loadLastActive();
}

FrmAppledoorn::~FrmAppledoorn() = default;

void FrmAppledoorn::recompute() {
    if (header().path != loadedPath_) {
        loadedPath_ = header().path;
        run_.reset();
        resetMatrix();
        clearResults();
        compute_->setEnabled(!rows().empty());
    }
    redraw();
}

void FrmAppledoorn::resetMatrix() {
    const ApConstraints c = DefaultAppeldoornConstraints(DataOf(header(), rows()));
    for (size_t p = 0; p < kApParams; ++p) {
        SetBoxNumber(txtParam_[p * 3], c[p].min, kMatrixPattern);
        SetBoxNumber(txtParam_[p * 3 + 1], c[p].start, kMatrixPattern);
        SetBoxNumber(txtParam_[p * 3 + 2], c[p].max, kMatrixPattern);
    }
}

void FrmAppledoorn::compute() {
    if (rows().empty()) return;
    AppeldoornOptions o;
    // Text that is no number reads as NaN, which the checks refuse.
    for (size_t p = 0; p < kApParams; ++p)
        o.constraints[p] = {static_cast<float>(NumberOrNaN(txtParam_[p * 3])),
                            static_cast<float>(NumberOrNaN(txtParam_[p * 3 + 1])),
                            static_cast<float>(NumberOrNaN(txtParam_[p * 3 + 2]))};
    o.progress = [this](int i) { progress_->setValue(std::min(i, kMarquardtMaxIterations)); };
    clearResults();
    run_.reset();
    auto run = std::make_unique<AppeldoornRun>(RunAppeldoorn(DataOf(header(), rows()), o));
    progress_->setValue(0);
    if (run->fitted) {
        run_ = std::move(run);
        showRun();
        ShowNotices(*run_, ctx_.dialogs);
    } else {
        redraw();
        ShowNotices(*run, ctx_.dialogs);
    }
}

void FrmAppledoorn::clearResults() {
    for (int r = 0; r < kApParams; ++r) {
        summary_->setItem(r, 0, new QTableWidgetItem(kApParamNames[static_cast<size_t>(r)]));
        for (int c = 1; c < 4; ++c) summary_->setItem(r, c, new QTableWidgetItem);
    }
    r_->clear();
    adjR_->clear();
    remarks_->clear();
    for (auto* box : selected_) box->clear();
    setResult(std::nullopt, std::nullopt);
}

void FrmAppledoorn::showRun() {
    const AppeldoornRun& run = *run_;
    for (int r = 0; r < kApParams; ++r) {
        const auto p = static_cast<size_t>(r);
        const float se = run.fit.stdErr[p];
        auto* est = new QTableWidgetItem(NumberText(run.fit.b[p], kSummaryPattern) + " " +
                                         QString::fromStdString(run.fit.stars[p]));
        auto* err =
            new QTableWidgetItem(se == 0 ? QString(kGrowthFitNa) : NumberText(se, kSummaryPattern));
        auto* cv = new QTableWidgetItem(run.cv[p] ? NumberText(*run.cv[p], kSummaryPattern)
                                                  : QString(kGrowthFitNa));
        for (auto* item : {est, err, cv}) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        summary_->setItem(r, 1, est);
        summary_->setItem(r, 2, err);
        summary_->setItem(r, 3, cv);
    }
    SetBoxNumber(r_, run.fit.r2, kSummaryPattern);
    SetBoxNumber(adjR_, run.fit.adjustedR2, kSummaryPattern);
    remarks_->setPlainText(QString::fromStdString(run.remarks));
    setResult(run.fit.b[kApLoo], run.fit.b[kApK]);
    selectParameter(std::max(0, summary_->currentRow()));
    redraw();
}

void FrmAppledoorn::selectParameter(int row) {
    if (!run_ || row < 0 || row >= kApParams) return;
    const auto p = static_cast<size_t>(row);
    SetBoxNumber(selected_[0], run_->fit.b[p], kSummaryPattern);
    const float se = run_->fit.stdErr[p];
    if (se == 0)
        selected_[1]->setText(kGrowthFitNa);
    else
        SetBoxNumber(selected_[1], se, kSummaryPattern);
    if (run_->cv[p])
        SetBoxNumber(selected_[2], *run_->cv[p], kSummaryPattern);
    else
        selected_[2]->setText(kGrowthFitNa);
}

void FrmAppledoorn::redraw() {
    const AppeldoornRun empty;
    DrawAppeldoornCurve(plot(0)->canvas(), DataOf(header(), rows()), run_ ? *run_ : empty,
                        DecimalSeparator());
    plot(0)->refresh();
}

void FrmAppledoorn::print() {
    if (!run_) return;
    PrintReport(AppeldoornReport(DataOf(header(), rows()), *run_), plot(0)->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
