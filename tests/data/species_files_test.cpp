#include "data/species_files.h"

#include <gtest/gtest.h>

#include "data/data_store.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::DumpTable;
using test::TempDir;

class SpeciesFilesTest : public ::testing::Test {
  protected:
    TempDir dir;
    std::string newFile(const std::string& name) {
        const std::string path = dir.file(name);
        EXPECT_TRUE(CopyTemplate(path, test::BinDir().string()));
        return path;
    }
};

TEST_F(SpeciesFilesTest, SpeciesFileLayoutAndRoundTrip) {
    const std::string path = newFile("a.spc");
    SpeciesData d;
    d.header = {"Nemipterus 'red'", "Remarks", 10, 2, 3, 12345.5, 0.01, 3.1, 0.4, 0.6, 40, 0.5};
    d.classes = {{11, 0.1, 1}, {13, 0.25, 2.5}, {15, 0.6, 3}};
    WriteSpeciesFile(path, d);
    // The layout other analyses read: field order of the tables as stored.
    EXPECT_EQ(DumpTable(path, "F-array"),
              (std::vector<std::string>{"11|0.1|", "13|0.25|", "15|0.6|"}));
    EXPECT_EQ(DumpTable(path, "Value"), (std::vector<std::string>{"11|1|", "13|2.5|", "15|3|"}));
    ASSERT_EQ(DumpTable(path, "Header").size(), 1u);

    const auto r = ReadSpeciesFile(path);
    ASSERT_TRUE(r.ok());
    const SpeciesHeader& h = r->header;
    EXPECT_EQ(h.speciesName, "Nemipterus 'red'");
    EXPECT_EQ(h.lowerLimit, 10);
    EXPECT_EQ(h.classSize, 2);
    EXPECT_EQ(h.noGroups, 3);
    EXPECT_EQ(h.recruit, 12345.5);
    EXPECT_EQ(h.ft, 0.6);
    EXPECT_EQ(h.k, 0.5);
    ASSERT_EQ(r->classes.size(), 3u);
    EXPECT_EQ(r->classes[1].f, 0.25);
    EXPECT_EQ(r->classes[1].value, 2.5);

    // Writing again replaces the tables whole.
    d.classes.resize(1);
    WriteSpeciesFile(path, d);
    EXPECT_EQ(ReadSpeciesFile(path)->classes.size(), 1u);
}

TEST_F(SpeciesFilesTest, ReadersRefuseBrokenFiles) {
    // A template without its header record, a file of another kind, a missing file.
    const auto empty = ReadSpeciesFile(newFile("e.spc"));
    ASSERT_FALSE(empty.ok());
    EXPECT_EQ(empty.error().notice.text, kCorruptedOrWrongFormat);
    EXPECT_EQ(empty.error().notice.title, kInvalidDataTitle);
    EXPECT_FALSE(ReadFleetFile(newFile("x.lfq")).ok());
    EXPECT_FALSE(ReadSpeciesFile(dir.file("none.spc")).ok());
}

TEST_F(SpeciesFilesTest, FleetRoundTrip) {
    const std::string path = newFile("a.flt");
    WriteFleetFile(path, {"", "Trawlers", "Two vessels"});
    const auto r = ReadFleetFile(path);
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r->fleetName, "Trawlers");
    EXPECT_EQ(r->remarks, "Two vessels");
}

TEST_F(SpeciesFilesTest, ScenarioHeaderPlaceholdersAndMembers) {
    const std::string path = newFile("a.sce");
    SaveScenarioHeader(path, "", "");
    auto r = ReadScenarioFile(path);
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r->title, kNoTitle);
    EXPECT_EQ(r->remarks, kNoRemarks);

    const std::vector<ScenarioMember> species = {{"O'Brien's bream", "/d/b.spc"}, {"Cod", "/c"}};
    const std::vector<ScenarioMember> fleets = {{"Trawl", "/t.flt"}};
    SaveScenarioMembers(path, species, fleets);
    r = ReadScenarioFile(path);
    EXPECT_EQ(r->species, species);
    EXPECT_EQ(r->fleets, fleets);
    EXPECT_EQ(MemberLabel(species[0]), "O'Brien's bream (/d/b.spc)");
    EXPECT_EQ(MemberKey(MemberLabel(species[0])), "O'Brien's bream");
}

