#pragma once
// Further sample files for the help pages' walk-throughs, drawn from the same simulated stock
// as the length frequencies: tag-and-recapture increments (GIN), readings of length at age
// (LAA) and the lengths of one sample, unsorted and ungrouped (ULF). Lengths are read to 0.1 cm.
#include <string>
#include <vector>

#include "stock/simulation.h"

namespace norvo {

inline constexpr const char* kSimTaggingFile = "Data/SimTag.GIN";
inline constexpr const char* kSimAgeLengthFile = "Data/SimAge.LAA";
inline constexpr const char* kSimUngroupedFile = "Data/SimLen.ULF";
inline constexpr const char* kSimAgeUnit = "years";

struct TagRecord {
    SimSampleDate release;
    double length1 = 0;
    SimSampleDate recapture;
    double length2 = 0;
};
// `fish` tagged fish: each with its own growth parameters, released at an age of 0.3 to 1.5
// years on one of the sample dates, and recaptured 1 to 9 months later on the 15th.
std::vector<TagRecord> SimulateTagging(const SimulationInputs& in, int fish);

struct AgeLengthRecord {
    double age = 0;  // years, to 0.01
    double length = 0;
};
// `fish` fish of uniform ages from 0.25 to 3 years, each with its own growth parameters.
std::vector<AgeLengthRecord> SimulateAgeLength(const SimulationInputs& in, int fish);

// Length read to 0.1 cm.
double ReadToTenth(double length);

// Writers; each makes the file from its kind's template and replaces it whole.
void SaveTagging(const std::string& path, const std::string& programFolder,
                 const std::vector<TagRecord>& records, const std::string& generatedOn);
void SaveAgeLength(const std::string& path, const std::string& programFolder,
                   const std::vector<AgeLengthRecord>& records, const SimSampleDate& date,
                   const std::string& generatedOn);
void SaveUngrouped(const std::string& path, const std::string& programFolder,
                   const std::vector<double>& lengths, const SimSampleDate& date,
                   const std::string& generatedOn);

}  // namespace norvo
