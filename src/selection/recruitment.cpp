#include "selection/recruitment.h"

#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "growth/elefan.h"
#include "growth/elefan_lfq.h"

namespace norvo {

const char* RecruitmentTimeLabel(float t0) {
    return t0 != 0 ? kRcAbsoluteTime : kRcRelativeTime;
}

double RecruitTime(double length, double ts, const GrowthParams& g) {
    double x = Div(Ln(1.0 - Div(length, g.loo)), g.k);
    if (g.c != 0) x += g.c * std::sin(kRcTwoPi * ((ts - g.wp) + 0.5)) / kRcTwoPi;
    return x + ts - g.t0;
}

int RecruitMonth(double day) {
    for (int m = 1; m <= 12; ++m)
        if (kMonthStart[static_cast<size_t>(m)] >= day) return m - 1;
    return 12;
}

std::vector<std::vector<float>> RecruitmentFrequencies(const LfqData& data,
                                                       const RecruitmentOptions& o) {
    const int nS = data.noOfSamples, nC = data.noOfClasses;
    std::vector<std::vector<float>> f(static_cast<size_t>(nS),
                                      std::vector<float>(static_cast<size_t>(nC) + 1, 0.f));
    std::vector<float> total(static_cast<size_t>(nS), 0.f);
    std::vector<int> lo(static_cast<size_t>(nS), 0), hi(static_cast<size_t>(nS), 0);
    for (int s = 0; s < nS; ++s) {
        for (int j = 1; j <= nC; ++j) {
            const float v = R4(data.freq.at(static_cast<size_t>(j - 1)).at(static_cast<size_t>(s)));
            f[s][j] = v;
            total[s] = R4(total[s] + v);
            if (v != 0) {
                if (lo[s] == 0) lo[s] = j;
                hi[s] = j;
            }
        }
    }
    if (o.restructured) {
        // The restructured points of the ELEFAN engine; only its positive points are numbers
        // to project (an empty class and a trough count as nothing).
        const ElefanModel model = RestructureElefan(ElefanInputFromLfq(data));
        for (int s = 0; s < nS; ++s)
            for (int j = 1; j <= nC; ++j) {
                const float p = model.pointsMaster(s + 1, j);
                f[s][j] = j >= lo[s] && j <= hi[s] && p > 0 ? p : 0.f;
            }
    }
    if (o.transform != CcTransform::Raw) {
        for (int s = 0; s < nS; ++s) {
            if (lo[s] == 0) continue;  // an empty sample has nothing to transform
            const double divisor = o.transform == CcTransform::Percent ? total[s] : Sqrt(total[s]);
            for (int j = lo[s]; j <= hi[s]; ++j) f[s][j] = R4(Div(f[s][j] * 100.0, divisor));
        }
    }
    if (o.temporal) {
        const std::vector<double> weight = TemporalWeights(data);
        for (int s = 0; s < nS; ++s)
            for (int j = 1; j <= nC; ++j) f[s][j] = R4(f[s][j] * weight[s]);
    }
    return f;
}

RecruitmentResult DoRecruitment(const LfqData& data, const RecruitmentOptions& o) {
    RecruitmentResult r;
    const GrowthParams& g = o.growth;
    const int nS = data.noOfSamples, nC = data.noOfClasses;
    const auto f = RecruitmentFrequencies(data, o);
    r.timeLabel = RecruitmentTimeLabel(g.t0);

    const double ci = data.classInterval, first = data.smallestMl;
    const double loo = g.loo;
    auto share = [&r](int mo, double add) {
        if (mo >= 1)
            r.monthShare[static_cast<size_t>(mo)] = R4(r.monthShare[static_cast<size_t>(mo)] + add);
    };
    for (int s = 0; s < nS; ++s) {
        if (!o.selected.empty() && !o.selected.at(static_cast<size_t>(s))) continue;
        const double ts =
            SampleTime(data.day.at(static_cast<size_t>(s)), data.month.at(static_cast<size_t>(s)));
        for (int j = 1; j <= nC; ++j) {
            const float F = f[s][j];
            if (F == 0) continue;
            const double l0 = (j - 1.5) * ci + first;
            if (Div(l0, loo) >= kRcLooLimit) continue;
            double tPrev = RecruitTime(l0, ts, g);
            for (int m = 1; m <= 10; ++m) {
                const double L = l0 + m * 0.1 * ci;
                if (Div(L, loo) >= kRcLooLimit) break;
                const double tCur = RecruitTime(L, ts, g);
                const double tMid = RecruitTime(L - 0.05 * ci, ts, g);
                const double day = 365.0 * (tMid - Int(tMid));
                share(RecruitMonth(day), Div(0.1 * F, std::abs(tPrev - tCur)));
                tPrev = tCur;
            }
        }
    }

    // Rotation to the lowest month (the first of equal ones).
    int low = 1;
    for (int m = 2; m <= 12; ++m)
        if (r.monthShare[m] < r.monthShare[low]) low = m;
    r.startMonth = low;
    const float lowest = r.monthShare[low];
    float sum = 0;
    bool projected = false;
    for (int p = 1; p <= 12; ++p) {
        const int m = (low + p - 2) % 12 + 1;
        r.labels[p] = kRcMonthNames[static_cast<size_t>(m)];
        r.pattern[p] = R4(r.monthShare[m] - static_cast<double>(lowest));
        sum = R4(sum + r.pattern[p]);
        projected = projected || r.monthShare[m] != 0;
    }
    if (sum == 0)
        throw ArithmeticFault(FaultNumber::DivisionByZero,
                              projected ? kRcFlatPattern : kRcNothingProjected, "DoRecruitment");
    for (int p = 1; p <= 12; ++p) r.pattern[p] = R4(r.pattern[p] * 100.0 / sum);
    return r;
}

}  // namespace norvo
