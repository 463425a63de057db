#include "data/lfq_file.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>

#include "base/fault.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

using test::DumpTable;
using test::NewLfq;
using test::SampleOn;
using test::TempDir;

LfqHeader SomeHeader() {
    LfqHeader h;
    h.speciesname = "Leiognathus splendens";
    h.otherId = "Manila Bay";
    h.unitOfMeasurement = "cm";
    h.typeOfMeasurement = "Total length (TL)";
    h.remarks = "trawl survey";
    h.smallestMl = 4.5;
    h.classInterval = 0.5;
    return h;
}

TEST(LfqFile, WrittenFileReadsBackAndRewritesToTheSameStore) {
    TempDir dir;
    const std::string path = NewLfq(dir);
    LfqSample full = SampleOn(1, 5, 1, 1998);
    full.sex = "female";
    full.samplingTime = "06:30";
    full.area = "North";
    full.latitude = "14 30 N";
    full.longitude = "120 50 E";
    full.depth = 12.5f;
    full.bottomType = "Very couse sand";
    full.lwA = 0.0123f;
    full.lwB = 3.01f;
    full.catchType = "landings";
    full.wtSample = 1.25f;
    full.twtSpecies = 30.f;
    full.twtCatch = 400.f;
    full.effort = 7.f;
    full.vessel = "MV Isda";
    full.gearType = "trawl";
    full.meshSize = 2.5f;
    full.gearCharacteristics = "cod-end liner";
    full.remarks = "calm";
    const std::vector<LfqSample> samples = {full, SampleOn(2, 17, 3, 1998),
                                            SampleOn(3, 1, 12, 1999)};
    // 4 classes x 3 samples, with a fraction and zeros.
    const std::vector<std::vector<double>> freq = {
        {1, 0, 3}, {1.5, 2, 0}, {10, 20, 30}, {0, 0, 9999.75}};
    WriteLfqFile(path, SomeHeader(), samples, freq);

    // Measures are stored sample by sample, midlength ascending.
    const auto measures = DumpTable(path, kTableGlfMeasures);
    ASSERT_EQ(measures.size(), 12u);
    EXPECT_EQ(measures[0].substr(0, 6), "1|4.5|");
    EXPECT_EQ(measures[5].substr(0, 6), "2|5|2|");

    const ReadResult<LfqData> read = ReadLFQ(path);
    ASSERT_TRUE(read.ok());
    const LfqData& d = read.value();
    EXPECT_EQ(d.path, path);
    EXPECT_EQ(d.speciesname, "Leiognathus splendens");
    EXPECT_EQ(d.otherId, "Manila Bay");
    EXPECT_EQ(d.typeOfMeasurement, "Total length (TL)");
    EXPECT_EQ(d.remarks, "trawl survey");
    EXPECT_EQ(d.noOfSamples, 3);
    EXPECT_EQ(d.noOfClasses, 4);
    EXPECT_DOUBLE_EQ(d.smallestMl, 4.5);
    EXPECT_DOUBLE_EQ(d.largestMl, 6.0);
    EXPECT_EQ(d.day, (std::vector<int16_t>{5, 17, 1}));
    EXPECT_EQ(d.month, (std::vector<int16_t>{1, 3, 12}));
    EXPECT_EQ(d.year, (std::vector<int16_t>{1998, 1998, 1999}));
    EXPECT_EQ(d.freq, freq);

    const auto back = ReadSampleHeaders(path);
    ASSERT_EQ(back.size(), 3u);
    const LfqSample& b = back[0];
    EXPECT_EQ(b.sex, "female");
    EXPECT_EQ(b.samplingTime, "06:30");
    EXPECT_EQ(b.area, "North");
    EXPECT_EQ(b.latitude, "14 30 N");
    EXPECT_EQ(b.longitude, "120 50 E");
    EXPECT_EQ(b.depth, 12.5f);
    EXPECT_EQ(b.bottomType, "Very couse sand");
    EXPECT_EQ(b.lwA, 0.0123f);
    EXPECT_EQ(b.lwB, 3.01f);
    EXPECT_EQ(b.catchType, "landings");
    EXPECT_EQ(b.wtSample, 1.25f);
    EXPECT_EQ(b.twtSpecies, 30.f);
    EXPECT_EQ(b.twtCatch, 400.f);
    EXPECT_EQ(b.effort, 7.f);
    EXPECT_EQ(b.vessel, "MV Isda");
    EXPECT_EQ(b.gearType, "trawl");
    EXPECT_EQ(b.meshSize, 2.5f);
    EXPECT_EQ(b.gearCharacteristics, "cod-end liner");
    EXPECT_EQ(b.remarks, "calm");
    EXPECT_EQ(back[2].sampleNo, 3);

    // Written again from what was read: the same store, record for record.
    const auto before =
        std::vector{DumpTable(path, kTableGroupedLf), DumpTable(path, kTableSampleLf),
                    DumpTable(path, kTableGlfMeasures)};
    const std::string copy = NewLfq(dir, "b.lfq");
    LfqHeader h = SomeHeader();
    h.smallestMl = d.smallestMl;
    h.classInterval = d.classInterval;
    WriteLfqFile(copy, h, back, d.freq);
    EXPECT_EQ(DumpTable(copy, kTableGroupedLf), before[0]);
    EXPECT_EQ(DumpTable(copy, kTableSampleLf), before[1]);
    EXPECT_EQ(DumpTable(copy, kTableGlfMeasures), before[2]);
}

