#include "growth/screens/frm_lmax.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include "base/format.h"
#include "data/lfq_file.h"
#include "plot/render/canvas_renderer.h"
#include "widgets/calc_form.h"
#include "widgets/command_boundary.h"
#include "widgets/output_screen.h"

namespace norvo::gui {
namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

QTableWidget* MakeTable(QWidget* parent, const char* objectName, const QStringList& headers) {
    auto* t = new QTableWidget(parent);
    t->setObjectName(objectName);
    t->setColumnCount(static_cast<int>(headers.size()));
    t->setHorizontalHeaderLabels(headers);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    return t;
}

void SetCell(QTableWidget* t, int row, int col, const std::string& text) {
    auto* item = new QTableWidgetItem(Q(text));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    t->setItem(row, col, item);
}

}  // namespace

FrmLmax::FrmLmax(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmLmax");
    setWindowTitle(kLmaxTitle);

    auto* fileRow = new QHBoxLayout;
    auto* open = MakeButton(kLmaxCmdOpen, "cmdOpen", this);
    connect(open, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] { cmdOpen(); }));
    txtFile = new QLineEdit(this);
    txtFile->setObjectName("txtFile");
    txtFile->setReadOnly(true);
    fileRow->addWidget(new QLabel(kLmaxFileCaption, this));
    fileRow->addWidget(txtFile, 1);
    fileRow->addWidget(open);

    auto* extremesBox = new QGroupBox(kExtremeLengthsTable, this);
    auto* extremesLayout = new QVBoxLayout(extremesBox);
    grdExtremes =
        MakeTable(extremesBox, "grdExtremes", {kExtremeLengthsTable, kCumulativeProbabilities});
    extremesLayout->addWidget(grdExtremes);

    auto* curveBox = new QGroupBox(kPointsOfCurvesTable, this);
    auto* curveLayout = new QVBoxLayout(curveBox);
    grdCurve = MakeTable(curveBox, "grdCurve",
                         {kCumProbColumn, kPredictedColumn, kLowerLimitColumn, kUpperLimitColumn});
    curveLayout->addWidget(grdCurve);

    auto* resultBox = new QGroupBox("Results", this);
    auto* resultForm = new QFormLayout(resultBox);
    txtPredicted = AddResultRow(resultForm, kLmaxPredictedCaption, "txtPredicted");
    txtLower = AddResultRow(resultForm, kLmaxLowerCaption, "txtLower");
    txtUpper = AddResultRow(resultForm, kLmaxUpperCaption, "txtUpper");
    for (auto* box : {txtPredicted, txtLower, txtUpper}) box->setMaximumWidth(220);

    picPlot = new QLabel(this);
    picPlot->setObjectName("picPlot");
    picPlot->setMinimumSize(400, 300);
    picPlot->setAlignment(Qt::AlignCenter);
    picPlot->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);

    auto* left = new QWidget(this);
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(extremesBox, 1);
    leftLayout->addWidget(curveBox, 2);
    leftLayout->addWidget(resultBox);
    auto* split = new QSplitter(this);
    split->addWidget(left);
    split->addWidget(picPlot);
    split->setStretchFactor(1, 2);

    cmdPrintButton = MakeButton(kCalcPrint, "cmdPrint", this);
    cmdPrintButton->setEnabled(false);
    connect(cmdPrintButton, &QPushButton::clicked, this,
            Guarded(ctx_.dialogs, [this] { cmdPrint(); }));
    auto* close = MakeButton(kCalcClose, "cmdClose", this);
    connect(close, &QPushButton::clicked, this,
            Guarded(ctx_.dialogs, [this] { CloseScreen(this); }));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdPrintButton);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fileRow);
    layout->addWidget(split, 1);
    layout->addLayout(buttons);
    resize(900, 600);
}

void FrmLmax::cmdOpen() {
    FileDialogOptions o;
    o.title = kLmaxOpenTitle;
    o.filter = kLmaxOpenFilter;
    o.defaultExtension = "lfq";
    o.mustExist = true;
    const auto path = ctx_.dialogs.openFile(o);
    if (path) loadFile(Q(*path));
}

void FrmLmax::loadFile(const QString& path) {
    clearResults();
    ctx_.session.readLfq(path.toStdString(), ctx_.dialogs);
    if (ctx_.session.fileReadFailed) return;
    txtFile->setText(path);
    const LfqData& data = ctx_.session.lfqData;
    const auto extremes = ExtremeLengths(data);
    if (extremes.size() < 2) {
        ctx_.dialogs.notify({kLmaxTooFewMessage, kLmaxTooFewTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    auto fit = GumbelFit(extremes);
    if (!fit.ok) {
        ctx_.dialogs.notify(
            {kLmaxCalcErrorMessage, kLmaxCalcErrorTitle, Buttons::Ok, Icon::Critical});
        return;
    }
    fit_ = std::move(fit);
    data_ = data;
    showResults(data.unitOfMeasurement);
}

void FrmLmax::cmdPrint() {
    if (!fit_) return;
    PrintReport(LmaxReport(data_, *fit_), canvas_, ctx_.dialogs, ctx_.printer);
}

void FrmLmax::clearResults() {
    fit_.reset();
    grdExtremes->setRowCount(0);
    grdCurve->setRowCount(0);
    txtPredicted->clear();
    txtLower->clear();
    txtUpper->clear();
    canvas_.Reset();
    picPlot->clear();
    cmdPrintButton->setEnabled(false);
}

void FrmLmax::showResults(const std::string& unit) {
    const GumbelFitResult& f = *fit_;
    grdExtremes->setRowCount(f.n);
    for (int i = 0; i < f.n; ++i) {
        SetCell(grdExtremes, i, 0, Format(f.extremes[i], "0.00"));
        SetCell(grdExtremes, i, 1, Format(f.probabilities[i], "0.000"));
    }
    grdCurve->setRowCount(static_cast<int>(f.curve.size()));
    for (int i = 0; i < static_cast<int>(f.curve.size()); ++i) {
        const auto& p = f.curve[i];
        SetCell(grdCurve, i, 0, Format(p.probability, "0.000"));
        SetCell(grdCurve, i, 1, Format(p.predicted, "0.00"));
        SetCell(grdCurve, i, 2, Format(p.lower, "0.00"));
        SetCell(grdCurve, i, 3, Format(p.upper, "0.00"));
    }
    txtPredicted->setText(Q(Format(f.predicted, kLmaxValueFormat) + " " + unit));
    txtLower->setText(Q(Format(f.lower, kLmaxValueFormat) + " " + unit + " - " + kLowerLimitText));
    txtUpper->setText(Q(Format(f.upper, kLmaxValueFormat) + " " + unit + " - " + kUpperLimitText));
    GraphResults(canvas_, f, unit);
    showPlot();
    cmdPrintButton->setEnabled(true);
}

void FrmLmax::showPlot() {
    if (!fit_) return;
    const QSize size = picPlot->size().expandedTo(QSize(400, 300));
    picPlot->setPixmap(QPixmap::fromImage(RenderCanvas(canvas_, size.width(), size.height())));
}

void FrmLmax::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    RunCommand(ctx_.dialogs, [this] { showPlot(); });
}

}  // namespace norvo::gui
