#pragma once
// Converting frequencies by one length measure into frequencies by another.
#include <string>
#include <vector>

#include "samples/sample_tools.h"

namespace norvo {

inline constexpr const char* kConvertFunction1 = "L(new) = d *  W ^ e";
inline constexpr const char* kConvertFunction2 = "L(new) = d + e * L(old) ^ f";
inline constexpr const char* kConvertRemarksSuffix = "; lengths adjusted";
inline constexpr const char* kConvertSavedPrefix = "The file has been saved to ";
inline constexpr const char* kConvertFlatText =
    "The conversion function gives the same new length for different old lengths. Please check "
    "d, e and f.";
inline constexpr const char* kConvertNegativeText =
    "The conversion function cannot be applied to class limits below 0. Please check the file "
    "or choose whole powers.";

struct ConvertFunction {
    int function = 1;  // 1: d * W ^ e; 2: d + e * L ^ f
    double d = 0, e = 0, f = 1;
    double operator()(double x) const;
};

// The new frequencies: each class's limits converted (swapped when the function decreases) and
// its frequency spread over the result grid by overlap, as the class-size adjustment does, then
// cut to two decimals. The result grid has as many classes as the source over the converted
// range, its interval a round number (1, 2 or 5 times a power of ten, or 2.5 times one) and its
// limits on whole multiples of the interval.
SampleFileRun ConvertData(const LfqData& data, const std::vector<LfqSample>& samples,
                          const ConvertFunction& fn);

// The interval of the result grid for a converted range spanning `span` over `classes`.
double RoundInterval(double span, int classes);

struct ConvertOptions {
    std::string source;
    std::string destination;
    ConvertFunction fn;
};
SampleFileRun RunConvert(const ConvertOptions& options, const std::string& programFolder);

}  // namespace norvo
