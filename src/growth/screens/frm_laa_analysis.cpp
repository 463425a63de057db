#include "growth/screens/frm_laa_analysis.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <optional>

#include "base/outcome.h"
#include "base/settings_store.h"
#include "data/sample_readers.h"
#include "growth/growth_fit_plot.h"
#include "growth/length_at_age.h"
#include "numerics/text_convert.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

constexpr const char* kBoxPattern = "#0.00";

bool HasLaaExtension(const std::string& path) {
    if (path.size() <= 4) return false;
    std::string ext = path.substr(path.size() - 4);
    for (auto& ch : ext) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
    return ext == ".LAA";
}

QLineEdit* ReadOnlyBox(QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setReadOnly(true);
    box->setAlignment(Qt::AlignRight);
    return box;
}

}  // namespace

struct FrmLaaAnalysis::State {
    std::optional<LaaData> data;
    std::optional<LaaRun> run;
};

FrmLaaAnalysis::FrmLaaAnalysis(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmLAAAnalysis");
    setWindowTitle(kLaaCaption);
    auto* layout = new QVBoxLayout(this);

    auto* fileRow = new QHBoxLayout;
    file_ = new QLineEdit(this);
    file_->setReadOnly(true);
    cmd_[0] = new QPushButton(kLaaCmdOpen, this);
    cmd_[0]->setFixedWidth(32);
    fileRow->addWidget(new QLabel("File name:", this));
    fileRow->addWidget(file_, 1);
    fileRow->addWidget(cmd_[0]);
    layout->addLayout(fileRow);
    species_ = new QLabel(this);
    layout->addWidget(species_);

    auto* top = new QHBoxLayout;
    auto* constraints = new QGroupBox("Constraints", this);
    auto* grid = new QGridLayout(constraints);
    for (int c = 0; c < 3; ++c)
        grid->addWidget(new QLabel(kLaaColumnCaptions[static_cast<size_t>(c)], this), 0, c + 1);
    for (int p = 0; p < kLaaParams; ++p) {
        grid->addWidget(new QLabel(kLaaParamNames[static_cast<size_t>(p)], this), p + 1, 0);
        for (int c = 0; c < 3; ++c) {
            auto* box = new QLineEdit(this);
            box->setAlignment(Qt::AlignRight);
            txtLAA_[static_cast<size_t>(c * kLaaParams + p)] = box;
            grid->addWidget(box, p + 1, c + 1);
        }
    }
    auto* note = new QLabel(kLaaFixNote, this);
    note->setWordWrap(true);
    grid->addWidget(note, kLaaParams + 1, 0, 1, 4);
    top->addWidget(constraints, 3);

    auto* results = new QGroupBox("Results", this);
    auto* rgrid = new QGridLayout(results);
    rgrid->addWidget(new QLabel("Estimate", this), 0, 1);
    rgrid->addWidget(new QLabel("s.e.", this), 0, 3);
    for (int p = 0; p < kLaaParams; ++p) {
        const auto i = static_cast<size_t>(p);
        est_[i] = ReadOnlyBox(this);
        se_[i] = ReadOnlyBox(this);
        stars_[i] = new QLabel(this);
        stars_[i]->setMinimumWidth(24);
        rgrid->addWidget(new QLabel(kLaaParamNames[i], this), p + 1, 0);
        rgrid->addWidget(est_[i], p + 1, 1);
        rgrid->addWidget(stars_[i], p + 1, 2);
        rgrid->addWidget(se_[i], p + 1, 3);
    }
    top->addWidget(results, 2);
    layout->addLayout(top);

    remarks_ = new QPlainTextEdit(this);
    remarks_->setReadOnly(true);
    remarks_->setMaximumHeight(64);
    layout->addWidget(remarks_);
    progress_ = new QProgressBar(this);
    progress_->setRange(0, kMarquardtMaxIterations);
    progress_->setValue(0);
    layout->addWidget(progress_);

    tabs_ = new QTabWidget(this);
    plot_ = new PlotView(this);
    residuals_ = new PlotView(this);
    plot_->setMinimumSize(480, 320);
    residuals_->setMinimumSize(480, 320);
    tabs_->addTab(plot_, kLaaPlotTab);
    tabs_->addTab(residuals_, kLaaResidualTab);
    layout->addWidget(tabs_, 1);

    auto* buttons = new QHBoxLayout;
    cmd_[1] = new QPushButton(kLaaCmdCompute, this);
    cmd_[2] = new QPushButton(kLaaCmdPrint, this);
    cmd_[3] = new QPushButton(kLaaCmdClose, this);
    buttons->addStretch();
    for (int i = 1; i <= 3; ++i) buttons->addWidget(cmd_[static_cast<size_t>(i)]);
    layout->addLayout(buttons);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { openFile(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] { compute(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));
    connect(residuals_, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));

    cmd_[1]->setEnabled(false);
    cmd_[2]->setEnabled(false);
    const std::string last = ctx_.settings.runTime(kKeyLastActive, kNoActiveFile);
    if (HasLaaExtension(last)) ReadLAA(last);
}

