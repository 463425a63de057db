#include "growth/screens/frm_vbgf_plot.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "chart/kind_a.h"
#include "chart/report.h"
#include "data/file_kind.h"
#include "growth/growth_settings.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

}  // namespace

FrmVbgfPlot::FrmVbgfPlot(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmVBGFPlot");
    setWindowTitle(kVbgfPlotCaption);
    chooseColour = [this](Colour current, const QString& title) -> std::optional<Colour> {
        const QColor c = QColorDialog::getColor(QColor::fromRgb(current), this, title);
        if (!c.isValid()) return std::nullopt;
        return Rgb(c.red(), c.green(), c.blue());
    };

    tabs_ = new QTabWidget(this);
    auto* dataTab = new QWidget;
    auto* form = new QFormLayout;
    for (size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i] = new QLineEdit;
        boxes_[i]->setObjectName(QString("txtVBGFPlot%1").arg(i));
        form->addRow(kVbgfBoxCaptions[i], boxes_[i]);
    }
    chkRestructured_ = new QCheckBox(kVbgfUseRestructured);
    chkCurve_ = new QCheckBox(kVbgfPlotCurve);
    chkCurve_->setChecked(true);
    chkSolid_ = new QCheckBox(kVbgfSolidBars);
    chkSolid_->setChecked(true);
    auto* lineButton = new QPushButton(kVbgfLineColour);
    auto* fillButton = new QPushButton(kVbgfFillColour);
    auto* dataLayout = new QVBoxLayout(dataTab);
    dataLayout->addLayout(form);
    dataLayout->addWidget(chkRestructured_);
    dataLayout->addWidget(chkCurve_);
    dataLayout->addWidget(chkSolid_);
    dataLayout->addWidget(lineButton);
    dataLayout->addWidget(fillButton);
    dataLayout->addStretch();

    auto* graphTab = new QWidget;
    view_ = new PlotView;
    view_->setTracksWidgetSize(false);
    hscr_ = new QScrollBar(Qt::Horizontal);
    hscr_->setToolTip(kVbgfScrollTip);
    hscr_->setRange(0, 0);
    chkAll_ = new QCheckBox(kVbgfDisplayAll);
    chkAll_->setToolTip(kVbgfDisplayAllTip);
    auto* graphLayout = new QVBoxLayout(graphTab);
    graphLayout->addWidget(view_, 1);
    graphLayout->addWidget(hscr_);
    graphLayout->addWidget(chkAll_);
    tabs_->addTab(dataTab, kVbgfTabData);
    tabs_->addTab(graphTab, kVbgfTabGraph);

    auto* plot = new QPushButton(kVbgfCmdPlot);
    auto* open = new QPushButton(kVbgfCmdOpen);
    auto* print = new QPushButton(kVbgfCmdPrint);
    auto* closeButton = new QPushButton(kVbgfCmdClose);
    auto* buttons = new QHBoxLayout;
    for (auto* b : {plot, open, print, closeButton}) buttons->addWidget(b);
    auto* top = new QVBoxLayout(this);
    top->addWidget(tabs_, 1);
    top->addLayout(buttons);

    DialogService& dialogs = ctx_.dialogs;
    connect(plot, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                if (PlotVBGF()) tabs_->setCurrentIndex(1);
            }));
    connect(open, &QPushButton::clicked, this, Guarded(dialogs, [this] { OpenCommand(); }));
    connect(print, &QPushButton::clicked, this, Guarded(dialogs, [this] { PrintCommand(); }));
    connect(closeButton, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                QWidget* frame = parentWidget() ? parentWidget() : this;
                frame->close();
            }));
    connect(lineButton, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                if (auto c = chooseColour(lineColour_, kVbgfLineColour)) lineColour_ = *c;
                redraw();
            }));
    connect(fillButton, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                if (auto c = chooseColour(barColour_, kVbgfFillColour)) barColour_ = *c;
                redraw();
            }));
    for (auto* c : {chkRestructured_, chkCurve_, chkSolid_, chkAll_})
        connect(c, &QCheckBox::toggled, this, Guarded(dialogs, [this] { redraw(); }));
    connect(hscr_, &QScrollBar::valueChanged, this, Guarded(dialogs, [this] { redraw(); }));

    ReadDefaults();
    const std::string last = ctx_.settings.runTime(kKeyLastActive, kNoActiveFile);
    if (KindOfPath(last) == "LFQ") RunCommand(dialogs, [&] { Initialize(last); });
}

