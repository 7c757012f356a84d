#include "grid/mask_cache.h"

#include <algorithm>
#include <cstdint>

namespace {

char Folded(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameFolded(const Mask& a, const Mask& b) {
  return std::ranges::equal(a.View(), b.View(), {}, Folded, Folded);
}

// FNV-1a (Fowler, Noll and Vo 1991).
std::uint64_t HashFolded(const Mask& mask) {
  std::uint64_t hash = 14695981039346656037u;
  for (char c : mask.View()) {
    hash ^= static_cast<unsigned char>(Folded(c));
    hash *= 1099511628211u;
  }
  return hash ^ (hash >> 32);
}

}  // namespace

std::size_t MaskCache::PlaceOf(const Mask& mask) const {
  const std::size_t wrap = places_.size() - 1;  // the size is a power of 2
  std::size_t place = HashFolded(mask) & wrap;
  while (places_[place] != 0 &&
         !SameFolded(rows_[places_[place] - 1].mask, mask))
    place = (place + 1) & wrap;
  return place;
}

std::optional<int> MaskCache::Find(const Mask& mask) const {
  const int row = places_[PlaceOf(mask)];
  if (row == 0) return std::nullopt;
  return rows_[row - 1].count;
}

void MaskCache::Add(const Mask& mask, int count) {
  if (2 * (rows_.size() + 1) > places_.size()) Grow();
  const std::size_t place = PlaceOf(mask);
  rows_.push_back({mask, count});
  places_[place] = static_cast<int>(rows_.size());
}

void MaskCache::Grow() {
  places_.assign(places_.size() * 2, 0);
  for (std::size_t i = 0; i < rows_.size(); ++i)
    places_[PlaceOf(rows_[i].mask)] = static_cast<int>(i + 1);
}

void MaskCache::Clear() {
  rows_.clear();
  std::ranges::fill(places_, 0);
}
