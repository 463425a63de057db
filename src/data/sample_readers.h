#pragma once
// Readers of the sample kinds for the analyses. Each returns its rows with the file's shared
// header (path, species, identifier, units, remarks, and the counts its kind sets), or the
// "Invalid Data" read error.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "data/lfq_data.h"
#include "data/read_result.h"

namespace norvo {

// Probabilities of capture: Length and Probability per row. Sets noOfClasses to the record
// count, smallestMl to the first length and largestMl to the last.
struct PrbData {
    LfqData header;
    std::vector<float> length;
    std::vector<float> probability;
};
ReadResult<PrbData> ReadPRB(const std::string& path);

// Means and standard deviations, ordered by date and then by mean length.
struct MsdRow {
    int32_t day = 0, month = 0, year = 0;
    float length = 0;
    float sd = 0;
    float population = 0;  // written by the modal-progression routines only
};
struct MsdData {
    LfqData header;
    std::vector<MsdRow> rows;
};
ReadResult<MsdData> ReadMSD(const std::string& path);

// Growth increments: one row per record with Day1, Month1, Year1, Length1, Day2, Month2, Year2,
// Length2 in columns 1 to 8 (index 0 spare, so the columns keep their numbers). Sets
// noOfSamples to the record count.
using GinRow = std::array<float, 9>;
struct GinData {
    LfqData header;
    std::vector<GinRow> rows;
};
ReadResult<GinData> ReadGIN(const std::string& path);

// Catch at age: the weight and age units and the Age, Catch, WF rows.
struct CaaData {
    LfqData header;
    std::string unitOfWeight;
    std::string unitOfAge;
    std::vector<std::array<float, 3>> rows;  // Age, Catch, WF
};
ReadResult<CaaData> ReadCAA(const std::string& path);

// Length at age: the age unit and the Age, Length, WF rows.
struct LaaData {
    LfqData header;
    std::string unitOfAge;
    std::vector<std::array<float, 3>> rows;  // Age, Length, WF
};
ReadResult<LaaData> ReadLAA(const std::string& path);

}  // namespace norvo
