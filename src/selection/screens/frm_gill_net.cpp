#include "selection/screens/frm_gill_net.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <limits>
#include <optional>

#include "app/active_file.h"
#include "base/settings_store.h"
#include "selection/gillnet.h"
#include "selection/gillnet_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {
constexpr int kPlotTab = 1;

// A mesh box: empty is not given; text that is no number is given but no size (NaN), which
// the mesh check refuses.
std::optional<float> MeshValue(const QLineEdit* box) {
    if (box->text().trimmed().isEmpty()) return std::nullopt;
    const auto v = BoxNumber(box);
    return v ? static_cast<float>(*v) : std::numeric_limits<float>::quiet_NaN();
}
}  // namespace

struct FrmGillNet::State {
    LfqData data;
    std::optional<GillnetResult> run;
};

FrmGillNet::FrmGillNet(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmGillNet");
    setWindowTitle(kGnCaption);
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);

    auto* general = new QWidget;
    auto* gl = new QVBoxLayout(general);
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, general, kGnCommands[4]);
    file_ = fileRow.file;
    cmd_[4] = fileRow.open;
    species_ = AddSpeciesRow(form, general);
    gl->addLayout(form);

    auto* meshBox = new QGroupBox(kGnMeshGroup, general);
    auto* mg = new QGridLayout(meshBox);
    mg->addWidget(new QLabel(kGnMeshNote, meshBox), 0, 0, 1, 4);
    for (int i = 0; i < 2; ++i) {
        samples_[i] = new QComboBox(meshBox);
        meshes_[i] = new QLineEdit(meshBox);
        meshes_[i]->setMaximumWidth(80);
        mg->addWidget(new QLabel(kGnSampleCaptions[i], meshBox), i + 1, 0);
        mg->addWidget(samples_[i], i + 1, 1);
        mg->addWidget(new QLabel(kGnMeshCaption, meshBox), i + 1, 2);
        mg->addWidget(meshes_[i], i + 1, 3);
    }
    auto* optRow = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        options_[i] = new QRadioButton(kGnOptions[i], meshBox);
        optRow->addWidget(options_[i]);
    }
    options_[0]->setChecked(true);
    optRow->addStretch();
    mg->addLayout(optRow, 3, 0, 1, 4);
    gl->addWidget(meshBox);

    auto* resultBox = new QGroupBox(kGnResultsGroup, general);
    auto* rf = new QFormLayout(resultBox);
    for (size_t i = 0; i < results_.size(); ++i) {
        results_[i] = new QLineEdit(resultBox);
        results_[i]->setReadOnly(true);
        results_[i]->setMaximumWidth(100);
        rf->addRow(kGnResultCaptions[i], results_[i]);
    }
    gl->addWidget(resultBox);
    gl->addStretch();
    tabs_->addTab(general, kGnTabs[0]);

    auto* plotTab = new QWidget;
    auto* pg = new QGridLayout(plotTab);
    for (size_t i = 0; i < plots_.size(); ++i) {
        plots_[i] = new PlotView(plotTab);
        plots_[i]->setMinimumSize(320, 240);
    }
    pg->addWidget(plots_[2], 0, 0);
    pg->addWidget(plots_[0], 0, 1);
    pg->addWidget(plots_[1], 1, 0, 1, 2);
    tabs_->addTab(plotTab, kGnTabs[1]);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i = 0; i < 4; ++i) {
        cmd_[i] = new QPushButton(kGnCommands[i], this);
        buttons->addWidget(cmd_[i]);
    }
    layout->addLayout(buttons);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { Compute(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] { SavePRBAll(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kGnOpenTitle, kGnLfqFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(options_[1], &QRadioButton::toggled, this, Guarded(dialogs, [this] {
                if (st_->run) PlotGillnet();
            }));
    for (auto* box : samples_)
        connect(box, &QComboBox::currentIndexChanged, this,
                Guarded(dialogs, [this] { clearResults(); }));
    for (auto* box : meshes_)
        connect(box, &QLineEdit::textEdited, this, Guarded(dialogs, [this] { clearResults(); }));
    for (auto* p : plots_)
        connect(p, &PlotView::resized, this, Guarded(dialogs, [this] {
                    if (st_->run) PlotGillnet();
                }));

    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) Initialize(active.path());
}

FrmGillNet::~FrmGillNet() = default;

const GillnetResult* FrmGillNet::run() const {
    return st_->run ? &*st_->run : nullptr;
}

void FrmGillNet::Initialize(const std::string& path) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return;
    st_->data = ctx_.session.lfqData;
    file_->setText(QString::fromStdString(path));
    species_->setText(QString::fromStdString(st_->data.speciesname));
    for (auto* box : samples_) {
        const QSignalBlocker block(box);
        box->clear();
        for (int s = 1; s <= st_->data.noOfSamples; ++s) box->addItem(QString::number(s));
        box->setCurrentIndex(-1);
    }
    clearResults();
}

