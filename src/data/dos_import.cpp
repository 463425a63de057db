#include "data/dos_import.h"

#include <cctype>
#include <cmath>
#include <fstream>
#include <sstream>

#include "data/lfq_file.h"
#include "data/store_routines.h"

namespace norvo {

namespace {

// Reads the next line, without a trailing carriage return; false at the end of the file.
bool NextLine(std::istream& in, std::string& line) {
    if (!std::getline(in, line)) return false;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

std::string RequireLine(std::istream& in) {
    std::string line;
    if (!NextLine(in, line)) throw DosFormatError("unexpected end of file");
    return line;
}

std::vector<std::string> Tokens(const std::string& line) {
    std::istringstream s(line);
    std::vector<std::string> out;
    for (std::string t; s >> t;) out.push_back(t);
    return out;
}

double Number(const std::string& token) {
    size_t used = 0;
    double v = 0;
    try {
        v = std::stod(token, &used);
    } catch (const std::exception&) {
        throw DosFormatError("not a number: " + token);
    }
    if (used != token.size() || !std::isfinite(v)) throw DosFormatError("not a number: " + token);
    return v;
}

int Whole(const std::string& token) {
    const double v = Number(token);
    if (v != std::floor(v) || std::fabs(v) > 1e6) throw DosFormatError("not a whole number");
    return static_cast<int>(v);
}

// Whole part of a class position; a hair of tolerance keeps 2.9999999 from becoming 2.
int ClassPosition(double x) {
    return static_cast<int>(std::floor(x + 1e-7));
}

}  // namespace

std::string NegativeFrequencyText(int row, int column) {
    return "The frequency in row " + std::to_string(row) + ", column " + std::to_string(column) +
           " is negative. Frequencies cannot be negative. Import of data failed.";
}

std::string SampleCountText(int announced, int read) {
    return "The file announces " + std::to_string(announced) + " samples on line 4, but " +
           std::to_string(read) + " were found. The " + std::to_string(read) +
           " samples found were imported.";
}

std::string DosUnit(const std::string& line) {
    const char first =
        line.empty() ? ' '
                     : static_cast<char>(std::toupper(static_cast<unsigned char>(line.front())));
    if (first == 'C') return "cm";
    if (first == 'M') return "mm";
    return "in";
}

DosImport ReadDosFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw DosFormatError("cannot open " + path);
    DosImport d;
    d.speciesname = RequireLine(in);
    d.otherId = RequireLine(in);
    d.unit = DosUnit(RequireLine(in));
    const std::vector<std::string> count = Tokens(RequireLine(in));
    if (count.empty()) throw DosFormatError("no sample count");
    const int samples = Whole(count[0]);
    const std::vector<std::string> classes = Tokens(RequireLine(in));
    if (classes.size() < 3) throw DosFormatError("class line");
    d.classInterval = Number(classes[0]);
    d.smallestMl = Number(classes[1]);
    d.largestMl = Number(classes[2]);
    if (d.classInterval <= 0 || d.largestMl < d.smallestMl) throw DosFormatError("class structure");
    const int rows = ClassPosition((d.largestMl - d.smallestMl) / d.classInterval + 1);
    if (rows < 1 || rows > 100000) throw DosFormatError("class count");
    // One column per sample found, whatever line 4 announces.
    d.grid.assign(rows, {});
    for (int i = 1; i <= rows; ++i)
        d.rowHeadings.push_back((i - 1) * d.classInterval + d.smallestMl);

    int s = 0;
    for (std::string line; NextLine(in, line);) {
        const std::vector<std::string> t = Tokens(line);
        if (t.empty()) continue;  // blank lines between or after the samples
        if (t.size() < 5) throw DosFormatError("sample line");
        const int lines = Whole(t[0]);
        const double first = Number(t[1]);
        const int month = Whole(t[2]);
        const int day = Whole(t[3]);
        const int year = Whole(t[4]) + 1900;  // no century window: 105 is 2005
        const std::string heading = FormatSampleDate(day, month, year);
        int pd = 0, pm = 0, py = 0;
        if (!ParseSampleDate(heading, pd, pm, py)) throw DosFormatError("sample date");
        d.headings.push_back(heading);
        for (auto& row : d.grid) row.emplace_back();
        const int r0 = ClassPosition((first - d.smallestMl) / d.classInterval + 1);
        for (int k = 1; k <= lines; ++k) {
            const std::vector<std::string> f = Tokens(RequireLine(in));
            const int row = r0 + k - 1;
            if (f.empty() || row < 1 || row > rows) throw DosFormatError("frequency line");
            const double v = Number(f[0]);
            if (v < 0 && d.ok()) d.refuse(NegativeFrequencyText(row, s + 1), kInvalidDataTitle);
            d.grid[row - 1][s] = v;
        }
        ++s;
    }
    if (s == 0) throw DosFormatError("no sample");
    if (s != samples && d.ok())
        d.note(SampleCountText(samples, s), kImportDoneTitle, Icon::Information);
    return d;
}

void SaveDosImport(const std::string& destination, const std::string& programFolder,
                   const DosImport& data) {
    LfqHeader h;
    h.speciesname = data.speciesname;
    h.otherId = data.otherId;
    h.unitOfMeasurement = data.unit;
    h.typeOfMeasurement = "Total length (TL)";
    h.remarks = kImportRemarks;
    h.smallestMl = data.smallestMl;
    h.classInterval = data.classInterval;
    std::vector<std::vector<double>> freq;
    for (const auto& row : data.grid) {
        std::vector<double> line;
        for (const auto& cell : row) line.push_back(cell.value_or(0.0));
        freq.push_back(std::move(line));
    }
    AtomicRewriteFromTemplate(destination, programFolder, [&](const std::string& work) {
        WriteDatesOnly(work, data.headings);
        WriteLfqFile(work, h, {}, freq);
    });
}

}  // namespace norvo