TEST(LfqFile, UnreadableFilesSetTheFailureFlagWithOneNotice) {
    TempDir dir;
    const std::string noHeader = NewLfq(dir, "empty.lfq");
    const std::string junk = dir.file("junk.lfq");
    std::ofstream(junk) << "not a store at all";
    // Sample_LF promises two samples, but the measures run short.
    const std::string shortMeasures = NewLfq(dir, "short.lfq");
    WriteLfqFile(shortMeasures, SomeHeader(), {SampleOn(1, 1, 1, 2000)}, {{1}, {2}});
    WriteDatesOnly(shortMeasures, {"1/1/2000", "2/2/2000"});

    for (const std::string& path : {noHeader, junk, shortMeasures, dir.file("missing.lfq")}) {
        SCOPED_TRACE(path);
        const ReadResult<LfqData> read = ReadLFQ(path);
        ASSERT_FALSE(read.ok());
        EXPECT_EQ(read.error().path, path);
        EXPECT_EQ(read.error().notice.title, "Invalid Data");
        EXPECT_EQ(read.error().notice.text,
                  "The file is corrupted or has the wrong data format. Please check and try "
                  "again.");
    }
}

TEST(LfqFile, HeaderWithoutMeasuresHasNoClasses) {
    TempDir dir;
    const std::string path = NewLfq(dir);
    WriteLfqHeader(path, SomeHeader());
    const ReadResult<LfqData> read = ReadLFQ(path);
    ASSERT_TRUE(read.ok());
    EXPECT_EQ(read->noOfClasses, 0);
    EXPECT_EQ(read->noOfSamples, 0);
    EXPECT_EQ(read->speciesname, "Leiognathus splendens");

    const ReadResult<LfqHeader> h = ReadLfqHeader(path);
    ASSERT_TRUE(h.ok());
    EXPECT_EQ(h->noOfClasses, 0);
}

TEST(LfqFile, HeaderReaderCountsClassesFromTheLargestMidlength) {
    TempDir dir;
    const std::string path = NewLfq(dir);
    std::vector<std::vector<double>> freq(40, std::vector<double>(2, 1.0));
    WriteLfqFile(path, SomeHeader(), {SampleOn(1, 1, 1, 2000), SampleOn(2, 1, 2, 2000)}, freq);
    const ReadResult<LfqHeader> h = ReadLfqHeader(path);
    ASSERT_TRUE(h.ok());
    EXPECT_EQ(h->path, path);
    EXPECT_EQ(h->noOfClasses, 40);
    EXPECT_EQ(h->noOfSamples, 2);
    EXPECT_DOUBLE_EQ(h->largestMl, 4.5 + 39 * 0.5);
    EXPECT_EQ(h->unitOfMeasurement, "cm");

    const std::string empty = NewLfq(dir, "e.lfq");
    const ReadResult<LfqHeader> none = ReadLfqHeader(empty);
    ASSERT_FALSE(none.ok());
    EXPECT_EQ(none.error().path, empty);
    EXPECT_EQ(none.error().notice.text, "File empty or corrupted. Please check your input");

    const std::string junk = dir.file("junk.lfq");
    std::ofstream(junk) << "not a store at all";
    const ReadResult<LfqHeader> unreadable = ReadLfqHeader(junk);
    ASSERT_FALSE(unreadable.ok());
    EXPECT_EQ(unreadable.error().notice.title, "Invalid Data");
}

