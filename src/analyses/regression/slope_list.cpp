#include "analyses/regression/slope_list.h"

#include <algorithm>
#include <numeric>

namespace quorval::regression {
namespace {

// The places of the points, in data order, by their x.
std::vector<std::size_t> ByAbscissa(std::span<const Real> x) {
  std::vector<std::size_t> order(x.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t i, std::size_t j) { return x[i] < x[j]; });
  return order;
}

}  // namespace

SlopeList::SlopeList(std::span<const Real> x, std::span<const Real> y)
    : x_(x), y_(y), pairs_(x, y) {
  CountEqualAbscissae();
  if (falling_.count > 0) falling_.value = Raw(Real(pairs_.Nth(1)) - 1);
  if (rising_.count > 0) rising_.value = Raw(Real(pairs_.Nth(pairs_.Count())) + 1);
  M_ = static_cast<std::int64_t>(x.size() * (x.size() - 1) / 2);
  if (same_.count > 0) RemoveZeros();
}

void SlopeList::CountEqualAbscissae() {
  const std::vector<std::size_t> order = ByAbscissa(x_);
  for (std::size_t a = 0; a < order.size(); ++a) {
    for (std::size_t b = a + 1; b < order.size() && x_[order[a]] == x_[order[b]]; ++b) {
      const Real earlier = y_[order[a]];
      const Real later = y_[order[b]];
      falling_.count += later < earlier;
      rising_.count += later > earlier;
      same_.count += later == earlier;
    }
  }
}

// What the list holds for the points i < j.
double SlopeList::Entry(std::size_t i, std::size_t j) const {
  if (x_[i] != x_[j]) return (Raw(y_[j]) - Raw(y_[i])) / (Raw(x_[j]) - Raw(x_[i]));
  if (y_[j] < y_[i]) return falling_.value;
  if (y_[j] > y_[i]) return rising_.value;
  return 0;
}

// Walks the list as it stands while entries behind a removed zero move up by one: the entry that
// takes its place is not looked at.  The last entry stays where it is when the others move up, so
// the walk, which goes on for the list's first length, meets copies of it at the end.
void SlopeList::RemoveZeros() {
  const std::int64_t most = same_.count;
  std::vector<bool> removed(static_cast<std::size_t>(M_));
  std::int64_t count = 0;
  std::size_t place = 0;
  bool passed_over = false;
  double last = 1;
  for (std::size_t i = 0; i < x_.size() && count < most; ++i) {
    for (std::size_t j = i + 1; j < x_.size() && count < most; ++j, ++place) {
      last = Entry(i, j);
      if (std::exchange(passed_over, false) || last != 0) continue;
      removed[place] = passed_over = true;
      ++count;
    }
  }
  same_.count -= count;
  M_ -= count;
  if (count == most || last != 0) return;
  // It meets copies enough: each zero that stayed had directly followed a removed one.
  M_ -= most - count;
  DropFromTheEnd(most - count, removed);
}

// Each copy that was removed took an entry from the list's end.
void SlopeList::DropFromTheEnd(std::int64_t dropped, const std::vector<bool>& removed) {
  std::size_t place = removed.size();
  for (std::size_t i = x_.size() - 1; i-- > 0;) {
    for (std::size_t j = x_.size() - 1; j > i; --j) {
      if (std::ssize(dropped_) == dropped) break;
      if (!removed[--place]) dropped_.push_back(Entry(i, j) + 0.0);
    }
  }
  std::ranges::sort(dropped_);
}

std::int64_t SlopeList::DroppedUpTo(double value) const {
  return std::ranges::upper_bound(dropped_, value) - dropped_.begin();
}

PairSlopes::Place SlopeList::PlaceOf(Real t) {
  const double value = Raw(t);
  PairSlopes::Place place = pairs_.PlaceOf(value);
  for (const Block& block : {falling_, same_, rising_}) {
    if (block.value < value) place.below += block.count;
    if (block.value == value) place.equal += block.count;
  }
  const auto [first, end] = std::equal_range(dropped_.begin(), dropped_.end(), value);
  place.below -= first - dropped_.begin();
  place.equal -= end - first;
  return place;
}

// The rank counts the dropped entries too.
double SlopeList::NthWithDropped(std::int64_t rank) {
  std::array<Block, 3> blocks{falling_, same_, rising_};
  std::ranges::sort(blocks, {}, &Block::value);
  std::int64_t before = 0;  // entries of the blocks so far
  for (const auto& [value, count] : blocks) {
    if (count == 0) continue;
    const std::int64_t below = pairs_.PlaceOf(value).below + before;
    if (rank <= below) break;
    if (rank <= below + count) return value;
    before += count;
  }
  return pairs_.Nth(rank - before);
}

Real SlopeList::Nth(std::int64_t rank) {
  double value = NthWithDropped(rank);
  for (std::int64_t dropped = 0; dropped != DroppedUpTo(value);) {
    dropped = DroppedUpTo(value);
    value = NthWithDropped(rank + dropped);
  }
  return value;
}

}  // namespace quorval::regression
