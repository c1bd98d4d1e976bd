#ifndef ZRBASE_TESTS_NUMERICS_SUPPORT_EIGENREFERENCE_H
#define ZRBASE_TESTS_NUMERICS_SUPPORT_EIGENREFERENCE_H

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

/// The eigen solution once more, as plainly as it can be written: every step on whole matrices by
/// value, without a thought for speed. The solvers have to give the same bits.
namespace eigenReference {

using Values = std::vector<double>;
using Square = std::vector<Values>;

struct Solution {
  Values d;
  Values e;
  Square q;
  bool converged = true;
};

inline Square identity(int n) {
  Square result(n, Values(n, 0.0));
  for (int i = 0; i < n; ++i) result[i][i] = 1.0;
  return result;
}

/// x A y over the rows and columns from 1 on.
inline double form(const Values& x, const Square& a, const Values& y) {
  Values ay(4, 0.0);
  for (int i = 1; i <= 3; ++i) {
    ay[i] = a[i][1] * y[1];
    for (int k = 2; k <= 3; ++k) ay[i] += a[i][k] * y[k];
  }
  return x[1] * ay[1] + x[2] * ay[2] + x[3] * ay[3];
}

inline Values crossed(const Values& a, const Values& b) {
  return {0.0, a[2] * b[3] - a[3] * b[2], a[3] * b[1] - a[1] * b[3], a[1] * b[2] - a[2] * b[1]};
}

inline Solution reduced2(const Square& m) {
  return {{m[0][0], m[1][1]}, {m[0][1], 0.0}, identity(2)};
}

/// The 3x3 reduction of the rows and columns from `first` on.
inline void reduceThree(const Square& m, int first, Solution& s) {
  const int i = first, j = first + 1, k = first + 2;
  s.d[i] = m[i][i];
  s.d[j] = m[j][j];
  s.d[k] = m[k][k];
  s.e[i] = m[i][j];
  s.e[j] = m[j][k];
  if (m[i][k] == 0.0) return;
  const double ell = std::sqrt(m[i][j] * m[i][j] + m[i][k] * m[i][k]);
  const double b = m[i][j] / ell;
  const double c = m[i][k] / ell;
  const double q = 2.0 * b * m[j][k] + c * (m[k][k] - m[j][j]);
  s.d[j] += c * q;
  s.d[k] -= c * q;
  s.e[i] = ell;
  s.e[j] -= b * q;
  s.q[j][j] = b;
  s.q[j][k] = c;
  s.q[k][j] = c;
  s.q[k][k] = -b;
}

inline Solution reduced3(const Square& m) {
  Solution s{Values(3), Values(3, 0.0), identity(3)};
  reduceThree(m, 0, s);
  return s;
}

inline Solution reduced4(const Square& m) {
  Solution s{Values(4), Values(4, 0.0), identity(4)};
  s.d[0] = m[0][0];
  s.e[0] = m[0][1];
  if (m[0][2] == 0.0 && m[0][3] == 0.0) {
    reduceThree(m, 1, s);
    return s;
  }
  s.e[0] = std::sqrt(m[0][1] * m[0][1] + m[0][2] * m[0][2] + m[0][3] * m[0][3]);
  const Values u{0.0, m[0][1] / s.e[0], m[0][2] / s.e[0], m[0][3] / s.e[0]};
  Values au(4, 0.0);
  for (int i = 1; i <= 3; ++i) au[i] = m[i][1] * u[1] + m[i][2] * u[2] + m[i][3] * u[3];
  const Values p = crossed(u, au);
  const double len = std::sqrt(p[1] * p[1] + p[2] * p[2] + p[3] * p[3]);
  const double h = u[2] * u[2] + u[3] * u[3];
  Values v{0.0, 0.0, 1.0, 0.0};
  Values r{0.0, 0.0, 0.0, 1.0};
  if (len > 0.0) {
    r = {0.0, p[1] / len, p[2] / len, p[3] / len};
    v = crossed(r, u);
    s.e[1] = form(u, m, v);
  } else if (h > 0.0) {
    const double t = u[1] - 1.0;
    v = {0.0, -u[2], 1.0 + t * u[2] * u[2] / h, t * u[2] * u[3] / h};
    r = {0.0, -u[3], t * u[2] * u[3] / h, 1.0 + t * u[3] * u[3] / h};
  }
  s.d[1] = form(u, m, u);
  s.d[2] = form(v, m, v);
  s.e[2] = form(r, m, v);
  s.d[3] = form(r, m, r);
  for (int i = 1; i <= 3; ++i) {
    s.q[i][1] = u[i];
    s.q[i][2] = v[i];
    s.q[i][3] = r[i];
  }
  return s;
}

inline Solution reducedN(Square a) {
  const int n = static_cast<int>(a.size());
  Values d(n, 0.0), e(n, 0.0);
  for (int i = n - 1; i >= 1; --i) {
    const int l = i - 1;
    double scale = 0.0, h = 0.0;
    for (int k = 0; k <= l; ++k) scale = scale + std::fabs(a[i][k]);
    if (l == 0 || scale == 0.0) {
      e[i] = a[i][l];
      d[i] = 0.0;
      continue;
    }
    for (int k = 0; k <= l; ++k) a[i][k] = a[i][k] / scale;
    for (int k = 0; k <= l; ++k) h = h + a[i][k] * a[i][k];
    const double last = a[i][l];
    const double root = last > 0.0 ? -std::sqrt(h) : std::sqrt(h);
    e[i] = scale * root;
    h = h - last * root;
    a[i][l] = last - root;
    double sum = 0.0;
    for (int j = 0; j <= l; ++j) {
      a[j][i] = a[i][j] / h;
      double g = 0.0;
      for (int k = 0; k <= l; ++k) g = g + (k <= j ? a[j][k] : a[k][j]) * a[i][k];
      e[j] = g / h;
      sum = sum + e[j] * a[i][j];
    }
    const double hh = sum / (h + h);
    for (int j = 0; j <= l; ++j) {
      e[j] = e[j] - hh * a[i][j];
      for (int k = 0; k <= j; ++k) a[j][k] = a[j][k] - (a[i][j] * e[k] + e[j] * a[i][k]);
    }
    d[i] = h;
  }
  d[0] = 0.0;
  for (int i = 0; i < n; ++i) {
    if (d[i] != 0.0) {
      for (int j = 0; j <= i - 1; ++j) {
        double g = 0.0;
        for (int k = 0; k <= i - 1; ++k) g = g + a[i][k] * a[k][j];
        for (int k = 0; k <= i - 1; ++k) a[k][j] = a[k][j] - g * a[k][i];
      }
    }
    d[i] = a[i][i];
    a[i][i] = 1.0;
    for (int j = 0; j <= i - 1; ++j) a[i][j] = a[j][i] = 0.0;
  }
  e.erase(e.begin());
  e.push_back(0.0);
  return {d, e, a};
}

/// The QL iteration.
inline void iterate(Solution& s) {
  const int n = static_cast<int>(s.d.size());
  Values& d = s.d;
  Values& e = s.e;
  for (int i0 = 0; i0 < n; ++i0) {
    int count = 0;
    while (count < 30) {
      int i2 = i0;
      while (i2 < n - 1) {
        const double t = std::fabs(d[i2]) + std::fabs(d[i2 + 1]);
        if (std::fabs(e[i2]) + t == t) break;
        ++i2;
      }
      if (i2 == i0) break;
      const double quotient = (d[i0 + 1] - d[i0]) / (2.0 * e[i0]);
      const double root = std::sqrt(quotient * quotient + 1.0);
      double g = d[i2] - d[i0] + e[i0] / (quotient >= 0.0 ? quotient + root : quotient - root);
      double sn = 1.0, cs = 1.0, p = 0.0;
      for (int i3 = i2 - 1; i3 >= i0; --i3) {
        const double f = sn * e[i3];
        const double b = cs * e[i3];
        const bool byG = std::fabs(f) < std::fabs(g);
        const double ratio = byG ? f / g : g / f;
        const double norm = std::sqrt(ratio * ratio + 1.0);
        e[i3 + 1] = (byG ? g : f) * norm;
        const double major = 1.0 / norm;
        sn = byG ? ratio * major : major;
        cs = byG ? major : ratio * major;
        g = d[i3 + 1] - p;
        const double r = (d[i3] - g) * sn + 2.0 * b * cs;
        p = sn * r;
        d[i3 + 1] = g + p;
        g = cs * r - b;
        for (Values& row : s.q) {
          const double low = row[i3], high = row[i3 + 1];
          row[i3 + 1] = sn * low + cs * high;
          row[i3] = cs * low - sn * high;
        }
      }
      d[i0] = d[i0] - p;
      e[i0] = g;
      e[i2] = 0.0;
      ++count;
    }
    if (count == 30) {
      s.converged = false;
      return;
    }
  }
}

/// Sorted by taking the extreme of what is left; sense is 1 for decreasing, -1 for increasing.
inline void sort(Solution& s, double sense) {
  for (std::size_t i0 = 0; i0 < s.d.size(); ++i0) {
    const auto best =
        std::max_element(s.d.begin() + static_cast<std::ptrdiff_t>(i0), s.d.end(),
                         [sense](double a, double b) { return sense * a < sense * b; });
    const std::size_t other = static_cast<std::size_t>(best - s.d.begin());
    std::swap(s.d[i0], s.d[other]);
    for (Values& row : s.q) std::swap(row[i0], row[other]);
  }
}

/// The solution with the reduction that goes with the size.
inline Solution solve(const Square& m) {
  Solution s = m.size() == 2   ? reduced2(m)
               : m.size() == 3 ? reduced3(m)
               : m.size() == 4 ? reduced4(m)
                               : reducedN(m);
  iterate(s);
  return s;
}

/// The solution with Householder's reduction.
inline Solution solveN(const Square& m) {
  Solution s = reducedN(m);
  iterate(s);
  return s;
}

}  // namespace eigenReference

#endif  // ZRBASE_TESTS_NUMERICS_SUPPORT_EIGENREFERENCE_H
