#include "numerics/series.h"

#include <limits>
#include <utility>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"
#include "numerics/text_convert.h"

namespace norvo {
namespace {

// The 0-based [begin, end) of a range given by the 1-based rule of ArrayMean.
std::pair<size_t, size_t> Range(size_t size, int32_t from, int32_t count) {
    const size_t begin = from < 1 ? 0 : static_cast<size_t>(from) - 1;
    const size_t end = count < 1 ? size : begin + static_cast<size_t>(count);
    if (begin > size || end > size) throw SubscriptFault("ArrayMean");
    return {begin, end};
}

template <class Int>
void Step(Int& v, int delta) {
    const int64_t next = static_cast<int64_t>(v) + delta;
    if (next < std::numeric_limits<Int>::min() || next > std::numeric_limits<Int>::max()) {
        ThrowOverflow();
    }
    v = static_cast<Int>(next);
}

double Term(double first, double step, int32_t i, SeriesKind kind) {
    if (kind == SeriesKind::Arithmetic) return CheckFinite(first + i * step);
    return CheckFinite(first * Pow(step, i));
}

template <class T, class Store>
void Fill(double first, double step, int32_t count, int32_t start, SeriesKind kind,
          std::vector<T>& values, Store store) {
    if (count < 1) return;
    if (start < 0) throw SubscriptFault("MakeSeries");
    const size_t need = static_cast<size_t>(start) + static_cast<size_t>(count);
    if (values.size() < need) values.resize(need);
    for (int32_t i = 0; i < count; ++i) {
        values[static_cast<size_t>(start + i)] = store(Term(first, step, i, kind));
    }
}

}  // namespace

int16_t MinInteger(int16_t a, int16_t b) {
    return a < b ? a : b;
}
int16_t MaxInteger(int16_t a, int16_t b) {
    return a > b ? a : b;
}
int32_t MinLong(int32_t a, int32_t b) {
    return a < b ? a : b;
}
float MinSingle(float a, float b) {
    return a < b ? a : b;
}
float MaxSingle(float a, float b) {
    return a > b ? a : b;
}
double MaxDouble(double a, double b) {
    return a > b ? a : b;
}

void Swap(float& a, float& b) {
    std::swap(a, b);
}
void Swap(double& a, double& b) {
    std::swap(a, b);
}

void Increment(int16_t& v) {
    Step(v, 1);
}
void Increment(int32_t& v) {
    Step(v, 1);
}
void Decrement(int16_t& v) {
    Step(v, -1);
}
void Decrement(int32_t& v) {
    Step(v, -1);
}

float ArrayMean(std::span<const float> values, int32_t from, int32_t count) {
    const auto [begin, end] = Range(values.size(), from, count);
    if (begin >= end) return kNoMean;
    double sum = 0;
    for (size_t i = begin; i < end; ++i) sum += values[i];
    return R4(sum / static_cast<double>(end - begin));
}

double ArraySum(std::span<const double> values, int32_t from, int32_t count) {
    const auto [begin, end] = Range(values.size(), from, count);
    double sum = 0;
    for (size_t i = begin; i < end; ++i) sum = CheckFinite(sum + values[i]);
    return sum;
}

void MakeSeries(int32_t first, int32_t step, int32_t count, int32_t start, SeriesKind kind,
                std::vector<int32_t>& values) {
    Fill(first, step, count, start, kind, values, [](double v) {
        const double t = Fix(v);
        if (t < -2147483648.0 || t > 2147483647.0) ThrowOverflow();
        return static_cast<int32_t>(t);
    });
}

void MakeSeries(float first, float step, int32_t count, int32_t start, SeriesKind kind,
                std::vector<float>& values) {
    Fill(first, step, count, start, kind, values, [](double v) { return R4(v); });
}

void MakeSeries(double first, double step, int32_t count, int32_t start, SeriesKind kind,
                std::vector<double>& values) {
    Fill(first, step, count, start, kind, values, [](double v) { return v; });
}

}  // namespace norvo