// Midlengths are sums of 32-bit values that are not binary fractions: the count of classes must
// not come out one short when the largest midlength lands just below its exact value.
TEST(LfqFile, HeaderReaderCountsClassesForIntervalsThatAreNotBinaryFractions) {
    TempDir dir;
    int pair = 0;
    for (double smallest : {0.3, 0.7, 1.1, 2.3, 10.1, 12.7}) {
        for (double interval : {0.1, 0.2, 0.3, 0.7, 1.3}) {
            const int classes = 30 + pair % 3 * 17;
            LfqHeader header = SomeHeader();
            header.smallestMl = static_cast<float>(smallest);
            header.classInterval = static_cast<float>(interval);
            const std::string path = NewLfq(dir, fmt::format("s{}.lfq", pair++));
            WriteLfqFile(path, header, {SampleOn(1, 1, 1, 2000)},
                         std::vector<std::vector<double>>(classes, {1.0}));
            const ReadResult<LfqHeader> h = ReadLfqHeader(path);
            ASSERT_TRUE(h.ok());
            EXPECT_EQ(h->noOfClasses, classes)
                << "smallest " << smallest << ", interval " << interval;
        }
    }
}

TEST(LfqFile, SheetHasAColumnPerSampleAndTheDatesBySampleNo) {
    TempDir dir;
    const std::string path = NewLfq(dir);
    WriteLfqFile(path, SomeHeader(), {SampleOn(2, 5, 6, 1999)}, {{1, 4}, {2, 5}, {3, 6}});
    const ReadResult<LfqSheet> sheet = ReadLfqSheet(path);
    ASSERT_TRUE(sheet.ok());
    EXPECT_EQ(sheet->header.speciesname, "Leiognathus splendens");
    EXPECT_EQ(sheet->header.classInterval, 0.5);
    EXPECT_EQ(sheet->rows, 3);
    ASSERT_EQ(sheet->columns.size(), 2u);
    EXPECT_EQ(sheet->columns[0][1], 2.0);
    EXPECT_EQ(sheet->columns[1][2], 6.0);
    EXPECT_EQ(sheet->dates, (std::vector<std::string>{"", "5/6/1999"}));  // no sample 1 record
    EXPECT_FALSE(ReadLfqSheet(NewLfq(dir, "e.lfq")).ok());
}

TEST(LfqFile, DatesOnlyReplacesTheSampleHeaders) {
    TempDir dir;
    const std::string path = NewLfq(dir);
    LfqSample old = SampleOn(1, 3, 3, 1990);
    old.area = "gone";
    WriteSampleHeaders(path, {old, SampleOn(2, 4, 4, 1990), SampleOn(3, 5, 5, 1990)});
    WriteDatesOnly(path, {"07/02/1995", "1/12/2005"});
    const auto s = ReadSampleHeaders(path);
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[0].sampleNo, 1);
    EXPECT_EQ(s[0].samplingDay, 7);
    EXPECT_EQ(s[0].samplingMonth, 2);
    EXPECT_EQ(s[0].samplingYear, 1995);
    EXPECT_EQ(s[0].area, "");
    EXPECT_EQ(s[1].samplingYear, 2005);
    EXPECT_THROW(WriteDatesOnly(path, {"7-2-1995"}), ConversionFault);
}

TEST(LfqFile, OneSampleHeaderIsReplacedAddedOrDeletedWithTheLaterOnesMovingDown) {
    TempDir dir;
    const std::string path = NewLfq(dir);
    WriteSampleHeaders(path,
                       {SampleOn(1, 1, 1, 2000), SampleOn(2, 2, 2, 2000), SampleOn(3, 3, 3, 2000)});
    LfqSample second = SampleOn(2, 9, 9, 2009);
    second.area = "North";
    WriteSampleHeader(path, second);
    WriteSampleHeader(path, SampleOn(4, 4, 4, 2004));
    DeleteSampleHeader(path, 1);
    const auto s = ReadSampleHeaders(path);
    ASSERT_EQ(s.size(), 3u);
    EXPECT_EQ(s[0].sampleNo, 1);
    EXPECT_EQ(s[0].samplingDay, 9);
    EXPECT_EQ(s[0].area, "North");
    EXPECT_EQ(s[1].sampleNo, 2);
    EXPECT_EQ(s[1].samplingDay, 3);
    EXPECT_EQ(s[2].sampleNo, 3);
    EXPECT_EQ(s[2].samplingYear, 2004);
}

