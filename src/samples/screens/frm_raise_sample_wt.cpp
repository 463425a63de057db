#include "samples/screens/frm_raise_sample_wt.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "app/active_file.h"
#include "data/lfq_file.h"
#include "numerics/validators.h"
#include "samples/merge_pool.h"
#include "samples/raise.h"
#include "samples/sample_weight.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"
#include "widgets/number_box.h"

namespace norvo::gui {

FrmRaise::FrmRaise(ShellContext& ctx, QWidget* parent)
    : SampleToolScreen(ctx,
                       {"frmRaise",
                        "Raise Samples",
                        {"Source file:"},
                        "Destination file:",
                        kSampleProceed,
                        kSampleClose,
                        true},
                       parent) {
    auto* row = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    lstRaise_ = new QListWidget(this);
    lstRaise_->setObjectName("lstRaise");
    lstRaise_->setSelectionMode(QAbstractItemView::MultiSelection);
    lstRaise_->setMaximumHeight(140);
    chkAll_ = new QCheckBox(kRaiseSelectAll, this);
    left->addWidget(lstRaise_);
    left->addWidget(chkAll_);
    row->addLayout(left, 1);
    auto* right = new QVBoxLayout;
    for (int i = 0; i < 5; ++i) {
        opt_[i] = new QRadioButton(kRaiseOptionTexts[i], this);
        right->addWidget(opt_[i]);
    }
    opt_[0]->setChecked(true);
    auto* form = new QFormLayout;
    txtConstant_ = new QLineEdit(this);
    txtConstant_->setMaximumWidth(100);
    form->addRow("Constant:", txtConstant_);
    right->addLayout(form);
    row->addLayout(right);
    options()->addLayout(row);
    connect(chkAll_, &QCheckBox::toggled, this, Guarded(ctx_.dialogs, [this](bool on) {
                for (int i = 0; i < lstRaise_->count(); ++i) lstRaise_->item(i)->setSelected(on);
            }));
    loadLastActive();
}

void FrmRaise::sourceLoaded() {
    lstRaise_->clear();
    for (int s = 0; s < data().noOfSamples; ++s)
        lstRaise_->addItem(QString::fromStdString(
            "Sample " + std::to_string(s + 1) + " (" +
            FormatSampleDate(data().day[s], data().month[s], data().year[s]) + ")"));
    chkAll_->setChecked(false);
}

SampleFileRun FrmRaise::runTool(const std::vector<std::string>& sources,
                                const std::string& destination) {
    RaiseOptions o;
    o.source = sources[0];
    o.destination = destination;
    for (int i = 0; i < 5; ++i)
        if (opt_[i]->isChecked()) o.option = static_cast<RaiseOption>(i + 1);
    if (o.option == RaiseOption::Constant) {
        const double c = NumberOrNaN(txtConstant_);
        o.constant = std::isnan(c) ? 0 : c;  // refused by the constant check
    }
    for (int i = 0; i < lstRaise_->count(); ++i)
        if (lstRaise_->item(i)->isSelected()) o.samples.push_back(i + 1);
    if (o.samples.empty()) {
        // Nothing selected: nothing to raise, every sample keeps its factor 1.
        o.option = RaiseOption::Constant;
        o.constant = 1;
    }
    return RunRaise(o, ctx_.programFolder.toStdString());
}

FrmSampleWt::FrmSampleWt(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmSampleWt");
    setWindowTitle("Sample Weight Estimation");
    auto* main = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    source_ = new QLineEdit(this);
    auto* browse = new QPushButton("...", this);
    browse->setObjectName("cmdSource0");
    browse->setFixedWidth(32);
    row->addWidget(source_);
    row->addWidget(browse);
    auto* form = new QFormLayout;
    form->addRow("Source file:", row);
    main->addLayout(form);
    auto* grids = new QHBoxLayout;
    spdClass_ = new DataGrid(this);
    spdSample_ = new DataGrid(this);
    for (auto* g : {spdClass_, spdSample_}) {
        g->setEditTriggers(QAbstractItemView::NoEditTriggers);
        grids->addWidget(g);
    }
    main->addLayout(grids, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    compute_ = new QPushButton(kSwCmdCompute, this);
    compute_->setObjectName("cmdCompute");
    auto* close = new QPushButton(kSampleClose, this);
    close->setObjectName("cmdClose");
    buttons->addWidget(compute_);
    buttons->addWidget(close);
    main->addLayout(buttons);
    InitSpreads();
    auto& dialogs = ctx_.dialogs;
    connect(browse, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path = ctx_.dialogs.openFile(
                    {kSampleOpenTitle, kSampleLfqFilter, {}, "lfq", {}, true});
                if (path) loadSource(*path);
            }));
    connect(compute_, &QPushButton::clicked, this, Guarded(dialogs, [this] { compute(); }));
    connect(close, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
                    sub->close();
                } else {
                    QWidget::close();
                }
            }));
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) loadSource(active.path());
}

void FrmSampleWt::InitSpreads() {
    spdClass_->setMaxRows(0);
    spdClass_->setMaxCols(1);
    spdClass_->setCornerTitle(kSwClassHeadings[0]);
    spdClass_->setColHeading(0, kSwClassHeadings[1]);
    spdClass_->setDisplayDecimals(3);
    spdSample_->setMaxRows(0);
    spdSample_->setMaxCols(3);
    spdSample_->setCornerTitle(kSwSampleHeadings[0]);
    for (int k = 1; k < 4; ++k) spdSample_->setColHeading(k - 1, kSwSampleHeadings[k]);
    spdSample_->setDisplayDecimals(3);
}

bool FrmSampleWt::loadSource(const std::string& path) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return false;
    source_->setText(QString::fromStdString(path));
    InitSpreads();
    return true;
}

void FrmSampleWt::compute() {
    const SampleWeightResult r = RunSampleWeight(source_->text().trimmed().toStdString());
    if (r.ok()) {
        const int classes = static_cast<int>(r.meanWeight.size());
        const int samples = static_cast<int>(r.samples.size());
        // Class mean weights of every sample side by side, one column per sample.
        spdClass_->setMaxRows(classes);
        spdClass_->setMaxCols(samples);
        for (int s = 0; s < samples; ++s)
            spdClass_->setColHeading(s, QString("%1 %2").arg(kSwClassHeadings[1]).arg(s + 1));
        for (int c = 0; c < classes; ++c) {
            spdClass_->setRowHeading(c, QString::number(c * r.classInterval + r.smallestMl));
            for (int s = 0; s < samples; ++s) spdClass_->setValue(c, s, r.meanWeight[c][s]);
        }
        spdSample_->setMaxRows(samples);
        for (int s = 0; s < samples; ++s) {
            const auto& row = r.samples[s];
            spdSample_->setRowHeading(
                s, QString::fromStdString(FormatSampleDate(row.day, row.month, row.year)));
            spdSample_->setValue(s, 0, row.sumF);
            spdSample_->setValue(s, 1, row.weight);
            spdSample_->setValue(s, 2, row.meanWeight);
        }
    }
    ShowNotices(r, ctx_.dialogs);
}

}  // namespace norvo::gui
