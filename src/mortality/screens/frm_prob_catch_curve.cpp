#include "mortality/screens/frm_prob_catch_curve.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/outcome.h"
#include "mortality/catch_curve_run.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"

namespace norvo::gui {

namespace {
constexpr const char* kMortalityFormat = "0.000";
}  // namespace

FrmProbCatchCurve::FrmProbCatchCurve(ShellContext& ctx, double z, const GrowthParams& growth,
                                     Proceed proceed, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), growth_(growth), onProceed_(std::move(proceed)) {
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
    SetBoxNumber(fields_[0], z, "0.00");
    SetBoxNumber(fields_[1], z, "0.00");
    layout->addLayout(form);
    auto* buttons = new QHBoxLayout;
    proceed_ = new QPushButton(kProbCcProceed, this);
    cancel_ = new QPushButton(kProbCcCancel, this);
    buttons->addStretch();
    buttons->addWidget(proceed_);
    buttons->addWidget(cancel_);
    layout->addLayout(buttons);
    connect(fields_[2], &QLineEdit::editingFinished, this,
            Guarded(ctx_.dialogs, [this] { temperatureEntered(); }));
    connect(proceed_, &QPushButton::clicked, this,
            Guarded(ctx_.dialogs, [this] { this->proceed(); }));
    connect(cancel_, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] { close(); }));
}

void FrmProbCatchCurve::temperatureEntered() {
    if (fields_[2]->text().trimmed().isEmpty()) return;
    const auto typed = BoxNumber(fields_[2]);
    if (!typed) return;
    const TemperatureMortality r = MortalityAtTemperature(*typed, growth_);
    if (!ShowNotices(r, ctx_.dialogs)) return;
    // The field shows the corrected temperature from here on.
    SetBoxNumber(fields_[2], r.t, kMortalityFormat);
    SetBoxNumber(fields_[3], r.m, kMortalityFormat);
    SetBoxNumber(fields_[4], r.m, kMortalityFormat);
}

void FrmProbCatchCurve::proceed() {
    const double z = BoxNumber(fields_[1]).value_or(0), m = BoxNumber(fields_[4]).value_or(0),
                 t = BoxNumber(fields_[2]).value_or(0);
    if (!ShowNotices(CheckMortalities(z, m), ctx_.dialogs)) return;
    auto done = onProceed_;
    close();
    if (done) done(z, m, t);
}

}  // namespace norvo::gui
