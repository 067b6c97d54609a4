// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/ProgressBar.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>
#include <vector>

#include "tools/saft/terminal/TerminalWidth.h"
#include "tools/saft/words/TerminalWords.h"

namespace zevo::saft {
namespace {

constexpr std::chrono::milliseconds kFirst{500};
constexpr std::chrono::milliseconds kBetween{100};
constexpr size_t kBarWidth = 30;
constexpr size_t kUnknownWidth = 80;

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

ProgressBar::ProgressBar(std::ostream& terminal, uint64_t size, Clock clock, Width width)
    : terminal_(terminal),
      size_(size),
      clock_(std::move(clock)),
      terminal_width_(std::move(width)),
      began_(clock_()),
      next_(began_ + kFirst) {}

ProgressBar::~ProgressBar() {
  if (width_ > 0) terminal_ << '\r' + std::string(std::min(width_, Room()), ' ') + '\r' << std::flush;
}

size_t ProgressBar::WidthOfTerminal() { return TerminalWidth(STDERR_FILENO).value_or(kUnknownWidth); }

// Terminals begin a new line after the last character of one.
size_t ProgressBar::Room() const { return std::max<size_t>(terminal_width_(), 2) - 1; }

void ProgressBar::Show(uint64_t done) {
  const Time now = clock_();
  if (now < next_) return;
  next_ = now + kBetween;
  const size_t room = Room();
  std::string line = Line(std::min(done, size_), std::chrono::duration<double>(now - began_).count(), room);
  const size_t width = line.size();
  width_ = std::min(width_, room);
  if (width < width_) line.append(width_ - width, ' ');
  width_ = std::max(width_, width);
  // In one piece, so that a terminal never shows half a line.
  terminal_ << '\r' + line << std::flush;
}

std::string ProgressBar::Line(uint64_t done, double seconds, size_t room) const {
  const double share = size_ == 0 ? 1 : static_cast<double>(done) / static_cast<double>(size_);
  const double rate = static_cast<double>(done) / seconds;
  const auto filled = static_cast<size_t>(share * kBarWidth);
  const std::string bar = "[" + std::string(filled, '#') + std::string(kBarWidth - filled, '-') + "] ";
  const std::string percent = std::to_string(static_cast<int>(share * 100)) + " %";
  if (bar.size() + percent.size() > room) return percent.substr(0, room);
  std::string line = bar + percent;
  std::vector<std::string> more{
      Say(words::kDoneOf, Bytes(static_cast<double>(done)), Bytes(static_cast<double>(size_))), Bytes(rate) + "/s"};
  if (rate > 0) more.push_back(Say(words::kTimeLeft, MinutesAndSeconds(static_cast<double>(size_ - done) / rate)));
  for (const std::string& part : more) {
    if (line.size() + 2 + part.size() > room) break;
    line.append("  ").append(part);
  }
  return line;
}

}  // namespace zevo::saft
