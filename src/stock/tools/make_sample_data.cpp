// Writes the bundled sample data beside the executables: Data/Simull01.LFQ (STOCK) and
// Data/Simull02.LFQ (CATCH), simulated with the default inputs and seed, and the walk-through
// files of tag returns, lengths at age and one ungrouped sample from the same stock, and the
// prediction walk-through's species, fleets and scenario made from the catch file.
// Usage: norvo_make_sample_data PROGRAM_FOLDER (where Templates/ stands).
#include <exception>
#include <filesystem>
#include <iostream>

#include "stock/sample_files.h"
#include "stock/sample_scenario.h"
#include "stock/simulation_file.h"

int main(int argc, char** argv) {
    using namespace norvo;
    if (argc != 2) {
        std::cerr << "usage: norvo_make_sample_data PROGRAM_FOLDER\n";
        return 1;
    }
    const std::filesystem::path folder = argv[1];
    const std::string program = folder.string();
    auto at = [&](const char* name) { return (folder / name).string(); };
    const SimulationInputs in = DefaultSimulationInputs();
    try {
        const SimulationRun sim = RunSimulation(in, at(kSimStockFile), at(kSimCatchFile), program);
        if (const UserNotice* n = sim.refusal()) {
            std::cerr << n->title << ": " << n->text << "\n";
            return 1;
        }
        const SimulationResult& run = sim.result;
        const std::string today = SimulationDateText();
        SaveTagging(at(kSimTaggingFile), program, SimulateTagging(in, 40), today);
        SaveAgeLength(at(kSimAgeLengthFile), program, SimulateAgeLength(in, 60), run.dates.front(),
                      today);
        std::vector<double> lengths;
        for (const auto& fish : run.fish[0].front()) lengths.push_back(fish.length);
        SaveUngrouped(at(kSimUngroupedFile), program, lengths, run.dates.front(), today);
        SaveSampleScenario(program, at(kSimCatchFile));
    } catch (const std::exception& e) {
        std::cerr << e.what() << "\n";
        return 1;
    }
    return 0;
}
