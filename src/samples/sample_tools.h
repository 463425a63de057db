#pragma once
// What the sample tools share: the new file they build, the checks of source and destination
// paths, the overlap redistribution of frequencies onto another class grid, the two-decimal cut,
// and the atomic write of a new grouped length-frequency file.
#include <string>
#include <vector>

#include "base/outcome.h"
#include "chart/report.h"
#include "data/lfq_data.h"

namespace norvo {

inline constexpr const char* kSmInvalidActionTitle = "Invalid Action";
inline constexpr const char* kInvalidInputsTitle = "Invalid Inputs";
inline constexpr const char* kSourceNotFoundTitle = "File Not Found";
inline constexpr const char* kSourceNotFoundText =
    "Source file cannot be located. Please check the input.";
inline constexpr const char* kCompleteInputsText = "Please complete inputs before proceeding.";
inline constexpr const char* kCompleteTheInputsText =
    "Please complete the inputs before proceeding.";
inline constexpr const char* kDestinationIsSourceText =
    "ERROR: The destination file cannot be the same as any of the source files. Please correct "
    "the inputs.";
inline constexpr const char* kDoneTitle = "Done!";
inline constexpr const char* kSaveFailedTitle = "Save...";
inline constexpr const char* kFileSaveFailedText = "File Save Error. File not saved!";

// A new grouped length-frequency file: header, one Sample_LF record per column and the grid
// freq[class][sample]. header.smallestMl and classInterval are the values as stored (32-bit).
struct LfqTable {
    LfqHeader header;
    std::vector<LfqSample> samples;
    std::vector<std::vector<double>> freq;

    int classes() const { return static_cast<int>(freq.size()); }
    int sampleCount() const { return static_cast<int>(samples.size()); }
    double midlength(int c) const { return c * header.classInterval + header.smallestMl; }
};

// A tool's run: the file it wrote (or would have written) and its notices.
struct SampleFileRun : Outcome {
    LfqTable table;
};

// The notice texts of a tool's path checks; they differ a little from tool to tool.
struct PathTexts {
    const char* emptyTitle = kInvalidDataTitle;
    const char* emptyText = kCompleteInputsText;
    const char* missingText = kSourceNotFoundText;
};

// Refused when a path is empty, a source is not there, or the destination names a source.
Outcome CheckPaths(const std::vector<std::string>& sources, const std::string& destination,
                   const PathTexts& texts = {});

// Every sample's Sample_LF record, in sample order: the record of its SampleNo, or one holding
// only the date of the data when the file lacks it. Throws StoreError when it cannot be read.
std::vector<LfqSample> SampleRecordsOf(const std::string& path, const LfqData& data);

// A header for a new file made from `data`, with new remarks and grid.
LfqHeader HeaderFrom(const LfqData& data, const std::string& remarks, double smallestMl,
                     double classInterval, int classes);

// The frequency cut to two decimals, worked on the value as stored (32-bit):
// Int(f * 100) / 100.
double CutTwoDecimals(double f);

// A number in remarks: up to four decimals, no trailing zeros.
std::string RemarkNumber(double x);

// Spreads frequency f of the source class [low, high) over the classes of a new grid (lower
// bound of class 0 at newLow, width newWidth) in proportion to overlap, into cells[row]. The
// walk starts at the new class holding `low` and goes on while more than 0.01 of f is left to
// place, so a tail of 0.01 or less is dropped. A source class lying within one new class
// goes to it whole. touched[row] marks the rows reached. Rows beyond `cells` are not written.
void Redistribute(double f, double low, double high, double newLow, double newWidth,
                  std::vector<double>& cells, std::vector<bool>& touched);

// Reads a source for a one-file tool: the data and its sample records, or the refusal (a file
// without classes or samples included).
struct SourceRead : Outcome {
    LfqData data;
    std::vector<LfqSample> samples;
};
SourceRead ReadSource(const std::string& source, const std::string& destination,
                      const PathTexts& texts = {});

// Writes `table` to `path` as a new file made from the LFQ template; all or nothing. Throws
// StoreError when the template or the path cannot be used.
void SaveNewLfq(const std::string& path, const std::string& programFolder, const LfqTable& table);

// Saves and adds the tool's closing notice, or refuses with the failed-save notice.
void SaveWithNotice(SampleFileRun& run, const std::string& path, const std::string& programFolder,
                    const std::string& doneText, const std::string& doneTitle);

}  // namespace norvo
