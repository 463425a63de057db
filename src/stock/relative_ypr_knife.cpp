#include "stock/relative_ypr_knife.h"

#include <algorithm>

#include "base/checked.h"

namespace norvo {

namespace {

constexpr float kKnifeGuardE = 0.99999f;

void GuardE(float& e) {
    if (e >= 1) e = kKnifeGuardE;
}

// Evaluators of the shared searches at fixed M/K and Lc/Loo.
YprEvaluator YieldOf(float mk, float lcLoo) {
    return [mk, lcLoo](float& e) { return RelativeYieldKnife(mk, lcLoo, e); };
}
YprEvaluator BiomassOf(float mk, float lcLoo) {
    return [mk, lcLoo](float& e) { return RelativeBiomassKnife(mk, lcLoo, e); };
}
YprEvaluator YieldAtOf(float mk, float lcLoo) {
    return [mk, lcLoo](float& e) { return RelativeYieldAt(e, mk, lcLoo); };
}

}  // namespace

double KnifeT(double u, double x) {
    return 1 - Div(3 * u, 1 + x) + Div(3 * u * u, 1 + 2 * x) - Div(u * u * u, 1 + 3 * x);
}

double RelativeYieldKnife(float mk, float lcLoo, float& e) {
    GuardE(e);
    return RelativeYieldAt(e, mk, lcLoo);
}

double RelativeBiomassKnife(float mk, float lcLoo, float& e) {
    GuardE(e);
    const double u = 1 - double(lcLoo);
    const double m = Div(1 - double(e), mk);
    const double m1 = Div(1, mk);
    return Div((1 - double(e)) * KnifeT(u, m), KnifeT(u, m1));
}

double RelativeYieldAt(float e, float mk, float lcLoo) {
    const double u = 1 - double(lcLoo);
    const double m = Div(1 - double(e), mk);
    return CheckFinite(double(e) * Pow(u, mk) * KnifeT(u, m));
}

float YPrimeMaxFromSurface(float mk) {
    double largest = 0;
    for (int i = 1; i <= 20; ++i) {
        for (int j = 1; j <= 20; ++j) {
            float e = R4(i / 20.0);
            largest = std::max(largest, RelativeYieldKnife(mk, R4((j - 1) / 20.0), e));
        }
    }
    return YPrimeTopTruncated(largest);
}

float FindYPrimeMaxKnife(float mk) {
    double largest = 0;
    for (int i = 0; i <= 29; ++i) {
        for (int j = 0; j <= 19; ++j) {
            float e = R4(j / 20.0);
            largest = std::max(largest, RelativeYieldKnife(mk, R4(i / 30.0), e));
        }
    }
    return YPrimeTopRounded(largest);
}

Outcome CheckKnifeInputs(float mk, float lcLoo) {
    Outcome o;
    if (!(mk > 0)) {
        o.refuse(kYprMkText, kYprInputTitle);
    } else if (!(lcLoo >= 0 && lcLoo <= 1)) {
        o.refuse(kYprLcLooText, kYprInputTitle);
    }
    return o;
}

KnifeAnalysis AnalyseKnife(float mk, float lcLoo) {
    KnifeAnalysis r;
    r.mk = mk;
    r.lcLoo = lcLoo;
    r.absorb(CheckKnifeInputs(mk, lcLoo));
    if (!r.ok()) return r;
    const auto yield = YieldOf(mk, lcLoo);
    const auto biomass = BiomassOf(mk, lcLoo);
    r.curveY = YprCurve(yield);
    r.curveB = YprCurve(biomass);
    r.table = FillYieldCurveTable(yield, biomass);
    r.e50 = FindE50(r.table);
    r.eMax = FindEmax(r.table, YieldAtOf(mk, lcLoo));
    r.e10 = FindE10(r.eMax, r.table, YieldAtOf(mk, lcLoo), YieldAtOf(mk, lcLoo));
    float e = R4(r.e10);
    r.yAtE10 = yield(e);
    e = R4(r.e50);
    r.bAtE50 = biomass(e);
    e = R4(r.eMax);
    r.yAtEmax = yield(e);
    r.report = YprReportRows(yield, biomass);
    return r;
}

std::vector<SurfaceRow> KnifeSurface(float mk, bool biomass) {
    std::vector<SurfaceRow> rows;
    float e = 0;
    for (int i = 1; i <= 10; ++i) {
        e = R4(double(e) + double(0.1f));
        SurfaceRow row;
        for (int j = 1; j <= 10; ++j) {
            const float lc = R4((j - 1) / 10.0);
            row.values.push_back(biomass ? RelativeBiomassKnife(mk, lc, e)
                                         : RelativeYieldKnife(mk, lc, e));
        }
        row.e = e;
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace norvo
