#include "data/screens/frm_flt.h"

#include <QDate>
#include <QFormLayout>
#include <QLineEdit>

#include "data/species_files.h"

namespace norvo::gui {

FrmFlt::FrmFlt(ShellContext& ctx, QWidget* parent) : StockFileEditor(ctx, "FLT", parent) {
    setObjectName("frmFLT");
    auto* form = new QFormLayout(this);
    for (size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i] = new QLineEdit(this);
        form->addRow(kFltCaptions[i], boxes_[i]);
        connect(boxes_[i], &QLineEdit::textEdited, this, [this] { markChanged(); });
    }
}

void FrmFlt::OpenFile() {
    const auto read = ReadFleetFile(filePath().toStdString());
    if (!read) {
        failRead();
        return;
    }
    boxes_[0]->setText(QString::fromStdString(read->fleetName));
    boxes_[1]->setText(QString::fromStdString(read->remarks));
    saved_ = true;
}

void FrmFlt::SaveFile() {
    WriteFleetFile(filePath().toStdString(),
                   {{}, boxes_[0]->text().toStdString(), boxes_[1]->text().toStdString()});
    saved_ = true;
}

std::vector<QStringList> FrmFlt::outputLines() const {
    return {{"Fleet Table"},
            {"Date generated: " + QDate::currentDate().toString("dd/MM/yyyy")},
            {},
            {kFltCaptions[0], boxes_[0]->text()},
            {kFltCaptions[1], boxes_[1]->text()}};
}

}  // namespace norvo::gui
