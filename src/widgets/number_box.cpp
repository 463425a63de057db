#include "widgets/number_box.h"

#include <QComboBox>
#include <QLineEdit>
#include <limits>
#include <string>

#include "base/checked.h"
#include "base/fault.h"
#include "base/format.h"
#include "numerics/text_convert.h"

namespace norvo::gui {

std::optional<double> ParseBoxText(const QString& text) {
    const std::string t = text.trimmed().toStdString();
    if (t.empty()) return 0.0;
    double v = 0;
    try {
        if (!ParseNumber(t, v)) return std::nullopt;
    } catch (const ArithmeticFault&) {
        return std::nullopt;  // beyond the range of a double: not a number a box can hold
    }
    return v;
}

std::optional<double> BoxNumber(const QLineEdit* box) {
    return ParseBoxText(box->text());
}

std::optional<double> BoxNumber(const QComboBox* box) {
    return ParseBoxText(box->currentText());
}

double NumberOrNaN(const QString& text) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    if (text.trimmed().isEmpty()) return kNaN;
    return ParseBoxText(text).value_or(kNaN);
}

double NumberOrNaN(const QLineEdit* box) {
    return NumberOrNaN(box->text());
}

double BoxDouble(const QLineEdit* box) {
    return TextToDouble(box->text().trimmed().toStdString());
}

float BoxSingle(const QLineEdit* box) {
    return TextToSingle(box->text().trimmed().toStdString());
}

float BoxSingle(const QComboBox* box) {
    return TextToSingle(box->currentText().trimmed().toStdString());
}

QString NumberText(double value, std::string_view pattern) {
    return QString::fromStdString(FormatLocal(value, pattern, DecimalSeparator()));
}

void SetBoxNumber(QLineEdit* box, double value, std::string_view pattern) {
    box->setText(NumberText(value, pattern));
}

QString SingleText(float value) {
    return QString::number(value, 'g', 7).replace(QChar('.'), QChar(DecimalSeparator()));
}

}  // namespace norvo::gui
