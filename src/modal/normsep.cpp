#include "modal/normsep.h"

#include "base/checked.h"
#include "modal/bhattacharya.h"

namespace norvo {

MixtureOptions NormsepOptions() {
    MixtureOptions o;
    o.tolerance = 1e-8;
    o.step = 0.15;
    o.limit = 100000;
    o.spacingLimit = 0;
    return o;
}

MixtureClasses SampleClasses(const LfqData& data, int sample) {
    MixtureClasses c{data.smallestMl, data.classInterval, {}};
    for (int k = 0; k < data.noOfClasses; ++k)
        c.observed.push_back(data.freq[static_cast<size_t>(k)][static_cast<size_t>(sample - 1)]);
    return c;
}

NormsepResult RunNormsep(const LfqData& data, int sample,
                         const std::vector<std::optional<double>>& means) {
    NormsepResult r;
    if (sample < 1 || sample > data.noOfSamples) {
        r.refuse(NoSampleText(sample), kBhNoSampleTitle, Icon::Information);
        return r;
    }
    std::vector<double> start;
    for (const auto& m : means)
        if (m) start.push_back(*m);
    if (start.empty()) {
        r.refuse(kNsNoMeansText, kNsMeansTitle, Icon::Information);
        return r;
    }
    if (start.size() < means.size()) {
        r.refuse(kNsNotAllMeansText, kNsMeansTitle, Icon::Information);
        return r;
    }
    const MixtureClasses classes = SampleClasses(data, sample);
    for (double o : classes.observed)
        if (o > 0) r.total += o;
    r.fit = FitNormalMixture(classes, start, NormsepOptions());
    r.absorb(r.fit);
    if (!r.ok()) return r;
    for (size_t k = 0; k < r.fit.components.size(); ++k) {
        const MixtureComponent& c = r.fit.components[k];
        NsComponent n{c.mean, c.sd, c.proportion, r.total * c.proportion, {}};
        if (k > 0) {
            const MixtureComponent& p = r.fit.components[k - 1];
            n.si = Div(c.mean - p.mean, (p.sd + c.sd) / 2);
        }
        r.components.push_back(n);
    }
    return r;
}

}  // namespace norvo