void FrmVbgfPlot::ReadDefaults() {
    const auto stored = ReadGrowthSettings(ctx_.settings);
    for (size_t i = 0; i < boxes_.size(); ++i) {
        if (stored[i]) {
            SetBoxNumber(boxes_[i], stored[i]->value, stored[i]->pattern);
        } else {
            boxes_[i]->clear();
        }
    }
}

void FrmVbgfPlot::Initialize(const std::string& path) {
    data_.reset();
    params_.reset();
    table_ = {};
    restructuredPoints_.clear();
    ctx_.session.readLfq(path, ctx_.dialogs);
    if (ctx_.session.fileReadFailed) {
        redraw();
        return;
    }
    data_ = ctx_.session.lfqData;
    if (data_->noOfSamples > 0 && data_->noOfClasses > 0)
        restructuredPoints_ = RestructureData(*data_);
    setWindowTitle(QString("%1 [%2]").arg(kVbgfPlotCaption, Q(path)));
    redraw();
}

bool FrmVbgfPlot::PlotVBGF() {
    if (!data_) return false;
    const CurveInputs in{BoxNumber(boxes_[0]), BoxNumber(boxes_[1]), BoxNumber(boxes_[2]),
                         BoxNumber(boxes_[3]), BoxNumber(boxes_[4]), BoxNumber(boxes_[5])};
    const CurveCheck check = CheckCurveInputs(in, *data_);
    params_.reset();
    if (!ShowNotices(check, ctx_.dialogs)) return false;
    params_ = check.params;
    table_ = ComputePoints(*data_, *params_);
    redraw();
    return true;
}

void FrmVbgfPlot::redraw() {
    ChartCanvas& canvas = view_->canvas();
    if (!data_) {
        BeginPercentCanvas(canvas);
        view_->update();
        return;
    }
    HistoOptions o;
    o.restructured = chkRestructured_->isChecked();
    o.solid = chkSolid_->isChecked();
    o.displayAll = chkAll_->isChecked();
    o.barColour = barColour_;
    hscr_->setEnabled(!o.displayAll);
    hscr_->blockSignals(true);
    hscr_->setRange(0, ScrollRangeDays(*data_));
    hscr_->setPageStep(static_cast<int>(kWindowDays));
    hscr_->blockSignals(false);
    o.scrollDay = hscr_->value();
    const PlotLayout layout = PlotHisto(canvas, *data_, o, &restructuredPoints_);
    if (params_ && chkCurve_->isChecked()) PlotCurve(canvas, layout, table_, lineColour_);
    view_->update();
}

void FrmVbgfPlot::OpenCommand() {
    FileDialogOptions o;
    o.title = kVbgfOpenTitle;
    o.filter = kVbgfOpenFilter;
    o.startFolder = ctx_.programFolder.toStdString();
    o.mustExist = true;
    if (const auto path = ctx_.dialogs.openFile(o)) Initialize(*path);
}

void FrmVbgfPlot::PrintCommand() {
    const std::string file = data_ ? data_->path : kVbgfNotAvailable;
    ReportDescriptor r = MakeReport("frmOutVBGFPlot", kVbgfReportTitle, file);
    auto& s = r.addSection("Growth parameters", false);
    const std::array<const char*, 6> captions = {"Loo: ", "K: ", "C: ", "WP: ", "SS: ", "SL: "};
    for (size_t i = 0; i < boxes_.size(); ++i) {
        const std::string text = boxes_[i]->text().trimmed().toStdString();
        s.fields.push_back({captions[i], text.empty() ? kVbgfNotAvailable : text});
    }
    PrintReport(r, view_->canvas(), ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
