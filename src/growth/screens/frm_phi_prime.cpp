#include "growth/screens/frm_phi_prime.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "base/format.h"
#include "widgets/calc_form.h"
#include "widgets/number_box.h"

namespace norvo::gui {

FrmPhiPrime::FrmPhiPrime(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmPhiPrime");
    setWindowTitle(kPhiPrimeTitle);
    auto* inputs = new QGroupBox(kGrowthParametersFrame, this);
    auto* inForm = new QFormLayout(inputs);
    txtLoo = AddInputRow(inForm, kPhiLooCaption, "txtLoo");
    txtWoo = AddInputRow(inForm, kPhiWooCaption, "txtWoo");
    txtK = AddInputRow(inForm, kPhiKCaption, "txtK");

    auto* indices = new QGroupBox(kGrowthPerformanceFrame, this);
    auto* outForm = new QFormLayout(indices);
    txtPhiPrime = AddResultRow(outForm, kPhiPrimeReadout, "txtPhiPrime");
    txtPhi = AddResultRow(outForm, kPhiReadout, "txtPhi");
    auto* formula = new QLabel(kPhiPrimeFormula, indices);
    formula->setObjectName("lblFormula");
    outForm->addRow(formula);

    const auto buttons = AddCalcButtons(this, ctx_.dialogs, [this] { ComputeParameters(); });
    cmdComputeButton = buttons.compute;
    LayOutCalculator(this, {inputs, indices}, buttons.row);
}

void FrmPhiPrime::ComputeParameters() {
    const auto r = norvo::ComputeParameters({BoxValue(txtLoo), BoxValue(txtWoo), BoxValue(txtK)});
    const auto shown = [](const std::optional<double>& v) {
        return v ? NumberText(*v, kPhiFormat) : QString();
    };
    txtPhiPrime->setText(shown(r.phiPrime));
    txtPhi->setText(shown(r.phi));
    cmdComputeButton->setText(kCalcRecompute);
}

}  // namespace norvo::gui
