#include "widgets/calc_form.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

#include "mortality/mortality_reports.h"
#include "widgets/command_boundary.h"
#include "widgets/output_screen.h"

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

namespace {

using Runner = std::function<void(const std::function<void()>&)>;

CalcButtons MakeCalcButtons(QWidget* owner, const Runner& run,
                            const std::function<void()>& onCompute,
                            const std::function<void()>& onPrint) {
    CalcButtons b;
    b.compute = MakeButton(kCalcCompute, "cmdCompute", owner);
    QObject::connect(b.compute, &QPushButton::clicked, owner, [run, onCompute] { run(onCompute); });
    if (onPrint) {
        b.print = MakeButton(kCalcPrint, "cmdPrint", owner);
        QObject::connect(b.print, &QPushButton::clicked, owner, [run, onPrint] { run(onPrint); });
    }
    auto* close = MakeButton(kCalcClose, "cmdClose", owner);
    QObject::connect(close, &QPushButton::clicked, owner,
                     [run, owner] { run([owner] { CloseScreen(owner); }); });
    b.row = new QHBoxLayout;
    b.row->addStretch();
    b.row->addWidget(b.compute);
    if (b.print) b.row->addWidget(b.print);
    b.row->addWidget(close);
    return b;
}

}  // namespace

CalcButtons AddCalcButtons(QWidget* owner, DialogService& dialogs,
                           const std::function<void()>& onCompute,
                           const std::function<void()>& onPrint) {
    return MakeCalcButtons(
        owner, [&dialogs](const std::function<void()>& f) { RunCommand(dialogs, f); }, onCompute,
        onPrint);
}

CalcButtons AddCalcButtons(QWidget* owner, const std::function<void()>& onCompute,
                           const std::function<void()>& onPrint) {
    return MakeCalcButtons(
        owner, [](const std::function<void()>& f) { RunCommand(f); }, onCompute, onPrint);
}

void LayOutCalculator(QWidget* owner, std::initializer_list<CalcPart> parts, QLayout* buttonRow) {
    auto* layout = new QVBoxLayout(owner);
    for (const CalcPart& part : parts) {
        if (part.widget) {
            layout->addWidget(part.widget);
        } else {
            layout->addLayout(part.layout);
        }
    }
    layout->addLayout(buttonRow);
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
