#include "mortality/screens/calc_form.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>

#include "mortality/mortality_reports.h"
#include "numerics/text_convert.h"
#include "plot/screens/output_screen.h"

namespace norvo::gui {

QLineEdit* AddInputRow(QFormLayout* form, const QString& caption, const char* objectName) {
    auto* box = new QLineEdit(form->parentWidget());
    box->setObjectName(objectName);
    box->setMaximumWidth(120);
    form->addRow(caption, box);
    return box;
}

QLineEdit* AddResultRow(QFormLayout* form, const QString& caption, const char* objectName,
                        const QString& unit) {
    auto* box = new QLineEdit(form->parentWidget());
    box->setObjectName(objectName);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setMaximumWidth(120);
    if (unit.isEmpty()) {
        form->addRow(caption, box);
    } else {
        auto* row = new QHBoxLayout;
        row->addWidget(box);
        row->addWidget(new QLabel(unit, form->parentWidget()));
        row->addStretch();
        form->addRow(caption, row);
    }
    return box;
}

QPushButton* MakeButton(const QString& caption, const char* objectName, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(objectName);
    return b;
}

float BoxValue(const QLineEdit* box) {
    return TextToSingle(box->text().trimmed().toStdString());
}

bool AcceptStatus(DialogService& dialogs, const CalcStatus& status) {
    if (status.ok) return true;
    dialogs.notify({status.message, status.title, Buttons::Ok, Icon::Warning});
    return false;
}

void PrintCalculatorReport(ShellContext& ctx, const ReportDescriptor& report) {
    ChartCanvas canvas;
    DrawResultCard(canvas, report);
    PrintReport(report, canvas, ctx.dialogs, ctx.printer);
}

void CloseScreen(QWidget* screen) {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(screen->parentWidget())) {
        sub->close();
    } else {
        screen->close();
    }
}

}  // namespace norvo::gui
