#include "growth/fabens.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "growth/growth_increments.h"
#include "numerics/regression.h"

namespace norvo {

std::string FabensNoConvergeText(int iterations) {
    return "Failed to converge after " + std::to_string(iterations) +
           " iterations. Try another method to estimate the parameters.";
}

std::string FabensAboveLooText(int n) {
    return "#" + std::to_string(n) +
           " samples were above the calculated Loo and are not shown in Fabens plot";
}

double FabenLinf(const FabensData& d, double k) {
    double num = 0, den = 0;
    for (size_t i = 0; i < d.dt.size(); ++i) {
        const double e = Exp(-k * d.dt[i]), u = 1 - e;
        num += (d.l2[i] - e * d.l1[i]) * u;
        den += u * u;
    }
    return den > 0 ? CheckFinite(num / den) : kFabensNoLinf;
}

double FabenFK(const FabensData& d, double k, double linf) {
    double f = 0;
    for (size_t i = 0; i < d.dt.size(); ++i) {
        const double e = Exp(-k * d.dt[i]);
        const double r = d.l2[i] - (linf - (linf - d.l1[i]) * e);
        f += r * (linf - d.l1[i]) * d.dt[i] * e;
    }
    return CheckFinite(-2 * f);
}

double FabenFLinf(const FabensData& d, double k, double linf) {
    double f = 0;
    for (size_t i = 0; i < d.dt.size(); ++i) {
        const double e = Exp(-k * d.dt[i]);
        const double r = d.l2[i] - (linf - (linf - d.l1[i]) * e);
        f += r * (1 - e);
    }
    return CheckFinite(-2 * f);
}

double FabenDLInfDK(const FabensData& d, double k) {
    // Linf = N / D; N' = sum(dt e (L2 + L1 (1 - 2e))), D' = sum(2 (1 - e) dt e).
    double n = 0, dn = 0, den = 0, dden = 0;
    for (size_t i = 0; i < d.dt.size(); ++i) {
        const double t = d.dt[i], e = Exp(-k * t), u = 1 - e;
        n += (d.l2[i] - e * d.l1[i]) * u;
        dn += t * e * (d.l2[i] + d.l1[i] * (1 - 2 * e));
        den += u * u;
        dden += 2 * u * t * e;
    }
    if (!(den > 0)) return 0;
    return CheckFinite((dn * den - n * dden) / (den * den));
}

double FabenFKPrime(const FabensData& d, double k, double linf, double dLinfDK) {
    // F = -2 sum(r g), g = (Linf - L1) dt e; r' = -(Linf - L1) dt e - (1 - e) Linf',
    // g' = dt e (Linf' - (Linf - L1) dt).
    double s = 0;
    for (size_t i = 0; i < d.dt.size(); ++i) {
        const double t = d.dt[i], e = Exp(-k * t), u = 1 - e;
        const double gap = linf - d.l1[i];
        const double r = d.l2[i] - (linf - gap * e);
        const double g = gap * t * e;
        const double dr = -g - u * dLinfDK;
        const double dg = t * e * (dLinfDK - gap * t);
        s += dr * g + r * dg;
    }
    return CheckFinite(-2 * s);
}

FabensIteration IterateFabens(const FabensData& d, double k0, std::optional<double> fixedLinf) {
    FabensIteration it;
    it.k = k0;
    it.linf = fixedLinf ? *fixedLinf : FabenLinf(d, it.k);
    for (;;) {
        it.f = FabenFK(d, it.k, it.linf);
        const double slope = fixedLinf ? 0 : FabenDLInfDK(d, it.k);
        const double fPrime = FabenFKPrime(d, it.k, it.linf, slope);
        if (fixedLinf) {
            it.converged = std::fabs(it.f) <= kFabensTolerance;
        } else {
            it.fLinf = FabenFLinf(d, it.k, it.linf);
            it.converged =
                std::fabs(it.f) <= kFabensTolerance && std::fabs(it.fLinf) <= kFabensTolerance;
        }
        // The sums are tested before the step; the stepped K is kept either way.
        it.k = CheckFinite(it.k - Div(it.f, fPrime));
        if (!fixedLinf) it.linf = FabenLinf(d, it.k);
        if (it.converged) break;
        if (++it.iterations > kFabensMaxIterations) break;
    }
    return it;
}

FabensResult Fabens(const std::vector<GinRow>& rows, const FabensOptions& options) {
    FabensResult r;
    r.absorb(CheckLibertyDays(rows, FullFlags(rows, options.selected)));
    if (!r.ok()) return r;
    PreSelection pre = PreSelectGrowingRows(rows, options.selected);
    r.selected = pre.selected;
    r.absorb(pre);
    if (!r.ok()) return r;

    // Starting values from the Gulland and Holt line of rate per day on mean length.
    std::vector<float> x, y;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (!r.selected[i]) continue;
        const auto& row = rows[i];
        const int days = DaysAtLiberty(row);
        r.data.l1.push_back(row[kLength1]);
        r.data.l2.push_back(row[kLength2]);
        r.data.dt.push_back(R4(static_cast<double>(days) / 365));
        y.push_back(R4((static_cast<double>(row[kLength2]) - row[kLength1]) / days));
        x.push_back(R4((static_cast<double>(row[kLength1]) + row[kLength2]) / 2));
        r.rowOf.push_back(static_cast<int>(i));
    }
    RegressionResult fit;
    if (std::all_of(x.begin(), x.end(), [&](float v) { return v == x.front(); })) {
        // No slope from one mean length: start from a flat K of 0 at the largest length.
        r.startLoo = LargestLength(rows);
    } else {
        LinearRegression(x, y, 0, static_cast<int>(x.size()) - 1, fit);
        r.startK = R4(-static_cast<double>(fit.b()) * 365);
        r.startLoo =
            fit.b() != 0 ? R4(-static_cast<double>(fit.a()) / fit.b()) : LargestLength(rows);
    }

    std::optional<double> fixed;
    if (options.fixedLoo) fixed = *options.fixedLoo;
    const FabensIteration it = IterateFabens(r.data, r.startK, fixed);
    r.iterations = it.iterations;
    r.converged = it.converged;
    r.k = R4(it.k);
    r.loo = R4(it.linf);
    if (!it.converged)
        r.note(FabensNoConvergeText(kFabensMaxIterations), kFabensNoConvergeTitle, Icon::Warning);
    for (double l2 : r.data.l2)
        if (l2 >= r.loo) ++r.aboveLoo;
    const int n = static_cast<int>(r.data.l2.size());
    if (r.aboveLoo == n)
        r.note(kFabensAllAboveText, kFabensTitle, Icon::Information);
    else if (r.aboveLoo > 0)
        r.note(FabensAboveLooText(r.aboveLoo), kFabensTitle, Icon::Information);
    return r;
}

}  // namespace norvo
