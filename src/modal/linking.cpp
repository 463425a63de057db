#include "modal/linking.h"

#include <cmath>

#include "base/checked.h"
#include "base/format.h"
#include "data/data_store.h"
#include "data/file_kind.h"
#include "data/store_routines.h"
#include "mortality/catch_curve.h"
#include "numerics/regression.h"

namespace norvo {

std::string GinCreatedText(const std::string& path) {
    return "The growth increment file " + path + " was successfully created.";
}

std::string LaaCreatedText(const std::string& path) {
    return "The length-at-(relative)age file " + path + " was successfully created.";
}

std::string NoPointText(int point, int points) {
    return "There is no point " + std::to_string(point) +
           " in the file; the points run from 1 to " + std::to_string(points) + ".";
}

int LinkDateKey(int day, int month, int year) {
    return year * 365 + month * 30 + day;
}

int64_t CalendarDay(int day, int month, int year) {
    // Days from civil: March-based years put the leap day at the end of the year.
    const int64_t y = year - (month <= 2 ? 1 : 0);
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t mp = (month + 9) % 12;
    const int64_t doy = (153 * mp + 2) / 5 + day - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe;
}

GinRow LinkRow::gin() const {
    return {
        0,       static_cast<float>(day1), static_cast<float>(month1), static_cast<float>(year1),
        length1, static_cast<float>(day2), static_cast<float>(month2), static_cast<float>(year2),
        length2};
}

Outcome ClickPoint(LinkState& s, int point) {
    Outcome o;
    if (s.open == 0) {
        s.open = point;
        return o;
    }
    const MsdRow& from = s.points.at(static_cast<size_t>(s.open - 1));
    const MsdRow& to = s.points.at(static_cast<size_t>(point - 1));
    if (LinkDateKey(to.day, to.month, to.year) <= LinkDateKey(from.day, from.month, from.year)) {
        o.refuse(kLkEarlierText, kLkInvalidTitle, Icon::Warning);
        return o;
    }
    s.links.push_back(
        {from.day, from.month, from.year, from.length, to.day, to.month, to.year, to.length});
    s.linked.emplace_back(s.open, point);
    s.open = point;
    return o;
}

void BreakSeries(LinkState& s) {
    s.open = 0;
}

void ConnectFromPrevious(LinkState& s) {
    if (!s.linked.empty()) s.open = s.linked.back().second;
}

LinkingRun LinkSeries(const std::vector<MsdRow>& points,
                      const std::vector<std::vector<int>>& series) {
    LinkingRun run;
    run.state.points = points;
    const int n = static_cast<int>(points.size());
    for (const auto& one : series)
        for (int p : one)
            if (p < 1 || p > n) {
                run.refuse(NoPointText(p, n), kLkInvalidTitle, Icon::Information);
                return run;
            }
    for (const auto& one : series) {
        BreakSeries(run.state);
        for (int p : one) {
            const int from = run.state.open;
            const Outcome click = ClickPoint(run.state, p);
            if (!click.ok()) {
                run.refused.emplace_back(from, p);
                for (const UserNotice& notice : click.notices) run.notices.push_back(notice);
            }
        }
    }
    BreakSeries(run.state);
    return run;
}

LinkGrowth ComputeLinkGrowth(const std::vector<LinkRow>& links) {
    LinkGrowth g;
    for (const LinkRow& r : links) {
        const double dt = static_cast<double>(CalendarDay(r.day2, r.month2, r.year2) -
                                              CalendarDay(r.day1, r.month1, r.year1)) /
                          365.0;
        g.dt.push_back(dt);
        g.rate.push_back(R4(Div(static_cast<double>(r.length2) - r.length1, dt)));
        g.mean.push_back(R4((static_cast<double>(r.length1) + r.length2) / 2));
    }
    if (links.size() <= 1) return g;
    RegressionResult fit;
    LinearRegression(g.mean, g.rate, 0, static_cast<int32_t>(links.size()) - 1, fit);
    g.a = fit.a();
    g.b = fit.b();
    if (fit.b() < 0) {
        g.loo = R4(Div(-fit.a(), fit.b()));
        g.k = -fit.b();
    }
    return g;
}

std::vector<std::optional<std::pair<AgeRecord, AgeRecord>>> LinkAges(
    const std::vector<LinkRow>& links, const LinkGrowth& g) {
    std::vector<std::optional<std::pair<AgeRecord, AgeRecord>>> ages(links.size());
    if (!g.possible()) return ages;
    for (size_t i = 0; i < links.size(); ++i) {
        const LinkRow& r = links[i];
        std::optional<float> first;
        if (i > 0 && ages[i - 1]) {
            const LinkRow& p = links[i - 1];
            if (p.day2 == r.day1 && p.month2 == r.month1 && p.year2 == r.year1 &&
                p.length2 == r.length1)
                first = ages[i - 1]->second.age;
        }
        if (!first) {
            const double age = AgeOfLength(r.length1, g.loo, g.k, 0);
            if (age == -9999) continue;
            first = R4(age);
        }
        const AgeRecord a{*first, r.length1, 1};
        const AgeRecord b{R4(*first + g.dt[i]), r.length2, 1};
        ages[i] = std::make_pair(a, b);
    }
    return ages;
}

namespace {

bool TemplateReady(const std::string& path, const std::string& programFolder,
                   DialogService& dialogs) {
    const FileKind* kind = KindOfFile(path);
    const std::string templatePath = kind ? TemplatePathOf(*kind, programFolder) : std::string();
    if (kind && FileExists(templatePath)) return true;
    dialogs.notify(
        {TemplateMissingText(templatePath, path), kFileNotFoundTitle, Buttons::Ok, Icon::Warning});
    return false;
}

void WriteHeader(DataStore& store, const std::string& table,
                 const std::vector<std::pair<std::string, FieldValue>>& fields) {
    store.execute("DELETE * FROM [" + table + "];");
    Records rs = store.openRecords(table);
    rs.addNew();
    for (const auto& [name, value] : fields) rs.setField(name, value);
    rs.update();
    rs.close();
}

std::string DateText(int day, int month, int year) {
    return Format(year, "0000") + "-" + Format(month, "00") + "-" + Format(day, "00");
}

}  // namespace

bool SaveLinksAsGin(const std::string& path, const std::string& programFolder, const LfqData& h,
                    const std::vector<LinkRow>& links, DialogService& dialogs) {
    if (!TemplateReady(path, programFolder, dialogs)) return false;
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            WriteHeader(store, "GIN",
                        {{"Speciesname", h.speciesname},
                         {"Other_ID", h.otherId},
                         {"Unit_Of_Measurement", h.unitOfMeasurement},
                         {"Type_Of_Measurement", std::string(kLkTypeOfMeasurement)},
                         {"Remarks", h.remarks + kLkRemarksSuffix}});
            store.execute("DELETE * FROM [GIN_Measures];");
            Records rs = store.openRecords("GIN_Measures");
            for (const LinkRow& r : links) {
                rs.addNew();
                rs.setField("Day1", int64_t{r.day1});
                rs.setField("Month1", int64_t{r.month1});
                rs.setField("Year1", int64_t{r.year1});
                rs.setField("Length1", static_cast<double>(r.length1));
                rs.setField("Day2", int64_t{r.day2});
                rs.setField("Month2", int64_t{r.month2});
                rs.setField("Year2", int64_t{r.year2});
                rs.setField("Length2", static_cast<double>(r.length2));
                rs.update();
            }
            rs.close();
        });
    });
    dialogs.notify({GinCreatedText(path), kLkCreatedTitle, Buttons::Ok, Icon::Information});
    return true;
}

