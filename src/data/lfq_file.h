#pragma once
// Readers and writers of grouped length-frequency files (kind LFQ).
//
// Tables: Grouped_LF (one header record), Sample_LF (one record per sample, key SampleNo from 1)
// and GLF_Measures (SampleNo, MidLength, Frequency for every class of every sample). The measures
// are stored sample by sample and, within a sample, by ascending midlength; ReadLFQ reads them
// without ordering, so every writer keeps that order.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/lfq_data.h"
#include "data/read_result.h"
#include "data/store_routines.h"

namespace norvo {

class Records;

inline constexpr const char* kTableGroupedLf = "Grouped_LF";
inline constexpr const char* kTableSampleLf = "Sample_LF";
inline constexpr const char* kTableGlfMeasures = "GLF_Measures";

inline constexpr const char* kFileEmptyText = "File empty or corrupted. Please check your input";

// Reads the whole file, or gives the "Invalid Data" read error.
ReadResult<LfqData> ReadLFQ(const std::string& path);

// The header of any file, without touching the session. The class count is taken from the
// largest midlength. A file without a header record gives the kFileEmptyText read error, an
// unreadable file the "Invalid Data" one.
ReadResult<LfqHeader> ReadLfqHeader(const std::string& path);

// A file as its editor shows it. The measures are taken in stored order: each new SampleNo
// opens a column, the first sample's run of records gives the rows, and records of a column
// beyond them are left out. dates[col] is the sampling date "d/m/y" of the Sample_LF record
// whose SampleNo is col + 1, empty when there is none.
struct LfqSheet {
    LfqHeader header;                                         // the seven header fields
    int rows = 0;                                             // 0 when there are no measures
    std::vector<std::vector<std::optional<double>>> columns;  // columns[col][row]
    std::vector<std::string> dates;
};
// Reads the sheet, or gives the "Invalid Data" read error (also for a file without a header).
ReadResult<LfqSheet> ReadLfqSheet(const std::string& path);

// All Sample_LF records in key order. Throws StoreError when the file cannot be read.
std::vector<LfqSample> ReadSampleHeaders(const std::string& path);
// Replaces every Sample_LF record by `samples`, written in the given order.
void WriteSampleHeaders(const std::string& path, const std::vector<LfqSample>& samples);

// Writes one sample's record (all fields), replacing the record of its SampleNo or adding one.
// A sample without a sampling day leaves the fields of the record as they are.
void WriteSampleHeader(const std::string& path, const LfqSample& sample);
// Deletes the record of sample `sampleNo` and moves the later samples down by one.
void DeleteSampleHeader(const std::string& path, int sampleNo);

// The 23 fields of Sample_LF, one routine for each direction. Null fields read as empty/0.
LfqSample SampleFromRecord(const Records& rs);
void SampleToRecord(const LfqSample& sample, Records& rs);

// Replaces the Grouped_LF record by the seven header fields of `header`.
void WriteLfqHeader(const std::string& path, const LfqHeader& header);

// Writes a complete file in one transaction: header, sample headers and measures.
// freq[c][s] is the frequency of class c in sample s (all rows of one length). The measures get
// SampleNo s + 1, MidLength c * classInterval + smallestMl in 64-bit arithmetic, Frequency as a
// 32-bit float. An empty `samples` leaves Sample_LF as it is (after WriteDatesOnly, say).
void WriteLfqFile(const std::string& path, const LfqHeader& header,
                  const std::vector<LfqSample>& samples,
                  const std::vector<std::vector<double>>& freq);

// For a file whose sample headers are lost: replaces Sample_LF by one record per date text
// "d/m/y", holding only SampleNo, Sampling_Day, Sampling_Month and Sampling_Year.
void WriteDatesOnly(const std::string& path, const std::vector<std::string>& dates);

// "dd/mm/yyyy" with leading zeros.
std::string FormatSampleDate(int day, int month, int year);

// Splits a heading at "/", "-" or "." into day, month and year; false unless it is a valid date.
bool ParseSampleDate(const std::string& heading, int& day, int& month, int& year);

// Day, month and year as typed: all three present, the year exactly four characters, and the
// three forming a valid calendar date.
bool IsValidDateParts(const std::string& day, const std::string& month, const std::string& year);

// Orders sample headings by date. Returns the permutation as old column numbers (from 1) by new
// position. Equal dates keep no guaranteed order. A heading that is not a date is a
// ConversionFault.
std::vector<int> ChronologicalSort(const std::vector<std::string>& headings);

// The used extent of a grid: the last row and the last column holding data (1-based, 0 when
// none). `hasData(row, col)` is asked for 1 <= row <= rows, 1 <= col <= cols.
struct GridExtent {
    int rows = 0;
    int cols = 0;
};
GridExtent TrimGrid(int rows, int cols, const std::function<bool(int row, int col)>& hasData);

}  // namespace norvo
