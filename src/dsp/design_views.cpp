// Step response, group delay and zeros of an FIR design.
#include "dsp/design_views.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include <Eigen/Eigenvalues>

namespace designviews {

namespace {

constexpr std::size_t kGrid = 4096;

} // namespace

std::vector<double> stepResponse(std::span<const double> h)
{
    std::vector<double> s(h.size());
    double sum = 0.0;
    for (std::size_t n = 0; n < h.size(); ++n) {
        sum += h[n];
        s[n] = sum;
    }
    return s;
}

std::vector<double> groupDelay(std::span<const double> h, std::size_t points)
{
    points = std::min(points, kGrid / 2 + 1);
    std::vector<double> delay(points, std::numeric_limits<double>::quiet_NaN());
    if (h.empty())
        return delay;
    // One table of e^(−j2πm/4096); the phase of bin k at tap n is (k·n) mod 4096.
    std::vector<std::complex<double>> twiddle(kGrid);
    for (std::size_t m = 0; m < kGrid; ++m)
        twiddle[m] = std::polar(1.0, -2.0 * std::numbers::pi * double(m) / double(kGrid));
    std::vector<std::complex<double>> H(points);
    std::vector<std::complex<double>> G(points);
    double largest = 0.0;
    for (std::size_t k = 0; k < points; ++k) {
        std::complex<double> a;
        std::complex<double> b;
        for (std::size_t n = 0; n < h.size(); ++n) {
            const std::complex<double> w = twiddle[(k * n) % kGrid];
            a += h[n] * w;
            b += double(n) * h[n] * w;
        }
        H[k] = a;
        G[k] = b;
        largest = std::max(largest, std::abs(a));
    }
    for (std::size_t k = 0; k < points; ++k)
        if (std::abs(H[k]) >= 1e-6 * largest && largest > 0.0)
            delay[k] = (G[k] / H[k]).real();
    return delay;
}

std::vector<std::complex<double>> transferZeros(std::span<const double> h)
{
    std::size_t first = 0;
    std::size_t last = h.size();
    while (first < last && h[first] == 0.0)
        ++first;
    while (last > first && h[last - 1] == 0.0)
        --last;
    std::vector<std::complex<double>> zeros;
    if (last - first < 1 || h.size() < 2)
        return zeros;
    const std::size_t atOrigin = h.size() - last;
    const std::size_t degree = last - first - 1;
    if (degree > 0) {
        // Monic polynomial z^d + a[1] z^(d−1) + … + a[d], a[i] = h[first + i] / h[first].
        Eigen::MatrixXd companion = Eigen::MatrixXd::Zero(Eigen::Index(degree), Eigen::Index(degree));
        for (std::size_t i = 0; i < degree; ++i)
            companion(0, Eigen::Index(i)) = -h[first + i + 1] / h[first];
        for (std::size_t i = 1; i < degree; ++i)
            companion(Eigen::Index(i), Eigen::Index(i - 1)) = 1.0;
        const Eigen::EigenSolver<Eigen::MatrixXd> solver(companion, false);
        const auto& values = solver.eigenvalues();
        for (Eigen::Index i = 0; i < values.size(); ++i)
            zeros.push_back(values[i]);
    }
    zeros.insert(zeros.end(), atOrigin, std::complex<double>(0.0, 0.0));
    zeros.insert(zeros.end(), first, std::complex<double>(std::numeric_limits<double>::infinity(), 0.0));
    return zeros;
}

} // namespace designviews
