#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/test_paths.h"

namespace norvo {
namespace {

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

TEST(ImportExportCli, CsvToLfqAndBackAgain) {
    test::TempDir dir;
    const std::string csv = dir.file("in.csv");
    std::ofstream(csv) << "Midlength,2004-01-15,20/2/2004\n10,1,0\n12,3,5.5\n14,0,2\n";
    const std::string lfq = dir.file("out.lfq");
    auto r = test::RunCli("import " + csv + " " + lfq + " --species Scomber --unit mm");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    r = test::RunCli("--json info " + lfq);
    EXPECT_NE(r.out.find("Scomber"), std::string::npos);

    const std::string back = dir.file("back.csv");
    r = test::RunCli("export " + lfq + " --csv " + back);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(ReadAll(back), "Midlength,2004-01-15,2004-02-20\n10,1,0\n12,3,5.5\n14,0,2\n");
    const std::string tab = dir.file("back.tab");
    ASSERT_EQ(test::RunCli("export " + lfq + " --tab " + tab).exitCode, 0);
    EXPECT_EQ(ReadAll(tab).substr(0, 10), "Midlength\t");
}

TEST(ImportExportCli, MalformedTableIsRefusedWithItsCell) {
    test::TempDir dir;
    const std::string csv = dir.file("in.csv");
    std::ofstream(csv) << "Midlength,2004-01-15\n10,1\n12,x\n";
    const std::string lfq = dir.file("out.lfq");
    const auto r = test::RunCli("import " + csv + " " + lfq + " --species S");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("Row 3, column 2"), std::string::npos) << r.err;
    EXPECT_FALSE(std::filesystem::exists(lfq));
    EXPECT_NE(test::RunCli("export " + csv + " " + dir.file("x.csv")).exitCode, 0);
}

TEST(ImportExportCli, OldTextFile) {
    test::TempDir dir;
    const std::string txt = dir.file("old.txt");
    std::ofstream(txt) << "Sp\nId\ncm\n1\n1 10 11\n2 10 1 2 95\n3\n4\n";
    const std::string lfq = dir.file("o.lfq");
    auto r = test::RunCli("import-dos " + txt + " " + lfq);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    std::ofstream(txt) << "garbage\n";
    r = test::RunCli("import-dos " + txt + " " + dir.file("p.lfq"));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_FALSE(std::filesystem::exists(dir.file("p.lfq")));
}

}  // namespace
}  // namespace norvo
