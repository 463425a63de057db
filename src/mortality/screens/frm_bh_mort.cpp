#include "mortality/screens/frm_bh_mort.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "base/outcome.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"
#include "widgets/number_box.h"

namespace norvo::gui {

void MeanLengthBoxes::addTo(QFormLayout* form) {
    txtLoo = AddInputRow(form, kLooCaption, "txtLoo");
    txtK = AddInputRow(form, kKCaption, "txtK");
    txtLmean = AddInputRow(form, kLmeanCaption, "txtLmean");
    txtLc = AddInputRow(form, kCutOffLengthCaption, "txtLc");
}

MeanLengthInput MeanLengthBoxes::values() const {
    return {BoxSingle(txtLoo), BoxSingle(txtK), BoxSingle(txtLmean), BoxSingle(txtLc)};
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
        this, ctx_.dialogs, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, result}, buttons.row);
}

BhMortalityResult FrmBhMort::compute(const MeanLengthInput& in) {
    const auto r = ComputeBhMortality(in);
    if (ShowNotices(r, ctx_.dialogs)) SetBoxNumber(txtZ, r.z, kZFormat);
    return r;
}

void FrmBhMort::cmdCompute() {
    compute(boxes.values());
}

void FrmBhMort::cmdPrint() {
    const MeanLengthInput in = boxes.values();
    const auto r = compute(in);
    if (r.ok()) PrintCalculatorReport(ctx_, BhMortalityReport(in, r));
}

}  // namespace norvo::gui
