// Writes the bundled sample data beside the executables: Data/Simull01.LFQ (STOCK) and
// Data/Simull02.LFQ (CATCH), simulated with the default inputs and seed.
// Usage: norvo_make_sample_data PROGRAM_FOLDER (where Templates/ stands).
#include <exception>
#include <filesystem>
#include <iostream>

#include "app/scripted_dialogs.h"
#include "stock/simulation_file.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: norvo_make_sample_data PROGRAM_FOLDER\n";
        return 1;
    }
    const std::filesystem::path folder = argv[1];
    norvo::ScriptedDialogs dialogs;
    try {
        if (!norvo::RunSimulation(
                norvo::DefaultSimulationInputs(), (folder / norvo::kSimStockFile).string(),
                (folder / norvo::kSimCatchFile).string(), folder.string(), dialogs)) {
            std::cerr << dialogs.last().title << ": " << dialogs.last().text << "\n";
            return 1;
        }
    } catch (const std::exception& e) {
        std::cerr << e.what() << "\n";
        return 1;
    }
    return 0;
}