void FrmGillNet::clearResults() {
    st_->run.reset();
    for (auto* r : results_) r->clear();
    for (auto* p : plots_) {
        p->canvas().Clear();
        p->update();
    }
}

void FrmGillNet::Compute() {
    GillnetOptions o;
    o.sampleA = samples_[0]->currentIndex() + 1;
    o.sampleB = samples_[1]->currentIndex() + 1;
    o.meshA = MeshValue(meshes_[0]);
    o.meshB = MeshValue(meshes_[1]);
    o.logNormal = options_[1]->isChecked();
    clearResults();
    GillnetResult r = ComputeGillnet(st_->data, o);
    if (!ShowNotices(r, ctx_.dialogs)) return;
    st_->run = std::move(r);
    PlotGillnet();
    tabs_->setCurrentIndex(kPlotTab);
}

void FrmGillNet::PlotGillnet() {
    if (!st_->run) return;
    // A change of the plot form refits on the same inputs.
    if (st_->run->logNormal != options_[1]->isChecked()) {
        GillnetOptions o;
        o.sampleA = samples_[0]->currentIndex() + 1;
        o.sampleB = samples_[1]->currentIndex() + 1;
        o.meshA = st_->run->meshA;
        o.meshB = st_->run->meshB;
        o.logNormal = options_[1]->isChecked();
        GillnetResult r = ComputeGillnet(st_->data, o);
        if (!ShowNotices(r, ctx_.dialogs)) return;
        st_->run = std::move(r);
    }
    const GillnetResult& r = *st_->run;
    const std::string& unit = st_->data.unitOfMeasurement;
    DrawGillnetRatio(plots_[0]->canvas(), r, unit);
    DrawGillnetCurves(plots_[1]->canvas(), r, unit);
    DrawGillnetCatches(plots_[2]->canvas(), r, unit);
    for (auto* p : plots_) p->update();
    SetBoxNumber(results_[0], r.lA, "0.00");
    SetBoxNumber(results_[1], r.lB, "0.00");
    SetBoxNumber(results_[2], r.meshA, "0.00");
    SetBoxNumber(results_[3], r.meshB, "0.00");
}

void FrmGillNet::SavePRBAll() {
    if (!st_->run) return;
    FileDialogOptions o;
    o.title = kGnSaveTitle;
    o.filter = kGnPrbFilter;
    o.defaultExtension = "prb";
    const auto path = ctx_.dialogs.saveFile(o);
    if (!path) return;
    const GillnetFiles files = GillnetFileNames(*path);
    const std::string base = files.sum.substr(0, files.sum.size() - 4);
    if (!ctx_.dialogs.askYesNo(GillnetSaveQuestion(base), kGnSaveTitle)) return;
    norvo::SavePRBAll(files, ctx_.programFolder.toStdString(), st_->data, *st_->run);
}

void FrmGillNet::print() {
    if (!st_->run) return;
    PrintReport(GillnetReport(st_->data, *st_->run), plots_[1]->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
