#include "growth/elefan_report.h"

#include <charconv>
#include <filesystem>

#include "base/format.h"

namespace norvo {

namespace {

// A 32-bit parameter as typed: the shortest decimal that reads back as the same float, with
// at least two decimals ("0.00", "0.50", "0.125").
std::string ParameterText(std::optional<double> value) {
    if (!value) return {};
    char buf[64];
    const auto res =
        std::to_chars(buf, buf + sizeof buf, static_cast<float>(*value), std::chars_format::fixed);
    std::string text(buf, res.ptr);
    const auto dot = text.find('.');
    const size_t decimals = dot == std::string::npos ? 0 : text.size() - dot - 1;
    if (dot == std::string::npos) text += '.';
    if (decimals < 2) text.append(2 - decimals, '0');
    return text;
}

std::vector<ReportField> ResultFields(const std::array<double, 7>& values,
                                      const std::array<const char*, 7>& patterns) {
    std::vector<ReportField> fields;
    for (size_t i = 0; i < values.size(); ++i)
        fields.push_back({kElefanResultLabels[i], Format(values[i], patterns[i])});
    return fields;
}

// Asks where the picture goes and writes it there: the path, or nothing after a cancel or a
// file that was not written.
std::optional<std::string> SaveImageAs(const ChartCanvas& canvas, DialogService& dialogs,
                                       const PlotSaver& save) {
    auto path = dialogs.saveFile(SaveImageDialog(kImageFilter));
    if (!path || !save || !save(canvas, *path)) return std::nullopt;
    return path;
}

void NotifySaved(DialogService& dialogs, const std::string& text) {
    dialogs.notify({text, kDataSavedTitle, Buttons::Ok, Icon::Information});
}

}  // namespace

ElefanFileInfo ElefanFileInfoOf(const std::string& path, const LfqData& data) {
    ElefanFileInfo f;
    f.fileName = std::filesystem::path(path).filename().string();
    f.speciesName = data.speciesname;
    f.otherIdentifier = data.otherId;
    f.unit = data.unitOfMeasurement;
    f.classSize = data.classInterval;
    f.largestClassSize = data.largestMl;
    return f;
}

std::array<double, 7> ElefanBestValues(const ElefanBest& best) {
    const GrowthParams& p = best.params;
    return {p.loo, p.k, p.c, p.wp, p.ss, p.sl, best.rn};
}

Elefan1ReportInfo MakeElefan1ReportInfo(const std::optional<ElefanFileInfo>& file,
                                        std::optional<double> c, std::optional<double> wp) {
    Elefan1ReportInfo info;
    if (file) {
        info.fileName = file->fileName;
        info.speciesName = file->speciesName;
        info.otherIdentifier = file->otherIdentifier;
        info.classSize = Format(file->classSize, "0.00");
        info.largestClassSize = FormatSingle(static_cast<float>(file->largestClassSize));
        info.unit = file->unit;
    }
    info.amplitude = ParameterText(c);
    info.winterPoint = ParameterText(wp);
    return info;
}

std::vector<ReportField> ElefanResultFields(const ElefanBest& best) {
    return ResultFields(ElefanBestValues(best), kElefanResultPatterns);
}

std::vector<ReportField> ElefanResultFields(const SearchRow& row) {
    return ResultFields(SearchRowValues(row), kSearchRowPatterns);
}

std::vector<std::vector<std::string>> SurfaceTableTexts(const SurfaceResult& s) {
    std::vector<std::vector<std::string>> table(kSurfaceSize + 1,
                                                std::vector<std::string>(kSurfaceSize + 1));
    table[0][0] = kSurfaceCorner;
    for (int i = 0; i < kSurfaceSize; ++i) {
        table[i + 1][0] = Format(s.kHeadings[i], "0.00");
        table[0][i + 1] = Format(s.looHeadings[i], "0.00");
        for (int j = 0; j < kSurfaceSize; ++j) table[i + 1][j + 1] = Format(s.grid[i][j], "0.000");
    }
    return table;
}

ReportDescriptor Elefan1ReportDescriptor(const Elefan1ReportInfo& info, std::time_t when) {
    ReportDescriptor d;
    d.screenName = info.screenName;
    d.header1 = kElefanReportTitle;
    d.header2 = info.subtitle;
    d.header3 = kReportGenerated + ReportDate(when);
    d.caption = d.header3;
    auto& p = d.addSection("Parameters", false);
    p.fields = {{"Filename: ", info.fileName},
                {"Species name: ", info.speciesName},
                {"Other identifier: ", info.otherIdentifier},
                {"Class size: ", info.classSize},
                {"Largest class size: ", info.largestClassSize},
                {"Unit of measurement: ", info.unit}};
    if (!info.results.fields.empty()) d.sections.push_back(info.results);
    if (!info.otherParameters) return d;
    auto& other = d.addSection("Other Growth Parameters", true);
    other.fields = {{"Amplitute of oscillation (C): ", info.amplitude},
                    {"Winter Point (WP): ", info.winterPoint}};
    return d;
}

bool ReportELEFAN1(const ChartCanvas& canvas, ReportOutput& output, DialogService& dialogs,
                   Elefan1ReportMode mode, const Elefan1ReportInfo& info,
                   const std::vector<std::vector<std::string>>& surfaceTable,
                   const PlotSaver& save) {
    switch (mode) {
        case Elefan1ReportMode::Print: {
            const auto outcome =
                RunReport(Elefan1ReportDescriptor(info), canvas, output, dialogs, save);
            return outcome != PrintOutcome::Cancelled && outcome != PrintOutcome::SaveFailed;
        }
        case Elefan1ReportMode::KScan: {
            output.fill(Elefan1ReportDescriptor(info));
            output.setPicture(canvas.Image());
            bool done = false;
            if (dialogs.choosePrinter(kPrintDialogTitle)) {
                if (output.printToFileChosen()) {
                    if (const auto path = SaveImageAs(canvas, dialogs, save)) {
                        NotifySaved(dialogs, kKScanSavedPrefix + *path + ".");
                        done = true;
                    }
                } else {
                    output.printPage();
                    done = true;
                }
            }
            output.unload();
            return done;
        }
        case Elefan1ReportMode::Surface: {
            const auto printed =
                RunReport(Elefan1ReportDescriptor(info), canvas, output, dialogs, save);
            if (printed == PrintOutcome::Cancelled) return false;
            FileDialogOptions table;
            table.title = kSaveTableTitle;
            table.filter = kTabFilter;
            table.defaultExtension = "tab";
            table.overwritePrompt = true;
            const auto tablePath = dialogs.saveFile(table);
            if (!tablePath || !WriteTabDelimited(*tablePath, surfaceTable)) return false;
            const auto imagePath = SaveImageAs(canvas, dialogs, save);
            if (!imagePath) return false;
            NotifySaved(dialogs, kSurfaceSavedPrefix + *tablePath + kSurfacePlotSavedInfix +
                                     *imagePath + ".");
            return true;
        }
    }
    return false;
}

}  // namespace norvo
