#include "mortality/catch_curve.h"

#include <cmath>
#include <cstdlib>

#include <fmt/format.h>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"
#include "base/format.h"
#include "growth/vbgf.h"
#include "mortality/length_samples.h"
#include "numerics/validators.h"

namespace norvo {

namespace {

constexpr double kSeasonTwoPi = 6.283;  // as the method writes it
constexpr int kSeasonSearchLimit = 100000;

// The catch curve's notices carry the information icon, refusals included.
void Note(Outcome& o, const char* title, const std::string& text) {
    o.note(text, title, Icon::Information);
}
void Refuse(Outcome& o, const char* title, const std::string& text) {
    o.refuse(text, title, Icon::Information);
}

// The total of each sample (0-based), summed over the classes in order.
std::vector<double> SampleTotals(const std::vector<std::vector<double>>& freq) {
    std::vector<double> totals(freq.empty() ? 0 : freq.front().size(), 0.0);
    for (size_t s = 0; s < totals.size(); ++s)
        for (const auto& row : freq) totals[s] += row[s];
    return totals;
}

// Number pool and ordinates grow to nC + 1 entries; indexes beyond fail loudly.
template <typename T>
T& At(std::vector<T>& v, int i) {
    if (i < 0 || i >= static_cast<int>(v.size())) throw SubscriptFault("catch curve");
    return v[static_cast<size_t>(i)];
}
template <typename T>
T At(const std::vector<T>& v, int i) {
    if (i < 0 || i >= static_cast<int>(v.size())) throw SubscriptFault("catch curve");
    return v[static_cast<size_t>(i)];
}

}  // namespace

std::string ZeroCompensationText(int cls) {
    return "A zero frequency for age group " + std::to_string(cls) +
           " is compensated for by the two adjacent class intervals.";
}

std::string EmptySampleText(int sampleNo) {
    return "Sample " + std::to_string(sampleNo) +
           " holds no fish, so it cannot be expressed relative to its total. Please remove it "
           "from the file or use the raw data.";
}

std::string NegativeFrequencyText(int sampleNo, double midlength, double frequency) {
    return fmt::format(
        "Sample {}, midlength {:g}, holds a negative frequency ({:g}). Frequencies cannot be "
        "negative. Please correct the file.",
        sampleNo, midlength, frequency);
}

std::string SeasonalExtrapolationText(double z) {
    return "Estimation of probability of capture not applicable. To estimate probabilities of "
           "capture redo analysis, with C = 0, but enter Z=" +
           Format(z, "0.00") + " when this input is requested.";
}

double AgeOfLength(double length, double loo, double k, double t0) {
    if (length >= loo) return -9999;
    return -Div(Ln(1 - Div(length, loo)), k) - t0;
}

double ClassDuration(double l1, double l2, double loo, double k) {
    if (l2 >= loo || l1 >= l2) return -1;
    return Div(Ln(Div(loo - l1, loo - l2)), k);
}

std::vector<double> ClassDurations(double lower, double w, double loo, double k) {
    const int count = static_cast<int>(Int(Div(loo - lower, w)));
    std::vector<double> dt(static_cast<size_t>(std::max(count, 0)) + 1, 0.0);
    for (int i = 1; i <= count; ++i) {
        const double l1 = (i - 1) * w + lower;
        dt[static_cast<size_t>(i)] = ClassDuration(l1, l1 + w, loo, k);
    }
    return dt;
}

std::vector<double> MidpointAges(double lower, double w, double loo, double k, double t0) {
    const int count = static_cast<int>(Int(Div(loo - lower, w)));
    std::vector<double> ages(static_cast<size_t>(std::max(count, 0)) + 1, 0.0);
    for (int i = 1; i <= count; ++i)
        ages[static_cast<size_t>(i)] = AgeOfLength(lower + w / 2 + (i - 1) * w, loo, k, t0);
    return ages;
}

float SeasonalAgeOfLength(float length, float tS, float loo, float k, float c, float wp) {
    // target, t, step and v are stored as 32-bit floats; each expression is worked in 64 bits.
    const double amp = Div(c, kSeasonTwoPi);
    auto season = [&](double t) {
        return amp * std::sin(((t - static_cast<double>(wp)) + 0.5) * kSeasonTwoPi) + t;
    };
    float target = 0;
    if (length < loo) target = R4(Div(Ln(1 - Div(length, loo)), k) + season(tS));
    float t = 0, step = 1, direction = 1;
    for (int n = 0; n < kSeasonSearchLimit; ++n) {
        t = R4(t + static_cast<double>(direction) * step);
        const float v = R4(season(t));
        if (direction > 0 && v > target) {
            step = R4(step / 2.0);
            direction = -1;
        } else if (direction < 0 && v < target) {
            step = R4(step / 2.0);
            direction = 1;
        }
        if (std::fabs(static_cast<double>(target) - v) < 0.0001) return t;
    }
    throw ArithmeticFault(FaultNumber::InvalidCall, kInvalidCall);
}

void TransformSamples(std::vector<std::vector<double>>& freq, CcTransform kind) {
    if (kind == CcTransform::Raw || freq.empty()) return;
    const auto totals = SampleTotals(freq);
    for (size_t s = 0; s < totals.size(); ++s) {
        const double divisor = kind == CcTransform::Percent ? totals[s] : Sqrt(totals[s]);
        for (auto& row : freq) row[s] = Div(row[s] * 100, divisor);
    }
}

int SampleDayNumber(const LfqData& data, int s) {
    return MonthStart(At(data.month, s)) + At(data.day, s);
}

std::vector<double> TemporalWeights(const LfqData& data) {
    const int nS = data.noOfSamples;
    std::vector<double> weights(static_cast<size_t>(nS), 1.0);
    for (int s = 0; s < nS; ++s) {
        const int prev = s == 0 ? 0 : SampleDayNumber(data, s - 1);
        const int cur = SampleDayNumber(data, s);
        const int next =
            s == nS - 1 ? SampleDayNumber(data, 0) + 365 : SampleDayNumber(data, s + 1);
        const int toNext = std::abs(next - cur), toPrev = std::abs(prev - cur);
        const int d = toPrev <= toNext ? toPrev : toNext;
        weights[static_cast<size_t>(s)] = Sqrt(d);
    }
    return weights;
}

Outcome ValidateGrowthParams(const GrowthParams& g) {
    Outcome o;
    auto check = [&](float value, float low, float high, const char* message) {
        if (!o.ok() || InRange(value, low, high)) return;
        o.refuse(message, kValidatorTitle, Icon::Warning);
    };
    check(g.loo, 1e-6f, 1e6f, kCcInvalidLooText);
    check(g.k, 1e-6f, 100, kCcInvalidKText);
    check(g.t0, -100, 100, kCcInvalidT0Text);
    check(g.wp, 0, 1, kCcInvalidWpText);
    check(g.c, 0, 1, kCcInvalidCText);
    return o;
}

CatchCurveRun CatchCurveMethod(const LfqData& data, const CatchCurveOptions& o) {
    CatchCurveRun run;
    run.growth = o.growth;
    const double looD = o.growth.loo, kD = o.growth.k, t0D = o.growth.t0;
    run.seasonal = o.growth.c != 0;
    const int nC = data.noOfClasses, nS = data.noOfSamples;
    run.nC = nC;
    run.w = data.classInterval;
    run.firstMid = data.smallestMl;
    run.lower = data.smallestMl - data.classInterval / 2;

    if (run.firstMid > looD) {
        Refuse(run, kCcInvalidInputTitle, kCcLooBelowDataText);
        return run;
    }
    if (!AnySampleSelected(o.selected, nS)) {
        Refuse(run, kCcInvalidActionTitle, kCcNoDataSelectedText);
        return run;
    }
    run.absorb(CheckSampleFrequencies(data, o.transform));
    if (!run.ok()) return run;
    const auto freq = PreparedFrequencies(data, o.transform, o.temporal);

    run.X.assign(static_cast<size_t>(nC) + 1, 0.f);
    run.Y.assign(static_cast<size_t>(nC) + 1, 0.f);
    run.N.assign(static_cast<size_t>(nC) + 1, 0.f);
    const double w = run.w;
    auto F = [&](int s, int j) { return freq[static_cast<size_t>(j - 1)][static_cast<size_t>(s)]; };

    if (!run.seasonal) {
        run.N = PoolSelectedSamples(freq, o.selected);
        if (Div(run.lower, looD) >= 0.999) {
            Refuse(run, kCcNotEnoughDataTitle, kCcNoLineFromDataText);
            return run;
        }
        run.dt = ClassDurations(run.lower, w, looD, kD);
        double tPrev = AgeOfLength(run.lower, looD, kD, t0D);
        int last = 0;
        for (int i = 1; i <= nC; ++i) {
            const double u = i * w + run.lower;
            if (0.999 <= Div(u, looD)) break;
            const double tU = AgeOfLength(u, looD, kD, t0D);
            At(run.Y, i) = R4(Div(At(run.N, i), tU - tPrev));
            tPrev = tU;
            last = i;
        }
        run.lastClass = last;
        if (last < 3) {
            Refuse(run, kCcNotEnoughDataTitle, kCcFewerThanThreeText);
            return run;
        }
    } else {
        const float loo = o.growth.loo, k = o.growth.k, c = o.growth.c, wp = o.growth.wp;
        auto mid = [&](int j) { return (j - 1) * w + run.firstMid; };
        auto age = [&](double length, float tS) {
            return SeasonalAgeOfLength(R4(length), tS, loo, k, c, wp);
        };
        std::vector<float> tSample(static_cast<size_t>(nS));
        for (int s = 0; s < nS; ++s) tSample[s] = R4(SampleDayNumber(data, s) / 365.0);
        double t1 = 9999, t2 = -9999;
        for (int s = 0; s < nS; ++s) {
            int hi = 0, lo = 0;
            for (int j = 1; j <= nC; ++j)
                if (F(s, j) > 0) {
                    if (lo == 0) lo = j;
                    hi = j;
                }
            if (hi == 0) continue;
            double t = age(mid(hi) + w / 2, tSample[s]);
            if (t < t1) t1 = t;
            t = age(mid(lo) - w / 2, tSample[s]);
            if (t > t2) t2 = t;
        }
        t1 = -t1;
        t2 = -t2;
        // Edges, bins and the shares of a class are 64-bit; only X, Y and N are stored 32-bit.
        const double dT = Div(t1 - t2, nC);
        std::vector<double> edge(static_cast<size_t>(nC) + 2, 0.0);
        for (int kk = 1; kk <= nC + 1; ++kk) edge[kk] = dT * (kk - 1) + t2;
        std::vector<double> bin(static_cast<size_t>(nC) + 1, 0.0);
        for (int s = 0; s < nS; ++s) {
            for (int j = 1; j <= nC; ++j) {
                if (!(F(s, j) > 0)) continue;
                double low = -age(mid(j) - w / 2, tSample[s]);
                const double high = -age(mid(j) + w / 2, tSample[s]);
                double rest = F(s, j);
                for (int kk = 1; kk <= nC; ++kk) {
                    if (!(edge[kk] <= low && low <= edge[kk + 1])) continue;
                    if (high <= edge[kk + 1]) {
                        bin[kk] += rest;
                        break;
                    }
                    const double p = Div(edge[kk + 1] - low, high - low);
                    bin[kk] += p * rest;
                    rest -= p * rest;
                    low = edge[kk + 1] + 0.0001;
                }
            }
        }
        for (int kk = 1; kk <= nC; ++kk) {
            run.X[kk] = R4(edge[kk] - t2);
            run.Y[kk] = R4(bin[kk]);
            run.N[kk] = R4(bin[kk]);
        }
        run.lastClass = nC;
        if (nC < 3) {
            Refuse(run, kCcNotEnoughDataTitle, kCcFewerThanThreeText);
            return run;
        }
    }

    int first = 0;
    for (int i = 1; i <= run.lastClass; ++i)
        if (run.Y[i] != 0) {
            first = i;
            break;
        }
    int last = run.lastClass;
    while (last > 0 && run.Y[last] == 0) --last;
    run.firstClass = first;
    run.lastClass = last;
    if (first == 0 || last - first < 2) {
        Refuse(run, kCcNotEnoughDataTitle, kCcFewerThanThreeText);
        return run;
    }

    // Zero compensation: a run of empty classes borrows a quarter from each neighbour.
    for (int i = first + 1; i <= last - 1; ++i) {
        if (run.Y[i] != 0) continue;
        Note(run, kCcNoticeTitle, ZeroCompensationText(i));
        int z = 0;
        while (run.Y[i + z] == 0) ++z;
        const float a = R4(run.Y[i - 1] / 4.0);
        run.Y[i - 1] = R4(run.Y[i - 1] * 0.75);
        const float b = R4(run.N[i - 1] / 4.0);
        run.N[i - 1] = R4(run.N[i - 1] * 0.75);
        const float c = R4(run.Y[i + z] / 4.0);
        run.Y[i + z] = R4(run.Y[i + z] * 0.75);
        const float d = R4(run.N[i + z] / 4.0);
        run.N[i + z] = R4(run.N[i + z] * 0.75);
        for (int m = i; m < i + z; ++m) {
            run.Y[m] = R4(Div(static_cast<double>(a) + c, z));
            run.N[m] = R4(Div(static_cast<double>(b) + d, z));
        }
        i += z;
    }
    for (int i = first; i <= last; ++i) run.Y[i] = R4(Ln(run.Y[i]));

    if (!run.seasonal) {
        const auto ages = MidpointAges(run.lower, w, looD, kD, t0D);
        for (int i = 1; i <= nC && i < static_cast<int>(ages.size()); ++i) run.X[i] = R4(ages[i]);
    }
    return run;
}

void FitPoints(CatchCurveRun& run) {
    LinearRegression(run.X, run.Y, run.firstPoint, run.lastPoint, run.fit);
}

void ComputeDefaultPoints(CatchCurveRun& run) {
    const int first = run.firstClass, last = run.lastClass;
    run.firstPoint = 0;
    run.lastPoint = 0;
    int peak = first;
    float top = -99;
    for (int i = first; i <= last; ++i)
        if (run.Y[i] > top) {
            top = run.Y[i];
            peak = i;
        }
    double bestF = 0;
    RegressionResult fit;
    for (int i = first; i <= last - 2; ++i) {
        double rowF = 0;
        int bi = 0, bj = 0;
        for (int j = i + 2; j <= last; ++j) {
            LinearRegression(run.X, run.Y, i, j, fit);
            double a = fit.a(), b = fit.b();
            if (b > 0) {
                rowF = 0;
                break;
            }
            double f = fit[RegressionResult::kF];
            if (last - peak > 4 && i < peak) f = 0;
            if (i == peak) {
                if (b == 0) b = 0.001;
                const double t = CLng(Div(run.Y[i] - a, b));
                if (run.X[i] < t) f = 0;
            }
            if (j == last) {
                if (b == 0) b = 0.001;
                const double t = CLng(Div(run.Y[j] - a, b));
                if (run.X[j] > t) f = 0;
            }
            if (rowF == 0 || rowF < f) {
                rowF = f;
                bi = i;
                bj = j;
            }
        }
        if (bestF < rowF) {
            bestF = rowF;
            run.firstPoint = bi;
            run.lastPoint = bj;
        }
    }
}

CcScale CatchCurveScale(const CatchCurveRun& run, const std::vector<float>& extraY) {
    CcScale s;
    double yMax = 0, yMin = 9999;
    auto take = [&](double y) {
        yMax = std::max(yMax, y);
        yMin = std::min(yMin, y);
    };
    for (int i = run.firstClass; i <= run.lastClass; ++i) take(run.Y[i]);
    for (size_t i = 1; i < extraY.size(); ++i) take(extraY[i]);
    yMax = Int(yMax) + 1;
    yMin = yMin <= 0 ? Int(yMin) : 0;
    if (CLng(yMax - yMin) % 2 != 0) yMax += 1;
    if (yMax / 2 != Int(yMax / 2)) yMax += 1;
    s.yMin = yMin;
    s.yMax = yMax;
    s.yScale = Div(70, yMax - yMin);
    s.xMax = std::max(1.0, Int(run.X[run.lastClass] + 0.5));
    s.xScale = Div(65, s.xMax);
    s.yStep = std::max<int32_t>(1, CLng(yMax / 4));
    s.xStep = s.xMax < 6 ? 1 : (s.xMax <= 13 ? 2 : Int(s.xMax / 4));
    return s;
}

Outcome CheckTemperature(double t) {
    Outcome o;
    if (t < -2) Refuse(o, kCcTemperatureTitle, kCcTooColdText);
    if (t > 31) Refuse(o, kCcTemperatureTitle, kCcTooWarmText);
    return o;
}

Outcome CheckMortalities(double z, double m) {
    Outcome o;
    if (!(z > 0 && m > 0)) {
        Refuse(o, kCcInvalidActionTitle, kCcMissingInputText);
    } else if (m > z) {
        Note(o, kCcMAboveZTitle, kCcMAboveZText);
    }
    return o;
}

Extrapolation ExtrapolateProb(const CatchCurveRun& run, double zEntered, double mEntered,
                              double tEntered) {
    Extrapolation e;
    // The entered mortalities and temperature are stored as 32-bit floats.
    const double z = R4(zEntered), m = R4(mEntered);
    e.z = z;
    e.m = m;
    e.t = R4(tEntered);
    const int f = run.firstPoint;
    if (f < 1) throw SubscriptFault("ExtrapolateProb");
    // The fitted stretch but its last point is redrawn from the numbers: ln(N/dt).
    e.yWorking.assign(static_cast<size_t>(run.nC) + 1, 0.f);
    for (int i = f; i <= run.lastPoint - 1; ++i)
        At(e.yWorking, i) = R4(Ln(Div(At(run.N, i), At(run.dt, i))));
    const double a = run.fit.a();
    const double step = Div(z - m, f);
    std::vector<double> zi(static_cast<size_t>(f) + 1), zmid(static_cast<size_t>(f) + 1),
        dAge(static_cast<size_t>(f) + 1);
    for (int i = 1; i <= f; ++i) zi[i] = i * step + m;
    for (int i = 1; i <= f - 1; ++i) {
        zmid[i] = (zi[i + 1] + zi[i]) / 2;
        dAge[i] = At(run.X, i + 1) - At(run.X, i);
    }
    e.ne.assign(static_cast<size_t>(f) + 1, 0.0);
    e.yExtra.assign(static_cast<size_t>(f), 0.f);
    e.ne[f] = Exp(-z * At(run.X, f) + a) * At(run.dt, f);
    for (int i = f - 1; i >= 1; --i) {
        e.ne[i] = CheckFinite(Exp(dAge[i] * zmid[i]) * e.ne[i + 1]);
        e.yExtra[i] = R4(Ln(Div(e.ne[i], At(run.dt, i))));
    }
    e.probability.assign(static_cast<size_t>(run.nC) + 1, 1.f);
    e.probability[0] = 0;
    for (int i = 1; i < f; ++i) e.probability[i] = R4(Div(Exp(run.Y[i]) * At(run.dt, i), e.ne[i]));
    return e;
}

std::string ExtrapolationSubtitle(const Extrapolation& e) {
    return "(for Z=" + Format(e.z, "0.00") + "; M (at " + Format(e.t, "0.0") +
           "\u00baC)=" + Format(e.m, "0.00") + "; F=" + Format(e.z - e.m, "0.00") +
           "; E=" + Format(Div(e.z - e.m, e.z), "0.00") + ")";
}

}  // namespace norvo
