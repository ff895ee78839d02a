#include "analyses/regression/pair_slopes.h"

#include <algorithm>
#include <limits>
#include <random>

namespace quorval::regression {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// So many slopes are gathered at once; it costs about as much as an order of 9999 points.
constexpr std::int64_t kGathered = 50'000;
// Slopes that are equal can be more; these take 16 MB.
constexpr std::int64_t kMostGathered = 2'000'000;

// A merge sort by the keys, from the order that the points stand in.  It visits each pair that
// changes places, as (the earlier ones, the later one).
template <class Keyed, class Visit>
void MergeSort(std::vector<Keyed>& points, Visit&& visit) {
  std::vector<Keyed> merged(points.size());
  for (std::size_t width = 1; width < points.size(); width *= 2) {
    for (std::size_t first = 0; first < points.size(); first += 2 * width) {
      std::size_t left = first, to = first;
      const std::size_t middle = std::min(first + width, points.size());
      const std::size_t end = std::min(first + 2 * width, points.size());
      std::size_t right = middle;
      const bool in_order = middle == end || !(points[middle].key < points[middle - 1].key);
      while (!in_order && left < middle && right < end) {
        if (points[right].key < points[left].key) {
          visit(std::span(points).subspan(left, middle - left), points[right]);
          merged[to++] = points[right++];
        } else {
          merged[to++] = points[left++];
        }
      }
      while (left < middle) merged[to++] = points[left++];
      while (right < end) merged[to++] = points[right++];
    }
    points.swap(merged);
  }
}

double LargestSize(std::span<const double> values) {
  double largest = 0;
  for (double value : values) largest = std::max(largest, std::fabs(value));
  return largest;
}

double Select(std::vector<double>& values, std::int64_t rank) {
  const auto nth = values.begin() + (rank - 1);
  std::nth_element(values.begin(), nth, values.end());
  return *nth;
}

}  // namespace

PairSlopes::PairSlopes(std::span<const Real> x, std::span<const Real> y) {
  std::vector<std::pair<double, double>> points;
  for (std::size_t i = 0; i < x.size(); ++i) points.emplace_back(Raw(x[i]), Raw(y[i]));
  std::ranges::sort(points);
  for (const auto& [px, py] : points) {
    x_.push_back(px);
    y_.push_back(py);
  }
  largest_x_ = LargestSize(x_);
  largest_y_ = LargestSize(y_);

  double least_step = kInfinity;
  std::int64_t same = 0;  // earlier points of this x
  for (std::size_t i = 0; i < x_.size(); ++i) {
    same = i > 0 && x_[i] == x_[i - 1] ? same + 1 : 0;
    count_ += static_cast<std::int64_t>(i) - same;
    if (i > 0 && same == 0) least_step = std::min(least_step, x_[i] - x_[i - 1]);
  }
  by_x_.t = -kInfinity;
  for (std::uint32_t i = 0; i < x_.size(); ++i) by_x_.points.push_back({0, i});
  steepest_ = 2 * largest_y_ / least_step * (1 + 1e-9);
  if (steepest_ == kInfinity) ForEach([](double slope) { static_cast<void>(Real(slope)); });
}

template <class Visit>
void PairSlopes::ForEach(Visit&& visit) const {
  for (std::size_t i = 0; i < x_.size(); ++i)
    for (std::size_t j = i + 1; j < x_.size(); ++j)
      if (x_[i] != x_[j]) visit(Slope(i, j));
}

// --- Orders of the points

const PairSlopes::Order& PairSlopes::NearestOrder(double t) const {
  const Order* nearest = &by_x_;
  for (const KnownOrder& order : known_)
    if (std::fabs(order->t - t) < std::fabs(nearest->t - t)) nearest = order.get();
  return *nearest;
}

// None where the order is in doubt: below `doubt` rounding errors of the keys, or of the slopes,
// may decide which of two points comes first.
PairSlopes::KnownOrder PairSlopes::OrderAt(double t) {
  constexpr double kLeastSlope = 1e-290;  // far from where a quotient underflows
  constexpr std::size_t kMostKnown = 64;
  const double doubt =
      std::numeric_limits<double>::epsilon() * (4 * largest_y_ + 16 * std::fabs(t) * largest_x_);
  if (!(std::fabs(t) > kLeastSlope) || !(doubt < kInfinity)) return nullptr;
  const Order& from = NearestOrder(t);
  Order order{.t = t, .points = from.points};
  for (auto& [key, point] : order.points) key = y_[point] - t * x_[point];
  std::int64_t between = 0;
  MergeSort(order.points, [&](std::span<const Keyed> passed, const Keyed&) {
    between += static_cast<std::int64_t>(passed.size());
  });
  order.below = from.t < t ? from.below + between : from.below - between;
  for (std::size_t k = 1; k < order.points.size(); ++k) {
    const auto& [key_a, a] = order.points[k - 1];
    const auto& [key_b, b] = order.points[k];
    if (key_b - key_a <= doubt && x_[a] != x_[b]) return nullptr;
  }
  if (known_.size() == kMostKnown) known_.pop_front();
  return known_.emplace_back(std::make_shared<const Order>(std::move(order)));
}

