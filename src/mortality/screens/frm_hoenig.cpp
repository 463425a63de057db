#include "mortality/screens/frm_hoenig.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>

#include "base/outcome.h"
#include "mortality/bh_mortality.h"
#include "mortality/mortality_reports.h"
#include "widgets/calc_form.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"

namespace norvo::gui {
namespace {

QString Shown(const std::optional<double>& v) {
    return v ? NumberText(*v, kHoenigFormat) : QString();
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
    connect(txtTc, &QLineEdit::editingFinished, this, Guarded(ctx_.dialogs, [this] { checkTc(); }));

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
        connect(chkHoenig[m], &QCheckBox::toggled, this, Guarded(ctx_.dialogs, [this, m](bool on) {
                    if (on) return;
                    (m == 0 ? txtZ1 : txtZ2)->clear();
                    (m == 0 ? txtSe1 : txtSe2)->clear();
                }));
        models->addWidget(group);
    }
    txtSe1->setEnabled(false);

    const auto buttons = AddCalcButtons(
        this, ctx_.dialogs, [this] { cmdCompute(); }, [this] { cmdPrint(); });
    cmdComputeButton = buttons.compute;
    cmdPrintButton = buttons.print;
    LayOutCalculator(this, {inputs, models}, buttons.row);
}

void FrmHoenig::checkTc() {
    if (txtTc->text().trimmed().isEmpty() || txtTmax->text().trimmed().isEmpty()) return;
    if (BoxSingle(txtTc) < BoxSingle(txtTmax)) return;
    ctx_.dialogs.notify(
        {kTcFieldNotBelowTmaxMessage, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
}

HoenigInput FrmHoenig::input() const {
    HoenigInput in;
    in.model1 = chkHoenig[0]->isChecked();
    in.model2 = chkHoenig[1]->isChecked();
    in.tmax = BoxSingle(txtTmax);
    in.tc = BoxSingle(txtTc);
    in.n = BoxSingle(txtN);
    return in;
}

void FrmHoenig::cmdCompute() {
    const HoenigInput in = input();
    const auto r = ComputeHoenig(in);
    if (!ShowNotices(r, ctx_.dialogs)) return;
    if (in.model1) txtZ1->setText(Shown(r.z1));
    if (in.model2) {
        txtZ2->setText(Shown(r.z2));
        txtSe2->setText(Shown(r.se2));
    }
}

void FrmHoenig::cmdPrint() {
    const HoenigInput in = input();
    const auto r = ComputeHoenig(in);
    if (ShowNotices(r, ctx_.dialogs)) PrintCalculatorReport(ctx_, HoenigReport(in, r));
}

}  // namespace norvo::gui
