#include "chart/report.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "base/format.h"

namespace norvo {

ReportSection& ReportDescriptor::addSection(const std::string& heading, bool results) {
    sections.push_back({heading, {}, results});
    return sections.back();
}

std::vector<ReportField> ReportDescriptor::dataFields() const {
    std::vector<ReportField> out;
    for (const auto& s : sections) {
        if (!s.results) out.insert(out.end(), s.fields.begin(), s.fields.end());
    }
    return out;
}

std::vector<ReportField> ReportDescriptor::resultFields() const {
    std::vector<ReportField> out;
    for (const auto& s : sections) {
        if (s.results) out.insert(out.end(), s.fields.begin(), s.fields.end());
    }
    return out;
}

std::string ReportDate(std::time_t when) {
    static constexpr std::array<const char*, 12> kMonths = {
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::tm tm{};
    localtime_r(&when, &tm);
    char day[8];
    std::snprintf(day, sizeof day, "%02d", tm.tm_mday);
    return std::string(day) + "-" + kMonths[tm.tm_mon] + "-" + std::to_string(tm.tm_year + 1900);
}

ReportDescriptor MakeReport(const std::string& screenName, const std::string& title,
                            const std::string& subtitle, std::time_t when) {
    ReportDescriptor d;
    d.screenName = screenName;
    d.header1 = title;
    d.header2 = kReportGenerated + ReportDate(when);
    d.header3 = subtitle;
    return d;
}

ReportField NumberField(const std::string& caption, double value, const std::string& format) {
    return {caption, Format(value, format)};
}

FileDialogOptions SaveImageDialog(const char* filter) {
    FileDialogOptions o;
    o.title = kSaveImageTitle;
    o.filter = filter;
    o.defaultExtension = "bmp";
    o.initialName = "";
    o.overwritePrompt = true;
    return o;
}

PrintOutcome PrintOrSaveImage(const ChartCanvas& canvas, ReportOutput& output,
                              DialogService& dialogs, const PlotSaver& save,
                              const std::optional<PrintFork>& fork) {
    PrintOutcome outcome = PrintOutcome::Cancelled;
    if (dialogs.choosePrinter(kPrintDialogTitle)) {
        if (output.printToFileChosen()) {
            if (auto path = dialogs.saveFile(SaveImageDialog(kImageFilter))) {
                // A picture that can't be written ends the report without a word.
                if (save && save(canvas, *path)) {
                    dialogs.notify({kGraphicSavedPrefix + *path + ".", kDataSavedTitle, Buttons::Ok,
                                    Icon::Information});
                    outcome = PrintOutcome::Saved;
                } else {
                    outcome = PrintOutcome::SaveFailed;
                }
            }
        } else if (fork && fork->selector != 1) {
            if (fork->mainScreenPrint) fork->mainScreenPrint(0);
            outcome = PrintOutcome::MainScreenPrinted;
        } else {
            output.setPicture(canvas.Image());
            output.printPage();
            outcome = PrintOutcome::Printed;
        }
    }
    output.unload();
    return outcome;
}

PrintOutcome RunReport(const ReportDescriptor& report, const ChartCanvas& canvas,
                       ReportOutput& output, DialogService& dialogs, const PlotSaver& save) {
    output.fill(report);
    output.setPicture(canvas.Image());
    return PrintOrSaveImage(canvas, output, dialogs, save);
}

std::vector<std::string> SavePlots(const std::vector<const ChartCanvas*>& plots,
                                   DialogService& dialogs, const PlotSaver& save) {
    const auto chosen = dialogs.saveFile(SaveImageDialog(kBitmapFilter));
    if (!chosen || plots.empty()) return {};
    const std::string name = std::filesystem::path(*chosen).replace_extension().string();
    std::vector<std::string> written;
    for (std::size_t k = 0; k < plots.size(); ++k) {
        const std::string path = name + "_" + std::to_string(k) + ".bmp";
        if (!save || !plots[k] || !save(*plots[k], path)) return {};
        written.push_back(path);
    }
    dialogs.notify({"The plots were saved in " + name + "_" + "0" + ".bmp to " + name + "_" +
                        std::to_string(plots.size() - 1) + ".bmp.",
                    kPlotsSavedTitle, Buttons::Ok, Icon::Information});
    return written;
}

bool WriteTabDelimited(const std::string& path, const std::vector<std::vector<std::string>>& rows) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i) out << '\t';
            out << row[i];
        }
        out << "\r\n";
    }
    return static_cast<bool>(out.flush());
}

}  // namespace norvo
