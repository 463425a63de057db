#pragma once
// The weight of each sample from its frequencies and its length-weight coefficients, written
// into the Wt_Sample field of the file itself.
#include <string>
#include <vector>

#include "base/outcome.h"
#include "data/lfq_data.h"

namespace norvo {

inline constexpr const char* kSwInvalidAText =
    "The input for the 'a' coefficient of the length-weight relationship is invalid. Please "
    "check input.";
inline constexpr const char* kSwInvalidBText =
    "The 'b' coefficient of the length-weight relationship must be above 0. Please check input.";
inline constexpr const char* kSwDoneTitle = "Notice!";
inline constexpr const char* kSwDoneText =
    "Sample weights for all samples were replaced with the computed values.";
inline constexpr const char* kSwClassHeadings[] = {"Class", "Mean Weight"};
inline constexpr const char* kSwSampleHeadings[] = {"Date", "Sum F", "Wt. of Sample", "Mean Wt."};

// The mean of a * L^b over a class of width w from its lower limit L.
double ClassMeanWeight(double a, double b, double lower, double width);

// A coefficient notice naming its sample: text + " (sample n)".
std::string NamingSample(const char* text, int sampleNo);

struct SampleWeightRow {
    int day = 0, month = 0, year = 0;
    double sumF = 0;
    double weight = 0;      // sum of F times the class mean weight
    double meanWeight = 0;  // weight / sumF, 0 for a sample with no fish
};

struct SampleWeightResult : Outcome {
    double smallestMl = 0, classInterval = 0;     // the file's grid
    std::vector<std::vector<double>> meanWeight;  // [class][sample]
    std::vector<SampleWeightRow> samples;
};

// Refused, naming the sample, when a sample's a is not above 0 or its b is not above 0.
SampleWeightResult ComputeSampleWeights(const LfqData& data, const std::vector<LfqSample>& samples);

// Reads the file, computes and writes Wt_Sample of every record (as 32-bit), all or nothing.
SampleWeightResult RunSampleWeight(const std::string& path);

}  // namespace norvo
