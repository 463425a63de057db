#include "selection/gillnet.h"

#include <cmath>

#include "base/checked.h"
#include "data/record_kinds.h"

namespace norvo {

namespace {

float Cell(const LfqData& data, int cls, int sample) {
    return R4(data.freq.at(static_cast<size_t>(cls - 1)).at(static_cast<size_t>(sample - 1)));
}

}  // namespace

GillnetResult ComputeGillnet(const LfqData& data, const GillnetOptions& o) {
    GillnetResult r;
    const int nS = data.noOfSamples, nC = data.noOfClasses;
    auto given = [nS](int s) { return s >= 1 && s <= nS; };
    if (!given(o.sampleA) || !given(o.sampleB) || !o.meshA || !o.meshB) {
        r.refuse(kGnIncompleteText, kGnInvalidInputsTitle);
        return r;
    }
    // Sizes compare as stored; a size of 0 or below cannot be a mesh either.
    if (!(*o.meshA > 0) || !(*o.meshB > *o.meshA)) {
        r.refuse(kGnMeshSizesText, kGnInvalidInputsTitle);
        return r;
    }
    r.nC = nC;
    r.w = data.classInterval;
    r.firstMid = data.smallestMl;
    r.meshA = *o.meshA;
    r.meshB = *o.meshB;
    r.logNormal = o.logNormal;
    r.catchA.assign(static_cast<size_t>(nC) + 1, 0.f);
    r.catchB.assign(static_cast<size_t>(nC) + 1, 0.f);
    int overlap = 0;
    for (int i = 1; i <= nC; ++i) {
        r.catchA[i] = Cell(data, i, o.sampleA);
        r.catchB[i] = Cell(data, i, o.sampleB);
        if (r.catchA[i] != 0 && r.catchB[i] != 0) ++overlap;
    }
    if (overlap < 3) {
        r.refuse(kGnOverlapText, kGnInvalidFileTitle);
        return r;
    }

    // The points of the fit: the overlap classes in order (the compaction of the left-out
    // classes keeps exactly these, a genuine ratio of 1 included).
    r.lnRatio.assign(1, 0.f);
    r.lengthX.assign(1, 0.f);
    for (int i = 1; i <= nC; ++i) {
        if (r.catchA[i] == 0 || r.catchB[i] == 0) continue;
        r.lnRatio.push_back(R4(Ln(Div(r.catchB[i], r.catchA[i]))));
        const float x = R4(r.midlength(i));
        r.lengthX.push_back(o.logNormal ? R4(Ln(x)) : x);
    }
    r.points = overlap;
    LinearRegression(r.lengthX, r.lnRatio, 1, r.points, r.fit);

    const double a = r.fit.a(), b = r.fit.b();
    const double mA = r.meshA, mB = r.meshB;
    if (o.logNormal) {
        const double lnA = Ln(mA), lnB = Ln(mB);
        r.lA = Exp(Div(-2 * a * lnA, (lnB + lnA) * b));
        r.lB = Exp(Div(-2 * a * lnB, (lnB + lnA) * b));
    } else {
        r.lA = Div(-2 * a * mA, (mA + mB) * b);
        r.lB = Div(-2 * a * mB, (mA + mB) * b);
    }
    // The spread is the standard error of a, the same for both nets.
    r.s = r.fit[RegressionResult::kSeA];
    const double twoS2 = 2.0 * r.s * r.s;
    r.selectionA.assign(static_cast<size_t>(nC) + 1, 0.f);
    r.selectionB.assign(static_cast<size_t>(nC) + 1, 0.f);
    for (int i = 1; i <= nC; ++i) {
        const double L = r.midlength(i);
        r.selectionA[i] = R4(Exp(-Div((L - r.lA) * (L - r.lA), twoS2)));
        r.selectionB[i] = R4(Exp(-Div((L - r.lB) * (L - r.lB), twoS2)));
    }
    return r;
}

GillnetFiles GillnetFileNames(const std::string& chosenPath) {
    std::string base = chosenPath;
    const auto slash = base.find_last_of("/\\");
    const auto dot = base.find_last_of('.');
    if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) base.erase(dot);
    return {base + ".PRB", base + "1.PRB", base + "2.PRB"};
}

std::string GillnetSaveQuestion(const std::string& base) {
    return "The cummulative probability curve will be saved on " + base +
           ".PRB and the selection curve for the two gillnets will be saved on " + base +
           "1.PRB and " + base + "2.PRB" + " respectively. Do you want to continue?";
}

std::vector<std::pair<double, double>> GillnetPrbRows(const GillnetResult& run, int which) {
    std::vector<std::pair<double, double>> rows;
    for (int i = 1; i <= run.nC; ++i) {
        const float a = run.selectionA[i], b = run.selectionB[i];
        // The sum as it stands, which may exceed 1.
        const double p = which == 0 ? static_cast<double>(R4(a + b)) : which == 1 ? a : b;
        rows.emplace_back(run.midlength(i), p);
    }
    return rows;
}

void SavePRBAll(const GillnetFiles& files, const std::string& programFolder, const LfqData& source,
                const GillnetResult& run) {
    const RecordKind* kind = FindRecordKind("PRB");
    const std::string* paths[] = {&files.sum, &files.net1, &files.net2};
    for (int which = 0; which < 3; ++which) {
        RecordFile file;
        file.header["Speciesname"] = source.speciesname;
        file.header["Other_ID"] = source.otherId;
        file.header["Unit_Of_Measurement"] = source.unitOfMeasurement;
        file.header["Remarks"] = kGnPrbRemarks;
        for (const auto& [length, p] : GillnetPrbRows(run, which)) file.rows.push_back({length, p});
        WriteRecordFile(*paths[which], programFolder, *kind, file);
    }
}

}  // namespace norvo
