// SPDX-License-Identifier: Apache-2.0
// How files come onto the fast path, and from there to libxml2.
#include <zevo/platform/fastpath/FastPath.h>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/PulledParse.h>
#include <zevo/platform/RepeatedInput.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Child.h"
#include "tests/platform/Events.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/fastpath/Telling.h"

namespace zevo {
namespace {

using testing::Repeated;
using testing::WithFastPath;

bool CanBeOn() {
  const WithFastPath on(true);
  return IsFastPathOn();
}

// Taken before any test turns the switch.
const bool kOnAtFirst = IsFastPathOn();

TEST(FastPathSwitchTest, IsAsTheEnvironmentSays) {
  if (!CanBeOn()) GTEST_SKIP() << "built without the fast path";
  const char* const set = std::getenv("ZEVO_FAST_PATH");
  EXPECT_EQ(kOnAtFirst, set == nullptr || std::string_view(set) != "off");
}

TEST(FastPathSwitchTest, IsTurned) {
  if (!CanBeOn()) GTEST_SKIP() << "built without the fast path";
  const bool before = IsFastPathOn();
  {
    const WithFastPath off(false);
    EXPECT_FALSE(IsFastPathOn());
    const WithFastPath on(true);
    EXPECT_TRUE(IsFastPathOn());
  }
  EXPECT_EQ(IsFastPathOn(), before);
}

/// Does something at each event, whichever it is.
class Disturber final : public ParserHandler {
 public:
  explicit Disturber(std::function<void(int event)> disturb) : disturb_(std::move(disturb)) {}

  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override { disturb_(events++); }
  void EndElement(const ParsedName&) override { disturb_(events++); }
  void Leaf(const ParsedName&, std::string_view) override { disturb_(events++); }
  void Characters(std::string_view) override { disturb_(events++); }
  void Comment(std::string_view) override { disturb_(events++); }
  void Standalone() override { disturb_(events++); }
  int events = 0;

 private:
  std::function<void(int event)> disturb_;
};

/// Each way in which a file is parsed.
using Parse = std::function<std::optional<XmlProblem>(const std::string& file, ParserHandler& handler)>;
struct Way {
  const char* name;
  Parse parse;
};
const Way kWays[] = {
    {"Parser", [](const std::string& file, ParserHandler& handler) { return Parser(file).Parse(handler); }},
    {"PulledParse",
     [](const std::string& file, ParserHandler& handler) {
       PulledParse parse(file, handler);
       while (parse.Feed()) continue;
       return parse.Problem();
     }},
    {"PulledParseOfRepeatedInput",
     [](const std::string& file, ParserHandler& handler) {
       RepeatedInput input(file);
       PulledParse parse(input, handler);
       while (parse.Feed()) continue;
       return parse.Problem();
     }},
};

class FastPathTest : public ::testing::TestWithParam<Way> {
 protected:
  void SetUp() override {
    if (!CanBeOn()) GTEST_SKIP() << "built without the fast path";
  }
  std::optional<XmlProblem> ProblemOf(const std::string& file, ParserHandler& handler) {
    return GetParam().parse(file, handler);
  }

