#pragma once
// The locale numbers are read and shown in, set once for the whole program.
class QLocale;

namespace norvo::gui {

// Makes `locale` the one numbers are read and shown in: Qt's default locale (grids, number
// formatting) and the decimal separator of the conversions, which would otherwise follow the C
// library's locale and disagree with Qt's when the system lacks the user's locale.
void UseNumberLocale(const QLocale& locale);

}  // namespace norvo::gui
