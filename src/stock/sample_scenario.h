#pragma once
// The bundled Thompson and Bell walk-through: the simulated catch file analysed by the length
// VPA into a species file, two fleets sharing its catches, and the scenario joining them.
#include <string>

namespace norvo {

inline constexpr const char* kSampleScenarioFile = "Data/SimGulf.sce";
inline constexpr const char* kSampleSpeciesFile = "Data/SimFish.spc";
inline constexpr const char* kSampleTrawlFile = "Data/Trawl.flt";
inline constexpr const char* kSampleGillnetFile = "Data/Gillnet.flt";
inline constexpr const char* kSampleSpeciesName = "Simulated fish";
inline constexpr const char* kSampleTrawlName = "Trawl";
inline constexpr const char* kSampleGillnetName = "Gillnet";

// Writes the four files under `programFolder` from the catch file `catchFile`; the scenario
// names its members by full path. Throws std::runtime_error when the analysis is refused.
void SaveSampleScenario(const std::string& programFolder, const std::string& catchFile);

}  // namespace norvo
