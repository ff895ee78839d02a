#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "core/real.h"

namespace quorval::regression {

// The slopes (y[j] - y[i]) / (x[j] - x[i]) of all pairs of points of different x: how many there
// are on either side of a value, and which one has a rank.  The slopes are told as the rounded
// quotients that they are, but not stored, as 9999 points have 50 million of them.
//
// Ordered by y - t x instead of by x, exactly those pairs of points change places whose slope is
// below t (the dual of the plane), so a merge sort counts them, and a merge sort from the order at
// one t to that at another meets the pairs between.  That is quick where the two are near, so every
// order is made from the nearest one that is known.  Rounding errors could only matter for points
// that are neighbours in the order and nearly tied: where there are such, another t is taken, and
// if that does not help, all pairs are gone through.
class PairSlopes {
 public:
  // At least one pair has different x.  A Fault where a slope overflows.
  PairSlopes(std::span<const Real> x, std::span<const Real> y);

  std::int64_t Count() const { return count_; }

  struct Place {
    std::int64_t below = 0, equal = 0;
  };
  // How many slopes are below t, and how many are t.
  Place PlaceOf(double t);

  // The slope of a rank from 1 to Count(), from the smallest; a zero has no sign.
  double Nth(std::int64_t rank);

 private:
  struct Keyed {
    double key;
    std::uint32_t point;
  };
  // The points by y - t x, and the number of pairs whose slope is below t.
  struct Order {
    double t = 0;
    std::int64_t below = 0;
    std::vector<Keyed> points{};
  };
  // All slopes from `lo` to `hi`.
  struct Window {
    double lo, hi;
    std::int64_t below;  // slopes below `lo`
    std::vector<double> slopes{};
    std::vector<std::ptrdiff_t> placed{};  // slopes at their places, none smaller behind them

    bool Holds(std::int64_t rank) const;
    double Nth(std::int64_t rank);
  };

  double Slope(std::size_t i, std::size_t j) const {
    return (y_[j] - y_[i]) / (x_[j] - x_[i]) + 0.0;
  }
  template <class Visit>
  void ForEach(Visit&& visit) const;
  template <class Visit>
  void ForEachBetween(const Order& lo, const Order& hi, Visit&& visit) const;

  using KnownOrder = std::shared_ptr<const Order>;

  const Order& NearestOrder(double t) const;
  KnownOrder OrderAt(double t);
  KnownOrder OrderNear(double t, double step);
  std::pair<double, double> SampledBracket(std::int64_t rank);
  void Tighten(KnownOrder& lo, KnownOrder& hi, std::int64_t rank) const;
  bool Narrow(KnownOrder& lo, KnownOrder& hi, std::int64_t rank);
  std::optional<Window> WindowAround(std::int64_t rank);
  double SelectByPasses(std::int64_t rank) const;

  std::vector<double> x_, y_;  // by x, then by y
  double largest_x_ = 0, largest_y_ = 0;
  double steepest_ = 0;  // no slope is steeper
  std::int64_t count_ = 0;
  std::vector<double> sample_;  // some slopes, sorted
  Order by_x_;
  std::deque<KnownOrder> known_;  // the orders asked for so far, or the last of them
  std::vector<Window> windows_;
};

}  // namespace quorval::regression
