#include "plot/screens/frm_phi_prime.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/error_report.h"
#include "mortality/screens/calc_form.h"
#include "numerics/format.h"

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

    cmdComputeButton = MakeButton(kCalcCompute, "cmdCompute", this);
    auto* close = MakeButton(kCalcClose, "cmdClose", this);
    connect(cmdComputeButton, &QPushButton::clicked, this, [this] { ComputeParameters(); });
    connect(close, &QPushButton::clicked, this, [this] { CloseScreen(this); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdComputeButton);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(inputs);
    layout->addWidget(indices);
    layout->addLayout(buttons);
}

void FrmPhiPrime::ComputeParameters() {
    try {
        const auto r =
            norvo::ComputeParameters({BoxValue(txtLoo), BoxValue(txtWoo), BoxValue(txtK)});
        const auto shown = [](const std::optional<double>& v) {
            return v ? QString::fromStdString(Format(*v, kPhiFormat)) : QString();
        };
        txtPhiPrime->setText(shown(r.phiPrime));
        txtPhi->setText(shown(r.phi));
        cmdComputeButton->setText(kCalcRecompute);
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

}  // namespace norvo::gui
