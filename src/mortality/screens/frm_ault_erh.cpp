#include "mortality/screens/frm_ault_erh.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "base/outcome.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"
#include "widgets/number_box.h"

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
        this, ctx_.dialogs, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, result}, buttons.row);
}

AultEhrhardtInput FrmAultErh::input() const {
    return {boxes.values(), BoxSingle(txtLmax)};
}

void FrmAultErh::cmdCompute() {
    const auto r = ComputeAultEhrhardt(input());
    if (!ShowNotices(r, ctx_.dialogs)) return;
    SetBoxNumber(txtZ, r.z, kZFormat);
    if (r.exactRoot) {
        SetBoxNumber(txtRoot, *r.exactRoot, kZFormat);
    } else {
        txtRoot->setText(kAultNoRoot);
    }
}

void FrmAultErh::cmdPrint() {
    const AultEhrhardtInput in = input();
    const auto r = ComputeAultEhrhardt(in);
    if (ShowNotices(r, ctx_.dialogs)) PrintCalculatorReport(ctx_, AultEhrhardtReport(in, r));
}

}  // namespace norvo::gui
