// The fits without a row each run side by side in the lanes of vectors, with the roundings of one
// fit (fit_weighted_deming.cpp).  Vectors are not Reals: what leaves the finite numbers is found
// where the sums become Reals again.
#include <algorithm>
#include <array>
#include <span>

#include "analyses/regression/lanes.h"
#include "analyses/regression/weighted_deming_step.h"

namespace quorval::regression {
namespace {

[[gnu::always_inline]] inline Lanes PowerOf(const Lanes& u, Single P) {
  if (P == 0) return 1;
  if (P == 1) return u;
  if (P == 2) return u * u;
  return Lanes([&](auto lane) { return std::pow(static_cast<double>(u[lane]), Raw(P)); });
}

// The current lines of the lanes.
struct LineLanes {
  Lanes b, mean_x, mean_y, lambda;
  Lanes g = 1 + lambda * (b * b);

  struct Place {
    Lanes x_hat, y_hat;
  };
  // The point's estimated place on the line.
  [[gnu::always_inline]] Place PlaceOf(const Lanes& x, const Lanes& y) const {
    const Lanes d = y - (mean_y + b * (x - mean_x));
    return {x + lambda * b * d / g, y - d / g};
  }
};

// The weighting of the lanes.
struct WeightLanes {
  Single P;
  bool truncates;
  Lanes lambda;
  Lanes most, at_limit;  // where truncation ends, and the weight up to there

  WeightLanes(const Weighting& weighting, const Lanes& lambda_lanes)
      : P(weighting.P), truncates(weighting.T != 0), lambda(lambda_lanes) {
    const Lanes T = Raw(weighting.T);
    most = T + lambda * T;
    at_limit = 1 / PowerOf(T, P);
  }

  [[gnu::always_inline]] Lanes At(const Lanes& x_hat, const Lanes& y_hat) const {
    const Lanes place = x_hat + lambda * y_hat;
    const LaneMask below = truncates ? place <= most : LaneMask(false);
    if (all_of(below)) return at_limit;
    Lanes w = 1 / PowerOf(place / (1 + lambda), P);
    if (any_of(below)) where(below, w) = at_limit;
    return w;
  }
};

// The sums of a step.
struct StepLanes {
  Lanes Sw = 0, mean_x = 0, mean_y = 0;
  Lanes Sxx = 0, Syy = 0, Sxy = 0;
  Lanes A = 0, B = 0;

  [[gnu::always_inline]] void Add(const Lanes& w, double x, double y) {
    const Lanes dx = mean_x - x;
    const Lanes dy = mean_y - y;
    Sxx = Round32(Sxx + w * (dx * dx));
    Syy += w * (dy * dy);
    Sxy += w * dx * dy;
  }
};

// Some fits at their current lines, each without a row of its own.
class FitBlock {
 public:
  // Lane k starts from the k-th line and leaves out row `first` + k, where there is such a row.
  FitBlock(const WeightedDemingRows& rows, const Weighting& weighting, std::size_t first,
           std::span<const DemingLine> start)
      : rows_(rows), weighting_(weighting), first_(first), w_(rows.Count()) {
    std::ranges::copy(start, lines_.begin());
    std::fill_n(active_.begin(), start.size(), true);
  }

  // Runs every lane to its end; false where one fails.
  bool Iterate() {
    if (!WeightedDemingStep()) return false;
    for (int step = 1; step <= kMostSteps; ++step) {
      const auto before = lines_;
      if (!WeightedDemingStep()) return false;
      bool settled = true;
      for (std::size_t k = 0; k < kLanes; ++k) {
        if (!active_[k]) continue;
        active_[k] = Abs(lines_[k].b - before[k].b) >= kTolerance;
        settled = settled && !active_[k];
      }
      if (settled) return true;
    }
    return false;
  }

  DemingLine LineOf(std::size_t lane) const { return WithIntercept(rows_, lines_[lane]); }

 private:
  // One weighted step from the current lines; false where a lane fails.
  bool WeightedDemingStep() { return WeighRows() && Solve(SumUp()); }

  template <class Part>
  Lanes Current(Part part) const {
    return Lanes([&](auto lane) { return Raw(lines_[lane].*part); });
  }

