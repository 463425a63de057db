#include "modal/screens/frm_bhattac_vrd.h"

#include <QComboBox>
#include <QGridLayout>
#include <QTabWidget>
#include <QTableWidget>
#include <cmath>
#include <filesystem>
#include <optional>

#include "base/format.h"
#include "data/store_routines.h"
#include "modal/bhattacharya.h"
#include "modal/modal_plot.h"
#include "modal/msd_save.h"
#include "modal/screens/modal_screen_parts.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {
constexpr const char* kHintFirst = "Click a point to start the line of a component.";
constexpr const char* kHintNone = "No point here: move onto a point of the plot.";
constexpr const char* kHintAbsent = "No log difference here: a class beside it is empty.";
}  // namespace

struct FrmBhattacVRD::State {
    LfqData data;
    std::optional<BhSample> sample;
    std::optional<BhTake> take;  // a component shown, waiting for "Continue"
    int firstPick = 0;
    int hover = 0;
};

FrmBhattacVRD::FrmBhattacVRD(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmBhattacVRD");
    setWindowTitle(kBhCaption);
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    file_ = new QLineEdit(this);
    file_->setReadOnly(true);
    cmd_[0] = new QPushButton(kBhCmdOpen, this);
    cmd_[0]->setFixedWidth(32);
    top->addWidget(new QLabel("File:", this));
    top->addWidget(file_, 1);
    top->addWidget(cmd_[0]);
    top->addWidget(new QLabel(kBhSampleCaption, this));
    samples_ = new QComboBox(this);
    samples_->setObjectName("cmbBhattac");
    top->addWidget(samples_);
    layout->addLayout(top);
    header_ = new QLabel(this);
    layout->addWidget(header_);

    tabs_ = new QTabWidget(this);
    auto* plots = new QWidget;
    auto* plotRow = new QHBoxLayout(plots);
    hist_ = new PlotView(plots);
    hist_->setObjectName("PicBhattacHist");
    log_ = new PlotView(plots);
    log_->setObjectName("PicBhattacLog");
    for (auto* p : {hist_, log_}) {
        p->setMinimumSize(380, 320);
        plotRow->addWidget(p, 1);
    }
    tabs_->addTab(plots, kBhPlotTab);
    auto* summary = new QWidget;
    auto* sumLayout = new QVBoxLayout(summary);
    note_ = new QLabel(summary);
    note_->setWordWrap(true);
    sumLayout->addWidget(note_);
    grid_ = MakeComponentGrid(summary, 0);
    grid_->setObjectName("spdBhattac");
    sumLayout->addWidget(grid_, 1);
    tabs_->addTab(summary, kBhSummaryTab);
    layout->addWidget(tabs_, 1);
    hint_ = new QLabel(kHintFirst, this);
    layout->addWidget(hint_);

    auto* buttons = new QHBoxLayout;
    cmd_[4] = new QPushButton(kBhCmdSave, this);
    cmd_[1] = new QPushButton(kBhCmdRedo, this);
    cmd_[3] = new QPushButton(kBhCmdPrint, this);
    cmd_[2] = new QPushButton(kBhCmdClose, this);
    buttons->addStretch();
    for (int i : {4, 1, 3, 2}) buttons->addWidget(cmd_[i]);
    layout->addLayout(buttons);

    auto& d = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(d, [this] {
                const auto path =
                    ctx_.dialogs.openFile({"Open...", kModalLfqFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(d, [this] { redo(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(d, [this] { window()->close(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(d, [this] { print(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(d, [this] { saveOrContinue(); }));
    connect(samples_, &QComboBox::activated, this,
            Guarded(d, [this](int index) { startSample(index + 1); }));
    connect(log_, &PlotView::clickedAt, this,
            Guarded(d, [this](double x, double y) { clickLog(x, y); }));
    connect(log_, &PlotView::mouseMovedTo, this,
            Guarded(d, [this](double x, double y) { hoverLog(x, y); }));
    for (auto* p : {hist_, log_})
        connect(p, &PlotView::resized, this, Guarded(d, [this] { redraw(); }));
    for (int i : {1, 3, 4}) cmd_[i]->setEnabled(false);
    if (const auto last = LastActiveOfKind(ctx_, "LFQ")) Initialize(*last);
}

FrmBhattacVRD::~FrmBhattacVRD() = default;

int FrmBhattacVRD::componentCount() const {
    return st_->sample ? static_cast<int>(st_->sample->components.size()) : 0;
}

void FrmBhattacVRD::Initialize(const std::string& path) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return;
    st_->data = ctx_.session.lfqData;
    st_->sample.reset();
    file_->setText(QString::fromStdString(path));
    const LfqData& d = st_->data;
    header_->setText(QString::fromStdString("Species: " + d.speciesname + "    Identifiers: " +
                                            d.otherId + "    Unit: " + d.unitOfMeasurement) +
                     "    Class size: " + NumberText(d.classInterval, "0.00") +
                     "    Largest class: " + NumberText(d.largestMl, "0.00"));
    samples_->clear();
    for (int s = 1; s <= d.noOfSamples; ++s)
        samples_->addItem(QString::number(s) + "  (" + QString::number(d.day[s - 1]) + "/" +
                          QString::number(d.month[s - 1]) + "/" + QString::number(d.year[s - 1]) +
                          ")");
    if (FileExists(MsdPathOf(path))) offerBackup();
    if (d.noOfSamples > 0) startSample(1);
}

void FrmBhattacVRD::offerBackup() {
    if (ctx_.dialogs.notify({kMsdExistsText, kMsdExistsTitle, Buttons::YesNo, Icon::Warning}) !=
        Answer::Yes)
        return;
    const auto target =
        ctx_.dialogs.saveFile({kBhSaveTitle, kModalMsdFilter, {}, "msd", {}, false, true});
    if (!target) return;
    std::error_code ec;
    std::filesystem::copy_file(MsdPathOf(st_->data.path), *target,
                               std::filesystem::copy_options::overwrite_existing, ec);
    if (ec) {
        ctx_.dialogs.inform(kFileSaveError, kBhSaveTitle, Icon::Critical);
        return;
    }
    ctx_.dialogs.inform(MsdDuplicateText(*target), kMsdDuplicateTitle, Icon::Information);
}

void FrmBhattacVRD::startSample(int sample) {
    BhStart start = StartBhattacharya(st_->data, sample);
    if (!ShowNotices(start, ctx_.dialogs)) return;
    st_->sample = std::move(start.sample);
    st_->take.reset();
    st_->firstPick = 0;
    samples_->setCurrentIndex(sample - 1);
    grid_->setRowCount(0);
    note_->clear();
    const std::string msd = MsdPathOf(st_->data.path);
    if (FileExists(msd)) {
        if (const auto stored = ReadMSD(msd)) {
            const auto rows = StoredRows(*stored, st_->data, sample);
            for (size_t i = 0; i < rows.size(); ++i) {
                const int r = static_cast<int>(i);
                SetCell(grid_, r, 0, QString::number(r + 1));
                SetCell(grid_, r, 2, NumberText(rows[i].length, "0.00"));
                SetCell(grid_, r, 3, NumberText(rows[i].sd, "0.00"));
                SetCell(grid_, r, 4, NumberText(rows[i].population, "0"));
            }
            if (!rows.empty()) {
                note_->setText(kMsdPreviousNote);
                tabs_->setCurrentIndex(1);
            }
        }
    }
    cmd_[1]->setEnabled(true);
    cmd_[3]->setEnabled(true);
    cmd_[4]->setText(kBhCmdSave);
    cmd_[4]->setEnabled(true);
    hint_->setText(kHintFirst);
    redraw();
}

void FrmBhattacVRD::redraw() {
    if (!st_->sample) return;
    const BhSample& s = *st_->sample;
    std::vector<NormalCurve> curves;
    for (const BhComponent& c : s.components) curves.push_back({c.mean, c.sd, c.population});
    if (st_->take)
        curves.push_back(
            {st_->take->component.mean, st_->take->component.sd, st_->take->component.population});
    std::vector<float> original(1);
    for (int c = 0; c < s.nC; ++c)
        original.push_back(static_cast<float>(
            st_->data.freq[static_cast<size_t>(c)][static_cast<size_t>(s.sample - 1)]));
    DrawSeparationHistogram(hist_->canvas(), original, st_->data.smallestMl,
                            st_->data.classInterval, curves, kBhHistogramTitle);
    hist_->update();
    DrawLogPlot(log_->canvas(), s, st_->firstPick, st_->take ? &*st_->take : nullptr, st_->hover);
    log_->update();
}

void FrmBhattacVRD::hoverLog(double x, double y) {
    if (!st_->sample || st_->take) return;
    const int hit = HitLogPoint(LogPointPositions(*st_->sample), x, y);
    log_->setHotCursor(hit > 0);
    if (hit != st_->hover) {
        st_->hover = hit;
        redraw();
    }
    if (hit == 0)
        hint_->setText(kHintNone);
    else if (st_->firstPick == 0)
        hint_->setText(QString("Click to start the line at point %1.").arg(hit));
    else
        hint_->setText(QString("Click to fit the line over points %1 to %2.")
                           .arg(std::min(hit, st_->firstPick))
                           .arg(std::max(hit, st_->firstPick)));
}

void FrmBhattacVRD::clickLog(double x, double y) {
    if (!st_->sample || st_->take) return;
    BhSample& s = *st_->sample;
    const int hit = HitLogPoint(LogPointPositions(s), x, y);
    if (hit == 0) {
        // A click over a point that has no value says why it cannot be chosen.
        for (int k = 1; k < static_cast<int>(s.logDiff.size()); ++k) {
            const double px = 20 + (s.logX[static_cast<size_t>(k)] - s.start) /
                                       (static_cast<double>(s.nC) * s.w) * 75;
            if (!s.logDiff[static_cast<size_t>(k)] && std::fabs(px - x) <= 0.5) {
                ctx_.dialogs.inform(kBhAbsentPointText, kBhPointTitle, Icon::Information);
                return;
            }
        }
        return;
    }
    if (st_->firstPick == 0) {
        st_->firstPick = hit;
        redraw();
        return;
    }
    BhTake take = PrepareComponent(s, st_->firstPick, hit);
    st_->firstPick = 0;
    if (!ShowNotices(take, ctx_.dialogs)) {
        redraw();
        return;
    }
    const BhComponent& c = take.component;
    const int row = grid_->rowCount();
    SetCell(grid_, row, 0, QString::number(row + 1));
    SetCell(
        grid_, row, 1,
        NumberText((s.logX[static_cast<size_t>(c.from)] + s.logX[static_cast<size_t>(c.to)]) / 2,
                   "0.00"));
    SetCell(grid_, row, 2, NumberText(c.mean, "0.00"));
    SetCell(grid_, row, 3, NumberText(c.sd, "0.00"));
    SetCell(grid_, row, 4, NumberText(c.population, "0"));
    SetCell(grid_, row, 5, c.si ? NumberText(*c.si, "0.00") : QString(kBhNotAvailable));
    st_->take = std::move(take);
    cmd_[4]->setText(kBhCmdContinue);
    hint_->setText("Press Continue to take this component off the sample.");
    redraw();
}

void FrmBhattacVRD::saveOrContinue() {
    if (!st_->sample) return;
    BhSample& s = *st_->sample;
    if (st_->take) {
        AcceptComponent(s, st_->take->component);
        st_->take.reset();
        cmd_[4]->setText(kBhCmdSave);
        hint_->setText(kHintFirst);
        redraw();
        return;
    }
    if (s.components.empty()) return;
    std::vector<MsdComponent> comps;
    for (const BhComponent& c : s.components) comps.push_back({c.mean, c.sd, c.population});
    if (!SaveMsdSample(MsdPathOf(st_->data.path), ctx_.programFolder.toStdString(), st_->data,
                       s.sample, comps, ctx_.dialogs))
        return;
    note_->setText(kMsdSavedNote);
    const bool last = s.sample >= st_->data.noOfSamples;
    const Answer a = ctx_.dialogs.notify({MsdSavedText(s.sample, last), kMsdSavedTitle,
                                          last ? Buttons::Ok : Buttons::YesNo, Icon::Information});
    if (!last && a == Answer::Yes) startSample(s.sample + 1);
}

void FrmBhattacVRD::redo() {
    if (!st_->sample) return;
    const int sample = st_->sample->sample;
    const std::string msd = MsdPathOf(st_->data.path);
    if (FileExists(msd)) {
        const auto i = static_cast<size_t>(sample - 1);
        DeleteMsdDate(msd, st_->data.day[i], st_->data.month[i], st_->data.year[i]);
    }
    startSample(sample);
}

void FrmBhattacVRD::print() {
    if (!st_->sample) return;
    PrintReport(BhattacharyaReport(st_->data, *st_->sample), hist_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
