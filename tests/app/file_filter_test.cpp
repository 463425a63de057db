#include "app/file_filter.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(FileFilter, ClassicFiltersBecomeToolkitFilters) {
    EXPECT_EQ(ToToolkitFilter("Grouped length frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*"),
              "Grouped length frequencies (*.lfq);;All Files (*)");
    EXPECT_EQ(ToToolkitFilter("Pictures|*.bmp;*.png|"), "Pictures (*.bmp *.png)");
    EXPECT_EQ(ToToolkitFilter(""), "");
    const auto rows = ParseFilter("A (*.a)|*.a|lonely");
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].patterns, "*.a");
}

TEST(FileFilter, SaveAsFilterPerKind) {
    EXPECT_EQ(SaveAsFilterFor("LFQ"),
              "Grouped length frequencies (*.lfq)|*.lfq|All Files (*.*)|*.*");
    EXPECT_EQ(SaveAsFilterFor("VLF"),
              "Variable grouping of frequencies (*.vlf)|*.vlf|Grouped frequencies (*.lfq)|*.lfq|"
              "All Files (*.*)|*.*");
    EXPECT_EQ(SaveAsFilterFor("GIN"), "All Files (*.*)|*.*");
    EXPECT_EQ(SaveAsFilterFor(""), "All Files (*.*)|*.*");
    EXPECT_EQ(SaveAsFilterFor("TXT"), "All Files (*.*)|*.*");
}

}  // namespace
}  // namespace norvo
