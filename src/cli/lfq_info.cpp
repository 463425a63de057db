#include "cli/lfq_info.h"

#include <cstdio>

#include "base/format.h"
#include "data/lfq_file.h"

namespace norvo::cli {

namespace {

LfqData ReadOrRefuse(Context& ctx, const std::string& path) {
    return ctx.read(ReadLFQ(path));
}

// A frequency as stored: a 32-bit value in its shortest form.
std::string FrequencyText(double f) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.7g", static_cast<double>(static_cast<float>(f)));
    return buf;
}

std::string DateOf(const LfqData& d, int s) {
    return FormatSampleDate(d.day[s], d.month[s], d.year[s]);
}

}  // namespace

nlohmann::json LfqInfoJson(Context& ctx, const std::string& path) {
    const LfqData& d = ReadOrRefuse(ctx, path);
    nlohmann::json samples = nlohmann::json::array();
    for (int s = 0; s < d.noOfSamples; ++s) {
        samples.push_back({{"sampleNo", s + 1}, {"date", DateOf(d, s)}});
    }
    nlohmann::json classes = nlohmann::json::array();
    for (int c = 0; c < d.noOfClasses; ++c) {
        classes.push_back({{"midlength", d.midlength(c)}, {"frequencies", d.freq[c]}});
    }
    return {{"speciesname", d.speciesname}, {"otherId", d.otherId},
            {"unit", d.unitOfMeasurement},  {"type", d.typeOfMeasurement},
            {"smallestMl", d.smallestMl},   {"classInterval", d.classInterval},
            {"largestMl", d.largestMl},     {"remarks", d.remarks},
            {"noOfSamples", d.noOfSamples}, {"noOfClasses", d.noOfClasses},
            {"samples", samples},           {"classes", classes}};
}

void PrintLfqInfo(Context& ctx, const std::string& path) {
    const LfqData& d = ReadOrRefuse(ctx, path);
    std::cout << "Grouped length frequencies: " << d.noOfSamples << " samples, " << d.noOfClasses
              << " classes";
    if (d.noOfClasses > 0) {
        std::cout << " (midlengths " << Format(d.smallestMl, "0.00") << " to "
                  << Format(d.largestMl, "0.00") << " " << d.unitOfMeasurement << ", interval "
                  << Format(d.classInterval, "0.00") << ")";
    }
    std::cout << "\nSample dates:\n";
    char buf[64];
    for (int s = 0; s < d.noOfSamples; ++s) {
        std::snprintf(buf, sizeof buf, "  %3d  %s\n", s + 1, DateOf(d, s).c_str());
        std::cout << buf;
    }
    if (d.noOfSamples == 0 || d.noOfClasses == 0) return;
    std::snprintf(buf, sizeof buf, "%8s", "ML");
    std::cout << "Frequencies:\n" << buf;
    for (int s = 0; s < d.noOfSamples; ++s) {
        std::snprintf(buf, sizeof buf, " %11s", DateOf(d, s).c_str());
        std::cout << buf;
    }
    std::cout << "\n";
    for (int c = 0; c < d.noOfClasses; ++c) {
        std::snprintf(buf, sizeof buf, "%8s", Format(d.midlength(c), "0.00").c_str());
        std::cout << buf;
        for (int s = 0; s < d.noOfSamples; ++s) {
            std::snprintf(buf, sizeof buf, " %11s", FrequencyText(d.freq[c][s]).c_str());
            std::cout << buf;
        }
        std::cout << "\n";
    }
}

}  // namespace norvo::cli
