// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/ProgressBar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace zevo::saft {
namespace {

constexpr std::chrono::milliseconds kFirst{500};
constexpr std::chrono::milliseconds kBetween{100};
constexpr int kBarWidth = 30;

// A number of bytes for people: "3.1 GB".
std::string Bytes(double bytes) {
  constexpr std::array kUnits{"B", "KB", "MB", "GB", "TB"};
  size_t unit = 0;
  for (; bytes >= 1000 && unit + 1 < kUnits.size(); ++unit) bytes /= 1000;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), unit == 0 || bytes >= 100 ? "%.0f %s" : "%.1f %s", bytes, kUnits[unit]);
  return text.data();
}

std::string MinutesAndSeconds(double seconds) {
  const auto whole = static_cast<int64_t>(std::ceil(seconds));
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%lld:%02lld", static_cast<long long>(whole / 60),
                static_cast<long long>(whole % 60));
  return text.data();
}

}  // namespace

ProgressBar::ProgressBar(std::ostream& terminal, uint64_t size, Clock clock)
    : terminal_(terminal), size_(size), clock_(std::move(clock)), began_(clock_()), next_(began_ + kFirst) {}

ProgressBar::~ProgressBar() {
  if (width_ > 0) terminal_ << '\r' + std::string(width_, ' ') + '\r' << std::flush;
}

void ProgressBar::Show(uint64_t done) {
  const Time now = clock_();
  if (now < next_) return;
  next_ = now + kBetween;
  std::string line = Line(std::min(done, size_), std::chrono::duration<double>(now - began_).count());
  const size_t width = line.size();
  if (width < width_) line.append(width_ - width, ' ');
  width_ = std::max(width_, width);
  // In one piece, so that a terminal never shows half a line.
  terminal_ << '\r' + line << std::flush;
}

std::string ProgressBar::Line(uint64_t done, double seconds) const {
  const double share = size_ == 0 ? 1 : static_cast<double>(done) / static_cast<double>(size_);
  const double rate = static_cast<double>(done) / seconds;
  const auto filled = static_cast<size_t>(share * kBarWidth);
  std::string line = "[" + std::string(filled, '#') + std::string(kBarWidth - filled, '-') + "] ";
  line += std::to_string(static_cast<int>(share * 100)) + " %  ";
  line += Bytes(static_cast<double>(done)) + " of " + Bytes(static_cast<double>(size_)) + "  " + Bytes(rate) + "/s";
  if (rate > 0) line += "  " + MinutesAndSeconds(static_cast<double>(size_ - done) / rate) + " left";
  return line;
}

}  // namespace zevo::saft