FrmLaaAnalysis::~FrmLaaAnalysis() = default;

const LaaRun* FrmLaaAnalysis::run() const {
    return st_->run ? &*st_->run : nullptr;
}

void FrmLaaAnalysis::openFile() {
    const auto path = ctx_.dialogs.openFile({kLaaOpenTitle, kLaaFilter, {}, "laa", {}, true});
    if (path) ReadLAA(*path);
}

void FrmLaaAnalysis::ReadLAA(const std::string& path) {
    auto data = ctx_.session.keep(norvo::ReadLAA(path), ctx_.dialogs);
    if (!data) return;
    st_->data = std::move(data);
    st_->run.reset();
    file_->setText(QString::fromStdString(path));
    species_->setText(QString::fromStdString(SpeciesTitle(st_->data->header) +
                                             "   Age: " + st_->data->unitOfAge));
    resetDefaults();
    clearResults();
    const bool enough = ShowNotices(CheckLaaRows(*st_->data), ctx_.dialogs);
    cmd_[1]->setEnabled(enough);
}

void FrmLaaAnalysis::resetDefaults() {
    const LaaConstraints c = DefaultLaaConstraints(*st_->data);
    for (int p = 0; p < kLaaParams; ++p) {
        const auto& row = c[static_cast<size_t>(p)];
        SetBoxNumber(txtLAA(3 + p), row.min, kBoxPattern);
        SetBoxNumber(txtLAA(8 + p), row.start, kBoxPattern);
        SetBoxNumber(txtLAA(13 + p), row.max, kBoxPattern);
    }
}

void FrmLaaAnalysis::compute() {
    if (!st_->data) return;
    LaaOptions o;
    // Text that is no number reads as NaN, which the validation refuses.
    for (int p = 0; p < kLaaParams; ++p) {
        auto& row = o.constraints[static_cast<size_t>(p)];
        row.min = static_cast<float>(NumberOrNaN(txtLAA(3 + p)));
        row.start = static_cast<float>(NumberOrNaN(txtLAA(8 + p)));
        row.max = static_cast<float>(NumberOrNaN(txtLAA(13 + p)));
    }
    const LaaData& data = *st_->data;
    if (!ShowNotices(CheckLaaRows(data), ctx_.dialogs)) return;
    if (!ShowNotices(ValidateLaaConstraints(o.constraints, LaaLargestLength(data)), ctx_.dialogs))
        return;
    if (LaaAsksWeights(data))
        o.useWeights = ctx_.dialogs.notify({kLaaWeightsQuestion, kLaaWeightsTitle, Buttons::YesNo,
                                            Icon::Question}) == Answer::Yes;
    o.progress = [this](int i) { progress_->setValue(std::min(i, kMarquardtMaxIterations)); };
    clearResults();
    LaaRun run = ComputeLAA(data, o);
    progress_->setValue(0);
    if (!ShowNotices(run, ctx_.dialogs)) return;
    st_->run = std::move(run);
    showRun();
}

void FrmLaaAnalysis::clearResults() {
    for (size_t i = 0; i < est_.size(); ++i) {
        est_[i]->clear();
        se_[i]->clear();
        stars_[i]->clear();
    }
    remarks_->clear();
    cmd_[2]->setEnabled(false);
    plot_->canvas().Clear();
    residuals_->canvas().Clear();
    if (st_->data && !st_->run) redraw();
    plot_->update();
    residuals_->update();
}

void FrmLaaAnalysis::showRun() {
    const LaaRun& run = *st_->run;
    for (int p = 0; p < kLaaParams; ++p) {
        const auto param = static_cast<LaaParam>(p);
        const auto i = static_cast<size_t>(p);
        SetBoxNumber(est_[i], run.estimate(param), "#0.00");
        const float se = run.stdErr(param);
        if (se == 0)
            se_[i]->setText(kGrowthFitNa);
        else
            SetBoxNumber(se_[i], se, "#0.0000");
        stars_[i]->setText(QString::fromStdString(run.stars(param)));
    }
    remarks_->setPlainText(QString::fromStdString(run.remarks));
    cmd_[2]->setEnabled(true);
    redraw();
}

void FrmLaaAnalysis::redraw() {
    if (!st_->data) return;
    const LaaRun empty;
    const LaaRun& run = st_->run ? *st_->run : empty;
    DrawLaaFit(plot_->canvas(), *st_->data, run, DecimalSeparator());
    DrawLaaResiduals(residuals_->canvas(), *st_->data, run, DecimalSeparator());
    plot_->update();
    residuals_->update();
}

void FrmLaaAnalysis::print() {
    if (!st_->run || !st_->data) return;
    PrintReport(LaaReport(*st_->data, *st_->run), plot_->canvas(), ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
