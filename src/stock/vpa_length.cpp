#include "stock/vpa_length.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "data/store_routines.h"
#include "mortality/length_samples.h"

namespace norvo {

namespace {

bool Selected(const LengthVpaOptions& o, int s) {
    return o.selected.empty() ||
           (s < static_cast<int>(o.selected.size()) && o.selected[static_cast<size_t>(s)]);
}

}  // namespace

int ClassesBelowLoo(double l1, double dL, double loo) {
    return static_cast<int>(Fix(Div(loo - l1, dL)));
}

double ClassWeight(double l, double w, double a, double b) {
    return a / (b + 1) * (Pow(l + w, b + 1) - Pow(l, b + 1));
}

CohortStep LengthCohortStep(double nn, double c, double m, double dt) {
    CohortStep step;
    if (nn <= 0) nn = kLcaEmptyNext;
    // Pope's approximation as the starting point.
    const double h = Exp(m * dt / 2);
    double n = (nn * h + c) * h;
    double d = n - nn;
    double er = Div(c, d);
    if (c <= 0) {
        step.n = n;
        return step;
    }
    double fdt = 0;
    for (int round = 1; round <= kLcaRoundLimit; ++round) {
        const double erStart = er;
        if (er > 0) d = Div(c, er);
        n = d + nn;
        const double zdt = -Ln(Div(nn, n));
        fdt = er * zdt;
        er = Div(fdt, m * dt + fdt);
        step.rounds = round;
        if (round >= 2 && std::fabs(er - erStart) <= kLcaTolerance) break;
    }
    step.n = n;
    step.f = Div(fdt, dt);
    return step;
}

Outcome CheckLengthVpa(const LfqData& data, const LengthVpaOptions& o) {
    Outcome out;
    const int n = data.noOfClasses, nS = data.noOfSamples;
    if (n < 1 || nS < 1 || !(data.classInterval > 0)) {
        out.refuse(kVpaNoClassesText, kCcEmptySampleTitle);
        return out;
    }
    bool any = false;
    for (int s = 0; s < nS; ++s) any = any || Selected(o, s);
    if (!any) {
        out.refuse(kVpaNoSampleText, kVpaNoSampleTitle, Icon::Information);
        return out;
    }
    if (!(o.ft > 0)) {
        out.refuse(kVpaLengthFtText, kVpaLengthInputTitle);
    } else if (!(o.k > 0)) {
        out.refuse(kVpaLengthKText, kVpaLengthInputTitle);
    } else if (!(o.m >= 0)) {
        out.refuse(kVpaLengthMText, kVpaLengthInputTitle);
    } else if (o.plusGroups < 0 || o.plusGroups >= n - 1) {
        out.refuse(kVpaPlusGroupsText, kVpaLengthInputTitle);
    } else if (!(o.loo > data.smallestMl - data.classInterval / 2) ||
               ClassesBelowLoo(data.smallestMl - data.classInterval / 2, data.classInterval,
                               o.loo) < 1) {
        out.refuse(kVpaLooInFirstClassText, kVpaLengthInputTitle);
    }
    if (out.ok()) out.absorb(CheckSampleFrequencies(data, o.transform));
    return out;
}

std::vector<float> LengthVpaCatches(const LfqData& data, const LengthVpaOptions& o, int nUsed) {
    const int n = data.noOfClasses, nS = data.noOfSamples;
    auto freq = data.freq;  // a fresh copy for every run
    TransformSamples(freq, o.transform);
    if (o.temporal) {
        const auto weights = TemporalWeights(data);
        for (auto& row : freq)
            for (int s = 0; s < nS; ++s) row[static_cast<size_t>(s)] *= weights[s];
    }
    std::vector<float> c(static_cast<size_t>(n) + 1, 0.0f);
    for (int i = 1; i <= n; ++i)
        for (int s = 0; s < nS; ++s)
            if (Selected(o, s)) c[i] = R4(c[i] + freq[static_cast<size_t>(i - 1)][s]);
    const double factor = Pow(10, o.raise);
    for (int i = 1; i <= nUsed && i <= n; ++i) c[i] = R4(c[i] * factor);
    return c;
}

LengthVpaResult RunLengthVpa(const LfqData& data, const LengthVpaOptions& o) {
    LengthVpaResult r;
    r.absorb(CheckLengthVpa(data, o));
    if (!r.ok()) return r;
    const int n = data.noOfClasses;
    r.n = n;
    r.dL = data.classInterval;
    r.L1 = data.smallestMl - r.dL / 2;
    const double m = o.m, ft = o.ft;

    const int allowed = std::min(n, ClassesBelowLoo(r.L1, r.dL, o.loo));
    r.plusGroups = o.plusGroups;
    r.nUsed = n - r.plusGroups;
    if (allowed < r.nUsed) {
        r.note(kVpaPlusAdjustedText, kVpaPlusAdjustedTitle, Icon::Information);
        r.plusAdjusted = true;
        r.plusGroups = n - allowed;
        r.nUsed = allowed;
    }
    const int nUsed = r.nUsed;
    const size_t size = static_cast<size_t>(n) + 1;
    r.mid.assign(size, 0.0);
    r.Dt.assign(size, 0.0);
    r.N.assign(size, 0.0f);
    r.F.assign(size, 0.0f);
    r.Biomass.assign(size, 0.0f);
    r.rounds.assign(size, 0);
    for (int i = 1; i <= n; ++i) {
        const double lower = r.L1 + (i - 1) * r.dL;
        r.mid[i] = data.midlength(i - 1);
        r.Dt[i] = ClassDuration(lower, lower + r.dL, o.loo, o.k);
    }

    r.C = LengthVpaCatches(data, o, nUsed);
    if (nUsed < n) {
        for (int i = nUsed; i <= n; ++i) r.cPlus += r.C[i];
    } else {
        r.cPlus = r.C[nUsed];
    }
    // The terminal class holds the plus-groups' catches at F = Ft.
    r.N[nUsed] = R4(Div(r.cPlus, Div(ft, ft + m)));
    r.F[nUsed] = o.ft;
    r.C[nUsed] = R4(r.cPlus);
    for (int i = nUsed + 1; i <= n; ++i) {
        r.F[i] = o.ft;
        r.C[i] = 0;
    }
    for (int i = nUsed - 1; i >= 1; --i) {
        const CohortStep step = LengthCohortStep(r.N[i + 1], r.C[i], m, r.Dt[i]);
        r.N[i] = R4(step.n);
        r.F[i] = R4(step.f);
        r.rounds[i] = step.rounds;
    }

    for (int i = 1; i < nUsed; ++i) {
        const double l = r.L1 + (i - 1) * r.dL;
        const double meanN = Div(r.N[i] - r.N[i + 1], (m + r.F[i]) * r.Dt[i]);
        r.Biomass[i] = R4(r.Dt[i] * meanN * ClassWeight(l, r.dL, o.a, o.b));
    }
    const double lTerm = r.L1 + (nUsed - 1) * r.dL;
    const double wTerm = nUsed < n ? o.loo - lTerm : r.dL;
    r.Biomass[nUsed] = R4(Div(r.N[nUsed], m + ft) * ClassWeight(lTerm, wTerm, o.a, o.b));
    return r;
}

std::string SpeciesSavedText(const std::string& name) {
    return "The SPECIES table, " + name + ", was successfully created.";
}

SpeciesData LengthVpaSpecies(const LfqData& data, const LengthVpaOptions& o,
                             const LengthVpaResult& r) {
    SpeciesData s;
    SpeciesHeader& h = s.header;
    h.speciesName = data.speciesname;
    h.remarks = kLengthVpaRemarks;
    h.lowerLimit = r.L1;
    h.classSize = r.dL;
    h.noGroups = r.n;
    h.recruit = r.n > 0 ? r.N[1] : 0;
    h.a = o.a;
    h.b = o.b;
    h.m = o.m;
    h.ft = o.ft;
    h.loo = o.loo;
    h.k = o.k;
    for (int i = 1; i <= r.n; ++i) s.classes.push_back({r.mid[i], r.F[i], kDefaultClassValue});
    return s;
}

void SaveLengthVpaSpecies(const std::string& path, const std::string& programFolder,
                          const SpeciesData& species) {
    AtomicRewriteFromTemplate(path, programFolder, [&species](const std::string& work) {
        WriteSpeciesFile(work, species);
    });
}

}  // namespace norvo
