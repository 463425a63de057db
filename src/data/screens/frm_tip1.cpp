#include "data/screens/frm_tip1.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace norvo::gui {

FrmTip::FrmTip(SettingsStore& settings, const char* key, std::initializer_list<const char*> texts,
               QWidget* parent)
    : QDialog(parent), settings_(settings), key_(key) {
    setWindowTitle("Tip");
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    for (const char* text : texts) {
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

bool FrmTip::wanted(const SettingsStore& settings, const char* key) {
    return settings.runTime(key, kTipShow) != kTipHide;
}

void FrmTip::done(int result) {
    if (chkTip_->isChecked()) settings_.setRunTime(key_, kTipHide);
    QDialog::done(result);
}

FrmTip1::FrmTip1(SettingsStore& settings, QWidget* parent)
    : FrmTip(settings, kTip1Key, {kTip1Text1, kTip1Text2}, parent) {
    setObjectName("frmTip1");
}

FrmTip2::FrmTip2(SettingsStore& settings, QWidget* parent)
    : FrmTip(settings, kTip2Key, {kTip2Text1, kTip2Text2}, parent) {
    setObjectName("frmTip2");
}

}  // namespace norvo::gui
