#include "data/lfq_file.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <exception>
#include <map>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"
#include "base/settings_store.h"
#include "data/data_store.h"

namespace norvo {

namespace {

int16_t ToInt16(int64_t v) {
    if (v < -32768 || v > 32767) ThrowOverflow();
    return static_cast<int16_t>(v);
}

int32_t ToInt32(int64_t v) {
    if (v < INT32_MIN || v > INT32_MAX) ThrowOverflow();
    return static_cast<int32_t>(v);
}

void ReadHeaderFields(Records& rs, LfqData& d) {
    d.speciesname = AsText(rs.getField("Speciesname"));
    d.otherId = AsText(rs.getField("Other_ID"));
    d.unitOfMeasurement = AsText(rs.getField("Unit_Of_Measurement"));
    d.typeOfMeasurement = AsText(rs.getField("Type_Of_Measurement"));
    d.smallestMl = AsFloat(rs.getField("Smallest_ML"));
    d.classInterval = AsFloat(rs.getField("Class_Interval"));
    d.remarks = AsText(rs.getField("Remarks"));
}

// Writes the header record; the caller's store is left open.
void WriteHeaderRecord(DataStore& store, const LfqHeader& h) {
    store.execute(std::string("DELETE * FROM [") + kTableGroupedLf + "];");
    Records rs = store.openRecords(kTableGroupedLf);
    rs.addNew();
    rs.setField("Speciesname", h.speciesname);
    rs.setField("Other_ID", h.otherId);
    rs.setField("Unit_Of_Measurement", h.unitOfMeasurement);
    rs.setField("Type_Of_Measurement", h.typeOfMeasurement);
    rs.setField("Smallest_ML", static_cast<double>(R4(h.smallestMl)));
    rs.setField("Class_Interval", static_cast<double>(R4(h.classInterval)));
    rs.setField("Remarks", h.remarks);
    rs.update();
    rs.close();
}

void WriteSampleRecords(DataStore& store, const std::vector<LfqSample>& samples) {
    store.execute(std::string("DELETE * FROM [") + kTableSampleLf + "];");
    Records rs = store.openRecords(kTableSampleLf);
    for (const LfqSample& s : samples) {
        rs.addNew();
        SampleToRecord(s, rs);
        rs.update();
    }
    rs.close();
}

bool IsLeapYear(int y) {
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

bool IsValidDate(int d, int m, int y) {
    static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (y < 100 || y > 9999 || m < 1 || m > 12 || d < 1) return false;
    const int last = kDays[m - 1] + (m == 2 && IsLeapYear(y) ? 1 : 0);
    return d <= last;
}

// Days since 1 March of year 0 (proleptic Gregorian): a serial that orders dates.
int64_t DaySerial(int d, int m, int y) {
    const int64_t yy = m <= 2 ? y - 1 : y;
    const int64_t mm = m <= 2 ? m + 9 : m - 3;
    return 365 * yy + yy / 4 - yy / 100 + yy / 400 + (153 * mm + 2) / 5 + d - 1;
}

// A whole number of at most `maxDigits` digits, surrounding blanks allowed.
bool ParseWhole(std::string s, int& out, size_t maxDigits = 4) {
    const auto b = s.find_first_not_of(' ');
    if (b == std::string::npos) return false;
    const auto e = s.find_last_not_of(' ');
    s = s.substr(b, e - b + 1);
    if (s.empty() || s.size() > maxDigits) return false;
    int v = 0;
    for (char c : s) {
        if (c < '0' || c > '9') return false;
        v = v * 10 + (c - '0');
    }
    out = v;
    return true;
}

std::string Trim(const std::string& s) {
    const auto b = s.find_first_not_of(" \t");
    if (b == std::string::npos) return {};
    const auto e = s.find_last_not_of(" \t");
    return s.substr(b, e - b + 1);
}

// Without leading and trailing white space of any kind.
std::string TrimSpace(const std::string& s) {
    auto space = [](unsigned char c) { return std::isspace(c) != 0; };
    auto b = std::find_if_not(s.begin(), s.end(), space);
    auto e = std::find_if_not(s.rbegin(), s.rend(), space).base();
    return b < e ? std::string(b, e) : std::string();
}

}  // namespace

LfqSample SampleFromRecord(const Records& rs) {
    LfqSample s;
    s.sampleNo = ToInt16(AsInteger(rs.getField("SampleNo")));
    s.samplingDay = ToInt16(AsInteger(rs.getField("Sampling_Day")));
    s.samplingMonth = ToInt16(AsInteger(rs.getField("Sampling_Month")));
    s.samplingYear = ToInt32(AsInteger(rs.getField("Sampling_Year")));
    s.sex = AsText(rs.getField("Sex"));
    s.samplingTime = AsText(rs.getField("Sampling_Time"));
    s.area = AsText(rs.getField("Area"));
    s.latitude = AsText(rs.getField("Latitude"));
    s.longitude = AsText(rs.getField("Longitude"));
    s.depth = AsFloat(rs.getField("Depth"));
    s.bottomType = AsText(rs.getField("Bottom_Type"));
    s.lwA = AsFloat(rs.getField("LW_a"));
    s.lwB = AsFloat(rs.getField("LW_b"));
    s.catchType = AsText(rs.getField("Catch_Type"));
    s.wtSample = AsFloat(rs.getField("Wt_Sample"));
    s.twtSpecies = AsFloat(rs.getField("TWt_Species"));
    s.twtCatch = AsFloat(rs.getField("TWt_Catch"));
    s.effort = AsFloat(rs.getField("Effort"));
    s.vessel = AsText(rs.getField("Vessel"));
    s.gearType = AsText(rs.getField("Gear_Type"));
    s.meshSize = AsFloat(rs.getField("Mesh_Size"));
    s.gearCharacteristics = AsText(rs.getField("Gear_Characteristics"));
    s.remarks = AsText(rs.getField("Remarks"));
    return s;
}

void SampleToRecord(const LfqSample& s, Records& rs) {
    rs.setField("SampleNo", int64_t{s.sampleNo});
    rs.setField("Sampling_Day", int64_t{s.samplingDay});
    rs.setField("Sampling_Month", int64_t{s.samplingMonth});
    rs.setField("Sampling_Year", int64_t{s.samplingYear});
    rs.setField("Sex", s.sex);
    rs.setField("Sampling_Time", s.samplingTime);
    rs.setField("Area", s.area);
    rs.setField("Latitude", s.latitude);
    rs.setField("Longitude", s.longitude);
    rs.setField("Depth", double{s.depth});
    rs.setField("Bottom_Type", s.bottomType);
    rs.setField("LW_a", double{s.lwA});
    rs.setField("LW_b", double{s.lwB});
    rs.setField("Catch_Type", s.catchType);
    rs.setField("Wt_Sample", double{s.wtSample});
    rs.setField("TWt_Species", double{s.twtSpecies});
    rs.setField("TWt_Catch", double{s.twtCatch});
    rs.setField("Effort", double{s.effort});
    rs.setField("Vessel", s.vessel);
    rs.setField("Gear_Type", s.gearType);
    rs.setField("Mesh_Size", double{s.meshSize});
    rs.setField("Gear_Characteristics", s.gearCharacteristics);
    rs.setField("Remarks", s.remarks);
}

ReadResult<LfqData> ReadLFQ(const std::string& path) {
    LfqData d;
    d.path = path;
    try {
        DataStore store = DataStore::open(path);

        Records header = store.openRecords("SELECT * FROM [Grouped_LF]");
        if (header.endOfRecords()) throw StoreError("no header record");
        ReadHeaderFields(header, d);
        header.close();

        Records distinct =
            store.openRecords("SELECT DISTINCT [SampleNo] FROM [Sample_LF] WHERE [SampleNo]>0");
        if (!distinct.endOfRecords()) {
            distinct.moveLast();
            distinct.moveFirst();
        }
        d.noOfSamples = distinct.recordCount();
        distinct.close();

        Records samples =
            store.openRecords("SELECT * FROM [Sample_LF] ORDER BY [Sample_LF].[SampleNo]");
        d.day.assign(d.noOfSamples, 0);
        d.month.assign(d.noOfSamples, 0);
        d.year.assign(d.noOfSamples, 0);
        int s = 0;
        for (; !samples.endOfRecords() && s < d.noOfSamples; samples.moveNext()) {
            if (AsInteger(samples.getField("SampleNo")) <= 0) continue;
            d.day[s] = ToInt16(AsInteger(samples.getField("Sampling_Day")));
            d.month[s] = ToInt16(AsInteger(samples.getField("Sampling_Month")));
            d.year[s] = ToInt16(AsInteger(samples.getField("Sampling_Year")));
            ++s;
        }
        samples.close();

        Records measures = store.openRecords("SELECT * FROM [GLF_Measures]");
        if (!measures.endOfRecords()) {
            const int64_t first = AsInteger(measures.getField("SampleNo"));
            while (!measures.endOfRecords() && AsInteger(measures.getField("SampleNo")) == first) {
                ++d.noOfClasses;
                measures.moveNext();
            }
            measures.moveFirst();
        }
        d.largestMl = (d.noOfClasses - 1) * d.classInterval + d.smallestMl;

        d.freq.assign(d.noOfClasses, std::vector<double>(d.noOfSamples, 0.0));
        for (int smp = 0; smp < d.noOfSamples; ++smp) {
            for (int c = 0; c < d.noOfClasses; ++c) {
                if (measures.endOfRecords()) throw StoreError("measures run short");
                d.freq[c][smp] = AsFloat(measures.getField("Frequency"));
                measures.moveNext();
            }
        }
        measures.close();
        store.close();
        return d;
    } catch (const std::exception&) {
        return InvalidDataError(path);
    }
}

namespace {

// The Grouped_LF fields of a header, with the file's path; closes the records.
void ReadHeaderRecord(Records& header, const std::string& path, LfqHeader& h) {
    LfqData d;
    ReadHeaderFields(header, d);
    header.close();
    h.speciesname = d.speciesname;
    h.otherId = d.otherId;
    h.unitOfMeasurement = d.unitOfMeasurement;
    h.typeOfMeasurement = d.typeOfMeasurement;
    h.remarks = d.remarks;
    h.smallestMl = d.smallestMl;
    h.classInterval = d.classInterval;
    h.path = path;
}

}  // namespace

ReadResult<LfqHeader> ReadLfqHeader(const std::string& path) {
    LfqHeader h;
    double maxMid = 0;
    bool anyMeasure = false;
    try {
        DataStore store = DataStore::open(path);
        Records header = store.openRecords("SELECT * FROM [Grouped_LF]");
        if (header.endOfRecords()) {
            return ReadError{path, {kFileEmptyText, kAppTitle, Buttons::Ok, Icon::None}};
        }
        ReadHeaderRecord(header, path, h);

        Records distinct =
            store.openRecords("SELECT DISTINCT [SampleNo] FROM [Sample_LF] WHERE [SampleNo]>0");
        if (!distinct.endOfRecords()) distinct.moveLast();
        h.noOfSamples = distinct.recordCount();
        distinct.close();

        Records mx =
            store.openRecords("SELECT Max(GLF_Measures.MidLength) AS tblMax FROM GLF_Measures");
        if (!mx.endOfRecords() && !IsNull(mx.getField("tblMax"))) {
            anyMeasure = true;
            maxMid = AsFloat(mx.getField("tblMax"));
        }
        mx.close();
        store.close();
    } catch (const Fault&) {
        throw;
    } catch (const std::exception&) {
        return InvalidDataError(path);
    }
    if (anyMeasure) {
        // Rounded, not truncated: a largest midlength stored a hair below its exact value (a sum
        // of 32-bit values that are not binary fractions) must not lose its class.
        h.noOfClasses = CLng(Div(maxMid - h.smallestMl, h.classInterval)) + 1;
    }
    h.largestMl = (h.noOfClasses - 1) * h.classInterval + h.smallestMl;
    return h;
}

ReadResult<LfqSheet> ReadLfqSheet(const std::string& path) {
    LfqSheet sheet;
    try {
        DataStore store = DataStore::open(path);
        Records header = store.openRecords("SELECT * FROM [Grouped_LF]");
        if (header.endOfRecords()) return InvalidDataError(path);
        LfqHeader& h = sheet.header;
        ReadHeaderRecord(header, path, h);

        Records measures = store.openRecords("SELECT * FROM [GLF_Measures]");
        std::vector<std::pair<int64_t, double>> all;  // SampleNo, Frequency
        for (; !measures.endOfRecords(); measures.moveNext()) {
            all.emplace_back(AsInteger(measures.getField("SampleNo")),
                             AsDouble(measures.getField("Frequency")));
        }
        measures.close();
        while (sheet.rows < static_cast<int>(all.size()) &&
               all[static_cast<size_t>(sheet.rows)].first == all.front().first) {
            ++sheet.rows;
        }
        std::map<int64_t, size_t> columnOf;
        for (const auto& [sampleNo, frequency] : all) {
            auto [it, added] = columnOf.try_emplace(sampleNo, sheet.columns.size());
            if (added) sheet.columns.emplace_back();
            auto& column = sheet.columns[it->second];
            if (static_cast<int>(column.size()) < sheet.rows) column.push_back(frequency);
        }
        for (auto& column : sheet.columns) column.resize(static_cast<size_t>(sheet.rows));

        sheet.dates.assign(sheet.columns.size(), std::string());
        Records samples =
            store.openRecords("SELECT * FROM [Sample_LF] ORDER BY [Sample_LF].[SampleNo]");
        for (; !samples.endOfRecords(); samples.moveNext()) {
            const int64_t no = AsInteger(samples.getField("SampleNo"));
            if (no < 1 || no > static_cast<int64_t>(sheet.columns.size())) continue;
            sheet.dates[static_cast<size_t>(no - 1)] =
                TrimSpace(AsText(samples.getField("Sampling_Day"))) + "/" +
                TrimSpace(AsText(samples.getField("Sampling_Month"))) + "/" +
                TrimSpace(AsText(samples.getField("Sampling_Year")));
        }
        samples.close();
        store.close();
    } catch (const std::exception&) {
        return InvalidDataError(path);
    }
    return sheet;
}

std::vector<LfqSample> ReadSampleHeaders(const std::string& path) {
    DataStore store = DataStore::open(path);
    Records rs = store.openRecords("SELECT * FROM [Sample_LF] ORDER BY [Sample_LF].[SampleNo]");
    std::vector<LfqSample> out;
    for (; !rs.endOfRecords(); rs.moveNext()) out.push_back(SampleFromRecord(rs));
    rs.close();
    store.close();
    return out;
}

void WriteSampleHeaders(const std::string& path, const std::vector<LfqSample>& samples) {
    SaveInTransaction(path, [&](DataStore& store) { WriteSampleRecords(store, samples); });
}

void WriteSampleHeader(const std::string& path, const LfqSample& sample) {
    SaveInTransaction(path, [&](DataStore& store) {
        Records rs = store.openRecords("SELECT * FROM [Sample_LF] ORDER BY [Sample_LF].[SampleNo]");
        while (!rs.endOfRecords() && AsInteger(rs.getField("SampleNo")) != sample.sampleNo)
            rs.moveNext();
        if (rs.endOfRecords()) {
            rs.addNew();
        } else {
            rs.edit();
        }
        if (sample.samplingDay > 0) SampleToRecord(sample, rs);
        rs.update();
        rs.close();
    });
}

void DeleteSampleHeader(const std::string& path, int sampleNo) {
    SaveInTransaction(path, [&](DataStore& store) {
        const std::string no = std::to_string(sampleNo);
        store.execute(std::string("DELETE * FROM [") + kTableSampleLf +
                      "] WHERE [SampleNo] = " + no);
        store.execute(std::string("UPDATE [") + kTableSampleLf +
                      "] SET [SampleNo]=([SampleNo] - 1) WHERE ([SampleNo] > " + no + ")");
    });
}

void WriteLfqHeader(const std::string& path, const LfqHeader& header) {
    SaveInTransaction(path, [&](DataStore& store) { WriteHeaderRecord(store, header); });
}

void WriteLfqFile(const std::string& path, const LfqHeader& header,
                  const std::vector<LfqSample>& samples,
                  const std::vector<std::vector<double>>& freq) {
    const StoreSaving saving;
    const size_t nSamples = freq.empty() ? 0 : freq.front().size();
    for (const auto& row : freq) {
        if (row.size() != nSamples) throw SubscriptFault("WriteLfqFile");
    }
    SaveInTransaction(path, [&](DataStore& store) {
        WriteHeaderRecord(store, header);
        if (!samples.empty()) WriteSampleRecords(store, samples);
        store.execute(std::string("DELETE * FROM [") + kTableGlfMeasures + "];");
        Records rs = store.openRecords(kTableGlfMeasures);
        for (size_t s = 0; s < nSamples; ++s) {
            for (size_t c = 0; c < freq.size(); ++c) {
                rs.addNew();
                rs.setField("SampleNo", int64_t{static_cast<int32_t>(s + 1)});
                rs.setField("MidLength",
                            static_cast<double>(c) * header.classInterval + header.smallestMl);
                rs.setField("Frequency", static_cast<double>(R4(freq[c][s])));
                rs.update();
            }
        }
        rs.close();
    });
}

void WriteDatesOnly(const std::string& path, const std::vector<std::string>& dates) {
    const StoreSaving saving;
    std::vector<LfqSample> samples;
    samples.reserve(dates.size());
    for (size_t i = 0; i < dates.size(); ++i) {
        // Taken apart at "/" as day, month, year.
        std::array<int, 3> parts{0, 0, 0};
        size_t start = 0;
        for (int k = 0; k < 3; ++k) {
            const size_t slash = dates[i].find('/', start);
            const std::string piece = dates[i].substr(
                start, slash == std::string::npos ? std::string::npos : slash - start);
            if (!ParseWhole(piece, parts[k], 5)) throw ConversionFault("WriteDatesOnly");
            if (slash == std::string::npos) {
                if (k < 2) throw ConversionFault("WriteDatesOnly");
                break;
            }
            start = slash + 1;
        }
        LfqSample s;
        s.sampleNo = ToInt16(static_cast<int64_t>(i + 1));
        s.samplingDay = ToInt16(parts[0]);
        s.samplingMonth = ToInt16(parts[1]);
        s.samplingYear = parts[2];
        samples.push_back(s);
    }
    SaveInTransaction(path, [&](DataStore& store) {
        store.execute(std::string("DELETE * FROM [") + kTableSampleLf + "];");
        Records rs = store.openRecords(kTableSampleLf);
        for (const LfqSample& s : samples) {
            rs.addNew();
            rs.setField("SampleNo", int64_t{s.sampleNo});
            rs.setField("Sampling_Day", int64_t{s.samplingDay});
            rs.setField("Sampling_Month", int64_t{s.samplingMonth});
            rs.setField("Sampling_Year", int64_t{s.samplingYear});
            rs.update();
        }
        rs.close();
    });
}

std::string FormatSampleDate(int day, int month, int year) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", day, month, year);
    return buf;
}

bool ParseSampleDate(const std::string& heading, int& day, int& month, int& year) {
    std::array<std::string, 3> parts;
    int k = 0;
    for (char c : heading) {
        if (c == '/' || c == '-' || c == '.') {
            if (++k > 2) return false;
        } else {
            parts[k] += c;
        }
    }
    if (k != 2) return false;
    int d = 0, m = 0, y = 0;
    if (!ParseWhole(parts[0], d) || !ParseWhole(parts[1], m) || !ParseWhole(parts[2], y)) {
        return false;
    }
    if (!IsValidDate(d, m, y)) return false;
    day = d;
    month = m;
    year = y;
    return true;
}

bool IsValidDateParts(const std::string& day, const std::string& month, const std::string& year) {
    const std::string d = Trim(day), m = Trim(month), y = Trim(year);
    if (d.empty() || m.empty() || y.empty()) return false;
    if (y.size() != 4) return false;
    int dd = 0, mm = 0, yy = 0;
    return ParseWhole(d, dd) && ParseWhole(m, mm) && ParseWhole(y, yy) && IsValidDate(dd, mm, yy);
}

std::vector<int> ChronologicalSort(const std::vector<std::string>& headings) {
    const int n = static_cast<int>(headings.size());
    // 1-based working arrays, as the partitioning below is written.
    std::vector<int64_t> key(n + 1, 0);
    for (int i = 1; i <= n; ++i) {
        int d = 0, m = 0, y = 0;
        if (!ParseSampleDate(headings[i - 1], d, m, y)) throw ConversionFault("ChronologicalSort");
        key[i] = DaySerial(d, m, y);
    }
    std::vector<int> idx(n + 1);
    for (int j = 1; j <= n; ++j) idx[j] = j;
    if (n < 2) return std::vector<int>(idx.begin() + 1, idx.end());

    // Index quicksort: median of three, insertion sort below 7 elements, explicit stack of 100.
    constexpr int kInsertionBelow = 7;
    constexpr int kStackSize = 100;
    std::array<int, kStackSize + 1> stack{};
    int l = 1, ir = n, top = 0;
    for (;;) {
        if (ir - l < kInsertionBelow) {
            for (int j = l + 1; j <= ir; ++j) {
                const int it = idx[j];
                const int64_t a = key[it];
                int i = j - 1;
                for (; i >= l; --i) {
                    if (key[idx[i]] <= a) break;
                    idx[i + 1] = idx[i];
                }
                idx[i + 1] = it;
            }
            if (top == 0) break;
            ir = stack[top--];
            l = stack[top--];
        } else {
            const int k = (l + ir) >> 1;
            std::swap(idx[k], idx[l + 1]);
            if (key[idx[l]] > key[idx[ir]]) std::swap(idx[l], idx[ir]);
            if (key[idx[l + 1]] > key[idx[ir]]) std::swap(idx[l + 1], idx[ir]);
            if (key[idx[l]] > key[idx[l + 1]]) std::swap(idx[l], idx[l + 1]);
            int i = l + 1, j = ir;
            const int it = idx[l + 1];
            const int64_t a = key[it];
            for (;;) {
                do ++i;
                while (key[idx[i]] < a);
                do --j;
                while (key[idx[j]] > a);
                if (j < i) break;
                std::swap(idx[i], idx[j]);
            }
            idx[l + 1] = idx[j];
            idx[j] = it;
            top += 2;
            if (top > kStackSize) throw SubscriptFault("ChronologicalSort");
            // Push the larger part, go on with the smaller.
            if (ir - i + 1 >= j - l) {
                stack[top] = ir;
                stack[top - 1] = i;
                ir = j - 1;
            } else {
                stack[top] = j - 1;
                stack[top - 1] = l;
                l = i;
            }
        }
    }
    return std::vector<int>(idx.begin() + 1, idx.end());
}

GridExtent TrimGrid(int rows, int cols, const std::function<bool(int row, int col)>& hasData) {
    GridExtent e;
    for (int r = 1; r <= rows; ++r) {
        for (int c = 1; c <= cols; ++c) {
            if (hasData(r, c)) {
                e.rows = std::max(e.rows, r);
                e.cols = std::max(e.cols, c);
            }
        }
    }
    return e;
}

}  // namespace norvo
