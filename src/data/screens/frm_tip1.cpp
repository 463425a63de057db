#include "data/screens/frm_tip1.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace norvo::gui {

FrmTip1::FrmTip1(SettingsStore& settings, QWidget* parent) : QDialog(parent), settings_(settings) {
    setObjectName("frmTip1");
    setWindowTitle("Tip");
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    for (const char* text : {kTip1Text1, kTip1Text2}) {
        auto* label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        layout->addWidget(label);
    }
    chkTip_ = new QCheckBox(kTipDontShow, this);
    chkTip_->setObjectName("chkTip");
    layout->addWidget(chkTip_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
    setMinimumWidth(420);
}

bool FrmTip1::wanted(const SettingsStore& settings) {
    return settings.runTime(kTip1Key, kTipShow) != kTipHide;
}

void FrmTip1::done(int result) {
    if (chkTip_->isChecked()) settings_.setRunTime(kTip1Key, kTipHide);
    QDialog::done(result);
}

}  // namespace norvo::gui
