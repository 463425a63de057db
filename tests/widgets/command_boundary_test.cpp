#include "widgets/command_boundary.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QWidget>

#include "base/fault.h"
#include "data/data_store.h"
#include "support/scripted_dialogs.h"
#include "widgets/calc_form.h"

namespace norvo::gui {
namespace {

// A dialog service that cannot show anything.
class BrokenDialogs : public ScriptedDialogs {
  public:
    Answer notify(const UserNotice&) override { throw std::runtime_error("no screen"); }
};

void Settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

TEST(CommandBoundary, AFaultEndsTheCommandWithTheDefectReport) {
    ScriptedDialogs dialogs;
    bool after = false;
    EXPECT_FALSE(RunCommand(dialogs, [&] {
        ThrowDivisionByZero();
        after = true;
    }));
    EXPECT_FALSE(after);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.last().title, "Programming Defect...");
    EXPECT_EQ(dialogs.last().icon, Icon::Critical);
    EXPECT_EQ(dialogs.last().text,
              "Programming defect detected. Division by zero (Source:Norvo II; Number:11). "
              "Please notify the developer: the Norvo II development team. ");

    EXPECT_FALSE(RunCommand(dialogs, [] { throw SubscriptFault("frmLmax"); }));
    EXPECT_EQ(dialogs.last().text,
              "Programming defect detected. Subscript out of range (Source:frmLmax; Number:9). "
              "Please notify the developer: the Norvo II development team. ");
    EXPECT_FALSE(RunCommand(dialogs, [] { throw std::logic_error("bad state"); }));
    EXPECT_NE(dialogs.last().text.find("bad state (Source:Norvo II; Number:51)"),
              std::string::npos);
    EXPECT_FALSE(RunCommand(dialogs, [] { throw 7; }));
    EXPECT_NE(dialogs.last().text.find("Internal error (Source:Norvo II; Number:51)"),
              std::string::npos);

    EXPECT_TRUE(RunCommand(dialogs, [] {}));
    EXPECT_EQ(dialogs.shown.size(), 4u);
}

TEST(CommandBoundary, AStoreErrorSaysWhetherASaveOrAReadFailed) {
    ScriptedDialogs dialogs;
    EXPECT_FALSE(RunCommand(dialogs, [] {
        const StoreSaving saving;
        throw StoreError("disk full");
    }));
    EXPECT_EQ(dialogs.last().text, "File Save Error. File not saved!");
    EXPECT_EQ(dialogs.last().title, "Norvo II");
    EXPECT_EQ(dialogs.last().icon, Icon::Warning);

    EXPECT_FALSE(RunCommand(dialogs, [] { throw StoreError("not a store"); }));
    EXPECT_EQ(dialogs.last().text,
              "The file is corrupted or has the wrong data format. Please check and try again.");
    EXPECT_EQ(dialogs.last().title, "Invalid Data");
    EXPECT_EQ(dialogs.shown.size(), 2u);
}

TEST(CommandBoundary, AReportThatCannotBeShownGoesNoFurther) {
    BrokenDialogs broken;
    EXPECT_FALSE(RunCommand(broken, [] { ThrowOverflow(); }));
    EXPECT_NO_THROW(ShowFailureNotice(nullptr, {"text", "title"}));
}

TEST(CommandBoundary, GuardedHandlersTakeTheSignalsArguments) {
    ScriptedDialogs dialogs;
    int seen = 0;
    auto handler = Guarded(dialogs, [&seen](int v, const QString& s) {
        seen = v + static_cast<int>(s.size());
        if (v < 0) ThrowInvalidCall();
    });
    handler(3, "ab");
    EXPECT_EQ(seen, 5);
    EXPECT_TRUE(dialogs.shown.empty());
    handler(-1, "");
    EXPECT_EQ(dialogs.last().title, "Programming Defect...");

    int calls = 0;
    auto counting = Guarded(dialogs, [calls]() mutable { return ++calls; });
    counting();
    counting();
    EXPECT_EQ(dialogs.shown.size(), 1u);
}

TEST(CommandBoundary, ReportsOfWidgetsWithoutDialogsWaitForTheEventLoopAndComeOnce) {
    ScriptedDialogs program;
    SetProgramDialogs(&program);
    EXPECT_FALSE(RunPainting([] { ThrowOverflow(); }));
    EXPECT_FALSE(RunPainting([] { ThrowOverflow(); }));  // the same report is waiting already
    EXPECT_TRUE(program.shown.empty());
    Settle();
    ASSERT_EQ(program.shown.size(), 1u);
    EXPECT_EQ(program.last().title, "Programming Defect...");

    EXPECT_FALSE(RunCommand([] { ThrowDivisionByZero(); }));  // at once
    EXPECT_EQ(program.shown.size(), 2u);
    SetProgramDialogs(nullptr);
    EXPECT_FALSE(RunCommand([] { ThrowDivisionByZero(); }));  // to the error stream
}

TEST(CommandBoundary, CalculatorButtonsRunThroughTheBoundary) {
    ScriptedDialogs dialogs;
    QWidget owner;
    int printed = 0;
    const CalcButtons b = AddCalcButtons(
        &owner, dialogs, [] { ThrowDivisionByZero(); }, [&printed] { ++printed; });
    owner.setLayout(b.row);  // the screen's layout owns the row
    b.compute->click();
    EXPECT_EQ(dialogs.last().title, "Programming Defect...");
    b.print->click();
    EXPECT_EQ(printed, 1);
    EXPECT_EQ(dialogs.shown.size(), 1u);
}

}  // namespace
}  // namespace norvo::gui
