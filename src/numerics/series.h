#pragma once
// Small helpers over numbers and arrays. Positions passed as `from` count from 1, as the
// system's arrays do: position 1 is the first element of the span.
#include <cstdint>
#include <span>
#include <vector>

namespace norvo {

inline constexpr float kNoMean = -9999.0f;  // ArrayMean of an empty range

int16_t MinInteger(int16_t a, int16_t b);
int16_t MaxInteger(int16_t a, int16_t b);
int32_t MinLong(int32_t a, int32_t b);
float MinSingle(float a, float b);
float MaxSingle(float a, float b);
double MaxDouble(double a, double b);

void Swap(float& a, float& b);
void Swap(double& a, double& b);

// Add or subtract 1 in place; leaving the type's range is an overflow fault.
void Increment(int16_t& v);
void Increment(int32_t& v);
void Decrement(int16_t& v);
void Decrement(int32_t& v);

// Mean of values over `count` positions from position `from`; from < 1 starts at the first
// element, count < 1 runs to the end. An empty range gives -9999. A range past the end is a
// SubscriptFault.
float ArrayMean(std::span<const float> values, int32_t from, int32_t count);
// Sum over the same range rule; an empty range sums to 0.
double ArraySum(std::span<const double> values, int32_t from, int32_t count);

// Series kinds: 1 arithmetic (first + i * step), 2 geometric (first * step ^ i), i from 0.
enum class SeriesKind : int { Arithmetic = 1, Geometric = 2 };

// Writes `count` terms into values[start], values[start + 1], ..., growing the vector when it
// is too short. The whole-number form truncates each term to a 32-bit integer.
void MakeSeries(int32_t first, int32_t step, int32_t count, int32_t start, SeriesKind kind,
                std::vector<int32_t>& values);
void MakeSeries(float first, float step, int32_t count, int32_t start, SeriesKind kind,
                std::vector<float>& values);
void MakeSeries(double first, double step, int32_t count, int32_t start, SeriesKind kind,
                std::vector<double>& values);

}  // namespace norvo
