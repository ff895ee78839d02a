#include "analyses/regression/leave_one_out.h"

#include <algorithm>

#include "analyses/regression/lanes.h"

namespace quorval::regression {
namespace {

// The lanes of one block of rows, row `first` in lane 0.
struct Block {
  std::size_t first, end;

  // Whether row i counts: each lane leaves its own out.
  LaneMask Counts(std::size_t row) const {
    return Lanes([&](auto lane) { return static_cast<double>(first + lane); }) !=
           Lanes(static_cast<double>(row));
  }
  void Store(const Lanes& lanes, std::vector<double>& to) const {
    for (std::size_t row = first; row < end; ++row) to[row] = lanes[static_cast<int>(row - first)];
  }
};

template <class Work>
void ForEachBlock(std::size_t rows, Work&& work) {
  for (std::size_t first = 0; first < rows; first += kLanes)
    work(Block{first, std::min(first + kLanes, rows)});
}

struct LaneScatter {
  Lanes mean_x, mean_y;
  Lanes Sxx = 0, Syy = 0, Sxy = 0;

  [[gnu::always_inline]] void Add(double x, double y) {
    const Lanes dx = mean_x - x;
    const Lanes dy = mean_y - y;
    Sxx = Round32(Sxx + dx * dx);
    Syy += dy * dy;
    Sxy += dx * dy;
  }
  void AddWhere(const LaneMask& counts, double x, double y) {
    const LaneScatter before = *this;
    Add(x, y);
    where(!counts, Sxx) = before.Sxx;
    where(!counts, Syy) = before.Syy;
    where(!counts, Sxy) = before.Sxy;
  }
};

Lanes Load(const Block& block, std::span<const double> values) {
  return Lanes([&](auto lane) { return values[std::min(block.first + lane, values.size() - 1)]; });
}

}  // namespace

std::vector<double> SumsWithoutEach(std::span<const double> values) {
  const std::size_t n = values.size();
  std::vector<double> sums(n);
  double before = 0;
  ForEachBlock(n, [&](const Block& block) {
    Lanes sum = before;  // the rows above the block are the same for all lanes
    for (std::size_t i = block.first; i < block.end; ++i) {
      where(block.Counts(i), sum) += Lanes(values[i]);
      before += values[i];
    }
    for (std::size_t i = block.end; i < n; ++i) sum += values[i];
    block.Store(sum, sums);
  });
  return sums;
}

ScatterWithoutEach ScattersWithoutEach(std::span<const double> x, std::span<const double> y,
                                       std::size_t per_row, std::span<const double> means_x,
                                       std::span<const double> means_y) {
  const std::size_t rows = means_x.size();
  ScatterWithoutEach all{std::vector<double>(rows), std::vector<double>(rows),
                         std::vector<double>(rows)};
  ForEachBlock(rows, [&](const Block& block) {
    LaneScatter scatter{.mean_x = Load(block, means_x), .mean_y = Load(block, means_y)};
    for (std::size_t i = 0; i < block.first * per_row; ++i) scatter.Add(x[i], y[i]);
    for (std::size_t i = block.first * per_row; i < block.end * per_row; ++i)
      scatter.AddWhere(block.Counts(i / per_row), x[i], y[i]);
    for (std::size_t i = block.end * per_row; i < x.size(); ++i) scatter.Add(x[i], y[i]);
    block.Store(scatter.Sxx, all.Sxx);
    block.Store(scatter.Syy, all.Syy);
    block.Store(scatter.Sxy, all.Sxy);
  });
  return all;
}

}  // namespace quorval::regression
