#include "mortality/screens/frm_bh_mort.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "base/error_report.h"
#include "base/format.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"

namespace norvo::gui {

void MeanLengthBoxes::addTo(QFormLayout* form) {
    txtLoo = AddInputRow(form, kLooCaption, "txtLoo");
    txtK = AddInputRow(form, kKCaption, "txtK");
    txtLmean = AddInputRow(form, kLmeanCaption, "txtLmean");
    txtLc = AddInputRow(form, kCutOffLengthCaption, "txtLc");
}

MeanLengthInput MeanLengthBoxes::values() const {
    return {BoxValue(txtLoo), BoxValue(txtK), BoxValue(txtLmean), BoxValue(txtLc)};
}

FrmBhMort::FrmBhMort(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmBHMort");
    setWindowTitle(kBhMortTitle);
    auto* inputs = new QGroupBox(kMeanLengthInputFrame, this);
    auto* inForm = new QFormLayout(inputs);
    boxes.addTo(inForm);
    auto* result = new QGroupBox(kMeanLengthResultFrame, this);
    auto* outForm = new QFormLayout(result);
    txtZ = AddResultRow(outForm, kComputedZCaption, "txtZ", kPerYear);

    const auto buttons = AddCalcButtons(
        this, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, result}, buttons.row);
}

void FrmBhMort::cmdCompute() {
    try {
        const auto r = ComputeBhMortality(boxes.values());
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        txtZ->setText(QString::fromStdString(Format(r.z, kZFormat)));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmBhMort::cmdPrint() {
    try {
        const MeanLengthInput in = boxes.values();
        const auto r = ComputeBhMortality(in);
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        txtZ->setText(QString::fromStdString(Format(r.z, kZFormat)));
        PrintCalculatorReport(ctx_, BhMortalityReport(in, r));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

}  // namespace norvo::gui
