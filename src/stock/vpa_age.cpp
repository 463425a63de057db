#include "stock/vpa_age.h"

#include <cmath>

#include "base/checked.h"
#include "base/fault.h"

namespace norvo {

Outcome CheckAgeVpa(const AgeVpaOptions& o) {
    Outcome out;
    if (o.catches.empty()) {
        out.refuse(kVpaNoGroupsText, kVpaInvalidDataTitle);
    } else if (!(o.dt >= 0.01f && o.dt <= 1.0f)) {
        out.refuse(kVpaDtLimitsText, kVpaInvalidInputTitle);
    } else if (!(o.ft > 0)) {
        out.refuse(kVpaTerminalFText, kVpaInvalidInputTitle);
    } else if (!(o.m >= 0)) {
        out.refuse(kVpaNaturalMText, kVpaInvalidInputTitle);
    } else {
        for (size_t i = 0; i < o.catches.size(); ++i) {
            if (!(o.catches[i] >= 0)) {
                out.refuse(kVpaNegativeCatchText + std::to_string(i + 1) + ".",
                           kVpaInvalidDataTitle);
                return out;
            }
        }
        if (o.catches.back() == 0) out.refuse(kVpaEmptyOldestText, kVpaInvalidDataTitle);
    }
    return out;
}

double TerminalPopulation(double c, double md, double fd) {
    const double zd = md + fd;
    return Div(c * zd, fd * (1 - Exp(-zd)));
}

double SolveFd(double c, double nn, double md, int& rounds) {
    // Pope's approximation as the starting point.
    const double n0 = nn * Exp(md) + c * Exp(md / 2);
    double zd = Ln(Div(n0, nn));
    double fd = zd - md;
    for (rounds = 1; rounds <= kVpaNewtonLimit; ++rounds) {
        const double ez = Exp(zd);
        const double residual = Div(fd, zd) * nn * (ez - 1) - c;
        const double slope = nn * (Div(md, zd * zd) * (ez - 1) + Div(fd, zd) * ez);
        const double change = Div(residual, slope);
        fd = CheckFinite(fd - change);
        zd = md + fd;
        if (std::fabs(change) <= kVpaNewtonTolerance * std::fabs(fd)) return fd;
    }
    rounds = kVpaNewtonLimit;
    throw ArithmeticFault(FaultNumber::InvalidCall, kInvalidCall, "age-structured VPA");
}

AgeVpaResult RunAgeVpa(const AgeVpaOptions& o) {
    AgeVpaResult r;
    r.absorb(CheckAgeVpa(o));
    if (!r.ok()) return r;
    const int n = static_cast<int>(o.catches.size());
    r.n = n;
    r.C.assign(static_cast<size_t>(n) + 1, 0.0f);
    r.N = r.C;
    r.F = r.C;
    r.newtonRounds.assign(static_cast<size_t>(n) + 1, 0);
    for (int i = 1; i <= n; ++i) r.C[i] = o.catches[static_cast<size_t>(i - 1)];

    const double dt = o.dt;
    const double md = o.m * dt;
    r.N[n] = R4(TerminalPopulation(r.C[n], md, o.ft * dt));
    r.F[n] = o.ft;
    for (int i = n - 1; i >= 1; --i) {
        const double nn = r.N[i + 1];
        const double c = r.C[i];
        if (c == 0) {
            // No catch: the survivors are carried back by natural mortality alone.
            r.N[i] = R4(nn * Exp(md));
            r.F[i] = 0;
            continue;
        }
        const double fd = SolveFd(c, nn, md, r.newtonRounds[i]);
        r.N[i] = R4(TerminalPopulation(c, md, fd));
        r.F[i] = R4(fd / dt);
    }
    return r;
}

}  // namespace norvo