bool SaveLinksAsLaa(const std::string& path, const std::string& programFolder, const LfqData& h,
                    const std::vector<LinkRow>& links, const LinkGrowth& growth,
                    DialogService& dialogs) {
    if (!TemplateReady(path, programFolder, dialogs)) return false;
    const auto ages = LinkAges(links, growth);
    const std::string date =
        links.empty() ? std::string() : DateText(links[0].day1, links[0].month1, links[0].year1);
    AtomicRewriteFromTemplate(path, programFolder, [&](const std::string& work) {
        SaveInTransaction(work, [&](DataStore& store) {
            WriteHeader(store, "LAA",
                        {{"Speciesname", h.speciesname},
                         {"Other_ID", h.otherId},
                         {"Sampling_Date", date.empty() ? FieldValue{} : FieldValue{date}},
                         {"Unit_Of_Length_Measurement", h.unitOfMeasurement},
                         {"Type_Of_Measurement", std::string(kLkTypeOfMeasurement)},
                         {"Unit_Of_Age_Measurement", std::string(kLkAgeUnit)},
                         {"Remarks", h.remarks + kLkRemarksSuffix}});
            store.execute("DELETE * FROM [LAA_Measures];");
            Records rs = store.openRecords("LAA_Measures");
            for (const auto& row : ages) {
                if (!row) continue;
                for (const AgeRecord& a : {row->first, row->second}) {
                    rs.addNew();
                    rs.setField("Age", static_cast<double>(a.age));
                    rs.setField("Length", static_cast<double>(a.length));
                    rs.setField("WF", static_cast<double>(a.wf));
                    rs.update();
                }
            }
            rs.close();
        });
    });
    dialogs.notify({LaaCreatedText(path), kLkCreatedTitle, Buttons::Ok, Icon::Information});
    return true;
}

}  // namespace norvo
