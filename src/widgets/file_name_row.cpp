#include "widgets/file_name_row.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "widgets/sample_panel.h"

namespace norvo::gui {

FileNameRow AddFileNameRow(QFormLayout* form, QWidget* parent, const char* openText) {
    FileNameRow r;
    auto* row = new QHBoxLayout;
    r.file = new QLineEdit(parent);
    r.file->setReadOnly(true);
    r.open = new QPushButton(openText, parent);
    r.open->setFixedWidth(32);
    row->addWidget(r.file);
    row->addWidget(r.open);
    form->addRow(kFileNameCaption, row);
    return r;
}

QLabel* AddSpeciesRow(QFormLayout* form, QWidget* parent) {
    auto* species = new QLabel(parent);
    form->addRow(kSpeciesCaption, species);
    return species;
}

bool ReadLfqOnScreen(ShellContext& ctx, const std::string& path, LfqData& data, QLineEdit* file,
                     QLabel* species, SamplePanel* samples) {
    ctx.session.readLfq(path, ctx.dialogs);
    if (ctx.session.fileReadFailed) return false;
    data = ctx.session.lfqData;
    file->setText(QString::fromStdString(path));
    species->setText(QString::fromStdString(data.speciesname));
    samples->setData(data);
    return true;
}

}  // namespace norvo::gui
