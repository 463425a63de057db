#include "selection/screens/frm_probability.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

#include "data/lfq_data.h"
#include "mortality/catch_curve.h"
#include "selection/screens/frm_logits.h"
#include "selection/selection.h"
#include "selection/selection_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

struct FrmProbability::State {
    SelectionInput input;
    SelectionInput original;  // the probabilities as received, for each new estimate
    LfqData header;
    std::optional<SelectionCurve> curve;
};

FrmProbability::FrmProbability(ShellContext& ctx, const SelectionInput& input,
                               const LfqData& header, QWidget* parent)
    : FrmProbability(ctx, parent) {
    setData(input, header);
}

FrmProbability::FrmProbability(ShellContext& ctx, QWidget* parent)
    : QWidget(parent, Qt::Window),
      ctx_(ctx),
      st_(std::make_unique<State>()),
      reportTitle_(kCcReportTitle) {
    setObjectName("frmProbability");
    setWindowTitle(kSelPlotTitle);
    build();
}

// The logit window may be destroyed after this screen's own part: cut its "destroyed" connection.
FrmProbability::~FrmProbability() {
    if (logits_) logits_->disconnect(this);
}

void FrmProbability::build() {
    auto* layout = new QHBoxLayout(this);
    plot_ = new PlotView(this);
    plot_->setMinimumSize(480, 360);
    layout->addWidget(plot_, 1);
    auto* side = new QVBoxLayout;
    auto* note = new QLabel(kSelChooseOption, this);
    note->setWordWrap(true);
    note->setMaximumWidth(200);
    for (int i : {5, 0, 1}) {
        cmd_[i] = new QPushButton(kProbCommands[i], this);
        side->addWidget(cmd_[i]);
    }
    side->addWidget(note);
    auto* grid = new QGridLayout;
    const char* names[] = {"L25:", "L50:", "L75:"};
    for (int i = 0; i < 3; ++i) {
        lengths_[i] = new QLabel(this);
        grid->addWidget(new QLabel(names[i], this), i, 0);
        grid->addWidget(lengths_[i], i, 1);
    }
    side->addLayout(grid);
    side->addStretch();
    for (int i : {2, 4, 3}) {
        cmd_[i] = new QPushButton(kProbCommands[i], this);
        side->addWidget(cmd_[i]);
    }
    cmd_[5]->hide();
    layout->addLayout(side);
    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { useLogits(); }));
    connect(cmd_[1], &QPushButton::clicked, this,
            Guarded(dialogs, [this] { useRunningAverage(); }));
    connect(cmd_[2], &QPushButton::clicked, this,
            Guarded(dialogs, [this] { saveProbabilities(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(dialogs, [this] { close(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { draw(); }));
    for (int i : {0, 1, 2, 4}) cmd_[i]->setEnabled(false);
}

void FrmProbability::setData(const SelectionInput& input, const LfqData& header) {
    st_->input = input;
    st_->original = input;
    st_->header = header;
    st_->curve.reset();
    for (auto* l : lengths_) l->clear();
    for (int i : {0, 1, 2}) cmd_[i]->setEnabled(true);
    cmd_[4]->setEnabled(false);
    draw();
}

const SelectionInput& FrmProbability::input() const {
    return st_->input;
}
const SelectionCurve* FrmProbability::curve() const {
    return st_->curve ? &*st_->curve : nullptr;
}

void FrmProbability::draw() {
    if (st_->input.nC == 0) return;
    DrawProbabilityPlot(plot_->canvas(), st_->input, st_->curve ? &*st_->curve : nullptr,
                        st_->header.unitOfMeasurement);
    plot_->update();
}

void FrmProbability::showLengths() {
    const float values[] = {st_->curve->l25, st_->curve->l50, st_->curve->l75};
    for (int i = 0; i < 3; ++i) lengths_[i]->setText(NumberText(values[i], "0.00"));
    cmd_[4]->setEnabled(true);
    draw();
}

void FrmProbability::useLogits() {
    st_->input = st_->original;
    logits_ = new FrmLogits(
        ctx_, st_->input, st_->header.unitOfMeasurement,
        [this](const SelectionCurve& c) {
            st_->curve = c;
            showLengths();
        },
        this);
    connect(logits_, &QObject::destroyed, this, [this] { logits_ = nullptr; });
    logits_->show();
}

void FrmProbability::useRunningAverage() {
    st_->input = st_->original;
    st_->curve = RunningAverage(st_->input);
    showLengths();
}

void FrmProbability::saveProbabilities() {
    FileDialogOptions o;
    o.title = kProbSaveTitle;
    o.filter = kSelPrbFilter;
    o.defaultExtension = "prb";
    o.overwritePrompt = true;
    const auto path = ctx_.dialogs.saveFile(o);
    if (!path) return;
    ShowNotices(SaveProbabilities(
                    *path, ctx_.programFolder.toStdString(),
                    {st_->header.speciesname, st_->header.otherId, st_->header.unitOfMeasurement},
                    st_->input),
                ctx_.dialogs);
}

void FrmProbability::print() {
    if (!st_->curve) return;
    PrintReport(SelectionReport(reportTitle_, st_->header, *st_->curve), plot_->canvas(),
                ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
