#pragma once
// Correcting frequencies for probabilities of capture, from a probability file or from a
// two-limb selection ogive.
#include <optional>
#include <string>
#include <vector>

#include "data/sample_readers.h"
#include "samples/sample_tools.h"

namespace norvo {

inline constexpr const char* kCorrectPrbMissingText =
    "The probability file cannot be located. Please check the input.";
inline constexpr const char* kCorrectPrbEmptyText =
    "The probability file does not contain valid data. Please check.";
inline constexpr const char* kCorrectPrbLacksPrefix =
    "The probability file has no row for the "
    "midlength ";
inline constexpr const char* kCorrectPrbLacksSuffix = ". Please check.";
inline constexpr const char* kCorrectIncompleteText = "Invalid or incomplete input. Please check.";
inline constexpr const char* kCorrectRemarksSuffix = "; File corrected for probabilities";
inline constexpr const char* kCorrectDonePrefix = "The corrected file has been saved to ";
inline constexpr const char* kCorrectOptionFile = "Using a probability file";
inline constexpr const char* kCorrectOptionOgive = "Using selection parameters";

// An ascending limb (L50 < L75) and a descending one (R75 < R50); R75 = R50 = 0 means none.
struct Ogive {
    double l50 = 0, l75 = 0, r75 = 0, r50 = 0;
    bool hasRightLimb() const { return r75 != 0 || r50 != 0; }
};

// Refused with the Part's text unless 0 < L50 < L75 and, with a right limb, 0 < R75 < R50.
Outcome CheckOgive(const Ogive& o);
// The probability of capture at length L: the ascending limb times the descending one, each
// giving 0.75 at its own 75% length.
double OgiveProbability(const Ogive& o, double length);

// 1 / P, and 0 where P is 0.
double CorrectionFactor(double p);

// The probability of each class of `data` from the rows of a probability file, matched as
// 32-bit values within 1e-4 of the class interval; refused with a notice naming the first midlength
// the file lacks.
struct ClassProbabilities : Outcome {
    std::vector<double> p;  // by class
};
ClassProbabilities ProbabilitiesFromPrb(const LfqData& data, const PrbData& prb);
ClassProbabilities ProbabilitiesFromOgive(const LfqData& data, const Ogive& ogive);

// Each sample's column times the class factors; the grid and sample records stay.
SampleFileRun CorrectData(const LfqData& data, const std::vector<LfqSample>& samples,
                          const std::vector<double>& probabilities);

struct CorrectOptions {
    std::string source;
    std::string destination;
    std::string prbPath;         // used when set
    std::optional<Ogive> ogive;  // used otherwise
};
SampleFileRun RunCorrect(const CorrectOptions& options, const std::string& programFolder);

}  // namespace norvo
