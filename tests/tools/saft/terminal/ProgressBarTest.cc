// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/ProgressBar.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <utility>

#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

class ProgressBarTest : public ::testing::Test {
 protected:
  ProgressBar Bar(uint64_t size) {
    return ProgressBar(
        terminal_, size, [this] { return ProgressBar::Time(now_); }, [this] { return width_; });
  }
  // What is drawn on the terminal when so much time has passed.
  std::string Shown(ProgressBar& bar, std::chrono::milliseconds passed, uint64_t done) {
    now_ += passed;
    terminal_.str("");
    bar.Show(done);
    return terminal_.str();
  }

  std::chrono::milliseconds now_{1000};
  std::ostringstream terminal_;
  size_t width_ = 80;
};

TEST_F(ProgressBarTest, TellsHowMuchIsDoneHowFastItGoesAndHowLongItWillTake) {
  ProgressBar bar = Bar(3'000'000'000);
  EXPECT_EQ(Shown(bar, std::chrono::seconds(2), 500'000'000),
            "\r[#####-------------------------] 16 %  500 MB of 3.0 GB  250 MB/s  0:10 left");
  EXPECT_EQ(Shown(bar, std::chrono::seconds(8), 3'000'000'000),
            "\r[##############################] 100 %  3.0 GB of 3.0 GB  300 MB/s  0:00 left");
}

TEST_F(ProgressBarTest, MinutesAreTold) {
  ProgressBar bar = Bar(1000);
  EXPECT_EQ(Shown(bar, std::chrono::seconds(10), 100),
            "\r[###---------------------------] 10 %  100 B of 1.0 KB  10 B/s  1:30 left");
}

TEST_F(ProgressBarTest, WorkThatIsSoonDoneShowsNothing) {
  {
    ProgressBar bar = Bar(1000);
    EXPECT_EQ(Shown(bar, std::chrono::milliseconds(499), 999), "");
  }
  EXPECT_EQ(terminal_.str(), "");
}

TEST_F(ProgressBarTest, ItIsDrawnTenTimesASecondAtMost) {
  ProgressBar bar = Bar(1000);
  EXPECT_NE(Shown(bar, std::chrono::milliseconds(500), 1), "");
  EXPECT_EQ(Shown(bar, std::chrono::milliseconds(99), 2), "");
  EXPECT_NE(Shown(bar, std::chrono::milliseconds(1), 3), "");
}

TEST_F(ProgressBarTest, AShorterLineCoversTheLongerOne) {
  ProgressBar bar = Bar(100'000);
  const std::string longer = Shown(bar, std::chrono::seconds(1), 99'000);
  const std::string shorter = Shown(bar, std::chrono::seconds(9), 0);
  EXPECT_EQ(shorter.size(), longer.size());
  EXPECT_NE(shorter.find(" 0 B/s     "), std::string::npos) << shorter;
}

TEST_F(ProgressBarTest, WhatANarrowTerminalHasNoRoomForIsLeftOut) {
  const std::string bar = "\r[#####-------------------------] 16 %";
  const std::pair<size_t, std::string> lines[] = {
      {77, bar + "  500 MB of 3.0 GB  250 MB/s  0:10 left"},
      {76, bar + "  500 MB of 3.0 GB  250 MB/s"},
      {66, bar + "  500 MB of 3.0 GB  250 MB/s"},
      {65, bar + "  500 MB of 3.0 GB"},
      {56, bar + "  500 MB of 3.0 GB"},
      {55, bar},
      {38, bar},
      {37, "\r16 %"},
      {5, "\r16 %"},
      {3, "\r16"},
      {1, "\r1"},
  };
  for (const auto& [width, line] : lines) {
    width_ = width;
    ProgressBar progress = Bar(3'000'000'000);
    EXPECT_EQ(Shown(progress, std::chrono::seconds(2), 500'000'000), line) << width;
  }
}

TEST_F(ProgressBarTest, ATerminalThatGetsNarrowerIsNotOverrun) {
  {
    ProgressBar bar = Bar(3'000'000'000);
    Shown(bar, std::chrono::seconds(2), 500'000'000);
    width_ = 20;
    EXPECT_EQ(Shown(bar, std::chrono::seconds(2), 500'000'000), "\r16 %" + std::string(15, ' '));
    terminal_.str("");
  }
  EXPECT_EQ(terminal_.str(), "\r" + std::string(19, ' ') + "\r");
}

TEST_F(ProgressBarTest, ItSpeaksPortuguese) {
  Speak(Language::kPortuguese);
  ProgressBar bar = Bar(3'000'000'000);
  const std::string shown = Shown(bar, std::chrono::seconds(2), 500'000'000);
  Speak(Language::kEnglish);
  EXPECT_EQ(shown, "\r[#####-------------------------] 16 %  500 MB de 3.0 GB  250 MB/s  faltam 0:10");
}

TEST_F(ProgressBarTest, TheLineGoesAwayInTheEnd) {
  size_t width = 0;
  {
    ProgressBar bar = Bar(1000);
    width = Shown(bar, std::chrono::seconds(1), 500).size() - 1;
    terminal_.str("");
  }
  EXPECT_EQ(terminal_.str(), "\r" + std::string(width, ' ') + "\r");
}

TEST_F(ProgressBarTest, NothingDoneAndAnEmptyFileAreNoDivisionByZero) {
  ProgressBar bar = Bar(0);
  EXPECT_EQ(Shown(bar, std::chrono::seconds(1), 0), "\r[##############################] 100 %  0 B of 0 B  0 B/s");
  ProgressBar stalled = Bar(10);
  EXPECT_EQ(Shown(stalled, std::chrono::seconds(1), 0), "\r[------------------------------] 0 %  0 B of 10 B  0 B/s");
}

TEST_F(ProgressBarTest, AFileThatGrewMeanwhileIsNotMoreThanWhole) {
  ProgressBar bar = Bar(1000);
  EXPECT_NE(Shown(bar, std::chrono::seconds(1), 2000).find("100 %  1.0 KB of 1.0 KB"), std::string::npos);
}

}  // namespace
}  // namespace zevo::saft
