#include "mortality/screens/frm_ault_erh.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "base/error_report.h"
#include "base/format.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"

namespace norvo::gui {

FrmAultErh::FrmAultErh(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmAultErh");
    setWindowTitle(kAultErhTitle);
    auto* inputs = new QGroupBox(kMeanLengthInputFrame, this);
    auto* inForm = new QFormLayout(inputs);
    boxes.addTo(inForm);
    txtLmax = AddInputRow(inForm, kLmaxCaption, "txtLmax");
    auto* result = new QGroupBox(kMeanLengthResultFrame, this);
    auto* outForm = new QFormLayout(result);
    txtZ = AddResultRow(outForm, kComputedZCaption, "txtZ", kPerYear);
    txtRoot = AddResultRow(outForm, kAultExactRootCaption, "txtRoot", kPerYear);

    const auto buttons = AddCalcButtons(
        this, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, result}, buttons.row);
}

void FrmAultErh::cmdCompute() {
    try {
        const auto r = ComputeAultEhrhardt({boxes.values(), BoxValue(txtLmax)});
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        txtZ->setText(QString::fromStdString(Format(r.z, kZFormat)));
        txtRoot->setText(r.exactRoot ? QString::fromStdString(Format(*r.exactRoot, kZFormat))
                                     : QString(kAultNoRoot));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmAultErh::cmdPrint() {
    try {
        const AultEhrhardtInput in{boxes.values(), BoxValue(txtLmax)};
        const auto r = ComputeAultEhrhardt(in);
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        PrintCalculatorReport(ctx_, AultEhrhardtReport(in, r));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

}  // namespace norvo::gui
