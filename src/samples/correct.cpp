#include "samples/correct.h"

#include <cmath>

#include "base/checked.h"
#include "data/store_routines.h"
#include "samples/adjust_smooth.h"

namespace norvo {

namespace {

// 1 / (1 + exp(x)), 0 where exp(x) would overflow.
double Logistic(double x) {
    return x > 700 ? 0.0 : 1.0 / (1.0 + std::exp(x));
}

}  // namespace

Outcome CheckOgive(const Ogive& o) {
    Outcome out;
    bool ok = o.l50 > 0 && o.l75 > o.l50;
    if (o.hasRightLimb()) ok = ok && o.r75 > 0 && o.r50 > o.r75;
    if (!ok) out.refuse(kCorrectIncompleteText, kInvalidDataTitle);
    return out;
}

double OgiveProbability(const Ogive& o, double length) {
    const double ln3 = std::log(3.0);
    const double s1 = Div(2 * ln3, 2 * (o.l75 - o.l50));
    const double c1 = -s1 * o.l50;
    double p = Logistic(-(length * s1 + c1));
    if (o.hasRightLimb()) {
        const double s2 = Div(2 * ln3, 2 * (o.r50 - o.r75));
        const double c2 = -s2 * o.r50;
        p *= Logistic(length * s2 + c2);
    }
    return p;
}

double CorrectionFactor(double p) {
    return p == 0 ? 0.0 : Div(1.0, p);
}

ClassProbabilities ProbabilitiesFromPrb(const LfqData& data, const PrbData& prb) {
    ClassProbabilities r;
    if (prb.length.empty()) {
        r.refuse(kCorrectPrbEmptyText, kInvalidDataTitle);
        return r;
    }
    for (int c = 0; c < data.noOfClasses; ++c) {
        // A typed grid such as 10.2 by 0.2 reaches its midlengths one 32-bit step off the
        // values typed into a probability file: match within 1e-4 of the interval.
        const float mid = R4(data.midlength(c));
        const double tolerance = 1e-4 * data.classInterval;
        size_t k = 0;
        while (k < prb.length.size() &&
               std::fabs(static_cast<double>(prb.length[k]) - mid) > tolerance)
            ++k;
        if (k == prb.length.size()) {
            r.refuse(kCorrectPrbLacksPrefix + RemarkNumber(mid) + kCorrectPrbLacksSuffix,
                     kInvalidDataTitle);
            return r;
        }
        r.p.push_back(prb.probability[k]);
    }
    return r;
}

ClassProbabilities ProbabilitiesFromOgive(const LfqData& data, const Ogive& ogive) {
    ClassProbabilities r;
    r.absorb(CheckOgive(ogive));
    if (!r.ok()) return r;
    for (int c = 0; c < data.noOfClasses; ++c)
        r.p.push_back(OgiveProbability(ogive, data.midlength(c)));
    return r;
}

SampleFileRun CorrectData(const LfqData& data, const std::vector<LfqSample>& samples,
                          const std::vector<double>& probabilities) {
    SampleFileRun run;
    if (static_cast<int>(probabilities.size()) != data.noOfClasses)
        throw SubscriptFault("CorrectData");
    LfqTable& t = run.table;
    t.header = HeaderFrom(data, data.remarks + kCorrectRemarksSuffix, data.smallestMl,
                          data.classInterval, data.noOfClasses);
    t.header.noOfSamples = data.noOfSamples;
    t.samples = samples;
    t.freq = data.freq;
    for (int c = 0; c < data.noOfClasses; ++c) {
        const double factor = CorrectionFactor(probabilities[c]);
        for (double& f : t.freq[c]) f = CheckFinite(f * factor);
    }
    return run;
}

SampleFileRun RunCorrect(const CorrectOptions& o, const std::string& programFolder) {
    SampleFileRun run;
    if (o.prbPath.empty() && !o.ogive) {
        run.refuse(kCorrectIncompleteText, kInvalidDataTitle);
        return run;
    }
    SourceRead src = ReadSource(o.source, o.destination);
    run.absorb(src);
    if (!run.ok()) return run;
    ClassProbabilities probs;
    if (!o.prbPath.empty()) {
        if (!FileExists(o.prbPath)) {
            run.refuse(kCorrectPrbMissingText, kSourceNotFoundTitle);
            return run;
        }
        auto prb = ReadPRB(o.prbPath);
        if (!prb) {
            run.refuse(kCorrectPrbEmptyText, kInvalidDataTitle);
            return run;
        }
        probs = ProbabilitiesFromPrb(src.data, *prb);
    } else {
        probs = ProbabilitiesFromOgive(src.data, *o.ogive);
    }
    run.absorb(probs);
    if (!run.ok()) return run;
    SampleFileRun done = CorrectData(src.data, src.samples, probs.p);
    run.table = std::move(done.table);
    run.table.header.path = o.destination;
    SaveWithNotice(run, o.destination, programFolder, kCorrectDonePrefix + o.destination + ".",
                   kDataSavedTitle);
    return run;
}

}  // namespace norvo