TEST_F(SpeciesFilesTest, QueriesQuoteNamesWithApostrophes) {
    EXPECT_EQ(QuoteText("O'Brien"), "'O''Brien'");
    EXPECT_EQ(SelectionQuery("F'1", "S"),
              "SELECT * FROM [Selection] WHERE [Fleet]='F''1' AND [Species]='S'");
    EXPECT_EQ(CatchesQuery("F", "S", true),
              "SELECT * FROM [Catches] WHERE [Species]='S' AND [Fleet]='F'");

    const std::string path = newFile("a.sce");
    const std::string sp = "O'Brien's bream", fl = "Hook 'n' line";
    ASSERT_TRUE(SaveSelection(path, {fl, sp, 10, 12, 20, 25}).ok());
    ASSERT_TRUE(SaveSelection(path, {fl, "Cod", 1, 2, 3, 4}).ok());
    // Saving again replaces the combination's record.
    ASSERT_TRUE(SaveSelection(path, {fl, sp, 11, 12, 20, 25}).ok());
    const auto sel = ReadSelection(path, fl, sp);
    ASSERT_TRUE(sel.has_value());
    EXPECT_EQ(sel->l50, 11);
    EXPECT_EQ(DumpTable(path, "Selection").size(), 2u);
    EXPECT_FALSE(ReadSelection(path, "Trawl", sp).has_value());

    SaveCatches(path, fl, sp, {{11, 5}, {13, 7.5}});
    SaveCatches(path, fl, "Cod", {{1, 1}});
    SaveCatches(path, fl, sp, {{11, 6}, {13, 8}, {15, 9}});
    const auto catches = ReadCatches(path, fl, sp);
    ASSERT_EQ(catches.size(), 3u);
    EXPECT_EQ(catches[2].catchIndex, 9);

    // Removing a species takes its selection and catches with it; the others stay.
    SaveScenarioMembers(path, {{sp, "/b.spc"}, {"Cod", "/c.spc"}}, {{fl, "/f.flt"}});
    RemoveScenarioSpecies(path, sp);
    EXPECT_EQ(ReadScenarioFile(path)->species.size(), 1u);
    EXPECT_FALSE(ReadSelection(path, fl, sp).has_value());
    EXPECT_TRUE(ReadCatches(path, fl, sp).empty());
    EXPECT_EQ(ReadCatches(path, fl, "Cod").size(), 1u);
    RemoveScenarioFleet(path, fl);
    EXPECT_TRUE(ReadScenarioFile(path)->fleets.empty());
    EXPECT_TRUE(DumpTable(path, "Selection").empty());
    EXPECT_TRUE(DumpTable(path, "Catches").empty());
}

TEST_F(SpeciesFilesTest, SelectionChecksInOrderAndWriteNothing) {
    const std::string path = newFile("a.sce");
    auto refusal = [&](ScenarioSelection row) {
        const Outcome o = SaveSelection(path, row);
        return o.refusal() ? o.refusal()->text : std::string();
    };
    EXPECT_EQ(refusal({"F", "S", 12, 12, 10, 5}), kL50NotBelowL75);
    EXPECT_EQ(refusal({"F", "S", 10, 20, 20, 5}), kL75NotBelowR75);
    EXPECT_EQ(refusal({"F", "S", 10, 12, 20, 20}), kR75NotBelowR50);
    EXPECT_TRUE(DumpTable(path, "Selection").empty());
}

}  // namespace
}  // namespace norvo
