#include "stock/screens/frm_vpa2.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <optional>

#include "app/active_file.h"
#include "base/settings_store.h"
#include "growth/growth_settings.h"
#include "mortality/catch_curve.h"
#include "numerics/validators.h"
#include "stock/vpa_length.h"
#include "stock/vpa_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"
#include "widgets/sample_panel.h"

namespace norvo::gui {

namespace {
constexpr int kRaise = 0, kA = 1, kB = 2, kM = 3, kFt = 4, kLoo = 5, kK = 6, kPlus = 7;
constexpr int kGraphTab = 0;
}  // namespace

struct FrmVpa2::State {
    LfqData data;
    LengthVpaOptions options;
    std::optional<LengthVpaResult> result;
    VpaScale scale;
    UserPoint legendAt = kVpaLegendHome;
    bool pressed = false;
};

FrmVpa2::FrmVpa2(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmVPA2");
    setWindowTitle(kVpa2Caption);
    auto* layout = new QHBoxLayout(this);

    auto* left = new QVBoxLayout;
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, this, kVpa2Commands[1]);
    file_ = fileRow.file;
    cmd_[1] = fileRow.open;
    species_ = AddSpeciesRow(form, this);
    for (size_t i = 0; i < params_.size(); ++i) {
        params_[i] = new QLineEdit(this);
        params_[i]->setMaximumWidth(110);
        form->addRow(kVpa2Params[i], params_[i]);
    }
    SetBoxNumber(params_[kRaise], 0, "0");
    SetBoxNumber(params_[kA], 0.0001, "0.0000");
    SetBoxNumber(params_[kB], 3, "0.0");
    SetBoxNumber(params_[kPlus], 0, "0");
    left->addLayout(form);
    samples_ = new SamplePanel(ctx_.dialogs, this);
    left->addWidget(samples_, 1);
    legend_ = new QCheckBox(kVpa2Legend, this);
    legend_->setChecked(true);
    modify_ = new QCheckBox(kVpa2ModifyF, this);
    left->addWidget(legend_);
    left->addWidget(modify_);
    layout->addLayout(left);

