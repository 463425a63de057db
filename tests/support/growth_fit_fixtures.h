#pragma once
// Length-at-age and growth-increment files for tests, with rows that lie exactly on a curve.
#include <array>
#include <string>
#include <vector>

namespace norvo::test {

// Age, Length, WF rows.
using LaaRowIn = std::array<float, 3>;
// Writes `path` (which must not exist) with the age unit given and returns it.
std::string MakeLaaFile(const std::string& path, const std::vector<LaaRowIn>& rows,
                        const std::string& ageUnit = "year", const std::string& species = "Fish");
// Rows of a plain curve at ages 0.5, 1.1, 1.7, ... (in the unit's own numbers), weight 1.
std::vector<LaaRowIn> ExactLaaRows(double loo, double k, double t0, int n, double ageDivisor = 1);

// Day1, Month1, Year1, Length1, Day2, Month2, Year2, Length2.
using GinRowIn = std::array<float, 8>;
std::string MakeGinFile(const std::string& path, const std::vector<GinRowIn>& rows);
// Tagged fish of a seasonal curve (the fit's own two pi), released and recaptured at spread
// dates.
std::vector<GinRowIn> SeasonalGinRows(int n, double loo = 90, double k = 0.5, double c = 0.6,
                                      double wp = 0.4);

}  // namespace norvo::test
