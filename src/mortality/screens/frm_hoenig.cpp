#include "mortality/screens/frm_hoenig.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>

#include "base/error_report.h"
#include "base/format.h"
#include "mortality/bh_mortality.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"

namespace norvo::gui {
namespace {

QString Shown(const std::optional<double>& v) {
    return v ? QString::fromStdString(Format(*v, kHoenigFormat)) : QString();
}

}  // namespace

FrmHoenig::FrmHoenig(ShellContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("frmHoenig");
    setWindowTitle(kHoenigTitle);
    auto* inputs = new QGroupBox("Input parameters", this);
    auto* inForm = new QFormLayout(inputs);
    txtTmax = AddInputRow(inForm, kTmaxCaption, "txtTmax");
    txtTc = AddInputRow(inForm, kTcCaption, "txtTc");
    txtN = AddInputRow(inForm, kNCaption, "txtN");
    connect(txtTc, &QLineEdit::editingFinished, this, [this] { checkTc(); });

    std::array<QLineEdit**, 2> zBoxes = {&txtZ1, &txtZ2};
    std::array<QLineEdit**, 2> seBoxes = {&txtSe1, &txtSe2};
    auto* models = new QHBoxLayout;
    const char* captions[] = {kHoenigModel1Caption, kHoenigModel2Caption};
    for (int m = 0; m < 2; ++m) {
        auto* group = new QGroupBox(this);
        auto* form = new QFormLayout(group);
        chkHoenig[m] = new QCheckBox(captions[m], group);
        chkHoenig[m]->setObjectName(QString("chkHoenig%1").arg(m));
        form->addRow(chkHoenig[m]);
        *zBoxes[m] = AddResultRow(form, kHoenigZCaption, m == 0 ? "txtZ1" : "txtZ2", kPerYear);
        *seBoxes[m] = AddResultRow(form, kHoenigSeCaption, m == 0 ? "txtSe1" : "txtSe2");
        connect(chkHoenig[m], &QCheckBox::toggled, this, [this, m](bool on) {
            if (on) return;
            (m == 0 ? txtZ1 : txtZ2)->clear();
            (m == 0 ? txtSe1 : txtSe2)->clear();
        });
        models->addWidget(group);
    }
    txtSe1->setEnabled(false);

    const auto buttons = AddCalcButtons(
        this, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, models}, buttons.row);
}

void FrmHoenig::checkTc() {
    try {
        if (txtTc->text().trimmed().isEmpty() || txtTmax->text().trimmed().isEmpty()) return;
        if (BoxValue(txtTc) < BoxValue(txtTmax)) return;
        ctx_.dialogs.notify(
            {kTcFieldNotBelowTmaxMessage, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmHoenig::cmdCompute() {
    try {
        HoenigInput in;
        in.model1 = chkHoenig[0]->isChecked();
        in.model2 = chkHoenig[1]->isChecked();
        in.tmax = BoxValue(txtTmax);
        in.tc = BoxValue(txtTc);
        in.n = BoxValue(txtN);
        const auto r = ComputeHoenig(in);
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        if (in.model1) txtZ1->setText(Shown(r.z1));
        if (in.model2) {
            txtZ2->setText(Shown(r.z2));
            txtSe2->setText(Shown(r.se2));
        }
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmHoenig::cmdPrint() {
    try {
        HoenigInput in;
        in.model1 = chkHoenig[0]->isChecked();
        in.model2 = chkHoenig[1]->isChecked();
        in.tmax = BoxValue(txtTmax);
        in.tc = BoxValue(txtTc);
        in.n = BoxValue(txtN);
        const auto r = ComputeHoenig(in);
        if (!AcceptStatus(ctx_.dialogs, r.status)) return;
        PrintCalculatorReport(ctx_, HoenigReport(in, r));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

}  // namespace norvo::gui
