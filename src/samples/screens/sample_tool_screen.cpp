#include "samples/screens/sample_tool_screen.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/active_file.h"
#include "base/settings_store.h"
#include "data/lfq_file.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"

namespace norvo::gui {

SampleToolScreen::SampleToolScreen(ShellContext& ctx, const SampleToolLayout& layout,
                                   QWidget* parent)
    : QWidget(parent), ctx_(ctx) {
    setObjectName(layout.objectName);
    setWindowTitle(layout.caption);
    auto* main = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    auto& dialogs = ctx_.dialogs;
    for (size_t i = 0; i < layout.sourceCaptions.size(); ++i) {
        auto* row = new QHBoxLayout;
        auto* box = new QLineEdit(this);
        auto* browse = new QPushButton("...", this);
        browse->setObjectName(QString("cmdSource%1").arg(i));
        browse->setFixedWidth(32);
        row->addWidget(box);
        row->addWidget(browse);
        form->addRow(layout.sourceCaptions[i], row);
        sources_.push_back(box);
        connect(browse, &QPushButton::clicked, this,
                Guarded(dialogs, [this, i] { browseSource(static_cast<int>(i)); }));
    }
    species_ = new QLabel(this);
    otherId_ = new QLabel(this);
    if (layout.showsSpecies) {
        form->addRow(layout.speciesCaption, species_);
        form->addRow(layout.otherIdCaption, otherId_);
    } else {
        species_->hide();
        otherId_->hide();
    }
    main->addLayout(form);

    options_ = new QVBoxLayout;
    main->addLayout(options_);

    auto* destForm = new QFormLayout;
    auto* destRow = new QHBoxLayout;
    destination_ = new QLineEdit(this);
    auto* destBrowse = new QPushButton("...", this);
    destBrowse->setObjectName("cmdDestination");
    destBrowse->setFixedWidth(32);
    destRow->addWidget(destination_);
    destRow->addWidget(destBrowse);
    destForm->addRow(layout.destinationCaption, destRow);
    main->addLayout(destForm);
    connect(destBrowse, &QPushButton::clicked, this,
            Guarded(dialogs, [this] { browseDestination(); }));

    auto* grids = new QHBoxLayout;
    raw_ = new DataGrid(this);
    raw_->setObjectName("spdRaw");
    result_ = new DataGrid(this);
    result_->setObjectName("spdCorrect");
    for (auto* g : {raw_, result_}) {
        g->setEditTriggers(QAbstractItemView::NoEditTriggers);
        g->setMaxRows(0);
        g->setMaxCols(0);
        g->setDisplayDecimals(2);
        g->setMinimumHeight(180);
        grids->addWidget(g);
    }
    main->addLayout(grids, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    proceed_ = new QPushButton(layout.proceedCaption, this);
    proceed_->setObjectName("cmdProceed");
    close_ = new QPushButton(layout.closeCaption, this);
    close_->setObjectName("cmdClose");
    buttons->addWidget(proceed_);
    buttons->addWidget(close_);
    main->addLayout(buttons);
    connect(proceed_, &QPushButton::clicked, this, Guarded(dialogs, [this] { proceed(); }));
    connect(close_, &QPushButton::clicked, this, Guarded(dialogs, [this] { closeScreen(); }));
}

void SampleToolScreen::closeScreen() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->close();
    } else {
        close();
    }
}

void SampleToolScreen::loadLastActive() {
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("LFQ")) loadSource(active.path());
}

bool SampleToolScreen::loadSource(const std::string& path, int index) {
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return false;
    sources_.at(index)->setText(QString::fromStdString(path));
    if (index != 0) return true;
    data_ = ctx_.session.lfqData;
    species_->setText(QString::fromStdString(data_.speciesname));
    otherId_->setText(QString::fromStdString(data_.otherId));
    LfqTable t;
    t.header.smallestMl = data_.smallestMl;
    t.header.classInterval = data_.classInterval;
    t.freq = data_.freq;
    for (int s = 0; s < data_.noOfSamples; ++s) {
        LfqSample rec;
        rec.samplingDay = data_.day[s];
        rec.samplingMonth = data_.month[s];
        rec.samplingYear = data_.year[s];
        t.samples.push_back(rec);
    }
    ShowTable(raw_, t);
    result_->setMaxRows(0);
    result_->setMaxCols(0);
    sourceLoaded();
    return true;
}

void SampleToolScreen::ShowTable(DataGrid* grid, const LfqTable& t) {
    grid->setMaxRows(t.classes());
    grid->setMaxCols(t.sampleCount());
    grid->setCornerTitle("Class");
    for (int s = 0; s < t.sampleCount(); ++s) {
        const LfqSample& rec = t.samples[s];
        grid->setColHeading(s, QString::fromStdString(FormatSampleDate(
                                   rec.samplingDay, rec.samplingMonth, rec.samplingYear)));
    }
    for (int c = 0; c < t.classes(); ++c) {
        grid->setRowHeading(c, QString::number(t.midlength(c)));
        for (int s = 0; s < t.sampleCount(); ++s) grid->setValue(c, s, t.freq[c][s]);
    }
}

void SampleToolScreen::proceed() {
    std::vector<std::string> paths;
    for (auto* box : sources_) paths.push_back(box->text().trimmed().toStdString());
    const std::string dest = destination_->text().trimmed().toStdString();
    if (!confirmRun()) return;
    const SampleFileRun run = runTool(paths, dest);
    if (run.ok() && run.table.classes() > 0) ShowTable(result_, run.table);
    if (ShowNotices(run, ctx_.dialogs) && !run.notices.empty()) closeScreen();
}

void SampleToolScreen::browseSource(int index) {
    const auto path =
        ctx_.dialogs.openFile({kSampleOpenTitle, kSampleLfqFilter, {}, "lfq", {}, true});
    if (path) loadSource(*path, index);
}

void SampleToolScreen::browseDestination() {
    const auto path =
        ctx_.dialogs.saveFile({kSampleSaveTitle, kSampleLfqFilter, {}, "lfq", {}, false, true});
    if (path) destination_->setText(QString::fromStdString(*path));
}

}  // namespace norvo::gui
