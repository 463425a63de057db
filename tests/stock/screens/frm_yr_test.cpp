#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <cstdlib>
#include <memory>

#include "base/format.h"
#include "numerics/validators.h"
#include "selection/selection.h"
#include "stock/relative_ypr_knife.h"
#include "stock/screens/frm_yr_knife.h"
#include "stock/screens/frm_yr_selection.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/data_grid.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

// The shell's part: the 2-D screens are made on the first "&2D Analysis" and kept.
struct Fixture {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    std::unique_ptr<Frm2DYRKnife> knife2D;
    std::unique_ptr<Frm2DYRSelection> ogive2D;
    Fixture() {
        ctx.openScreen = [this](const std::string& name) -> QWidget* {
            if (name == "frm2DYRKnife") {
                if (!knife2D) knife2D = std::make_unique<Frm2DYRKnife>(ctx);
                return knife2D.get();
            }
            if (name == "frm2DYRSelection") {
                if (!ogive2D) ogive2D = std::make_unique<Frm2DYRSelection>(ctx);
                return ogive2D.get();
            }
            return nullptr;
        };
    }
};

// Saves a picture of a screen when NORVO_SHOTS names a folder (for looking at the screens).
void Shot(QWidget& w, const char* name) {
    if (const char* dir = std::getenv("NORVO_SHOTS")) {
        w.resize(1000, 640);
        w.show();
        w.grab().save(QString(dir) + "/" + name + ".png");
    }
}

TEST(FrmYRKnife, SurfaceOptionsSpinAndReadouts) {
    Fixture f;
    FrmYRKnife form(f.ctx);
    EXPECT_EQ(form.mkBox()->text(), test::Local("1.00"));
    ASSERT_EQ(form.grid().rows(), 10);
    ASSERT_EQ(form.grid().cols(), 10);
    float e = 0.5f;
    EXPECT_DOUBLE_EQ(form.grid().z[4][5], RelativeYieldKnife(1, 0.5f, e));

    form.option(1)->setChecked(true);
    e = 0.5f;
    EXPECT_DOUBLE_EQ(form.grid().z[4][5], RelativeBiomassKnife(1, 0.5f, e));

    // A point off the surface shows "?"; somewhere down the middle of the picture lies a node.
    form.UpdateFooter(1, 1);
    EXPECT_EQ(form.readout(0)->text(), "?");
    bool hit = false;
    for (double y = 10; y < 95 && !hit; y += 1) {
        form.UpdateFooter(52, y);
        hit = form.readout(0)->text() != "?";
    }
    EXPECT_TRUE(hit);
    EXPECT_NE(form.readout(2)->text(), "?");

    // The spin runs 1 degree a tick and steps from 359 to 1.
    const int start = form.rotation();
    form.spinTick();
    EXPECT_EQ(form.rotation(), start + 1);
    for (int k = form.rotation(); k < 359; ++k) form.spinTick();
    EXPECT_EQ(form.rotation(), 359);
    form.spinTick();
    EXPECT_EQ(form.rotation(), 1);

    // M/K of zero leaves the surface as it was and turns the 2-D command off.
    form.mkBox()->setText("0");
    Q_EMIT form.mkBox()->textEdited("0");
    EXPECT_FALSE(form.command2D()->isEnabled());
    EXPECT_EQ(form.grid().rows(), 10);
    EXPECT_TRUE(f.dialogs.shown.empty());

    form.mkBox()->setText(test::Local("1.00"));
    Q_EMIT form.mkBox()->textEdited(test::Local("1.00"));
    for (int i = 1; i < 4; ++i) form.check(i)->setChecked(true);
    form.option(0)->setChecked(true);
    form.check(2)->setChecked(false);
    for (int k = 0; k < 119; ++k) form.spinTick();
    EXPECT_EQ(form.rotation(), 120);
    Shot(form, "frmYRKnife");
}

