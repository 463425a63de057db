#include "selection/recruitment_normsep.h"

#include <cmath>

#include "base/checked.h"

namespace norvo {

namespace {

// The normal distribution function with the constants of the program's distribution fits.
double Cdf(double x, double mean, double sd) {
    const double z = Div(x - mean, sd);
    const double t = 1.0 / (1.0 + 0.3275911 * std::abs(z * 0.707106781));
    const double q = 1.12837917 * std::exp(-z * z / 2);
    const double u = t * ((((0.94064607 * t - 1.28782245) * t + 1.25969513) * t - 0.252128668) * t +
                          0.225836846);
    double h = 0.5 * (1.0 - u * q);
    if (z < 0) h = -h;
    return h + 0.5;
}

// Mean, standard deviation and proportion of a group from its parts of the months.
Outcome Update(const std::array<float, 13>& v, const std::array<double, 13>& part, double total,
               NormalGroup& g) {
    Outcome o;
    double n = 0, sx = 0;
    for (int m = 1; m <= 12; ++m) {
        n += v[m] * part[m];
        sx += v[m] * part[m] * m;
    }
    if (!(n > 0)) {
        o.refuse(kRsEmptyGroupText, kRsTitle);
        return o;
    }
    g.mean = sx / n;
    double ss = 0;
    for (int m = 1; m <= 12; ++m) ss += v[m] * part[m] * (m - g.mean) * (m - g.mean);
    g.sd = std::sqrt(ss / n);
    g.proportion = n / total;
    if (!(g.sd > 1e-6)) o.refuse(kRsNoSpreadText, kRsTitle);
    return o;
}

}  // namespace

double RecruitmentGroupsResult::curve(int group, double position) const {
    const NormalGroup& g = groups.at(static_cast<size_t>(group));
    const double z = Div(position - g.mean, g.sd);
    return total * g.proportion * std::exp(-z * z / 2) / (g.sd * std::sqrt(6.28318530717958));
}

RecruitmentGroupsResult DoNORMSEP(const std::array<float, 13>& v, double start1, double start2) {
    RecruitmentGroupsResult r;
    if (!(start1 > 0)) return r;
    const int G = start2 > 0 ? 2 : 1;
    if (G == 2 && start1 == start2) {
        r.refuse(kRsSameStartText, kRsTitle);
        return r;
    }
    for (int m = 1; m <= 12; ++m) r.total += v[m];
    r.groups.assign(static_cast<size_t>(G), {});
    const double starts[] = {start1, start2};

    // First pass: the standard deviations are not known yet, so each month goes whole to the
    // group whose start position is nearest (the first on a tie).
    std::array<std::array<double, 13>, 2> part{};
    for (int m = 1; m <= 12; ++m) {
        const int g = G == 2 && std::abs(m - starts[1]) < std::abs(m - starts[0]) ? 1 : 0;
        part[g][m] = 1;
    }
    for (int g = 0; g < G; ++g) {
        r.absorb(Update(v, part[g], r.total, r.groups[g]));
        if (!r.ok()) return r;
    }
    r.passes = 1;

    double previous = -1e300;
    while (r.passes < kRsMaxPasses) {
        // Shares of each month from each group's mass over the month's class m - 0.5..m + 0.5.
        std::array<double, 13> expected{};
        std::array<std::array<double, 13>, 2> mass{};
        for (int m = 1; m <= 12; ++m)
            for (int g = 0; g < G; ++g) {
                const NormalGroup& q = r.groups[g];
                mass[g][m] =
                    q.proportion * (Cdf(m + 0.5, q.mean, q.sd) - Cdf(m - 0.5, q.mean, q.sd));
                expected[m] += mass[g][m];
            }
        double logL = 0;
        for (int m = 1; m <= 12; ++m) {
            if (v[m] > 0 && expected[m] > 0) logL += v[m] * std::log10(expected[m]);
            for (int g = 0; g < G; ++g)
                part[g][m] = expected[m] > 0 ? mass[g][m] / expected[m] : 1.0 / G;
        }
        r.logLikelihood = logL;
        if (logL - previous <= kRsTolerance) break;
        previous = logL;
        for (int g = 0; g < G; ++g) {
            r.absorb(Update(v, part[g], r.total, r.groups[g]));
            if (!r.ok()) return r;
        }
        ++r.passes;
    }
    return r;
}

}  // namespace norvo
