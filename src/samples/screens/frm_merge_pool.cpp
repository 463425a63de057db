#include "samples/screens/frm_merge_pool.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"

namespace norvo::gui {

FrmMerge::FrmMerge(ShellContext& ctx, QWidget* parent)
    : SampleToolScreen(ctx,
                       {"frmMerge",
                        "Merge Files",
                        {"Merge this file:", "with this file:"},
                        "Save to:",
                        kSampleProceed,
                        kSampleCancel,
                        false},
                       parent) {
    sourceGrid()->hide();
    loadLastActive();
}

SampleFileRun FrmMerge::runTool(const std::vector<std::string>& sources,
                                const std::string& destination) {
    return RunMerge({sources[0], sources[1], destination}, ctx_.programFolder.toStdString());
}

FrmPool::FrmPool(ShellContext& ctx, QWidget* parent)
    : SampleToolScreen(ctx,
                       {"frmPool",
                        "Pool Samples",
                        {"Filename:"},
                        "Destination file:",
                        kPoolCmdSave,
                        kSampleCancel,
                        true},
                       parent) {
    options()->addWidget(new QLabel("Select Samples to Pool", this));
    lstPool_ = new QListWidget(this);
    lstPool_->setObjectName("lstPool");
    lstPool_->setSelectionMode(QAbstractItemView::MultiSelection);
    lstPool_->setMaximumHeight(140);
    options()->addWidget(lstPool_);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel("Enter New Sampling Date:", this));
    dtpPool_ = new QDateEdit(QDate::currentDate(), this);
    dtpPool_->setObjectName("dtpPool");
    dtpPool_->setDisplayFormat("dd/MM/yyyy");
    row->addWidget(dtpPool_);
    cmdPool_ = new QPushButton(kPoolCmdPool, this);
    cmdPool_->setObjectName("cmdPool");
    row->addWidget(cmdPool_);
    row->addStretch();
    options()->addLayout(row);
    connect(cmdPool_, &QPushButton::clicked, this,
            Guarded(ctx_.dialogs, [this] { poolSelected(); }));
    connect(lstPool_, &QListWidget::itemClicked, this,
            Guarded(ctx_.dialogs, [this](QListWidgetItem* item) { onItemClicked(item); }));
    loadLastActive();
}

void FrmPool::sourceLoaded() {
    state_ = PoolState(data().noOfSamples);
    fillList();
    showPools();
}

void FrmPool::fillList() {
    lstPool_->clear();
    for (int s = 0; s < data().noOfSamples; ++s) {
        const std::string entry =
            PoolListEntry(s + 1, data().day[s], data().month[s], data().year[s]);
        lstPool_->addItem(QString::fromStdString((state_.isPooled(s) ? kPoolMark : "") + entry));
    }
}

void FrmPool::onItemClicked(QListWidgetItem* item) {
    const int s = lstPool_->row(item);
    if (s < 0 || s >= state_.sampleCount() || !state_.isPooled(s)) return;
    item->setSelected(false);
    ctx_.dialogs.notify(
        {kPoolPreviouslyPooledText, kPoolPreviouslyPooledTitle, Buttons::Ok, Icon::Warning});
}

void FrmPool::poolSelected() {
    std::vector<int> selected;
    for (int s = 0; s < lstPool_->count(); ++s)
        if (lstPool_->item(s)->isSelected()) selected.push_back(s);
    const QDate d = dtpPool_->date();
    const Outcome out = state_.pool(selected, d.day(), d.month(), d.year());
    if (!ShowNotices(out, ctx_.dialogs)) return;
    fillList();
    showPools();
}

void FrmPool::showPools() {
    if (data().noOfSamples == 0) return;
    const SampleFileRun preview = PoolData(data(), state_.pools());
    if (preview.ok()) ShowTable(resultGrid(), preview.table);
}

SampleFileRun FrmPool::runTool(const std::vector<std::string>& sources,
                               const std::string& destination) {
    return RunPool({sources[0], destination, state_.pools()}, ctx_.programFolder.toStdString());
}

}  // namespace norvo::gui
