#pragma once
// Numbers as the user types and reads them in the locale the tests run in: "0.5" is "0,5" where
// the decimal separator is a comma, so that one test serves every locale.
#include <QString>
#include <string>

#include "numerics/text_convert.h"

namespace norvo::test {

inline QString Local(const QString& text) {
    return QString(text).replace(QChar('.'), QChar(DecimalSeparator()));
}

inline QString Local(const char* text) {
    return Local(QString::fromLatin1(text));
}

inline std::string LocalStd(const std::string& text) {
    return Local(QString::fromStdString(text)).toStdString();
}

}  // namespace norvo::test
