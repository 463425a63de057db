#include "widgets/number_locale.h"

#include <QLocale>

#include "numerics/text_convert.h"

namespace norvo::gui {

void UseNumberLocale(const QLocale& locale) {
    QLocale::setDefault(locale);
    const QString point = locale.decimalPoint();
    SetDecimalSeparator(point.size() == 1 ? point.at(0).toLatin1() : '.');
}

}  // namespace norvo::gui
