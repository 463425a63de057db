#include "modal/linking.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/sample_readers.h"
#include "support/lfq_fixtures.h"
#include "support/scripted_dialogs.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

MsdRow At(int day, int month, int year, float length) {
    return {day, month, year, length, 1, 0};
}

TEST(Linking, LinksGoForwardOnlyByTheThirtyDayMonthKey) {
    LinkState s;
    s.points = {At(31, 1, 2001, 10), At(1, 2, 2001, 12), At(1, 3, 2001, 14), At(1, 3, 2001, 20)};
    EXPECT_TRUE(ClickPoint(s, 1).ok());
    // 31 January and 1 February weigh the same: refused, the series stays on point 1.
    const Outcome o = ClickPoint(s, 2);
    ASSERT_FALSE(o.ok());
    EXPECT_EQ(o.refusal()->title, "Invalid Action...");
    EXPECT_EQ(o.refusal()->text, "Linking of means to earlier or equal dates is not allowed.");
    EXPECT_EQ(s.open, 1);
    EXPECT_TRUE(ClickPoint(s, 3).ok());
    EXPECT_FALSE(ClickPoint(s, 4).ok());  // same date
    ASSERT_EQ(s.links.size(), 1u);
    EXPECT_EQ(s.links[0].gin(), (GinRow{0, 31, 1, 2001, 10, 1, 3, 2001, 14}));
    BreakSeries(s);
    EXPECT_EQ(s.open, 0);
    ConnectFromPrevious(s);
    EXPECT_EQ(s.open, 3);
}

TEST(Linking, SeriesFromPointLists) {
    const std::vector<MsdRow> pts = {At(1, 1, 2001, 10), At(1, 1, 2001, 20), At(1, 4, 2001, 15),
                                     At(1, 4, 2001, 24), At(1, 7, 2001, 19)};
    const LinkingRun run = LinkSeries(pts, {{1, 2, 3, 5}, {2, 4}});
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(run.refused, (std::vector<std::pair<int, int>>{{1, 2}}));
    EXPECT_EQ(run.state.linked, (std::vector<std::pair<int, int>>{{1, 3}, {3, 5}, {2, 4}}));
    EXPECT_EQ(run.notices.size(), 1u);
    EXPECT_EQ(LinkSeries(pts, {{1, 6}}).refusal()->text,
              "There is no point 6 in the file; the points run from 1 to 5.");
}

TEST(Linking, GrowthFromCalendarDaysWithLeapDays) {
    // 1 Feb to 1 Mar 2004 is 29 days.
    const std::vector<LinkRow> one = {{1, 2, 2004, 10, 1, 3, 2004, 11}};
    const LinkGrowth g1 = ComputeLinkGrowth(one);
    EXPECT_DOUBLE_EQ(g1.dt[0], 29 / 365.0);
    EXPECT_FLOAT_EQ(g1.rate[0], static_cast<float>(365 / 29.0));
    EXPECT_FALSE(g1.possible());  // one row
    EXPECT_EQ(g1.k, -9999);

    // Rate 20 at mean 20 and 5 at mean 35: rate = 40 - 1 * mean, Loo 40, K 1.
    const std::vector<LinkRow> two = {{1, 1, 2001, 10, 1, 1, 2002, 30},
                                      {1, 1, 2002, 30, 1, 1, 2004, 40}};
    const LinkGrowth g = ComputeLinkGrowth(two);
    ASSERT_TRUE(g.possible());
    EXPECT_FLOAT_EQ(g.loo, 40);
    EXPECT_FLOAT_EQ(g.k, 1);
    // Rates rising with length: impossible.
    const std::vector<LinkRow> rising = {{1, 1, 2001, 15, 1, 1, 2002, 20},
                                         {1, 1, 2002, 25, 1, 1, 2003, 35}};
    const LinkGrowth r = ComputeLinkGrowth(rising);
    EXPECT_EQ(r.loo, -9999);
    EXPECT_EQ(r.k, -9999);
    EXPECT_TRUE(LinkAges(rising, r)[0] == std::nullopt);
}

TEST(Linking, AgesKeepOneTimeLinePerSeriesAndDropRowsAtLoo) {
    const std::vector<LinkRow> links = {{1, 1, 2001, 15, 1, 1, 2002, 25},
                                        {1, 1, 2002, 25, 1, 1, 2003, 35},
                                        {1, 1, 2001, 41, 1, 1, 2002, 42},
                                        {1, 1, 2002, 20, 2, 7, 2002, 24}};
    LinkGrowth g;
    g.loo = 40;
    g.k = 1;
    g.dt = {1, 1, 1, 0.5};
    const auto ages = LinkAges(links, g);
    ASSERT_TRUE(ages[0] && ages[1] && ages[3]);
    EXPECT_FLOAT_EQ(ages[0]->first.age, static_cast<float>(-std::log(1 - 15 / 40.0)));
    EXPECT_FLOAT_EQ(ages[0]->second.age, ages[0]->first.age + 1);
    // The second row starts where the first ended: its age is carried, not recomputed.
    EXPECT_FLOAT_EQ(ages[1]->first.age, ages[0]->second.age);
    EXPECT_FALSE(ages[2]);  // starts above Loo
    EXPECT_FLOAT_EQ(ages[3]->first.age, static_cast<float>(-std::log(1 - 20 / 40.0)));
    EXPECT_FLOAT_EQ(ages[3]->second.age, ages[3]->first.age + 0.5f);
}

TEST(Linking, SavesGrowthIncrementsAndLengthsAtAge) {
    test::TempDir dir;
    ScriptedDialogs dialogs;
    LfqData h;
    h.speciesname = "Sardinella";
    h.otherId = "Bay";
    h.unitOfMeasurement = "cm";
    h.remarks = "R";
    const std::vector<LinkRow> links = {{1, 1, 2001, 10, 1, 1, 2002, 30},
                                        {1, 1, 2002, 30, 1, 1, 2004, 40}};
    const std::string program = test::BinDir().string();
    ASSERT_TRUE(SaveLinksAsGin(dir.file("l.gin"), program, h, links, dialogs));
    EXPECT_EQ(dialogs.last().text,
              "The growth increment file " + dir.file("l.gin") + " was successfully created.");
    const auto gin = ReadGIN(dir.file("l.gin"));
    ASSERT_TRUE(gin);
    ASSERT_EQ(gin->rows.size(), 2u);
    EXPECT_EQ(gin->rows[1], links[1].gin());
    EXPECT_EQ(gin->header.remarks, "R; Generated from linking of means");

    const LinkGrowth g = ComputeLinkGrowth(links);
    ASSERT_TRUE(SaveLinksAsLaa(dir.file("l.laa"), program, h, links, g, dialogs));
    const auto laa = ReadLAA(dir.file("l.laa"));
    ASSERT_TRUE(laa);
    ASSERT_EQ(laa->rows.size(), 4u);
    EXPECT_EQ(laa->unitOfAge, "years");
    EXPECT_FLOAT_EQ(laa->rows[2][0], laa->rows[1][0]);
    EXPECT_EQ(laa->rows[3][2], 1);

    // No template, no file.
    EXPECT_FALSE(SaveLinksAsGin(dir.file("m.gin"), dir.path().string(), h, links, dialogs));
    EXPECT_EQ(dialogs.last().title, "File Not Found!");
    EXPECT_FALSE(std::filesystem::exists(dir.file("m.gin")));
}

}  // namespace
}  // namespace norvo