// The order at t, or a few growing steps away from it.
PairSlopes::KnownOrder PairSlopes::OrderNear(double t, double step) {
  constexpr int kMostTries = 6;
  for (int tries = 0; tries < kMostTries; ++tries) {
    if (auto order = OrderAt(t)) return order;
    t += step;
    step *= 16;
  }
  return nullptr;
}

template <class Visit>
void PairSlopes::ForEachBetween(const Order& lo, const Order& hi, Visit&& visit) const {
  std::vector<Keyed> points = lo.points;
  for (auto& [key, point] : points) key = y_[point] - hi.t * x_[point];
  MergeSort(points, [&](std::span<const Keyed> passed, const Keyed& later) {
    for (const Keyed& earlier : passed) visit(Slope(earlier.point, later.point));
  });
}

// --- Counts

PairSlopes::Place PairSlopes::PlaceOf(double t) {
  Place place;
  const auto look = [&](double slope) {
    place.below += slope < t;
    place.equal += slope == t;
  };
  for (const Window& window : windows_) {
    if (t <= window.lo || t >= window.hi) continue;
    place.below = window.below;
    std::ranges::for_each(window.slopes, look);
    return place;
  }
  constexpr double kHair = 0x1p-30;
  const double step = kHair * std::max(std::fabs(t), steepest_ > 0 ? std::min(steepest_, 1.0) : 1);
  const auto lo = count_ > kGathered ? OrderNear(t - step, -step) : nullptr;
  const auto hi = lo ? OrderNear(t + step, step) : nullptr;
  if (hi) {
    place.below = lo->below;
    ForEachBetween(*lo, *hi, look);
  } else {
    ForEach(look);
  }
  return place;
}

// --- Ranks

bool PairSlopes::Window::Holds(std::int64_t rank) const {
  return below < rank && rank <= below + std::ssize(slopes);
}

// Selects between the neighbours that were selected before.
double PairSlopes::Window::Nth(std::int64_t rank) {
  const std::ptrdiff_t at = rank - below - 1;
  const auto next = std::ranges::lower_bound(placed, at);
  if (next == placed.end() || *next != at) {
    const auto first = slopes.begin() + (next == placed.begin() ? 0 : *(next - 1) + 1);
    const auto end = next == placed.end() ? slopes.end() : slopes.begin() + *next;
    std::nth_element(first, slopes.begin() + at, end);
    placed.insert(next, at);
  }
  return slopes[static_cast<std::size_t>(at)];
}

double PairSlopes::Nth(std::int64_t rank) {
  for (Window& window : windows_)
    if (window.Holds(rank)) return window.Nth(rank);
  if (auto window = WindowAround(rank)) return windows_.emplace_back(std::move(*window)).Nth(rank);
  return SelectByPasses(rank);
}

// Slopes that have the one of this rank between them, in all likelihood.
std::pair<double, double> PairSlopes::SampledBracket(std::int64_t rank) {
  constexpr std::size_t kSampled = 4096;
  std::mt19937 random;  // its raw numbers are the same everywhere
  while (sample_.size() < kSampled) {
    const std::size_t i = random() % x_.size();
    const std::size_t j = random() % x_.size();
    if (x_[i] != x_[j]) sample_.push_back(Slope(i, j));
  }
  std::ranges::sort(sample_);
  const double p = static_cast<double>(rank) / static_cast<double>(count_);
  const double margin = 4 * std::sqrt(kSampled * p * (1 - p)) + 4;
  const double low = kSampled * p - margin;
  const double high = kSampled * p + margin;
  return {low < 0 ? -2 * steepest_ - 1 : sample_[static_cast<std::size_t>(low)],
          high >= kSampled ? 2 * steepest_ + 1 : sample_[static_cast<std::size_t>(high)]};
}