    auto* right = new QVBoxLayout;
    tabs_ = new QTabWidget(this);
    plot_ = new PlotView(tabs_);
    plot_->setMinimumSize(560, 420);
    tabs_->addTab(plot_, "&Graph");
    table_ = new QTableWidget(0, static_cast<int>(kVpa2Columns.size()), tabs_);
    for (int c = 0; c < table_->columnCount(); ++c)
        table_->setHorizontalHeaderItem(c, new QTableWidgetItem(kVpa2Columns[c]));
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tabs_->addTab(table_, "&Table");
    right->addWidget(tabs_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i : {0, 2, 3, 4}) {
        cmd_[i] = new QPushButton(kVpa2Commands[i], this);
        buttons->addWidget(cmd_[i]);
    }
    right->addLayout(buttons);
    layout->addLayout(right, 1);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { Recompute(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({"Open...", kVpa2OpenFilter, {}, "lfq", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(dialogs, [this] { saveSpecies(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(legend_, &QCheckBox::clicked, this, Guarded(dialogs, [this](bool on) {
                if (on) ctx_.dialogs.inform(kVpaLegendTip, kVpaTipTitle, Icon::Information);
                redraw();
            }));
    connect(modify_, &QCheckBox::clicked, this, Guarded(dialogs, [this](bool on) {
                if (on) ctx_.dialogs.inform(kVpa2ModifyTip, kVpaTipTitle, Icon::Information);
            }));
    connect(samples_, &SamplePanel::changed, this, Guarded(dialogs, [this] { clearResult(); }));
    connect(plot_, &PlotView::clickedAt, this,
            Guarded(dialogs, [this](double x, double y) { pressPlot(x, y); }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));
    // Enter moves on through boxes 1 to 6.
    for (int i = kA; i <= kK; ++i)
        connect(params_[i], &QLineEdit::returnPressed, this,
                [this, i] { params_[i + 1]->setFocus(); });

    const auto stored = ReadGrowthSettings(ctx_.settings);
    if (stored[0]) SetBoxNumber(params_[kLoo], stored[0]->value, stored[0]->pattern);
    if (stored[1]) SetBoxNumber(params_[kK], stored[1]->value, stored[1]->pattern);
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) Initialize(active.path());
}

FrmVpa2::~FrmVpa2() = default;

const LengthVpaResult* FrmVpa2::result() const {
    return st_->result ? &*st_->result : nullptr;
}

void FrmVpa2::Initialize(const std::string& path) {
    if (!ReadLfqOnScreen(ctx_, path, st_->data, file_, species_, samples_)) return;
    setWindowTitle(QString(kVpa2Caption) + " [" + QString::fromStdString(path) + "]");
    clearResult();
}

void FrmVpa2::clearResult() {
    st_->result.reset();
    plot_->canvas().Clear();
    plot_->update();
    table_->setRowCount(0);
    cmd_[2]->setEnabled(false);
    cmd_[3]->setEnabled(false);
}

void FrmVpa2::Recompute() {
    if (st_->data.path.empty()) return;
    // Every box must hold a number ("Invalid number" otherwise, the focus back in the box).
    std::array<double, 8> v{};
    for (size_t i = 0; i < params_.size(); ++i) {
        const auto x = BoxNumber(params_[i]);
        if (!x || params_[i]->text().trimmed().isEmpty()) {
            ctx_.dialogs.inform(kInvalidNumber, kValidatorTitle, Icon::Warning);
            params_[i]->setFocus();
            return;
        }
        v[i] = *x;
    }
    LengthVpaOptions o;
    o.raise = static_cast<float>(v[kRaise]);
    o.a = static_cast<float>(v[kA]);
    o.b = static_cast<float>(v[kB]);
    o.m = static_cast<float>(v[kM]);
    o.ft = static_cast<float>(v[kFt]);
    o.loo = static_cast<float>(v[kLoo]);
    o.k = static_cast<float>(v[kK]);
    o.plusGroups = static_cast<int>(v[kPlus]);
    o.selected = samples_->selected();
    o.transform = samples_->transform();
    o.temporal = samples_->temporal();
    LengthVpaResult r = RunLengthVpa(st_->data, o);
    const bool ok = ShowNotices(r, ctx_.dialogs);
    if (!ok) {
        clearResult();
        if (r.refusal() && r.refusal()->text == std::string(kVpaNoSampleText))
            samples_->list()->setFocus();
        return;
    }
    if (r.plusAdjusted) SetBoxNumber(params_[kPlus], r.plusGroups, "0");
    o.plusGroups = r.plusGroups;
    st_->options = o;
    st_->result = std::move(r);
    fillTable();
    redraw();
    cmd_[2]->setEnabled(true);
    cmd_[3]->setEnabled(true);
}

void FrmVpa2::redraw() {
    if (!st_->result) return;
    ChartCanvas& canvas = plot_->canvas();
    st_->scale = DrawVpaBars(canvas, BarsOf(*st_->result));
    plot_->storeClean();
    if (legend_->isChecked()) PutLegend(canvas, kLengthLegend, st_->legendAt);
    plot_->update();
}

void FrmVpa2::fillTable() {
    const LengthVpaResult& r = *st_->result;
    table_->setRowCount(r.n);
    for (int i = 1; i <= r.n; ++i) {
        const double cells[] = {r.mid[i], r.C[i], r.N[i], r.F[i], r.Biomass[i] / 1e6};
        const char* patterns[] = {"0.00", "0.00", "0.00", "0.0000", "0.000"};
        for (int c = 0; c < 5; ++c)
            table_->setItem(i - 1, c, new QTableWidgetItem(NumberText(cells[c], patterns[c])));
    }
}

void FrmVpa2::pressPlot(double x, double y) {
    if (!st_->result) return;
    if (modify_->isChecked()) {
        const TerminalPick pick = PickTerminal(st_->scale, st_->result->n, x, y);
        SetBoxNumber(params_[kFt], pick.ft, "0.000");
        // The box keeps the plus-groups below n - 1.
        SetBoxNumber(params_[kPlus], std::min(pick.plusGroups, std::max(st_->result->n - 2, 0)),
                     "0");
        st_->pressed = true;
        releasePlot();
        return;
    }
    if (legend_->isChecked()) {
        st_->legendAt = {x, y};
        redraw();
    }
}

void FrmVpa2::releasePlot() {
    if (!st_->pressed) return;
    st_->pressed = false;
    Recompute();
}

void FrmVpa2::print() {
    if (!st_->result) return;
    PrintReport(LengthVpaReport(st_->data, st_->options, *st_->result), plot_->canvas(),
                ctx_.dialogs, ctx_.printer);
}

void FrmVpa2::saveSpecies() {
    if (!st_->result) return;
    FileDialogOptions d;
    d.title = kVpa2SaveTitle;
    d.filter = kVpa2SpcFilter;
    d.defaultExtension = "spc";
    d.overwritePrompt = true;
    const auto path = ctx_.dialogs.saveFile(d);
    if (!path) return;
    SaveLengthVpaSpecies(*path, ctx_.programFolder.toStdString(),
                         LengthVpaSpecies(st_->data, st_->options, *st_->result));
    ctx_.dialogs.inform(SpeciesSavedText(*path), kSpeciesSavedTitle, Icon::Information);
}

}  // namespace norvo::gui
