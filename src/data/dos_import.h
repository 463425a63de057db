#pragma once
// Import of the grouped frequencies of the old DOS edition's text file into a new LFQ file.
//
// The text holds, one per line: species name; other identifier; unit (first letter C: cm,
// M: mm, else in); number of samples; class interval, smallest and largest midlength. Then each
// sample: a line "count firstMidlength month day year-1900" followed by `count` frequency lines,
// one class after another upward from the first midlength.
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/outcome.h"

namespace norvo {

inline constexpr const char* kImportRemarks = "Imported from Norvo (DOS ver.)";
inline constexpr const char* kImportDoneTitle = "Importing Done";
inline constexpr const char* kImportDoneText = "Import completed successfully.";
inline constexpr const char* kImportFailedText =
    "The source file is either missing or has invalid format. Import of data failed.";
inline constexpr const char* kImportIncompleteTitle = "Invalid Action";
inline constexpr const char* kImportIncompleteText =
    "Please complete the inputs before proceeding.";

// A malformed or missing source file.
class DosFormatError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// "The frequency in row <r>, column <c> is negative. ..." (row: class from 1; column: sample).
std::string NegativeFrequencyText(int row, int column);
// Told when the samples found differ from the count on line 4; the samples found are imported.
std::string SampleCountText(int announced, int read);

// The file as the import grid holds it: one row per class, one column per sample read, cells
// outside a sample's stretch blank. Refused (with the cell) when a frequency is negative; a
// sample count that differs from line 4 is noted.
struct DosImport : Outcome {
    std::string speciesname;
    std::string otherId;
    std::string unit;  // "cm", "mm" or "in"
    double classInterval = 0;
    double smallestMl = 0;
    double largestMl = 0;
    std::vector<std::string> headings;                     // "dd/mm/yyyy", one per sample
    std::vector<std::vector<std::optional<double>>> grid;  // [class][sample]
    std::vector<double> rowHeadings;                       // midlength of each class
};

// The unit of a unit line: "C..." cm, "M..." mm, anything else in (case ignored).
std::string DosUnit(const std::string& line);

// Reads the text file. Throws DosFormatError when it is missing or malformed, or holds no
// sample at all.
DosImport ReadDosFile(const std::string& path);

// Writes the import to `destination` (an LFQ path) from the template: header with type
// "Total length (TL)" and the import remark, the sample dates, and every class of every sample
// (blank cells as 0). The file appears whole or not at all; throws on failure.
void SaveDosImport(const std::string& destination, const std::string& programFolder,
                   const DosImport& data);

}  // namespace norvo
