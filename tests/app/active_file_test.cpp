#include "app/active_file.h"

#include <gtest/gtest.h>

#include "support/scripted_dialogs.h"

namespace norvo {
namespace {

TEST(ActiveFile, RightmostThreeCharactersUpperCased) {
    EXPECT_EQ(RightmostThreeUpper("/data/Catch.lfq"), "LFQ");
    EXPECT_EQ(RightmostThreeUpper("C.Lfq"), "LFQ");
    EXPECT_EQ(RightmostThreeUpper("No Active File"), "ILE");
    EXPECT_EQ(RightmostThreeUpper("ab"), "AB");
    EXPECT_EQ(RightmostThreeUpper(""), "");
    // The kind is only the tail: a longer extension is read by its last three characters.
    EXPECT_EQ(RightmostThreeUpper("/x/sample.xlfq"), "LFQ");
}

TEST(ActiveFile, ServesOnlyTheKindOfTheStoredPath) {
    MemorySettingsStore s;
    ActiveFileSet active(s);
    EXPECT_EQ(active.path(), "No Active File");  // never stored: the reader's default
    EXPECT_FALSE(active.serves("LFQ"));
    EXPECT_FALSE(active.serves("ILE"));  // the "No Active File" text is never a file

    active.setActive("/tmp/a.laa");
    EXPECT_EQ(s.get("Norvo", "RunTime", "LastActive", ""), "/tmp/a.laa");
    EXPECT_TRUE(active.serves("LAA"));
    EXPECT_FALSE(active.serves("LFQ"));

    active.setActive("fq");  // shorter than three characters: never matches
    EXPECT_FALSE(active.serves("FQ"));
    EXPECT_FALSE(active.serves("LFQ"));

    active.reset();
    EXPECT_EQ(active.path(), "No Active File");
    // The run-time key lives under "Norvo", never under the program's title.
    EXPECT_FALSE(s.contains("Norvo II", "RunTime", "LastActive"));
}

TEST(ActiveFile, GatePassesSilentlyOnAMatchAndAsksOtherwise) {
    MemorySettingsStore s;
    ScriptedDialogs d;
    ActiveFileSet(s).setActive("/w/b.LFQ");
    EXPECT_TRUE(GateCheck(s, d, "LFQ", "Invalid Data", "text"));
    EXPECT_TRUE(d.shown.empty());

    // An editor of another kind in front: the question is asked; No ends, Yes goes on.
    ActiveFileSet(s).setActive("/w/b.laa");
    d.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(GateCheck(s, d, "LFQ", "Invalid Data", "text"));
    EXPECT_TRUE(GateCheck(s, d, "LFQ", "Invalid Data", "text"));
    ASSERT_EQ(d.shown.size(), 2u);
    EXPECT_EQ(d.shown[0].title, "Invalid Data");
    EXPECT_EQ(d.shown[0].text, "text");
    EXPECT_EQ(d.shown[0].buttons, Buttons::YesNo);
    EXPECT_EQ(d.shown[0].icon, Icon::Warning);
}

}  // namespace
}  // namespace norvo
