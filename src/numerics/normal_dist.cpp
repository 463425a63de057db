#include "numerics/normal_dist.h"

#include <cmath>

#include "base/checked.h"

namespace norvo {

namespace {

// The same steps for both widths: T is the type every constant and stored value is held in.
template <class T>
T Cdf(T x, T mean, T sd) {
    if (sd == T(0)) ThrowDivisionByZero();
    const T z = (x - mean) / sd;
    const T t = T(1) / (T(1) + T(0.3275911) * std::fabs(z * T(0.707106781)));
    const T s = std::exp(-z * z / T(2));
    const T q = T(1.12837917) * s;
    const T u =
        t * ((((T(0.94064607) * t - T(1.28782245)) * t + T(1.25969513)) * t - T(0.252128668)) * t +
             T(0.225836846));
    const T erf = T(1) - u * q;
    T h = T(0.5) * erf;
    if (z < T(0)) h = -h;
    return h + T(0.5);
}

template <class T>
T Pdf(T x, T mean, T sd) {
    if (sd == T(0)) ThrowDivisionByZero();
    const T d = x - mean;
    return T(1) / std::sqrt(T(6.28318530717958)) / sd * std::exp(-(d * d) / (T(2) * sd * sd));
}

}  // namespace

double NormalCdf(double x, double mean, double sd) {
    return Cdf<double>(x, mean, sd);
}
float NormalCdf32(float x, float mean, float sd) {
    return Cdf<float>(x, mean, sd);
}
double NormalPdf(double x, double mean, double sd) {
    return Pdf<double>(x, mean, sd);
}
float NormalPdf32(float x, float mean, float sd) {
    return Pdf<float>(x, mean, sd);
}

}  // namespace norvo
