// The calculator screens driven offscreen: values typed into the boxes, Compute, the read-outs
// and the notices; the screens and norvo-cli show the same figures.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include "base/error_report.h"
#include "growth/screens/frm_phi_prime.h"
#include "mortality/screens/frm_ault_erh.h"
#include "mortality/screens/frm_bh_mort.h"
#include "mortality/screens/frm_hoenig.h"
#include "mortality/screens/frm_munro2.h"
#include "mortality/screens/frm_pauly_m.h"
#include "mortality/screens/frm_rik_efa.h"
#include "support/locale_text.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/shell_context.h"

namespace norvo::gui {
namespace {

struct Fixture : ::testing::Test {
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, {}};

    static void Type(QLineEdit* box, const QString& text) {
        box->clear();
        QTest::keyClicks(box, text);
    }
};

using CalcScreens = Fixture;

TEST_F(CalcScreens, BevertonHoltShowsZAndRefusesWithTheNotice) {
    FrmBhMort f(ctx);
    EXPECT_EQ(f.windowTitle(), "Beverton & Holt...");
    Type(f.boxes.txtLoo, "50");
    Type(f.boxes.txtK, test::Local("0.5"));
    Type(f.boxes.txtLmean, "30");
    Type(f.boxes.txtLc, "20");
    QTest::mouseClick(f.cmdComputeButton, Qt::LeftButton);
    EXPECT_EQ(f.txtZ->text(), test::Local("1.000"));
    EXPECT_TRUE(dialogs.shown.empty());

    Type(f.boxes.txtLc, "31");
    f.cmdCompute();
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Invalid Input");
    EXPECT_EQ(dialogs.last().text,
              "Entry for L' exceeds limits (0.25 to 9999) or greater than Lmean. Please check "
              "entry.");
    EXPECT_EQ(f.txtZ->text(), test::Local("1.000"));  // nothing computed
}

TEST_F(CalcScreens, ScreenAndCommandLineGiveTheSameFigures) {
    FrmAultErh f(ctx);
    Type(f.boxes.txtLoo, "50");
    Type(f.boxes.txtK, test::Local("0.5"));
    Type(f.boxes.txtLmean, "30");
    Type(f.boxes.txtLc, "20");
    Type(f.txtLmax, "45");
    f.cmdCompute();
    const auto r = test::RunCli("mortality ault --loo 50 --k 0.5 --lmean 30 --lc 20 --lmax 45");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(test::LocalStd(r.out),
              "Computed total mortality (Z): " + f.txtZ->text().toStdString() +
                  " /year\nExact root of R = T (bisection): " + f.txtRoot->text().toStdString() +
                  " /year\n");
    EXPECT_EQ(f.txtZ->text(), test::Local("0.895"));

    FrmRikEfa rik(ctx);
    Type(rik.txtTm, "22");
    rik.cmdCompute();
    EXPECT_EQ(rik.txtM->text(), test::Local("0.004"));
    EXPECT_EQ(test::RunCli("mortality rikhter --tm 22").out, "M = 0.004 /year\n");
}

TEST_F(CalcScreens, HoenigModelsSelectionAndClearing) {
    FrmHoenig f(ctx);
    Type(f.txtTmax, "20");
    Type(f.txtTc, "2");
    Type(f.txtN, "62");
    f.cmdCompute();
    EXPECT_EQ(dialogs.last().title, "No Selection");
    EXPECT_EQ(dialogs.last().text, "No model was selected to compute Z.");

    f.chkHoenig[0]->setChecked(true);
    f.chkHoenig[1]->setChecked(true);
    QTest::mouseClick(f.cmdComputeButton, Qt::LeftButton);
    EXPECT_EQ(f.txtZ1->text(), test::Local("0.221"));
    EXPECT_EQ(f.txtZ2->text(), test::Local("0.245"));
    EXPECT_EQ(f.txtSe2->text(), test::Local("0.879"));

    f.chkHoenig[1]->setChecked(false);
    EXPECT_TRUE(f.txtZ2->text().isEmpty());
    EXPECT_TRUE(f.txtSe2->text().isEmpty());
    EXPECT_EQ(f.txtZ1->text(), test::Local("0.221"));

    // tc not below tmax: the box names the rule when left, Compute refuses with its own text.
    const size_t before = dialogs.shown.size();
    Type(f.txtTc, "25");
    f.checkTc();
    ASSERT_EQ(dialogs.shown.size(), before + 1);
    EXPECT_EQ(dialogs.last().text, "The value of tc must be smaller than the value of tmax.");
    f.chkHoenig[1]->setChecked(true);
    f.cmdCompute();
    EXPECT_EQ(dialogs.last().title, "Invalid Data");
    EXPECT_EQ(dialogs.last().text,
              "tc must be smaller than tmax. Please adjust the values and try again.");
}

TEST_F(CalcScreens, PaulyFormsChangeTheirTextsAndCompute) {
    FrmPaulyM f(ctx);
    EXPECT_TRUE(f.optPaulyM[0]->isChecked());
    EXPECT_EQ(f.lblSize->text(), "Asymptotic lenth, Loo (cm):");
    EXPECT_EQ(f.lblFormula->text(),
              "log(M) = -0.0066 - 0.279 log(Loo) + 0.6543 log(K) + 0.4634 log(T)");
    Type(f.txtSize, "50");
    Type(f.txtK, test::Local("0.5"));
    Type(f.txtT, "25");
    f.cmdCompute();
    EXPECT_EQ(f.txtM->text(), test::Local("0.933"));

    f.optPaulyM[1]->setChecked(true);
    EXPECT_EQ(f.lblSize->text(), "Asymptotic weight, Woo (g):");
    EXPECT_EQ(f.lblFormula->text(),
              "log(M) = -0.2107 - 0.0824 log(Woo) + 0.6757 log(K) + 0.4687 log(T)");
    EXPECT_EQ(f.lblRemark->text(), "Woo is the asymptotic weight measured in total length");
    EXPECT_TRUE(f.txtM->text().isEmpty());
    Type(f.txtSize, "1000");
    f.cmdCompute();
    EXPECT_EQ(f.txtM->text(), test::Local("0.986"));

    Type(f.txtK, test::Local("10.01"));
    f.cmdCompute();
    EXPECT_EQ(dialogs.last().text, "The K input exceeds limit (10 to 0.01). Please correct input.");
}

// A fault in a command ends in the defect report; the screen keeps what it showed.
TEST_F(CalcScreens, FaultsInTheButtonsEndInTheDefectReport) {
    FrmBhMort bh(ctx);
    Type(bh.boxes.txtLoo, "50");
    Type(bh.boxes.txtK, test::Local("0.5"));
    Type(bh.boxes.txtLmean, "30");
    Type(bh.boxes.txtLc, "30");  // Lmean - L' = 0
    QTest::mouseClick(bh.cmdComputeButton, Qt::LeftButton);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, kDefectTitle);
    EXPECT_TRUE(bh.txtZ->text().isEmpty());

