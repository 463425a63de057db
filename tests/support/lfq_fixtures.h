#pragma once
// Grouped length-frequency files for tests: an empty one from the template, or a whole one
// written through the core writer from a header, sample headers and a frequency table.
#include <string>
#include <vector>

#include "data/lfq_data.h"
#include "support/test_paths.h"

namespace norvo::test {

// A copy of the empty LFQ template at dir/name.
std::string NewLfq(const TempDir& dir, const std::string& name = "a.lfq");

// A header of the given species, unit, smallest midlength and class interval.
LfqHeader LfqHeaderOf(const std::string& species, const std::string& unit, float smallestMl,
                      float classInterval, const std::string& typeOfMeasurement = "");

// Sample header `no` taken on day/month/year; the other fields empty.
LfqSample SampleOn(int no, int day, int month, int year);
// Samples 1..n taken on `day` of consecutive months from January of `firstYear`.
std::vector<LfqSample> MonthlySamples(int n, int day, int firstYear);

// freq[class][sample] from one vector of frequencies per sample (all of one length).
std::vector<std::vector<double>> ByClass(const std::vector<std::vector<double>>& bySample);

// Makes `path` from the template and writes the whole file; gives the path back.
std::string MakeLfqFile(const std::string& path, const LfqHeader& header,
                        const std::vector<LfqSample>& samples,
                        const std::vector<std::vector<double>>& freqByClass);

// Every record of a table of a data file, in stored order, each as "field|field|...|".
std::vector<std::string> DumpTable(const std::string& path, const std::string& table);

}  // namespace norvo::test
