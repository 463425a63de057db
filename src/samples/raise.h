#pragma once
// Raising each selected sample's frequencies to the catch, and the weight of each sample from
// its frequencies and length-weight relationship.
#include <string>
#include <vector>

#include "samples/sample_tools.h"

namespace norvo {

inline constexpr const char* kRaisePathsText =
    "Please complete the inputs for source and destination file before proceeding.";
inline constexpr const char* kRaiseConstantText =
    "The constant supplied is invalid. Please correct!";
inline constexpr const char* kRaiseZeroTitle = "Invalid Data...";
inline constexpr const char* kRaiseZeroWeightText =
    "The total catch and/or weigth of the sample is set to 0. Please correct/complete the length "
    "frequency file by opening the file and editing the appropriate field in the subheader.";
inline constexpr const char* kRaiseZeroEffortText =
    "The total weight and/or measure of fishing effort is set to 0. Please correct/complete the "
    "length frequency file by opening the file and editing the appropriate field in the "
    "subheader.";
inline constexpr const char* kRaiseNoFishPrefix = "Sample ";
inline constexpr const char* kRaiseNoFishSuffix =
    " has no fish: its frequencies sum to 0, so it cannot be scaled by its total. Please "
    "deselect it.";
inline constexpr const char* kRaiseRemarksSuffix = "; Frequencies adjusted";
inline constexpr const char* kRaiseSavedPrefix = "The file has been saved to ";
inline constexpr double kRaiseConstantMin = 1e-6;
inline constexpr double kRaiseConstantMax = 1e9;

// "Sample n has no fish: ..."
std::string RaiseNoFishText(int sampleNo);

enum class RaiseOption {
    CatchPerWeight = 1,
    CatchPerEffort,
    Constant,
    PercentOfTotal,
    SqrtOfTotal
};
inline constexpr const char* kRaiseOptionTexts[] = {"Using Catch/Sample Weight", "Using C/f",
                                                    "Using a Constant", "% of Sample Total",
                                                    "Square root of Sample Total"};

// One factor per sample: 1 for a sample not selected, else the option's. Refused with the
// option's zero notice when a selected sample lacks what its factor divides by.
struct RaiseFactors : Outcome {
    std::vector<double> factor;
};
RaiseFactors ComputeRaiseFactors(const LfqData& data, const std::vector<LfqSample>& samples,
                                 const std::vector<bool>& selected, RaiseOption option,
                                 double constant);

SampleFileRun RaiseData(const LfqData& data, const std::vector<LfqSample>& samples,
                        const std::vector<bool>& selected, RaiseOption option, double constant);

struct RaiseOptions {
    std::string source;
    std::string destination;
    RaiseOption option = RaiseOption::Constant;
    double constant = 1;
    std::vector<int> samples;  // selected sample numbers from 1; empty selects every sample
};
SampleFileRun RunRaise(const RaiseOptions& options, const std::string& programFolder);

}  // namespace norvo