    FrmHoenig h(ctx);
    h.chkHoenig[0]->setChecked(true);
    Type(h.txtTmax, "0");  // ln 0
    QTest::mouseClick(h.cmdPrintButton, Qt::LeftButton);
    ASSERT_EQ(dialogs.shown.size(), 2u);
    EXPECT_EQ(dialogs.last().title, kDefectTitle);
    EXPECT_TRUE(dialogs.printDialogs.empty());
}

TEST_F(CalcScreens, MunroStubSaysNotAvailableAndKeepsItsTabs) {
    FrmMunro2 f(ctx);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Not Available");
    EXPECT_EQ(f.windowTitle(), "M from Selection Data...");
    ASSERT_EQ(f.tabs->count(), 5);
    EXPECT_EQ(f.tabs->tabText(2), "&Selection from C&ommercial Gear");
}

TEST_F(CalcScreens, PhiPrimeLeavesTheMissingIndexEmptyAndRelabelsCompute) {
    FrmPhiPrime f(ctx);
    EXPECT_EQ(f.cmdComputeButton->text(), "C&ompute");
    Type(f.txtLoo, "50");
    Type(f.txtK, test::Local("0.5"));
    QTest::mouseClick(f.cmdComputeButton, Qt::LeftButton);
    EXPECT_EQ(f.txtPhiPrime->text(), test::Local("3.097"));
    EXPECT_TRUE(f.txtPhi->text().isEmpty());
    EXPECT_EQ(f.cmdComputeButton->text(), "&Re-compute");
    EXPECT_EQ(test::RunCli("phi --k 0.5 --loo 50").out, "phi' = 3.097\nphi  = \n");
}

}  // namespace
}  // namespace norvo::gui
