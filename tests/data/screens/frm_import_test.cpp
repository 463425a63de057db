#include "data/screens/frm_import.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <filesystem>
#include <fstream>

#include "data/dos_import.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"
#include "widgets/data_grid.h"

namespace norvo::gui {
namespace {

class FrmImportTest : public ::testing::Test {
  protected:
    test::TempDir dir;
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;
    ShellContext ctx{session, settings, dialogs, QString::fromStdString(test::BinDir().string())};
    FrmImport form{ctx};

    std::string text(const std::string& name, const std::string& content) {
        const std::string path = dir.file(name);
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
};

TEST_F(FrmImportTest, TwoSamplesFillTheGridAndTheFile) {
    form.sourceBox()->setText(QString::fromStdString(
        text("old.dat", "Sp\nId\nmm\n2\n0.5 10 12\n2 10 1 2 99\n3\n4\n3 10.5 6 7 100\n1\n2\n3\n")));
    const std::string out = dir.file("new.lfq");
    form.destinationBox()->setText(QString::fromStdString(out));
    EXPECT_EQ(form.cancelButton()->text(), "&Cancel");
    form.importButton()->click();
    EXPECT_EQ(dialogs.last().title, "Importing Done");
    EXPECT_EQ(dialogs.last().text, "Import completed successfully.");
    EXPECT_EQ(form.cancelButton()->text(), "&Close");
    DataGrid* g = form.grid();
    ASSERT_EQ(g->maxRows(), 5);
    ASSERT_EQ(g->maxCols(), 2);
    EXPECT_EQ(g->colHeading(0), "02/01/1999");
    EXPECT_EQ(g->colHeading(1), "07/06/2000");
    EXPECT_EQ(g->rowHeading(4), "12.00");
    EXPECT_EQ(g->value(1, 0), 4.0);
    EXPECT_TRUE(g->isBlank(0, 1));
    EXPECT_EQ(g->value(3, 1), 3.0);
    EXPECT_TRUE(std::filesystem::exists(out));
}

TEST_F(FrmImportTest, FailuresLeaveNoFileBehind) {
    form.importButton()->click();
    EXPECT_EQ(dialogs.last().title, "Invalid Action");
    EXPECT_EQ(dialogs.last().text, "Please complete the inputs before proceeding.");

    form.sourceBox()->setText(
        QString::fromStdString(text("bad.dat", "Sp\nId\ncm\n1\n1 10 12\n2 10 1 2 99\n3\n")));
    const std::string out = dir.file("new.lfq");
    form.destinationBox()->setText(QString::fromStdString(out));
    form.importButton()->click();
    EXPECT_EQ(dialogs.last().title, "Invalid Data");
    EXPECT_EQ(dialogs.last().text,
              "The source file is either missing or has invalid format. Import of data failed.");
    EXPECT_EQ(form.cancelButton()->text(), "&Cancel");
    for (const auto& entry : std::filesystem::directory_iterator(dir.path()))
        EXPECT_EQ(entry.path().extension(), ".dat") << entry.path();
}

}  // namespace
}  // namespace norvo::gui
