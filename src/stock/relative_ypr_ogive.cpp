#include "stock/relative_ypr_ogive.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "base/format.h"
#include "stock/relative_ypr_knife.h"

namespace norvo {

namespace {

enum class OgiveSum { Yield, Biomass };

// The sum over the classes of one evaluation, after the guards.
double SelectionSum(const OgiveClasses& cls, float& mk, float& l50Loo, float& loo, float& e,
                    OgiveSum kind) {
    if (e >= 1) e = kind == OgiveSum::Yield ? 0.99f : 0.99999f;
    if (l50Loo < 0) l50Loo = 0.01f;
    const float l50 = R4(double(l50Loo) * double(loo));
    if (l50 <= 0) return 0;
    const double l75 = Div(double(cls.l75Box) * l50, cls.l50Box);
    const int n = cls.n;
    const double t1 = Div(std::log(3.0) * l50, l75 - l50);
    const double t2 = Div(t1, l50);
    auto lengthOf = [&](int i) { return double(cls.l1) + (i - 1) * double(cls.dL); };

    std::vector<float> p(size_t(n) + 1, 0.0f);
    for (int i = 1; i <= n; ++i) p[size_t(i)] = R4(1 / (1 + Exp(t1 - lengthOf(i) * t2)));

    std::vector<double> g(size_t(n) + 1, 0.0);  // g[0] stays 0: the open end of the sum
    std::vector<float> y(size_t(n) + 2, 0.0f);
    const double m = Div(1 - double(e), mk);
    const double m1 = Div(1, mk);
    for (int i = 1; i <= n; ++i) {
        const double len = lengthOf(i);
        const double u = 1 - Div(len, loo);
        if (kind == OgiveSum::Yield) {
            y[size_t(i)] = R4(KnifeT(u, m) * Pow(u, mk) * double(e));
        } else {
            y[size_t(i)] = R4(Div(KnifeT(u, m) * (1 - double(e)), KnifeT(u, m1)));
        }
        if (len >= double(loo) - double(cls.dL)) {
            g[size_t(i)] = 0;
        } else {
            const double c1 = 1 - Div(len, loo);
            const double c2 = 1 - Div(len - cls.dL, loo);
            const double e1 = Div(double(e), 1 - double(e)) * double(mk) * double(p[size_t(i)]);
            const double den = Pow(c2, e1);
            g[size_t(i)] = den == 0 ? 0 : Div(Pow(c1, e1), den);
        }
    }
    double sum = 0;
    if (kind == OgiveSum::Yield) {
        y[size_t(n)] = 0;
        for (int i = 1; i <= n - 1; ++i)
            sum += (double(y[size_t(i)]) * g[size_t(i - 1)] -
                    double(y[size_t(i + 1)]) * g[size_t(i)]) *
                   double(p[size_t(i)]);
        return CheckFinite(sum);
    }
    for (int i = 1; i <= n; ++i)
        sum += (double(y[size_t(i)]) * g[size_t(i - 1)] - double(y[size_t(i + 1)]) * g[size_t(i)]) *
               double(p[size_t(i)]);
    CheckFinite(sum);
    return sum < 0.00001 ? 0 : sum;
}

struct OgivePoint {
    const OgiveClasses* cls;
    float mk, l50Loo, loo;
    double yield(float& e) const {
        float a = mk, b = l50Loo, c = loo;
        return RelativeYieldSelection(*cls, a, b, c, e);
    }
    double biomass(float& e) const {
        float a = mk, b = l50Loo, c = loo;
        return RelativeBiomassSelection(*cls, a, b, c, e);
    }
};

}  // namespace

double RelativeYieldSelection(const OgiveClasses& cls, float& mk, float& l50Loo, float& loo,
                              float& e) {
    return SelectionSum(cls, mk, l50Loo, loo, e, OgiveSum::Yield);
}

double RelativeBiomassSelection(const OgiveClasses& cls, float& mk, float& l50Loo, float& loo,
                                float& e) {
    return SelectionSum(cls, mk, l50Loo, loo, e, OgiveSum::Biomass);
}

OgiveLengths FindOgiveLengths(const std::vector<float>& length, const std::vector<float>& prob) {
    OgiveLengths r;
    if (length.size() < 2 || prob.size() < length.size()) return r;
    const double dL = double(length[1]) - double(length[0]);
    bool found50 = false, found75 = false;
    for (size_t k = 1; k < length.size(); ++k) {
        const double p = prob[k - 1], q = prob[k], len = length[k];
        if (!found50 && q > 0.5) {
            r.l50 = len - Div(dL, q - p) * (q - 0.5);
            found50 = true;
        }
        if (!found75 && q > 0.75) {
            r.l75 = len - Div(dL, q - p) * (q - 0.75);
            found75 = true;
        }
    }
    r.l50Text = Format(r.l50, "#0.00");
    r.l75Text = Format(r.l75, "#0.00");
    return r;
}

std::string ProposedLooText(const std::vector<float>& length) {
    return length.empty() ? std::string() : Format(double(length.back()) * 1.05, "#0.00");
}

OgiveClasses ClassesOfTable(const std::vector<float>& length, float l50Box, float l75Box) {
    OgiveClasses c;
    c.n = int(length.size());
    if (!length.empty()) c.l1 = length[0];
    if (length.size() >= 2) c.dL = R4(double(length[1]) - double(length[0]));
    c.l50Box = l50Box;
    c.l75Box = l75Box;
    return c;
}

Outcome CheckOgiveInputs(const OgiveClasses& cls, float mk, float loo) {
    Outcome o;
    if (cls.n < 2) {
        o.refuse(kOgiveTableText, kYprInputTitle);
    } else if (!(cls.l50Box != 0)) {
        o.refuse(kOgiveL50Text, kYprInputTitle);
    } else if (!(cls.l75Box != cls.l50Box)) {
        o.refuse(kOgiveL75Text, kYprInputTitle);
    } else if (!(mk > 0)) {
        o.refuse(kYprMkText, kYprInputTitle);
    } else if (!(loo > 0)) {
        o.refuse(kOgiveLooText, kYprInputTitle);
    }
    return o;
}

float FindYPrimeMaxSelection(const OgiveClasses& cls, float mk, float loo) {
    double largest = 0;
    for (int i = 0; i <= 29; ++i) {
        for (int j = 0; j <= 19; ++j) {
            float e = R4(j / 20.0);
            const OgivePoint pt{&cls, mk, R4(i / 30.0), loo};
            largest = std::max(largest, pt.yield(e));
        }
    }
    return R4(largest * 1.1);
}

OgiveAnalysis AnalyseOgive(const OgiveClasses& cls, float mk, float l50Loo, float loo) {
    OgiveAnalysis r;
    r.mk = mk;
    r.l50Loo = l50Loo;
    r.loo = loo;
    r.absorb(CheckOgiveInputs(cls, mk, loo));
    if (!r.ok()) return r;
    const OgivePoint pt{&cls, mk, l50Loo, loo};
    const YprEvaluator yield = [pt](float& e) { return pt.yield(e); };
    const YprEvaluator biomass = [pt](float& e) { return pt.biomass(e); };
    // The one re-evaluation of the bracket's lower point uses the knife-edge formula with
    // L50/Loo in the place of Lc/Loo, as designed.
    const YprEvaluator knifeAtA = [mk, l50Loo](float& e) { return RelativeYieldAt(e, mk, l50Loo); };
    r.curveY = YprCurve(yield);
    r.curveB = YprCurve(biomass);
    r.table = FillYieldCurveTable(yield, biomass);
    r.e50 = FindE50(r.table);
    r.eMax = FindEmax(r.table, yield);
    r.e10 = FindE10(r.eMax, r.table, yield, knifeAtA);
    float e = R4(r.e10);
    r.yAtE10 = yield(e);
    e = R4(r.e50);
    r.bAtE50 = biomass(e);
    e = R4(r.eMax);
    r.yAtEmax = yield(e);
    r.report = YprReportRows(yield, biomass);
    return r;
}

std::vector<SurfaceRow> OgiveSurface(const OgiveClasses& cls, float mk, float loo, bool biomass) {
    std::vector<SurfaceRow> rows;
    float e = 0;
    for (int i = 1; i <= 20; ++i) {
        e = R4(double(e) + double(0.05f));
        SurfaceRow row;
        for (int j = 1; j <= 20; ++j) {
            const OgivePoint pt{&cls, mk, R4((j - 1) / 20.0), loo};
            row.values.push_back(biomass ? pt.biomass(e) : pt.yield(e));
        }
        row.e = e;
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace norvo