  // Fills w_; false where a place on the line is not positive.
  bool WeighRows() {
    const LineLanes line{.b = Current(&DemingLine::b),
                         .mean_x = Current(&DemingLine::mean_x),
                         .mean_y = Current(&DemingLine::mean_y),
                         .lambda = Current(&DemingLine::lambda)};
    const WeightLanes weight(weighting_, line.lambda);
    const std::size_t end = std::min(first_ + kLanes, rows_.Count());
    Lanes lowest = 1;
    const auto weigh = [&](std::size_t from, std::size_t to, auto&& left_out) {
      for (std::size_t i = from; i < to; ++i) {
        auto [x_hat, y_hat] = line.PlaceOf(rows_.place_x[i], rows_.place_y[i]);
        const Lanes w = weight.At(x_hat, y_hat);
        w_[i] = rows_.narrow ? Round32(w) : w;
        left_out(i, x_hat, y_hat);
        lowest = min(lowest, min(x_hat, y_hat));
      }
    };
    const auto none = [](std::size_t, const Lanes&, const Lanes&) {};
    const auto own = [&](std::size_t i, Lanes& x_hat, Lanes& y_hat) {
      const auto lane = static_cast<int>(i - first_);
      w_[i][lane] = 0;  // weighs nothing in the fit without it
      x_hat[lane] = y_hat[lane] = 1;
    };
    weigh(0, std::min(first_, end), none);
    weigh(std::min(first_, end), end, own);
    weigh(end, rows_.Count(), none);
    for (std::size_t k = 0; k < kLanes; ++k)
      if (active_[k] && lowest[static_cast<int>(k)] <= 0) return false;
    return true;
  }

  StepLanes SumUp() const {
    StepLanes sums;
    for (std::size_t i = 0; i < rows_.Count(); ++i) {
      sums.Sw += w_[i];
      sums.mean_x += w_[i] * rows_.place_x[i];
      sums.mean_y += w_[i] * rows_.place_y[i];
    }
    sums.mean_x /= sums.Sw;
    sums.mean_y /= sums.Sw;
    for (std::size_t i = 0; i < rows_.Count(); ++i) {
      if (!rows_.Duplicate()) {
        sums.Add(w_[i], rows_.x[i], rows_.y[i]);
        continue;
      }
      sums.Add(w_[i], rows_.x[2 * i], rows_.y[2 * i]);
      sums.Add(w_[i], rows_.x[2 * i + 1], rows_.y[2 * i + 1]);
      if (!rows_.EstimatesLambda()) continue;
      sums.A += w_[i] * rows_.A[i];
      sums.B += w_[i] * rows_.B[i];
    }
    return sums;
  }

  // The lines of the lanes that still run; false where one cannot be had.
  bool Solve(const StepLanes& sums) {
    for (std::size_t k = 0; k < kLanes; ++k)
      if (active_[k] && !SolveLane(sums, k)) return false;
    return true;
  }

  bool SolveLane(const StepLanes& sums, std::size_t k) {
    const auto of = [&](const Lanes& lanes) { return Real(lanes[static_cast<int>(k)]); };
    if (of(sums.Sw) == 0) return false;
    Real rw;  // of the full fit alone
    return SolveStep(rows_,
                     {of(sums.Sw),
                      of(sums.mean_x),
                      of(sums.mean_y),
                      {Single(of(sums.Sxx)), of(sums.Syy), of(sums.Sxy)},
                      of(sums.A),
                      of(sums.B)},
                     lines_[k], rw);
  }

  const WeightedDemingRows& rows_;
  const Weighting weighting_;
  const std::size_t first_;
  std::array<DemingLine, kLanes> lines_{};
  std::array<bool, kLanes> active_{};
  std::vector<Lanes> w_;
};

template <class Measurements>
std::optional<std::vector<DemingLine>> FitWithoutEach(const Measurements& measured,
                                                      const Weighting& weighting) {
  const auto starts = FitDemingWithoutEach(measured);
  if (!starts) return std::nullopt;
  const WeightedDemingRows rows = RowsOf(measured);
  std::vector<DemingLine> lines;
  for (std::size_t first = 0; first < rows.Count(); first += kLanes) {
    const std::size_t count = std::min<std::size_t>(kLanes, rows.Count() - first);
    FitBlock block(rows, weighting, first, std::span(*starts).subspan(first, count));
    if (!block.Iterate()) return std::nullopt;
    for (std::size_t k = 0; k < count; ++k) lines.push_back(block.LineOf(k));
  }
  return lines;
}

}  // namespace

std::optional<std::vector<DemingLine>> FitWeightedDemingWithoutEach(
    const SingleMeasurements& measured, const Weighting& weighting) {
  return FitWithoutEach(measured, weighting);
}

std::optional<std::vector<DemingLine>> FitWeightedDemingWithoutEach(
    const DuplicateMeasurements& measured, const Weighting& weighting) {
  return FitWithoutEach(measured, weighting);
}

}  // namespace quorval::regression
