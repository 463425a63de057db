#include "data/table_io.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>

#include "base/checked.h"
#include "data/file_kind.h"
#include "data/lfq_file.h"
#include "data/record_checks.h"
#include "data/record_kinds.h"
#include "data/schema.h"
#include "data/store_routines.h"

namespace norvo {

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string Shortest(double v, bool single) {
    char buf[40];
    const auto r = single ? std::to_chars(buf, buf + sizeof buf, static_cast<float>(v))
                          : std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

std::string Trimmed(const std::string& s) {
    const size_t a = s.find_first_not_of(" \t");
    if (a == std::string::npos) return "";
    return s.substr(a, s.find_last_not_of(" \t") - a + 1);
}

// A number written with a point, as spreadsheets and R export it.
bool ParseCell(const std::string& text, double& v) {
    const std::string t = Trimmed(text);
    if (t.empty()) return false;
    const char* first = t.data() + (t[0] == '+' ? 1 : 0);
    const auto r = std::from_chars(first, t.data() + t.size(), v);
    return r.ec == std::errc() && r.ptr == t.data() + t.size() && std::isfinite(v);
}

std::string Cell(const Rows& rows, size_t r, size_t c) {
    return c < rows[r].size() ? Trimmed(rows[r][c]) : std::string();
}

// A sample date: YYYY-MM-DD, or day/month/year with "/", "-" or ".".
bool ParseTableDate(const std::string& text, int& d, int& m, int& y) {
    const std::string t = Trimmed(text);
    if (t.size() == 10 && t[4] == '-' && t[7] == '-') {
        const std::string dmy = t.substr(8, 2) + "/" + t.substr(5, 2) + "/" + t.substr(0, 4);
        return ParseSampleDate(dmy, d, m, y);
    }
    return ParseSampleDate(t, d, m, y);
}

Rows LfqTable(const std::string& path) {
    const ReadResult<LfqData> read = ReadLFQ(path);
    if (!read) throw StoreError("cannot read " + path);
    const LfqData& d = read.value();
    Rows rows;
    std::vector<std::string> heading{kMidlengthHeading};
    for (int s = 0; s < d.noOfSamples; ++s) {
        char date[16];
        std::snprintf(date, sizeof date, "%04d-%02d-%02d", d.year[s] % 10000,
                      static_cast<int>(d.month[s]) % 100, static_cast<int>(d.day[s]) % 100);
        heading.push_back(date);
    }
    rows.push_back(heading);
    for (int c = 0; c < d.noOfClasses; ++c) {
        std::vector<std::string> line{Shortest(d.midlength(c), true)};
        for (int s = 0; s < d.noOfSamples; ++s) line.push_back(Shortest(d.freq[c][s], true));
        rows.push_back(line);
    }
    return rows;
}

Rows KindTable(const std::string& path, const RecordKind& kind) {
    const RecordFile file = ReadRecordFile(path, kind);
    Rows rows;
    std::vector<std::string> heading;
    for (const GridColumn& c : kind.columns) heading.push_back(c.field);
    rows.push_back(heading);
    for (const GridRow& r : file.rows) {
        std::vector<std::string> line;
        for (size_t c = 0; c < kind.columns.size(); ++c)
            line.push_back(r[c] ? Shortest(*r[c], !kind.columns[c].whole) : "");
        rows.push_back(line);
    }
    return rows;
}

void ImportLfq(const Rows& rows, const std::string& out, const std::string& programFolder,
               const TableImportOptions& o) {
    if (rows.empty()) throw TableFormatError(1, 1, "the table is empty");
    const size_t samples = rows[0].size() - 1;
    if (rows[0].size() < 2) throw TableFormatError(1, 2, "no sample column");
    std::vector<std::string> dates;
    for (size_t s = 1; s <= samples; ++s) {
        int d = 0, m = 0, y = 0;
        if (!ParseTableDate(Cell(rows, 0, s), d, m, y))
            throw TableFormatError(1, static_cast<int>(s + 1), "not a sampling date");
        dates.push_back(std::to_string(d) + "/" + std::to_string(m) + "/" + std::to_string(y));
    }
    size_t last = rows.size();
    while (last > 1 && rows[last - 1].size() <= 1 && Cell(rows, last - 1, 0).empty()) --last;
    if (last < 3)
        throw TableFormatError(static_cast<int>(last + 1), 1, "at least two classes needed");
    std::vector<double> mids;
    std::vector<std::vector<double>> freq;
    for (size_t r = 1; r < last; ++r) {
        const int row = static_cast<int>(r + 1);
        if (rows[r].size() > samples + 1)
            throw TableFormatError(row, static_cast<int>(samples + 2),
                                   "cell beyond the last sample");
        double mid = 0;
        if (!ParseCell(Cell(rows, r, 0), mid) || mid <= 0)
            throw TableFormatError(row, 1, "not a midlength");
        mids.push_back(mid);
        std::vector<double> line;
        for (size_t s = 1; s <= samples; ++s) {
            const std::string text = Cell(rows, r, s);
            double f = 0;
            if (!text.empty() && (!ParseCell(text, f) || f < 0 || f > 99999999.99))
                throw TableFormatError(row, static_cast<int>(s + 1), "not a frequency");
            line.push_back(f);
        }
        freq.push_back(std::move(line));
    }
    const float smallest = R4(mids[0]);
    const float interval = R4(mids[1] - mids[0]);
    if (!(interval > 0)) throw TableFormatError(3, 1, "midlengths must rise");
    for (size_t c = 0; c < mids.size(); ++c) {
        const double expected = static_cast<double>(c) * interval + smallest;
        if (std::fabs(mids[c] - expected) > 1e-4 * std::max(1.0, std::fabs(expected)))
            throw TableFormatError(static_cast<int>(c + 2), 1, "midlengths must be evenly spaced");
    }
    LfqHeader h;
    h.speciesname = o.speciesname;
    h.unitOfMeasurement = o.unit;
    h.typeOfMeasurement = o.typeOfMeasurement;
    h.remarks = o.remarks;
    h.smallestMl = smallest;
    h.classInterval = interval;
    AtomicRewriteFromTemplate(out, programFolder, [&](const std::string& work) {
        WriteDatesOnly(work, dates);
        WriteLfqFile(work, h, {}, freq);
    });
}

Outcome ImportKind(const Rows& rows, const std::string& out, const std::string& programFolder,
                   const RecordKind& kind, const TableImportOptions& o) {
    if (rows.empty()) throw TableFormatError(1, 1, "the table is empty");
    // Columns by the field names of the heading line, in any order.
    std::vector<int> columnOf(rows[0].size(), -1);
    std::vector<bool> seen(kind.columns.size(), false);
    for (size_t c = 0; c < rows[0].size(); ++c) {
        const int k = ColumnIndex(kind, Cell(rows, 0, c));
        if (k < 0 || seen[k]) throw TableFormatError(1, static_cast<int>(c + 1), "unknown field");
        columnOf[c] = k;
        seen[k] = true;
    }
    for (size_t k = 0; k < seen.size(); ++k)
        if (!seen[k])
            throw TableFormatError(1, static_cast<int>(rows[0].size() + 1),
                                   std::string("missing field ") + kind.columns[k].field);
    RecordFile file;
    for (size_t r = 1; r < rows.size(); ++r) {
        GridRow row(kind.columns.size());
        if (rows[r].size() > rows[0].size())
            throw TableFormatError(static_cast<int>(r + 1), static_cast<int>(rows[0].size() + 1),
                                   "cell beyond the last field");
        for (size_t c = 0; c < rows[r].size(); ++c) {
            const std::string text = Cell(rows, r, c);
            if (text.empty()) continue;
            const GridColumn& col = kind.columns[columnOf[c]];
            double v = 0;
            const bool ok = ParseCell(text, v) && v >= col.min && v <= col.max &&
                            (!col.whole || v == std::floor(v));
            if (!ok)
                throw TableFormatError(static_cast<int>(r + 1), static_cast<int>(c + 1),
                                       std::string("invalid ") + col.field);
            row[columnOf[c]] = v;
        }
        file.rows.push_back(std::move(row));
    }
    for (const HeaderBox& b : kind.boxes) {
        const std::string f = b.field;
        if (f == "Speciesname") file.header[f] = o.speciesname;
        if (f == "Unit_Of_Measurement" || f == "Unit_Of_Length_Measurement")
            file.header[f] = o.unit;
        if (f == "Type_Of_Measurement") file.header[f] = o.typeOfMeasurement;
        if (f == "Remarks") file.header[f] = o.remarks;
    }
    // The editor's checks, so that a table lets in nothing the editor would refuse.
    Outcome checked = CheckRecordRows(kind, file.rows);
    if (checked.ok()) WriteRecordFile(out, programFolder, kind, file);
    return checked;
}

}  // namespace

TableFormatError::TableFormatError(int r, int c, const std::string& reason)
    : std::runtime_error("Row " + std::to_string(r) + ", column " + std::to_string(c) + ": " +
                         reason + ". Nothing was imported."),
      row(r),
      column(c) {}

char DelimiterFor(const std::string& path) {
    const std::string ext = KindOfPath(path);
    return ext == "TAB" || ext == "TSV" || ext == "TXT" ? '\t' : ',';
}

Rows ParseDelimited(const std::string& text, char delimiter) {
    Rows rows;
    std::vector<std::string> row;
    std::string cell;
    bool quoted = false, any = false;
    int quoteRow = 0, quoteCol = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const char ch = text[i];
        if (quoted) {
            if (ch == '"' && i + 1 < text.size() && text[i + 1] == '"') {
                cell += '"';
                ++i;
            } else if (ch == '"') {
                quoted = false;
            } else {
                cell += ch;
            }
            continue;
        }
        if (ch == '"' && Trimmed(cell).empty()) {
            quoted = true;
            quoteRow = static_cast<int>(rows.size() + 1);
            quoteCol = static_cast<int>(row.size() + 1);
            cell.clear();
            any = true;
        } else if (ch == delimiter) {
            row.push_back(cell);
            cell.clear();
            any = true;
        } else if (ch == '\n' || ch == '\r') {
            if (ch == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
            row.push_back(cell);
            rows.push_back(row);
            row.clear();
            cell.clear();
            any = false;
        } else {
            cell += ch;
            any = true;
        }
    }
    if (quoted) throw TableFormatError(quoteRow, quoteCol, "unclosed quote");
    if (any) {
        row.push_back(cell);
        rows.push_back(row);
    }
    return rows;
}

std::string FormatDelimited(const Rows& rows, char delimiter) {
    std::string out;
    for (const auto& row : rows) {
        for (size_t c = 0; c < row.size(); ++c) {
            if (c) out += delimiter;
            const std::string& v = row[c];
            if (v.find_first_of(std::string("\"\r\n") + delimiter) == std::string::npos) {
                out += v;
                continue;
            }
            out += '"';
            for (char ch : v) out += ch == '"' ? std::string("\"\"") : std::string(1, ch);
            out += '"';
        }
        out += '\n';
    }
    return out;
}

Rows TableOfFile(const std::string& path) {
    const std::string code = KindOfPath(path);
    if (code == "LFQ") return LfqTable(path);
    if (const RecordKind* kind = FindRecordKind(code)) return KindTable(path, *kind);
    throw StoreError("no table form for " + path);
}

void ExportTable(const std::string& path, const std::string& out, char delimiter) {
    const std::string text = FormatDelimited(TableOfFile(path), delimiter);
    std::ofstream f(out, std::ios::binary | std::ios::trunc);
    f << text;
    f.close();
    if (!f) throw StoreError("cannot write " + out, StoreAccess::Save);
}

Outcome ImportRows(const Rows& rows, const std::string& out, const std::string& programFolder,
                   const TableImportOptions& options) {
    const std::string code = KindOfPath(out);
    if (code == "LFQ") {
        ImportLfq(rows, out, programFolder, options);
        return {};
    }
    if (const RecordKind* kind = FindRecordKind(code))
        return ImportKind(rows, out, programFolder, *kind, options);
    throw StoreError(kWrongFileType);
}

Outcome ImportTable(const std::string& tablePath, const std::string& out,
                    const std::string& programFolder, const TableImportOptions& options) {
    std::ifstream in(tablePath, std::ios::binary);
    if (!in) throw StoreError(kPathDoesNotExist);
    std::ostringstream text;
    text << in.rdbuf();
    std::string s = text.str();
    if (s.size() >= 3 && s.compare(0, 3, "\xEF\xBB\xBF") == 0) s.erase(0, 3);  // UTF-8 mark
    return ImportRows(ParseDelimited(s, DelimiterFor(tablePath)), out, programFolder, options);
}

}  // namespace norvo
