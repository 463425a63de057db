#pragma once
// The in-memory forms of a grouped length-frequency file:
//   LfqData    the shared image of one whole file (filled by ReadLFQ into the session);
//   LfqSample  one record of the table Sample_LF;
//   LfqHeader  the header of a file, for tools that work on two files at once.
// Indexes are 0-based: sample s (0 .. noOfSamples-1) has SampleNo s + 1, class c
// (0 .. noOfClasses-1) has the midlength c * classInterval + smallestMl.
#include <cstdint>
#include <string>
#include <vector>

namespace norvo {

struct LfqData {
    std::string path;  // what the image holds
    // From the header table Grouped_LF.
    std::string speciesname;
    std::string otherId;
    std::string unitOfMeasurement;  // "cm", "mm" or "in"
    std::string typeOfMeasurement;  // "Total length (TL)", ...
    std::string remarks;
    double smallestMl = 0;     // midlength of the first class
    double largestMl = 0;      // (noOfClasses - 1) * classInterval + smallestMl
    double classInterval = 0;  // class width
    int32_t noOfSamples = 0;   // distinct SampleNo above 0 in Sample_LF
    int32_t noOfClasses = 0;   // leading measures of the first sample
    // Sample dates in SampleNo order, noOfSamples each.
    std::vector<int16_t> day;
    std::vector<int16_t> month;
    std::vector<int16_t> year;
    // freq[c][s]: frequency of class c in sample s; noOfClasses rows of noOfSamples.
    std::vector<std::vector<double>> freq;

    // Midlength of class c (0-based).
    double midlength(int c) const { return c * classInterval + smallestMl; }
};

// One Sample_LF record; fields in table order, numbers in their table widths.
struct LfqSample {
    int16_t sampleNo = 0;
    int16_t samplingDay = 0;
    int16_t samplingMonth = 0;
    int32_t samplingYear = 0;
    std::string sex;
    std::string samplingTime;
    std::string area;
    std::string latitude;
    std::string longitude;
    float depth = 0;
    std::string bottomType;
    float lwA = 0;
    float lwB = 0;
    std::string catchType;
    float wtSample = 0;
    float twtSpecies = 0;
    float twtCatch = 0;
    float effort = 0;
    std::string vessel;
    std::string gearType;
    float meshSize = 0;
    std::string gearCharacteristics;
    std::string remarks;
};

// The header of a file as the file tools use it.
struct LfqHeader {
    std::string speciesname;
    std::string otherId;
    std::string unitOfMeasurement;
    std::string typeOfMeasurement;
    std::string remarks;
    std::string path;
    double smallestMl = 0;
    double largestMl = 0;
    double classInterval = 0;
    int32_t noOfSamples = 0;
    int32_t noOfClasses = 0;
};

}  // namespace norvo
