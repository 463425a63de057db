#include "selection/selection.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "base/fault.h"
#include "base/settings_store.h"
#include "data/file_kind.h"
#include "data/record_kinds.h"
#include "data/store_routines.h"
#include "data/write_notices.h"

namespace norvo {

namespace {

float& Cell(std::vector<float>& v, int i) {
    if (i < 0 || i >= static_cast<int>(v.size())) throw SubscriptFault("selection");
    return v[static_cast<size_t>(i)];
}

}  // namespace

std::string LengthClassesLabel(const std::string& unit) {
    return "Length Classes (" + unit + ")";
}

SelectionInput SelectionInputFromPrb(const std::vector<float>& length,
                                     const std::vector<float>& probability) {
    SelectionInput in;
    in.nC = static_cast<int>(std::min(length.size(), probability.size()));
    if (in.nC == 0) throw SubscriptFault("probabilities");
    in.firstMid = length[0];
    in.w = in.nC > 1 ? length[1] - length[0] : 1;
    in.probability = {0.f};
    in.probability.insert(in.probability.end(), probability.begin(), probability.begin() + in.nC);
    in.firstClass = 1;
    while (in.firstClass < in.nC && !(in.probability[in.firstClass] > 0)) ++in.firstClass;
    in.firstPoint = in.firstClass;
    while (in.firstPoint < in.nC && in.probability[in.firstPoint] < 1) ++in.firstPoint;
    return in;
}

LogitPoints MakeLogitPoints(SelectionInput& in) {
    LogitPoints pts;
    pts.firstClass = in.firstClass;
    pts.logit.assign(static_cast<size_t>(in.nC) + 1, 0.f);
    pts.x.assign(static_cast<size_t>(in.nC) + 1, 0.f);
    pts.selected.assign(static_cast<size_t>(in.nC) + 1, false);
    pts.x[0] = R4(in.firstMid - in.w);
    for (int i = in.firstClass; i <= in.nC; ++i) {
        double p = Cell(in.probability, i);
        if (p >= 1) {
            p = 0.99999;
            in.probability[i] = R4(p);
        }
        const double odds = Div(p, 1 - p);
        pts.logit[i] = odds == 0 ? 0.f : R4(Ln(odds));
        pts.x[i] = R4(in.midlength(i));
        pts.selected[i] = i < in.firstPoint;
    }
    return pts;
}

int SelectedCount(const LogitPoints& points) {
    int n = 0;
    for (bool s : points.selected) n += s ? 1 : 0;
    return n;
}

LogitFit Regress1(const LogitPoints& points) {
    std::vector<float> x, y;
    for (size_t i = 0; i < points.selected.size(); ++i)
        if (points.selected[i]) {
            x.push_back(points.x[i]);
            y.push_back(points.logit[i]);
        }
    RegressionResult candidate;
    if (x.size() >= 2) LinearRegression(x, y, 0, static_cast<int32_t>(x.size()) - 1, candidate);
    LogitFit result;
    if (x.size() < 2 || candidate.b() <= 0) {
        result.refuse(kSelPositiveSlopeText, kSelNoticeTitle, Icon::None);
        return result;
    }
    result.fit = candidate;
    return result;
}

Outcome TogglePoint(LogitPoints& points, int i) {
    if (i < 0 || i >= static_cast<int>(points.selected.size())) throw SubscriptFault("logits");
    Outcome o;
    points.selected[i] = !points.selected[i];
    if (SelectedCount(points) < 3) {
        points.selected[i] = !points.selected[i];
        o.refuse(kSelTooFewPointsText, kSelInvalidActionTitle, Icon::Information);
    }
    return o;
}

SelectionCurve LogisticCurve(const SelectionInput& in, const LogitPoints& points, double a,
                             double b) {
    SelectionCurve c;
    c.a = a;
    c.b = b;
    auto p = [&](double length) {
        const double e = Exp(a + b * length);
        return Div(e, 1 + e);
    };
    c.smoothed.assign(static_cast<size_t>(in.nC) + 1, 0.f);
    c.smoothedEdge.assign(static_cast<size_t>(in.nC) + 1, 0.f);
    c.smoothed[0] = R4(p(points.x[0]));
    for (int i = in.firstClass; i <= in.nC; ++i) {
        c.smoothed[i] = R4(p(points.x[i]));
        c.smoothedEdge[i] = R4(p(points.x[i] - in.w / 2));
    }
    c.l25 = R4(Div(Ln(0.25 / 0.75) - a, b));
    c.l50 = R4(Div(-a, b));
    c.l75 = R4(Div(Ln(0.75 / 0.25) - a, b));
    return c;
}

SelectionCurve RunningAverage(SelectionInput& in) {
    SelectionCurve c;
    const int fp = in.firstPoint, fc = in.firstClass, nC = in.nC;
    // Room for the forced ones past the last class.
    const size_t size = static_cast<size_t>(std::max(nC, fp + 2)) + 2;
    auto& P = in.probability;
    if (P.size() < size) P.resize(size, 0.f);
    c.smoothed.assign(size, 0.f);
    c.smoothedEdge.assign(size, 0.f);
    for (int v = fp; v <= fp + 2; ++v) Cell(P, v) = 1;
    Cell(P, fc - 1) = 0;
    for (int v = fc; v <= fp + 1; ++v) {
        c.smoothed[v] = R4((Cell(P, v - 1) + Cell(P, v) + Cell(P, v + 1)) / 3.0);
        if (v == 1)
            c.smoothedEdge[1] = R4((Cell(P, 2) / 2.0 + Cell(P, 1)) / 3.0);
        else
            c.smoothedEdge[v] =
                R4(((Cell(P, v - 2) + Cell(P, v + 1)) / 2.0 + Cell(P, v - 1) + Cell(P, v)) / 3.0);
    }
    c.smoothed[0] = R4(c.smoothed[1] / 2.0 + c.smoothed[0]);
    for (int v = fp + 2; v <= nC; ++v) {
        c.smoothed[v] = 1;
        c.smoothedEdge[v] = 1;
    }
    auto length = [&](double q) -> float {
        for (int v = fc; v < static_cast<int>(c.smoothed.size()); ++v) {
            if (!(q <= c.smoothed[v])) continue;
            double hiV, loV, lowL, upL;
            if (q <= c.smoothedEdge[v]) {
                hiV = c.smoothedEdge[v];
                loV = Cell(c.smoothed, v - 1);
                upL = in.midlength(v);
                lowL = upL - in.w / 2;
            } else {
                hiV = c.smoothed[v];
                loV = c.smoothedEdge[v];
                lowL = in.midlength(v);
                upL = lowL + in.w / 2;
            }
            return R4(lowL + (upL - lowL) * Div(q - loV, hiV - loV));
        }
        throw SubscriptFault("running average");
    };
    c.l25 = length(0.25);
    c.l50 = length(0.5);
    c.l75 = length(0.75);
    return c;
}

Outcome SaveProbabilities(const std::string& path, const std::string& programFolder,
                          const PrbHeader& header, const SelectionInput& in) {
    Outcome out;
    if (KindOfPath(path) != "PRB") {
        out.refuse(kWrongFileType, kAppTitle);
        return out;
    }
    const RecordKind* kind = FindRecordKind("PRB");
    RecordFile file;
    file.header["Speciesname"] = header.speciesname;
    file.header["Other_ID"] = header.otherId;
    file.header["Unit_Of_Measurement"] = header.unit;
    file.header["Remarks"] = kSelPrbRemarks;
    for (int i = 1; i <= in.nC; ++i)
        file.rows.push_back(
            {in.midlength(i), static_cast<double>(in.probability.at(static_cast<size_t>(i)))});
    try {
        WriteRecordFile(path, programFolder, *kind, file);
    } catch (const StoreError&) {
        out.refuse(CannotWriteText(path), kAppTitle);
    }
    return out;
}

}  // namespace norvo