TEST(Frm2DYRKnife, OpensAtPointZeroFiveAndForcesItsBoxes) {
    Fixture f;
    FrmYRKnife form(f.ctx);
    form.mkBox()->setText(test::Local("2.00"));
    Q_EMIT form.mkBox()->textEdited(test::Local("2.00"));
    form.command2D()->click();
    ASSERT_TRUE(f.knife2D);
    Frm2DYRKnife& two = *f.knife2D;
    EXPECT_EQ(two.box(0)->text(), test::Local("0.050"));
    EXPECT_EQ(two.box(1)->text(), test::Local("2.000"));
    EXPECT_FLOAT_EQ(two.yPrimeMax(), YPrimeMaxFromSurface(2));
    const KnifeAnalysis a = AnalyseKnife(2, 0.05f);
    EXPECT_EQ(two.box(4)->text(), QString::fromStdString(test::LocalStd(Format(a.eMax, "#0.000"))));

    two.box(0)->setText("x");
    two.leaveRatio();
    ASSERT_EQ(f.dialogs.shown.size(), 1u);
    EXPECT_EQ(f.dialogs.shown[0].text, kInvalidNumber);
    two.box(0)->setText("2");
    two.leaveRatio();
    EXPECT_EQ(two.box(0)->text(), test::Local("0.999"));
    EXPECT_EQ(two.scrollBar()->value(), 999);
    two.scrollBar()->setValue(300);
    EXPECT_EQ(two.box(0)->text(), test::Local("0.300"));
    EXPECT_FLOAT_EQ(two.ratio(), 0.3f);

    // The forced M/K itself goes on: 0.0001 shows as "0.000" but is not zero.
    two.box(1)->setText("0");
    two.leaveMk();
    EXPECT_EQ(two.box(1)->text(), test::Local("0.000"));
    EXPECT_FLOAT_EQ(two.mk(), 0.0001f);
    EXPECT_FLOAT_EQ(two.yPrimeMax(), FindYPrimeMaxKnife(0.0001f));

    // Every opening starts over at 0.05.
    form.command2D()->click();
    EXPECT_EQ(two.box(0)->text(), test::Local("0.050"));
    EXPECT_EQ(f.dialogs.shown.size(), 1u);
    Shot(two, "frm2DYRKnife");
}

TEST(FrmYRSelection, LoadsATableAndHandsItToTheTwoDScreen) {
    Fixture f;
    FrmYRSelection form(f.ctx);
    EXPECT_FALSE(form.command2D()->isEnabled());
    EXPECT_EQ(form.grid().rows(), 0);

    test::TempDir dir;
    const auto path = dir.file("sel.prb");
    SelectionInput in;
    in.probability = {0, 0.02f, 0.1f, 0.3f, 0.6f, 0.8f, 0.95f, 1, 1, 1, 1, 1, 1};
    in.nC = 12;
    in.w = 2;
    in.firstMid = 10;
    SaveProbabilities(path, test::BinDir().string(), {"Sel fish", "x", "cm"}, in);
    f.dialogs.openAnswers.push_back(path);
    form.commandLoad()->click();
    EXPECT_EQ(form.table()->rowCount(), 12);
    EXPECT_EQ(form.selectionBox(0)->text(), test::Local("15.33"));
    EXPECT_EQ(form.selectionBox(1)->text(), test::Local("17.50"));
    EXPECT_EQ(form.looBox()->text(), test::Local("33.60"));
    EXPECT_TRUE(form.command2D()->isEnabled());
    EXPECT_EQ(form.grid().rows(), 20);
    EXPECT_TRUE(f.dialogs.shown.empty());
    Shot(form, "frmYRSelection");

    form.command2D()->click();
    ASSERT_TRUE(f.ogive2D);
    Frm2DYRSelection& two = *f.ogive2D;
    EXPECT_EQ(two.box(0)->text(), test::Local("0.050"));
    EXPECT_EQ(two.looBox()->text(), test::Local("33.60"));
    EXPECT_FALSE(two.box(2)->text().isEmpty());
    two.looBox()->setText("50");
    two.leaveLoo();
    EXPECT_EQ(two.looBox()->text(), test::Local("50.00"));
    two.scrollBar()->setValue(450);
    EXPECT_EQ(two.box(0)->text(), test::Local("0.450"));
    EXPECT_TRUE(f.dialogs.shown.empty());
    Shot(two, "frm2DYRSelection");

    // An L-50 of 0 is refused with a notice before anything divides by it.
    form.selectionBox(0)->setText("0");
    Q_EMIT form.selectionBox(0)->textEdited("0");
    ASSERT_FALSE(f.dialogs.shown.empty());
    EXPECT_EQ(f.dialogs.shown.back().text, kOgiveL50Text);
    EXPECT_EQ(form.grid().rows(), 0);
}

}  // namespace
}  // namespace norvo::gui
