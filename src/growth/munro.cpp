#include "growth/munro.h"

#include <cmath>

#include "base/checked.h"
#include "base/fault.h"
#include "growth/growth_increments.h"

namespace norvo {

MunroPass MunroAtLoo(const MunroRows& rows, float loo) {
    MunroPass p;
    p.loo = loo;
    double sum = 0, sumSq = 0;
    for (size_t i = 0; i < rows.days.size(); ++i) {
        if (rows.length1[i] >= loo || rows.length2[i] >= loo) continue;
        const double dt = static_cast<double>(rows.days[i]) / 365;
        const double k = Div(Ln(Div(static_cast<double>(loo) - rows.length1[i],
                                    static_cast<double>(loo) - rows.length2[i])),
                             dt);
        sum += k;
        sumSq += k * k;
        ++p.m;
    }
    if (p.m < 2) return p;
    const double m = p.m;
    // Rounding can leave the numerator a hair below 0 when the K agree exactly.
    p.sd = Sqrt(std::max(0.0, (m * sumSq - sum * sum) / (m * (m - 1))));
    p.meanK = sum / m;
    p.cv = Div(p.sd, p.meanK);
    return p;
}

MunroResult Munro(const std::vector<GinRow>& rows, const MunroOptions& options) {
    MunroResult r;
    r.absorb(CheckLibertyDays(rows, FullFlags(rows, options.selected)));
    if (!r.ok()) return r;
    PreSelection pre = PreSelectGrowingRows(rows, options.selected);
    r.selected = pre.selected;
    r.absorb(pre);
    if (!r.ok()) return r;

    r.lmax = LargestLength(rows);
    std::vector<float> meanLength, rate;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (!r.selected[i]) continue;
        const auto& row = rows[i];
        const float days = static_cast<float>(DaysAtLiberty(row));
        r.rows.days.push_back(days);
        r.rows.length1.push_back(row[kLength1]);
        r.rows.length2.push_back(row[kLength2]);
        meanLength.push_back(R4((static_cast<double>(row[kLength1]) + row[kLength2]) / 2));
        rate.push_back(
            R4(std::fabs(Div(static_cast<double>(row[kLength2]) - row[kLength1], days))));
        r.rowOf.push_back(static_cast<int>(i));
    }
    r.gh = FitGullandHoltLine(meanLength, rate, r.lmax, options.fixedLoo);

    bool search = true;
    if (options.fixedLoo) {
        if (*options.fixedLoo >= r.lmax) {
            search = false;
            r.estimate = MunroAtLoo(r.rows, *options.fixedLoo);
        } else {
            r.note(kMunroFixedBelowLmaxText, kMunroFixedBelowLmaxTitle, Icon::Information);
        }
    }
    if (search) {
        r.searched = true;
        double previous = kMunroFirstPrevious;
        for (int i = 1;; ++i) {
            if (i > kMunroMaxPasses) ThrowOverflow();
            const float loo = R4(r.lmax + kMunroStep * i);
            const MunroPass pass = MunroAtLoo(r.rows, loo);
            if (pass.m < 2) {
                r.estimate = pass;
                break;
            }
            r.curve.push_back(pass);
            r.estimate = pass;
            r.passes = i;
            if (pass.cv > previous || previous - pass.cv < kMunroStopFall) break;
            previous = pass.cv;
        }
    }
    if (r.estimate.m < 2) {
        r.refuse(kMunroTooFewBelowLooText, kMunroTooFewBelowLooTitle);
        return r;
    }
    r.loo = r.estimate.loo;
    r.k = R4(r.estimate.meanK);
    return r;
}

}  // namespace norvo