// The nearest known orders on either side of the rank's slope, where they are nearer than lo and
// hi.
void PairSlopes::Tighten(KnownOrder& lo, KnownOrder& hi, std::int64_t rank) const {
  for (const KnownOrder& order : known_) {
    const bool below = order->below < rank;
    if (below && (!lo || order->t > lo->t)) lo = order;
    if (!below && (!hi || order->t < hi->t)) hi = order;
  }
}

// Brings lo and hi nearer to the rank's slope until not too many are between; false where an order
// cannot be had, or equal slopes keep too many there.
bool PairSlopes::Narrow(KnownOrder& lo, KnownOrder& hi, std::int64_t rank) {
  constexpr double kLeastMargin = 0.02;
  double margin = kLeastMargin;
  for (std::int64_t between = hi->below - lo->below; between > kGathered;) {
    const double start = lo->t, width = hi->t - lo->t;
    const double part = static_cast<double>(rank - lo->below) / static_cast<double>(between);
    bool from_below = false, from_above = false;
    for (double at : {part - margin, part + margin}) {
      const double t = start + at * width;
      if (t <= lo->t || t >= hi->t) continue;
      auto order = OrderNear(t, width * 0x1p-20);
      if (!order || order->t >= hi->t) return hi->below - lo->below <= kMostGathered;
      const bool below = order->below < rank;
      (below ? from_below : from_above) = true;
      (below ? lo : hi) = std::move(order);
    }
    margin = from_below && from_above ? kLeastMargin : std::min(2 * margin, 0.45);
    const std::int64_t left = hi->below - lo->below;
    const bool stuck = left > between - between / 10;
    if (stuck && left <= kMostGathered) return true;
    between = left;
  }
  return true;
}

// None where rounding errors leave the order of the points in doubt.
std::optional<PairSlopes::Window> PairSlopes::WindowAround(std::int64_t rank) {
  constexpr std::int64_t kWide = 4 * kGathered;  // a sample tells more
  if (count_ <= kGathered) {
    Window all{.lo = -kInfinity, .hi = kInfinity, .below = 0};
    all.slopes.reserve(static_cast<std::size_t>(count_));
    ForEach([&](double slope) { all.slopes.push_back(slope); });
    return all;
  }
  KnownOrder lo, hi;
  Tighten(lo, hi, rank);
  if (!lo || !hi || hi->below - lo->below > kWide) {
    const auto [from, to] = SampledBracket(rank);
    const double step = (std::fabs(from) + std::fabs(to)) * 0x1p-30;
    OrderNear(from - step, -step);
    OrderNear(to + step, step);
    Tighten(lo, hi, rank);
  }
  if (!lo && (lo = OrderNear(-2 * steepest_ - 1, -1)) && lo->below >= rank) return std::nullopt;
  if (!hi && (hi = OrderNear(2 * steepest_ + 1, 1)) && hi->below < rank) return std::nullopt;
  if (!lo || !hi || !Narrow(lo, hi, rank)) return std::nullopt;
  Window window{.lo = lo->t, .hi = hi->t, .below = lo->below};
  ForEachBetween(*lo, *hi, [&](double slope) { window.slopes.push_back(slope); });
  return window;
}

// Without any order: each round takes a slope near the rank out of those that are left.
double PairSlopes::SelectByPasses(std::int64_t rank) const {
  constexpr std::int64_t kPivots = 1001;
  double lo = -kInfinity, hi = kInfinity;  // the slope is at least lo and below hi
  std::int64_t below = 0, left = count_;
  for (;;) {
    const std::int64_t stride = left <= kGathered ? 1 : left / kPivots;
    std::vector<double> taken;
    std::int64_t met = 0;
    ForEach([&](double slope) {
      if (slope >= lo && slope < hi && met++ % stride == 0) taken.push_back(slope);
    });
    if (stride == 1) return Select(taken, rank - below);
    const auto size = static_cast<std::int64_t>(taken.size());
    const double pivot = Select(taken, std::clamp<std::int64_t>((rank - below) / stride, 1, size));
    Place place;
    ForEach([&](double slope) {
      place.below += slope < pivot;
      place.equal += slope == pivot;
    });
    if (rank <= place.below) {
      hi = pivot;
      left = place.below - below;
    } else if (rank <= place.below + place.equal) {
      return pivot;
    } else {
      lo = std::nextafter(pivot, kInfinity);
      left -= place.below + place.equal - below;
      below = place.below + place.equal;
    }
  }
}

}  // namespace quorval::regression
