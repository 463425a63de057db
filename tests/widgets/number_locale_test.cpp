#include "widgets/number_locale.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QLocale>

#include "numerics/text_convert.h"
#include "widgets/number_box.h"

namespace norvo::gui {
namespace {

// One call puts boxes, conversions and Qt's formatting in the same locale, so a box shows what
// it reads back; the German locale comes from Qt's own data and needs no system locale.
TEST(NumberLocale, BoxesAndConversionsFollowOneLocale) {
    const QLocale before;
    UseNumberLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(DecimalSeparator(), ',');
    EXPECT_EQ(QLocale().toString(0.5, 'f', 1), "0,5");
    QLineEdit box;
    SetBoxNumber(&box, 39.375, "0.00");
    EXPECT_EQ(box.text(), "39,38");
    EXPECT_EQ(BoxNumber(&box), 39.38);
    EXPECT_FLOAT_EQ(BoxSingle(&box), 39.38f);
    box.setText("37.50");
    EXPECT_FALSE(BoxNumber(&box));

    UseNumberLocale(QLocale::c());
    EXPECT_EQ(DecimalSeparator(), '.');
    SetBoxNumber(&box, 0.5, "0.00");
    EXPECT_EQ(box.text(), "0.50");
    UseNumberLocale(before);
}

}  // namespace
}  // namespace norvo::gui