  testing::TemporaryFolder folder_;
  WithFastPath on_{true};
};

INSTANTIATE_TEST_SUITE_P(, FastPathTest, ::testing::ValuesIn(kWays),
                         [](const auto& way) { return std::string(way.param.name); });

constexpr std::string_view kEvents =
    "<?xml version='1.0' standalone='yes'?><a><!--b--><c>d</c>e<f>g<h/></f>\r\n&amp;</a>";

TEST_P(FastPathTest, WhatTheHandlerThrowsAtAnyEventComesOut) {
  const std::string file = folder_.Write("file.xml", kEvents);
  Disturber counting([](int) {});
  EXPECT_FALSE(ProblemOf(file, counting));
  ASSERT_GT(counting.events, 9);
  for (int at = 0; at < counting.events; ++at) {
    Disturber thrower([&](int event) {
      if (event == at) throw std::runtime_error("seen");
    });
    EXPECT_THROW((void)ProblemOf(file, thrower), std::runtime_error);
    EXPECT_EQ(thrower.events, at + 1) << at;
  }
}

TEST(FastPulledParseTest, WhatTheHandlerThrowsEndsTheParse) {
  const testing::TemporaryFolder folder;
  const WithFastPath on(true);
  const std::string file = folder.Write("file.xml", kEvents);
  Disturber thrower([](int event) {
    if (event == 4) throw std::runtime_error("seen");
  });
  PulledParse parse(file, thrower);
  EXPECT_THROW(parse.Feed(), std::runtime_error);
  EXPECT_FALSE(parse.Feed());
  EXPECT_FALSE(parse.Problem());
  EXPECT_EQ(thrower.events, 5);
}

// What the fast path does not take comes behind the first event, in the same piece.
constexpr std::string_view kLeftSoon = "<a><b>x</b><c d='e'/></a>";

void ExpectChanged(const std::optional<XmlProblem>& problem, const std::string& file) {
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->number, static_cast<int32_t>(RunTimeError::kDeviceIO));
  EXPECT_EQ(problem->number, 57);
  EXPECT_THAT(problem->reason, ::testing::HasSubstr("o ficheiro mudou enquanto era lido: " + file));
  EXPECT_EQ(problem->fault, XmlProblem::Fault::kUnreadable);
}

TEST_P(FastPathTest, AFileThatGrowsBeforeLibxml2GetsItIsAnError) {
  const std::string file = folder_.Write("file.xml", kLeftSoon);
  Disturber grower([&](int event) {
    if (event == 0) std::ofstream(file, std::ios::app) << "\n";
  });
  ExpectChanged(ProblemOf(file, grower), file);
  EXPECT_EQ(grower.events, 2);
}

TEST_P(FastPathTest, AFileThatShrinksBeforeLibxml2GetsItIsAnError) {
  const std::string file = folder_.Write("file.xml", kLeftSoon);
  Disturber shrinker([&](int event) { EXPECT_EQ(event == 0 ? truncate(file.c_str(), 5) : 0, 0); });
  ExpectChanged(ProblemOf(file, shrinker), file);
}

TEST_P(FastPathTest, AFileThatIsWrittenAnewBeforeLibxml2GetsItIsAnError) {
  const std::string file = folder_.Write("file.xml", kLeftSoon);
  Disturber writer([&](int event) {
    if (event > 0) return;
    const std::array<timespec, 2> times = {timespec{.tv_sec = 0, .tv_nsec = UTIME_OMIT},
                                           timespec{.tv_sec = 1'000'000, .tv_nsec = 0}};
    EXPECT_EQ(utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
  });
  ExpectChanged(ProblemOf(file, writer), file);
}

// It is the open file that is read again, not what has its name by then.
TEST_P(FastPathTest, AFileThatIsReplacedIsReadAsItWas) {
  const std::string file = folder_.Write("file.xml", kLeftSoon);
  const std::string other = folder_.Write("other.xml", "<x>");
  Disturber replacer([&](int event) { EXPECT_EQ(event == 0 ? rename(other.c_str(), file.c_str()) : 0, 0); });
  EXPECT_FALSE(ProblemOf(file, replacer));
  EXPECT_EQ(replacer.events, 5);
}

TEST_P(FastPathTest, AFileThatIsNotThereIsAProblem) {
  testing::NoEvents nobody;
  const auto problem = ProblemOf(folder_.Path("none.xml"), nobody);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->number, static_cast<int32_t>(RunTimeError::kFileNotFound));
}

// What is behind standard input is read from where it stands, and a pipe once only.
TEST_P(FastPathTest, StandardInputIsParsedAsWithLibxml2Alone) {
  const std::string_view files[] = {"<a><b>x</b></a>", kLeftSoon, "<a><b>x</b><c></a>", "<a>x]]></a>"};
  const auto told = [&](std::string_view bytes, bool on, bool through_pipe) {
    return testing::RunInChild([&] {
             int in = -1;
             if (through_pipe) {
               std::array<int, 2> ends{};
               if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
               if (write(ends[1], bytes.data(), bytes.size()) < 0) throw std::runtime_error("the pipe is full");
               close(ends[1]);
               in = ends[0];
             } else {
               const std::string before = "</before>";
               in = open(folder_.Write("in", before + std::string(bytes)).c_str(), O_RDONLY);
               lseek(in, static_cast<off_t>(before.size()), SEEK_SET);
             }
             dup2(in, STDIN_FILENO);
             SetFastPath(on);
             testing::Events events;
             const auto problem = ProblemOf("/dev/stdin", events);
             return events.log + (problem ? std::to_string(problem->number) + problem->reason : " through");
           })
        .text;
  };
  for (const std::string_view bytes : files) {
    for (const bool through_pipe : {false, true}) {
      const std::string alone = told(bytes, false, through_pipe);
      EXPECT_EQ(told(bytes, true, through_pipe), alone) << bytes << through_pipe;
      EXPECT_THAT(alone, ::testing::StartsWith("<a>")) << bytes;
    }
  }
}

/// A file of some size, of which the fast path leaves the end to libxml2.
std::string LeftLate() { return "<a>\n" + Repeated("<b>texto</b>\n", 80'000) + "<c d='e'/>\n</a>"; }

TEST(FastPathProgressTest, WhatAWatchIsToldNeverGoesBack) {
  const testing::TemporaryFolder folder;
  const WithFastPath on(true);
  std::vector<int64_t> told;
  RepeatedInput input(folder.Write("file.xml", LeftLate()), [&](int64_t read) {
    told.push_back(read);
    return true;
  });
  testing::NoEvents nobody;
  EXPECT_FALSE(Parser(input).Parse(nobody));
  EXPECT_GT(told.size(), 3u);
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_EQ(told.back(), static_cast<int64_t>(LeftLate().size()));
}

TEST(FastPathProgressTest, AWatchMayEndTheParseBehindTheFastPathToo) {
  if (!CanBeOn()) GTEST_SKIP() << "built without the fast path";
  const testing::TemporaryFolder folder;
  const WithFastPath on(true);
  const std::string file = folder.Write("file.xml", LeftLate());
  int most = 0;
  {
    RepeatedInput input(file, [&](int64_t) { return ++most > 0; });
    testing::NoEvents nobody;
    EXPECT_FALSE(Parser(input).Parse(nobody));
  }
  ASSERT_GT(most, 4);
  for (int calls = 1; calls <= most; ++calls) {
    int left = calls;
    RepeatedInput input(file, [&](int64_t) { return --left > 0; });
    testing::NoEvents nobody;
    const auto problem = Parser(input).Parse(nobody);
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->number, kErrorBase + static_cast<int32_t>(Message::kReadingAborted));
  }
}

TEST(FastPathProgressTest, BytesReadNeverGoBack) {
  const testing::TemporaryFolder folder;
  const WithFastPath on(true);
  const std::string bytes = LeftLate();
  PulledParse* running = nullptr;
  uint64_t last = 0;
  Disturber watcher([&](int) {
    EXPECT_GE(running->BytesRead(), last);
    last = running->BytesRead();
  });
  PulledParse parse(folder.Write("file.xml", bytes), watcher);
  running = &parse;
  bool more = true;
  while (more) {
    more = parse.Feed();
    EXPECT_GE(parse.BytesRead(), last);
    last = parse.BytesRead();
  }
  EXPECT_FALSE(parse.Problem());
  EXPECT_EQ(parse.BytesRead(), bytes.size());
}

TEST(FastPathProgressTest, BytesReadAreThoseOfTheFile) {
  const testing::TemporaryFolder folder;
  for (const bool on : {false, true}) {
    const WithFastPath way(on);
    for (const std::string& bytes :
         {std::string("<a/>"), LeftLate(), "\xFF\xFE" + testing::InUtf16LittleEndian("<a/>")}) {
      testing::NoEvents nobody;
      Parser parser(folder.Write("file.xml", bytes));
      EXPECT_FALSE(parser.Parse(nobody));
      EXPECT_EQ(parser.BytesRead(), bytes.size()) << on;
    }
  }
}

// Two that parse the same file go on side by side, wherever the fast path is left.
TEST(FastPathProgressTest, AsManyPiecesAreJustAsFar) {
  const testing::TemporaryFolder folder;
  const WithFastPath on(true);
  const std::string file = folder.Write("file.xml", LeftLate());
  Disturber ahead_counter([](int) {});
  Disturber counter([](int) {});
  PulledParse ahead(file, ahead_counter);
  PulledParse parse(file, counter);
  bool more = true;
  while (more) {
    more = ahead.Feed();
    while (parse.Pieces() < ahead.Pieces()) parse.Feed();
    EXPECT_EQ(parse.Pieces(), ahead.Pieces());
    EXPECT_EQ(counter.events, ahead_counter.events);
  }
}

}  // namespace
}  // namespace zevo
