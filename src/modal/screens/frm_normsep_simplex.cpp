#include "modal/screens/frm_normsep_simplex.h"

#include <QComboBox>
#include <QSpinBox>
#include <QTableWidget>
#include <optional>

#include "data/store_routines.h"
#include "modal/modal_plot.h"
#include "modal/msd_save.h"
#include "modal/normsep.h"
#include "modal/screens/modal_screen_parts.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"
#include "widgets/wait_cursor.h"

namespace norvo::gui {

namespace {
constexpr int kMaxGroups = 12;
}

struct FrmNormsepSimplex::State {
    LfqData data;
    int sample = 0;
    std::optional<NormsepResult> result;
};

FrmNormsepSimplex::FrmNormsepSimplex(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmNORMSEP_Simplex");
    setWindowTitle(kNsCaption);
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    file_ = new QLineEdit(this);
    file_->setReadOnly(true);
    cmd_[0] = new QPushButton("...", this);
    cmd_[0]->setFixedWidth(32);
    top->addWidget(new QLabel("File:", this));
    top->addWidget(file_, 1);
    top->addWidget(cmd_[0]);
    top->addWidget(new QLabel("Select Sample No.", this));
    samples_ = new QComboBox(this);
    top->addWidget(samples_);
    top->addWidget(new QLabel(kNsGroupsCaption, this));
    groups_ = new QSpinBox(this);
    groups_->setRange(1, kMaxGroups);
    groups_->setValue(2);
    top->addWidget(groups_);
    layout->addLayout(top);
    header_ = new QLabel(this);
    layout->addWidget(header_);
    auto* body = new QHBoxLayout;
    grid_ = MakeComponentGrid(this, groups_->value());
    grid_->setObjectName("spdNORMSEP");
    grid_->setMinimumWidth(500);
    body->addWidget(grid_);
    plot_ = new PlotView(this);
    plot_->setMinimumSize(420, 320);
    body->addWidget(plot_, 1);
    layout->addLayout(body, 1);
    status_ = new QLabel(this);
    layout->addWidget(status_);
    auto* buttons = new QHBoxLayout;
    cmd_[1] = new QPushButton(kNsCmdCompute, this);
    cmd_[2] = new QPushButton(kNsCmdFromMsd, this);
    cmd_[3] = new QPushButton(kNsCmdSave, this);
    cmd_[4] = new QPushButton(kNsCmdPrint, this);
    cmd_[5] = new QPushButton(kNsCmdClose, this);
    buttons->addStretch();
    for (int i = 1; i <= 5; ++i) buttons->addWidget(cmd_[i]);
    layout->addLayout(buttons);

    auto& d = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(d, [this] {
                const auto path =
                    ctx_.dialogs.openFile({"Open...", kModalLfqFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(d, [this] { compute(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(d, [this] { meansFromMsd(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(d, [this] { save(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(d, [this] { print(); }));
    connect(cmd_[5], &QPushButton::clicked, this, Guarded(d, [this] { window()->close(); }));
    connect(samples_, &QComboBox::activated, this,
            Guarded(d, [this](int index) { chooseSample(index + 1); }));
    connect(groups_, &QSpinBox::valueChanged, this, Guarded(d, [this](int n) {
                grid_->setRowCount(n);
                st_->result.reset();
                for (int r = 0; r < n; ++r) {
                    SetCell(grid_, r, 0, QString::number(r + 1));
                    if (!grid_->item(r, 1)) SetCell(grid_, r, 1, QString(), true);
                }
            }));
    connect(plot_, &PlotView::resized, this, Guarded(d, [this] { redraw(); }));
    for (int r = 0; r < groups_->value(); ++r) {
        SetCell(grid_, r, 0, QString::number(r + 1));
        SetCell(grid_, r, 1, QString(), true);
    }
    for (int i = 1; i <= 4; ++i) cmd_[i]->setEnabled(false);
    if (const auto last = LastActiveOfKind(ctx_, "LFQ")) Initialize(*last);
}

FrmNormsepSimplex::~FrmNormsepSimplex() = default;

bool FrmNormsepSimplex::hasResult() const {
    return st_->result.has_value();
}

void FrmNormsepSimplex::Initialize(const std::string& path) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return;
    st_->data = ctx_.session.lfqData;
    const LfqData& d = st_->data;
    file_->setText(QString::fromStdString(path));
    header_->setText(QString::fromStdString("Species: " + d.speciesname + "    Identifiers: " +
                                            d.otherId + "    Unit: " + d.unitOfMeasurement) +
                     "    Class size: " + NumberText(d.classInterval, "0.00"));
    samples_->clear();
    for (int s = 1; s <= d.noOfSamples; ++s)
        samples_->addItem(QString::number(s) + "  (" + QString::number(d.day[s - 1]) + "/" +
                          QString::number(d.month[s - 1]) + "/" + QString::number(d.year[s - 1]) +
                          ")");
    for (int i = 1; i <= 4; ++i) cmd_[i]->setEnabled(d.noOfSamples > 0);
    if (d.noOfSamples > 0) chooseSample(1);
}

void FrmNormsepSimplex::chooseSample(int sample) {
    st_->sample = sample;
    st_->result.reset();
    samples_->setCurrentIndex(sample - 1);
    for (int r = 0; r < grid_->rowCount(); ++r)
        for (int c = 2; c < 6; ++c) SetCell(grid_, r, c, QString());
    status_->clear();
    redraw();
}

void FrmNormsepSimplex::compute() {
    if (st_->sample == 0) return;
    std::vector<std::optional<double>> means;
    for (int r = 0; r < grid_->rowCount(); ++r) {
        const auto* item = grid_->item(r, 1);
        std::optional<double> v;
        if (item && !item->text().trimmed().isEmpty()) v = ParseBoxText(item->text());
        means.push_back(v);
    }
    NormsepResult r;
    {
        const WaitCursor busy;
        r = RunNormsep(st_->data, st_->sample, means);
    }
    if (!ShowNotices(r, ctx_.dialogs)) return;
    for (size_t k = 0; k < r.components.size(); ++k) {
        const int row = static_cast<int>(k);
        const NsComponent& c = r.components[k];
        SetCell(grid_, row, 2, NumberText(c.mean, "0.00"));
        SetCell(grid_, row, 3, NumberText(c.sd, "0.00"));
        SetCell(grid_, row, 4, NumberText(c.population, "0"));
        SetCell(grid_, row, 5, c.si ? NumberText(*c.si, "0.00") : QString("n.a."));
    }
    status_->setText(QString("-log likelihood %1 after %2 evaluations and %3 restarts.")
                         .arg(NumberText(r.fit.nll, "0.000"))
                         .arg(r.fit.evaluations)
                         .arg(r.fit.restarts));
    st_->result = std::move(r);
    redraw();
}

void FrmNormsepSimplex::meansFromMsd() {
    if (st_->sample == 0) return;
    const std::string msd = MsdPathOf(st_->data.path);
    std::vector<MsdRow> rows;
    if (FileExists(msd))
        if (const auto stored = ReadMSD(msd)) rows = StoredRows(*stored, st_->data, st_->sample);
    if (rows.empty()) {
        ctx_.dialogs.inform(kNsNoStoredText, kNsNoStoredTitle, Icon::Information);
        return;
    }
    groups_->setValue(std::min(static_cast<int>(rows.size()), kMaxGroups));
    for (int r = 0; r < groups_->value(); ++r)
        SetCell(grid_, r, 1, NumberText(rows[static_cast<size_t>(r)].length, "0.00"), true);
}

void FrmNormsepSimplex::save() {
    if (!st_->result) return;
    std::vector<MsdComponent> comps;
    for (const NsComponent& c : st_->result->components)
        comps.push_back({static_cast<float>(c.mean), static_cast<float>(c.sd),
                         static_cast<float>(c.population)});
    if (!SaveMsdSample(MsdPathOf(st_->data.path), ctx_.programFolder.toStdString(), st_->data,
                       st_->sample, comps, ctx_.dialogs))
        return;
    const bool last = st_->sample >= st_->data.noOfSamples;
    const Answer a = ctx_.dialogs.notify({MsdSavedText(st_->sample, last), kMsdSavedTitle,
                                          last ? Buttons::Ok : Buttons::YesNo, Icon::Information});
    if (!last && a == Answer::Yes) chooseSample(st_->sample + 1);
}

void FrmNormsepSimplex::print() {
    if (!st_->result) return;
    PrintReport(NormsepReport(st_->data, st_->sample, *st_->result), plot_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

void FrmNormsepSimplex::redraw() {
    if (st_->sample == 0) return;
    std::vector<float> freq(1);
    for (int c = 0; c < st_->data.noOfClasses; ++c)
        freq.push_back(static_cast<float>(
            st_->data.freq[static_cast<size_t>(c)][static_cast<size_t>(st_->sample - 1)]));
    std::vector<NormalCurve> curves;
    if (st_->result)
        for (const NsComponent& c : st_->result->components)
            curves.push_back({c.mean, c.sd, c.population});
    DrawSeparationHistogram(plot_->canvas(), freq, st_->data.smallestMl, st_->data.classInterval,
                            curves, kNsReportTitle);
    plot_->update();
}

}  // namespace norvo::gui
