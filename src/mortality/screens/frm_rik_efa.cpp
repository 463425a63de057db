#include "mortality/screens/frm_rik_efa.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "base/error_report.h"
#include "base/format.h"
#include "mortality/bh_mortality.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"

namespace norvo::gui {

FrmRikEfa::FrmRikEfa(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmRikEfa");
    setWindowTitle(kRikEfaTitle);
    auto* inputs = new QGroupBox("Input parameters", this);
    auto* inForm = new QFormLayout(inputs);
    inForm->addRow(new QLabel(kRikEfaFormula, inputs));
    txtTm = AddInputRow(inForm, kTmCaption, "txtTm");
    auto* result = new QGroupBox("Result", this);
    auto* outForm = new QFormLayout(result);
    txtM = AddResultRow(outForm, kRikEfaMCaption, "txtM", kPerYear);

    const auto buttons = AddCalcButtons(
        this, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, result}, buttons.row);
}

void FrmRikEfa::cmdCompute() {
    try {
        const auto r = ComputeRikhterEfanov({BoxValue(txtTm)});
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        txtM->setText(QString::fromStdString(Format(r.m, kRikhterMFormat)));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmRikEfa::cmdPrint() {
    try {
        const RikhterEfanovInput in{BoxValue(txtTm)};
        const auto r = ComputeRikhterEfanov(in);
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        txtM->setText(QString::fromStdString(Format(r.m, kRikhterMFormat)));
        PrintCalculatorReport(ctx_, RikhterEfanovReport(in, r));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

}  // namespace norvo::gui
