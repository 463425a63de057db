#include "samples/sample_tools.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "data/data_store.h"
#include "data/lfq_file.h"
#include "data/store_routines.h"

namespace norvo {

namespace {

std::filesystem::path Canonical(const std::string& path) {
    std::error_code ec;
    auto p = std::filesystem::weakly_canonical(path, ec);
    return ec ? std::filesystem::path(path) : p;
}

}  // namespace

Outcome CheckPaths(const std::vector<std::string>& sources, const std::string& destination,
                   const PathTexts& texts) {
    Outcome out;
    const bool anyEmpty =
        destination.empty() ||
        std::any_of(sources.begin(), sources.end(), [](const std::string& s) { return s.empty(); });
    if (anyEmpty) {
        out.refuse(texts.emptyText, texts.emptyTitle);
        return out;
    }
    for (const std::string& s : sources) {
        if (!FileExists(s)) {
            out.refuse(texts.missingText, kSourceNotFoundTitle);
            return out;
        }
    }
    const auto dest = Canonical(destination);
    for (const std::string& s : sources) {
        if (Canonical(s) == dest) {
            out.refuse(kDestinationIsSourceText, kInvalidInputsTitle);
            return out;
        }
    }
    return out;
}

std::vector<LfqSample> SampleRecordsOf(const std::string& path, const LfqData& data) {
    std::map<int, LfqSample> byKey;
    for (LfqSample& s : ReadSampleHeaders(path)) byKey[s.sampleNo] = std::move(s);
    std::vector<LfqSample> out;
    for (int s = 0; s < data.noOfSamples; ++s) {
        auto it = byKey.find(s + 1);
        LfqSample rec;
        if (it != byKey.end()) {
            rec = it->second;
        } else {
            rec.sampleNo = static_cast<int16_t>(s + 1);
            rec.samplingDay = data.day[s];
            rec.samplingMonth = data.month[s];
            rec.samplingYear = data.year[s];
        }
        out.push_back(std::move(rec));
    }
    return out;
}

LfqHeader HeaderFrom(const LfqData& data, const std::string& remarks, double smallestMl,
                     double classInterval, int classes) {
    LfqHeader h;
    h.speciesname = data.speciesname;
    h.otherId = data.otherId;
    h.unitOfMeasurement = data.unitOfMeasurement;
    h.typeOfMeasurement = data.typeOfMeasurement;
    h.remarks = remarks;
    h.smallestMl = R4(smallestMl);
    h.classInterval = R4(classInterval);
    h.noOfClasses = classes;
    h.largestMl = (classes - 1) * h.classInterval + h.smallestMl;
    return h;
}

double CutTwoDecimals(double f) {
    // In 32-bit arithmetic, so that a stored 0.29 stays 0.29.
    const float scaled = R4(static_cast<double>(R4(f)) * 100.0);
    return Int(scaled) / 100.0;
}

std::string RemarkNumber(double x) {
    std::string t = Format(x, "0.0000");
    while (t.back() == '0') t.pop_back();
    if (t.back() == '.') t.pop_back();
    return t;
}

void Redistribute(double f, double low, double high, double newLow, double newWidth,
                  std::vector<double>& cells, std::vector<bool>& touched) {
    const int rows = static_cast<int>(cells.size());
    if (rows == 0) return;
    // The first new class whose lower bound is at or above `low`, one step back.
    int row = 0;
    while (row < rows && newLow + row * newWidth < low) ++row;
    row = std::max(row - 1, 0);
    double lo = newLow + row * newWidth;
    double hi = lo + newWidth;
    if (hi >= high && lo <= low) {
        cells[row] += f;
        touched[row] = true;
        return;
    }
    const double width = high - low;
    double remainder = f;
    while (remainder > 0.01 && row < rows && lo < high) {
        const double overlap = std::max(0.0, std::min(high, hi) - std::max(low, lo));
        const double part = f * Div(overlap, width);
        cells[row] += part;
        touched[row] = true;
        remainder -= part;
        ++row;
        lo += newWidth;
        hi += newWidth;
    }
}

SourceRead ReadSource(const std::string& source, const std::string& destination,
                      const PathTexts& texts) {
    SourceRead r;
    r.absorb(CheckPaths({source}, destination, texts));
    if (!r.ok()) return r;
    auto data = ReadLFQ(source);
    if (!data) {
        const UserNotice& n = data.error().notice;
        r.refuse(n.text, n.title, n.icon);
        return r;
    }
    r.data = std::move(data).value();
    if (r.data.noOfClasses < 1 || r.data.noOfSamples < 1) {
        r.refuse(kFileEmptyText, kInvalidDataTitle);
        return r;
    }
    r.samples = SampleRecordsOf(source, r.data);
    return r;
}

void SaveNewLfq(const std::string& path, const std::string& programFolder, const LfqTable& table) {
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        WriteLfqFile(work, table.header, table.samples, table.freq);
    });
}

void SaveWithNotice(SampleFileRun& run, const std::string& path, const std::string& programFolder,
                    const std::string& doneText, const std::string& doneTitle) {
    try {
        SaveNewLfq(path, programFolder, run.table);
    } catch (const StoreError&) {
        run.refuse(kFileSaveFailedText, kSaveFailedTitle, Icon::Critical);
        return;
    }
    run.note(doneText, doneTitle, Icon::Information);
}

}  // namespace norvo
