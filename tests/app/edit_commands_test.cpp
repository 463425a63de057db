#include "app/edit_commands.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(EditCommands, TableRowsByToken) {
    const auto none = EditCommandsFor("NoActiveForm");
    ASSERT_TRUE(none);
    EXPECT_EQ(*none, EditCommandState{});

    const auto lfq = EditCommandsFor("LFQ");
    ASSERT_TRUE(lfq);
    EXPECT_TRUE(lfq->close && lfq->save && lfq->cut && lfq->copy && lfq->paste);
    EXPECT_TRUE(lfq->insertRow && lfq->insertColumn && lfq->deleteRow && lfq->deleteColumn);
    EXPECT_TRUE(lfq->toolbarSave);

    for (const char* k : {"ULF", "VLF", "VAL", "LAA", "GIN", "CAA", "MSD", "PRB"}) {
        SCOPED_TRACE(k);
        const auto s = EditCommandsFor(k);
        ASSERT_TRUE(s);
        EXPECT_TRUE(s->close && s->save && s->cut && s->copy && s->paste && s->toolbarSave);
        EXPECT_TRUE(s->insertRow && s->deleteRow);
        EXPECT_FALSE(s->insertColumn || s->deleteColumn);
    }
    // Table-like kinds: everything off except the toolbar's Save.
    for (const char* k : {"XYF", "SPC", "FLT", "SCE"}) {
        SCOPED_TRACE(k);
        EditCommandState expected;
        expected.toolbarSave = true;
        EXPECT_EQ(EditCommandsFor(k), expected);
    }
}

TEST(EditCommands, UnknownTokensLeaveCommandsUnchanged) {
    EXPECT_FALSE(EditCommandsFor("WithFile"));
    EXPECT_FALSE(EditCommandsFor("lfq"));  // tokens are upper case
    EXPECT_FALSE(EditCommandsFor("TXT"));
    EXPECT_FALSE(EditCommandsFor(""));
}

TEST(EditCommands, EditorMenus) {
    const EditorMenuState lfq = EditorMenusFor(true);
    EXPECT_TRUE(lfq.tableInsertColumn && lfq.tableDeleteColumn && lfq.tableSubheader);
    EXPECT_TRUE(lfq.insertColumn && lfq.deleteColumn && lfq.sampleHeader);

    const EditorMenuState other = EditorMenusFor(false);
    EXPECT_TRUE(other.tableInsertRow && other.tableDeleteRow);
    EXPECT_TRUE(other.insertRow && other.deleteRow);
    EXPECT_FALSE(other.tableInsertColumn || other.tableDeleteColumn || other.tableSeparator2 ||
                 other.tableSubheader);
    EXPECT_FALSE(other.insertColumn || other.deleteColumn || other.sampleHeader);
}

}  // namespace
}  // namespace norvo
