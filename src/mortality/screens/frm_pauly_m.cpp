#include "mortality/screens/frm_pauly_m.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "base/outcome.h"
#include "mortality/bh_mortality.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"

namespace norvo::gui {

FrmPaulyM::FrmPaulyM(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmPaulyM");
    setWindowTitle(kPaulyTitle);

    auto* formBox = new QGroupBox(this);
    auto* formRow = new QHBoxLayout(formBox);
    optPaulyM[0] = new QRadioButton(kPaulyLengthOption, formBox);
    optPaulyM[1] = new QRadioButton(kPaulyWeightOption, formBox);
    for (int i = 0; i < 2; ++i) {
        optPaulyM[i]->setObjectName(QString("optPaulyM%1").arg(i));
        formRow->addWidget(optPaulyM[i]);
        connect(optPaulyM[i], &QRadioButton::toggled, this,
                Guarded(ctx_.dialogs, [this] { showForm(); }));
    }
    formRow->addStretch();

    auto* inputs = new QGroupBox("Input parameters", this);
    auto* inForm = new QFormLayout(inputs);
    txtSize = AddInputRow(inForm, kPaulyLengthCaption, "txtSize");
    lblSize = qobject_cast<QLabel*>(inForm->labelForField(txtSize));
    txtK = AddInputRow(inForm, kPaulyKCaption, "txtK");
    txtT = AddInputRow(inForm, kPaulyTCaption, "txtT");

    lblFormula = new QLabel(this);
    lblFormula->setObjectName("lblFormula");
    lblRemark = new QLabel(this);
    lblRemark->setObjectName("lblRemark");

    auto* result = new QGroupBox("Result", this);
    auto* outForm = new QFormLayout(result);
    txtM = AddResultRow(outForm, kPaulyMCaption, "txtM", kPerYear);

    const auto buttons = AddCalcButtons(
        this, ctx_.dialogs, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {formBox, lblFormula, inputs, lblRemark, result}, buttons.row);

    optPaulyM[0]->setChecked(true);
    showForm();
}

PaulyForm FrmPaulyM::form() const {
    return optPaulyM[1]->isChecked() ? PaulyForm::Weight : PaulyForm::Length;
}

void FrmPaulyM::showForm() {
    const bool weight = form() == PaulyForm::Weight;
    lblSize->setText(weight ? kPaulyWeightCaption : kPaulyLengthCaption);
    lblFormula->setText(weight ? kPaulyWeightFormula : kPaulyLengthFormula);
    lblRemark->setText(weight ? kPaulyWeightRemark : kPaulyLengthRemark);
    txtM->clear();
}

PaulyInput FrmPaulyM::input() const {
    return {form(), BoxSingle(txtSize), BoxSingle(txtK), BoxSingle(txtT)};
}

PaulyResult FrmPaulyM::compute(const PaulyInput& in) {
    const auto r = ComputePaulyM(in);
    if (ShowNotices(r, ctx_.dialogs)) SetBoxNumber(txtM, r.m, kPaulyMFormat);
    return r;
}

void FrmPaulyM::cmdCompute() {
    compute(input());
}

void FrmPaulyM::cmdPrint() {
    const PaulyInput in = input();
    const auto r = compute(in);
    if (r.ok()) PrintCalculatorReport(ctx_, PaulyReport(in, r));
}

}  // namespace norvo::gui
