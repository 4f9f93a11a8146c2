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

namespace {

// The eigenvalues of `matrix` (Eigen's real Schur form, without vectors).
void appendEigenvalues(const Eigen::MatrixXd& matrix, std::vector<std::complex<double>>& to)
{
    const Eigen::EigenSolver<Eigen::MatrixXd> solver(matrix, false);
    const auto& values = solver.eigenvalues();
    for (Eigen::Index i = 0; i < values.size(); ++i)
        to.push_back(values[i]);
}

// Roots of the monic polynomial z^d + a[1] z^(d−1) + … + a[d], p[0] ≠ 0,
// a[i] = p[i] / p[0]: the eigenvalues of its companion matrix.
void appendCompanionRoots(std::span<const double> p, std::vector<std::complex<double>>& to)
{
    const auto degree = Eigen::Index(p.size() - 1);
    Eigen::MatrixXd companion = Eigen::MatrixXd::Zero(degree, degree);
    for (Eigen::Index i = 0; i < degree; ++i)
        companion(0, i) = -p[std::size_t(i) + 1] / p[0];
    for (Eigen::Index i = 1; i < degree; ++i)
        companion(i, i - 1) = 1.0;
    appendEigenvalues(companion, to);
}

// p divided by (z − r), r a root: synthetic division, the remainder dropped.
std::vector<double> deflate(std::span<const double> p, double r)
{
    std::vector<double> q(p.size() - 1);
    double carry = 0.0;
    for (std::size_t k = 0; k < q.size(); ++k)
        q[k] = carry = p[k] + r * carry;
    return q;
}

// A linear-phase design's polynomial is palindromic (p[k] = p[d−k]) or
// antipalindromic (p[k] = −p[d−k]); `sign` is +1 or −1 then, 0 otherwise.
// Windows computed in floating point are symmetric only to rounding, so
// pairs may differ by a few units in the last place of the largest tap: the
// zeros of the symmetric part are those of p to the same rounding.
int palindromeSign(std::span<const double> p)
{
    const std::size_t d = p.size() - 1;
    double largest = 0.0;
    for (const double v : p)
        largest = std::max(largest, std::abs(v));
    const double tolerance = 16.0 * std::numeric_limits<double>::epsilon() * largest;
    for (const int sign : {1, -1}) {
        bool all = true;
        for (std::size_t k = 0; k <= d / 2 && all; ++k)
            all = std::abs(p[k] - sign * p[d - k]) <= tolerance;
        if (all)
            return sign;
    }
    return 0;
}

// Roots of a palindromic polynomial of even degree 2m. z^(−m)·P(z) is a
// Chebyshev series of degree m in x = (z + 1/z)/2; its roots are the
// eigenvalues of the colleague matrix (the Chebyshev companion), an eighth of
// the work of the full companion, and well conditioned for the zeros on the
// unit circle (x in [−1, 1]) that make a stopband. Each x gives the
// reciprocal pair z, 1/z exactly.
void appendPalindromeRoots(std::span<const double> p, std::vector<std::complex<double>>& to)
{
    const std::size_t m = (p.size() - 1) / 2;
    // c[0] = p[m], c[k] = 2·p[m+k], as z^k + z^(−k) = 2·T_k(x).
    std::vector<double> c(m + 1);
    c[0] = p[m];
    for (std::size_t k = 1; k <= m; ++k)
        c[k] = p[m + k] + p[m - k]; // equal in theory; their sum keeps rounding symmetric
    std::vector<std::complex<double>> xs;
    if (m == 1) {
        xs.push_back(-c[0] / c[1]);
    } else {
        const auto n = Eigen::Index(m);
        Eigen::MatrixXd colleague = Eigen::MatrixXd::Zero(n, n);
        colleague(0, 1) = colleague(1, 0) = std::sqrt(0.5);
        for (Eigen::Index i = 1; i + 1 < n; ++i)
            colleague(i, i + 1) = colleague(i + 1, i) = 0.5;
        // Scaled so the matrix stays symmetric but for its last column.
        for (Eigen::Index i = 0; i < n; ++i) {
            const double scale = i == 0 ? std::sqrt(2.0) : 1.0;
            colleague(i, n - 1) -= 0.5 * c[std::size_t(i)] / c[m] * scale;
        }
        appendEigenvalues(colleague, xs);
    }
    for (const std::complex<double>& x : xs) {
        // z² − 2xz + 1 = 0; the root away from the origin first, then 1/z.
        std::complex<double> root = std::sqrt(x * x - 1.0);
        if (std::abs(x + root) < std::abs(x - root))
            root = -root;
        const std::complex<double> z = x + root;
        to.push_back(z);
        to.push_back(1.0 / z);
    }
}

} // namespace

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
    std::vector<double> p(h.begin() + std::ptrdiff_t(first), h.begin() + std::ptrdiff_t(last));
    // Linear phase: z = 1 is a zero of an antipalindrome, z = −1 of an odd
    // palindrome; what is left is an even palindrome, of half the work.
    int sign = p.size() > 1 ? palindromeSign(p) : 0;
    if (sign == -1) {
        zeros.emplace_back(1.0, 0.0);
        p = deflate(p, 1.0);
        sign = 1;
    }
    if (sign == 1 && p.size() % 2 == 0) {
        zeros.emplace_back(-1.0, 0.0);
        p = deflate(p, -1.0);
    }
    if (p.size() > 1)
        (sign == 1 ? appendPalindromeRoots : appendCompanionRoots)(p, zeros);
    zeros.insert(zeros.end(), atOrigin, std::complex<double>(0.0, 0.0));
    zeros.insert(zeros.end(), first, std::complex<double>(std::numeric_limits<double>::infinity(), 0.0));
    return zeros;
}

} // namespace designviews
