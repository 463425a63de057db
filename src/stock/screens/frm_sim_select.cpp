#include "stock/screens/frm_sim_select.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "widgets/command_boundary.h"
#include "widgets/number_box.h"

namespace norvo::gui {

FrmSimSelect::FrmSimSelect(DialogService& dialogs, const SelectionRow& row, QWidget* parent)
    : QDialog(parent), dialogs_(dialogs), row_(row) {
    setObjectName("frmSimSelect");
    setWindowTitle(kSimSelectCaption);
    auto* form = new QFormLayout;
    for (size_t i = 0; i < txt_.size(); ++i) {
        txt_[i] = new QLineEdit(this);
        txt_[i]->setObjectName(QString("txtSimSelect_%1").arg(i));
        form->addRow(kSimSelectLabels[i], txt_[i]);
    }
    txt_[0]->setText(QString::fromStdString(row.area));
    const std::array<double, 5> values = {row.l50, row.l75, row.r75, row.r50, row.fmax};
    for (size_t i = 0; i < values.size(); ++i) SetBoxNumber(txt_[i + 1], values[i], "0.00");
    chk_ = new QCheckBox(kSimNegligible, this);
    chk_->setObjectName("chkSimSelect");
    chk_->setChecked(row.deselectionNegligible);
    form->addRow(chk_);
    connect(chk_, &QCheckBox::toggled, this, Guarded(dialogs_, [this] { updateRightLimb(); }));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName("cmdSimSelect");
    connect(buttons, &QDialogButtonBox::accepted, this, Guarded(dialogs_, [this] { accept(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, Guarded(dialogs_, [this] { reject(); }));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    updateRightLimb();
}

// The right limb's boxes are only read when deselection matters.
void FrmSimSelect::updateRightLimb() {
    txt_[3]->setEnabled(!chk_->isChecked());
    txt_[4]->setEnabled(!chk_->isChecked());
}

void FrmSimSelect::accept() {
    SelectionRow r;
    r.area = txt_[0]->text().trimmed().toStdString();
    r.l50 = NumberOrNaN(txt_[1]);
    r.l75 = NumberOrNaN(txt_[2]);
    r.deselectionNegligible = chk_->isChecked();
    r.r75 = r.deselectionNegligible ? 0.0 : NumberOrNaN(txt_[3]);
    r.r50 = r.deselectionNegligible ? 0.0 : NumberOrNaN(txt_[4]);
    r.fmax = NumberOrNaN(txt_[5]);
    if (!SelectionRowValid(r)) {
        dialogs_.notify({kSimRecheckText, kSimRecheckTitle, Buttons::Ok, Icon::Warning});
        return;
    }
    row_ = r;
    QDialog::accept();
}

}  // namespace norvo::gui
