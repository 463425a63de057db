#include "mortality/screens/frm_prob_catch_curve.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/format.h"
#include "mortality/catch_curve.h"
#include "numerics/text_convert.h"

namespace norvo::gui {

namespace {
double ValueOf(const QLineEdit* e) {
    double v = 0;
    return ParseNumber(e->text().toStdString(), v) ? v : 0;
}
}  // namespace

FrmProbCatchCurve::FrmProbCatchCurve(ShellContext& ctx, double z, double loo, double k,
                                     Proceed proceed, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), loo_(loo), k_(k), onProceed_(std::move(proceed)) {
    setWindowTitle(kProbCcTitle);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    const char* captions[] = {
        "Z from catch curve:", "Z to use:", "Mean water temperature (\u00baC):",
        "M from empirical formula:", "M to use:"};
    for (int i = 0; i < 5; ++i) {
        fields_[i] = new QLineEdit(this);
        form->addRow(captions[i], fields_[i]);
    }
    fields_[0]->setReadOnly(true);
    fields_[3]->setReadOnly(true);
    fields_[0]->setText(QString::fromStdString(Format(z, "0.00")));
    fields_[1]->setText(fields_[0]->text());
    layout->addLayout(form);
    auto* buttons = new QHBoxLayout;
    proceed_ = new QPushButton(kProbCcProceed, this);
    cancel_ = new QPushButton(kProbCcCancel, this);
    buttons->addStretch();
    buttons->addWidget(proceed_);
    buttons->addWidget(cancel_);
    layout->addLayout(buttons);
    connect(fields_[2], &QLineEdit::editingFinished, this, [this] { temperatureEntered(); });
    connect(proceed_, &QPushButton::clicked, this, [this] { this->proceed(); });
    connect(cancel_, &QPushButton::clicked, this, [this] { close(); });
}

void FrmProbCatchCurve::temperatureEntered() {
    double t = 0;
    if (!ParseNumber(fields_[2]->text().toStdString(), t)) return;
    if (!CheckTemperature(t, ctx_.dialogs)) return;
    t = CorrectedTemperature(t);
    const double m = PaulyM(loo_, k_, t);
    // The field shows the corrected temperature from here on.
    fields_[2]->setText(QString::fromStdString(Format(t, "0.000")));
    fields_[3]->setText(QString::fromStdString(Format(m, "0.000")));
    fields_[4]->setText(fields_[3]->text());
}

void FrmProbCatchCurve::proceed() {
    const double z = ValueOf(fields_[1]), m = ValueOf(fields_[4]), t = ValueOf(fields_[2]);
    if (!CheckMortalities(z, m, ctx_.dialogs)) return;
    auto done = onProceed_;
    close();
    if (done) done(z, m, t);
}

}  // namespace norvo::gui
