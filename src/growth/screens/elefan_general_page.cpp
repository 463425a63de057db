#include "growth/screens/elefan_general_page.h"

#include <QFormLayout>
#include <QLineEdit>

#include "growth/screens/elefan_shared.h"
#include "widgets/number_box.h"

namespace norvo::gui {

ElefanGeneralPage::ElefanGeneralPage(QWidget* parent) : QWidget(parent) {
    auto* form = new QFormLayout(this);
    for (size_t i = 0; i < fields_.size(); ++i) {
        fields_[i] = MakeResultField(this, static_cast<int>(i));
        fields_[i]->setMaximumWidth(QWIDGETSIZE_MAX);
        form->addRow(kGeneralCaptions[i], fields_[i]);
    }
}

void ElefanGeneralPage::showFile(const ElefanFileInfo& file) {
    fields_[0]->setText(QString::fromStdString(file.fileName));
    fields_[1]->setText(QString::fromStdString(file.speciesName));
    fields_[2]->setText(QString::fromStdString(file.otherIdentifier));
    SetBoxNumber(fields_[3], file.classSize, "0.00");
    fields_[4]->setText(SingleText(static_cast<float>(file.largestClassSize)));
    fields_[5]->setText(QString::fromStdString(file.unit));
}

}  // namespace norvo::gui
