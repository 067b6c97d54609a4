// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/PlaceSteps.h>

namespace zevo {
namespace {

FilePlace StepTo(const FilePlace& from, const FilePlace& to) {
  if (from.line == 0 || to.line == 0) return {};
  return {to.line - from.line, to.column - (to.line == from.line ? from.column : 0), to.offset - from.offset};
}

size_t HashOf(const PlaceSteps::Places& steps) {
  uint64_t hash = 0;
  for (const FilePlace& step : steps) hash = hash * 31 + static_cast<uint64_t>(step.offset + 7 * step.column);
  return static_cast<size_t>(hash);
}

}  // namespace

uint16_t PlaceSteps::Add(const FilePlace& from, const Places& places) {
  Places steps;
  for (size_t i = 0; i < kSteps; ++i) steps[i] = StepTo(from, places[i]);
  if (steps_[last_] == steps) return last_;
  if (slots_.empty()) slots_.resize(kSlots);
  const size_t hash = HashOf(steps);
  for (size_t tried = 0; tried < kMostTried; ++tried) {
    uint16_t& slot = slots_[(hash + tried) % kSlots];
    if (slot == 0) {
      slot = static_cast<uint16_t>(steps_.size());
      steps_.push_back(steps);
    }
    if (steps_[slot] == steps) return last_ = slot;
  }
  return 0;
}

FilePlace PlaceSteps::At(const FilePlace& from, uint16_t number, size_t step) const {
  const FilePlace& distance = steps_[number][step];
  const bool same_line = distance.line == 0;
  return {from.line + distance.line, distance.column + (same_line ? from.column : 0), from.offset + distance.offset};
}

}  // namespace zevo
