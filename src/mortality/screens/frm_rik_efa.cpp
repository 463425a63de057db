#include "mortality/screens/frm_rik_efa.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "base/outcome.h"
#include "mortality/bh_mortality.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"
#include "widgets/number_box.h"

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
        this, ctx_.dialogs, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, result}, buttons.row);
}

RikhterEfanovResult FrmRikEfa::compute(const RikhterEfanovInput& in) {
    const auto r = ComputeRikhterEfanov(in);
    if (ShowNotices(r, ctx_.dialogs)) SetBoxNumber(txtM, r.m, kRikhterMFormat);
    return r;
}

void FrmRikEfa::cmdCompute() {
    compute({BoxSingle(txtTm)});
}

void FrmRikEfa::cmdPrint() {
    const RikhterEfanovInput in{BoxSingle(txtTm)};
    const auto r = compute(in);
    if (r.ok()) PrintCalculatorReport(ctx_, RikhterEfanovReport(in, r));
}

}  // namespace norvo::gui
