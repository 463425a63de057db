#pragma once
// Building blocks shared by the small calculator screens: labelled input boxes and read-outs in
// a form layout, the button row, the printed page. Numbers go in and out through
// widgets/number_box.h; a result's notices are shown with ShowNotices (base/outcome.h).
#include <QString>

#include <functional>
#include <initializer_list>

#include "base/user_notice.h"
#include "chart/report.h"
#include "widgets/number_box.h"
#include "widgets/shell_context.h"

class QFormLayout;
class QHBoxLayout;
class QLayout;
class QLineEdit;
class QPushButton;
class QWidget;

namespace norvo::gui {

inline constexpr const char* kCalcCompute = "C&ompute";
inline constexpr const char* kCalcRecompute = "&Re-compute";
inline constexpr const char* kCalcPrint = "&Print";
inline constexpr const char* kCalcClose = "&Close";

// An input box with its caption; the box gets `objectName`.
QLineEdit* AddInputRow(QFormLayout* form, const QString& caption, const char* objectName);
// A read-only result box with its caption and, when given, a unit label after it.
QLineEdit* AddResultRow(QFormLayout* form, const QString& caption, const char* objectName,
                        const QString& unit = {});
QPushButton* MakeButton(const QString& caption, const char* objectName, QWidget* parent);

// A calculator's "cmdCompute", "cmdPrint" and "cmdClose" buttons, right-aligned in `row`.
struct CalcButtons {
    QPushButton* compute = nullptr;
    QPushButton* print = nullptr;  // null when the screen prints nothing
    QHBoxLayout* row = nullptr;
};
// Makes the buttons on `owner`: Compute and Print call back, Close closes the screen. Without a
// print callback there is no Print button. Each button runs through the command boundary and
// reports to `dialogs`.
CalcButtons AddCalcButtons(QWidget* owner, DialogService& dialogs,
                           const std::function<void()>& onCompute,
                           const std::function<void()>& onPrint = {});
// The same, reporting to the program's dialogs.
CalcButtons AddCalcButtons(QWidget* owner, const std::function<void()>& onCompute,
                           const std::function<void()>& onPrint = {});

// One part of a calculator's column: a widget or a nested layout.
struct CalcPart {
    CalcPart(QWidget* w) : widget(w) {}
    CalcPart(QLayout* l) : layout(l) {}
    QWidget* widget = nullptr;
    QLayout* layout = nullptr;
};
// Stacks the parts top to bottom as the owner's layout, the button row last.
void LayOutCalculator(QWidget* owner, std::initializer_list<CalcPart> parts, QLayout* buttonRow);

// BoxSingle under the name the calculator screens first used.
inline float BoxValue(const QLineEdit* box) {
    return BoxSingle(box);
}

// Prints a calculator's page (its formula and results as the picture) through the output
// screen: the printer dialogue, then printing or saving the picture.
void PrintCalculatorReport(ShellContext& ctx, const ReportDescriptor& report);

// Closes the screen's sub-window when it has one, else the screen itself.
void CloseScreen(QWidget* screen);

}  // namespace norvo::gui