TEST(LfqFile, SampleDates) {
    EXPECT_EQ(FormatSampleDate(5, 1, 1998), "05/01/1998");
    EXPECT_EQ(FormatSampleDate(31, 12, 950), "31/12/0950");

    int d = 0, m = 0, y = 0;
    EXPECT_TRUE(ParseSampleDate("5/1/1998", d, m, y));
    EXPECT_EQ(d * 10000 + m * 100, 50100);
    EXPECT_TRUE(ParseSampleDate("29-02-2000", d, m, y));
    EXPECT_TRUE(ParseSampleDate("01.03.1999", d, m, y));
    EXPECT_FALSE(ParseSampleDate("29/02/1900", d, m, y));
    EXPECT_FALSE(ParseSampleDate("31/04/1999", d, m, y));
    EXPECT_FALSE(ParseSampleDate("1/1", d, m, y));
    EXPECT_FALSE(ParseSampleDate("", d, m, y));

    EXPECT_TRUE(IsValidDateParts("29", "2", "2004"));
    EXPECT_TRUE(IsValidDateParts("1", "12", "1999"));
    EXPECT_FALSE(IsValidDateParts("29", "2", "2003"));
    EXPECT_FALSE(IsValidDateParts("1", "1", "99"));     // year must have four characters
    EXPECT_FALSE(IsValidDateParts("1", "1", "19999"));  // ... exactly
    EXPECT_FALSE(IsValidDateParts("", "1", "1999"));
    EXPECT_FALSE(IsValidDateParts("1", "13", "1999"));
    EXPECT_FALSE(IsValidDateParts("x", "1", "1999"));
}

TEST(LfqFile, ChronologicalSortGivesOldNumbersByNewPosition) {
    EXPECT_EQ(ChronologicalSort({}), std::vector<int>{});
    EXPECT_EQ(ChronologicalSort({"1/1/2000"}), std::vector<int>{1});
    EXPECT_EQ(ChronologicalSort({"15/06/1998", "1/3/1998", "02/03/1998"}),
              (std::vector<int>{2, 3, 1}));
    // Leading zeros and separators do not matter; a year beats month and day.
    EXPECT_EQ(ChronologicalSort({"01-02-1999", "1/1/1999", "31.12.1998"}),
              (std::vector<int>{3, 2, 1}));
    EXPECT_THROW(ChronologicalSort({"1/1/1999", ""}), ConversionFault);

    // Many dates, duplicates included: the permutation sorts them and uses each column once.
    std::mt19937 gen(7);
    for (int n : {6, 7, 8, 30, 500}) {
        std::vector<std::string> h;
        std::vector<int> serial;
        for (int i = 0; i < n; ++i) {
            const int d = 1 + static_cast<int>(gen() % 28), m = 1 + static_cast<int>(gen() % 12),
                      y = 1990 + static_cast<int>(gen() % 4);
            h.push_back(std::to_string(d) + "/" + std::to_string(m) + "/" + std::to_string(y));
            serial.push_back(y * 10000 + m * 100 + d);
        }
        const std::vector<int> p = ChronologicalSort(h);
        ASSERT_EQ(static_cast<int>(p.size()), n);
        std::vector<int> seen = p;
        std::sort(seen.begin(), seen.end());
        for (int i = 0; i < n; ++i) ASSERT_EQ(seen[i], i + 1);
        for (int i = 1; i < n; ++i) ASSERT_LE(serial[p[i - 1] - 1], serial[p[i] - 1]) << n;
    }
}

TEST(LfqFile, TrimGridFindsTheLastRowAndColumnHoldingData) {
    auto at = [](std::vector<std::pair<int, int>> cells) {
        return [cells](int r, int c) {
            return std::find(cells.begin(), cells.end(), std::pair{r, c}) != cells.end();
        };
    };
    const GridExtent e = TrimGrid(10, 5, at({{2, 1}, {7, 3}}));
    EXPECT_EQ(e.rows, 7);
    EXPECT_EQ(e.cols, 3);
    const GridExtent none = TrimGrid(10, 5, at({}));
    EXPECT_EQ(none.rows, 0);
    EXPECT_EQ(none.cols, 0);
}

}  // namespace
}  // namespace norvo
