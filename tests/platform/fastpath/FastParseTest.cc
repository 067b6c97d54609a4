// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastParse.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/File.h>
#include <zevo/platform/fastpath/FastEvents.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Events.h"
#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/fastpath/Telling.h"

namespace zevo {
namespace {

using testing::Repeated;
using testing::ToldInPieces;

constexpr size_t kRoom = FastParse<FastEvents>::kRoom;

/// What is told of a file on the fast path alone, and how it ended.
struct FastRun {
  std::string events;
  FastOutcome outcome{};
  uint64_t bytes_read = 0;
  std::vector<std::string> before;  // at each start tag, what of the piece comes before it
};

class Watcher final : public testing::Events {
 public:
  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    Events::StartElement(name, attributes);
    before.emplace_back(parse->Before());
  }
  FastParse<FastEvents>* parse = nullptr;
  std::vector<std::string> before;
};

FastRun RunOn(std::string_view bytes, size_t room = kRoom) {
  InputBytes input(bytes);
  TextDecoder decoder(input);
  FastNames names;
  Watcher watcher;
  FastEvents events(watcher);
  FastRun run;
  FastParse<FastEvents> parse(decoder, names, events, run.bytes_read, room);
  watcher.parse = &parse;
  run.outcome = FastOutcome::kGoesOn;
  while (run.outcome == FastOutcome::kGoesOn) run.outcome = parse.ParsePiece();
  EXPECT_FALSE(parse.Problem());
  run.events = watcher.log;
  run.before = watcher.before;
  return run;
}

struct TakenFile {
  std::string_view file;
  std::string_view events;
};

class FastParseTest : public ::testing::TestWithParam<TakenFile> {};

TEST_P(FastParseTest, IsTakenToItsEnd) {
  const FastRun run = RunOn(GetParam().file);
  EXPECT_EQ(run.outcome, FastOutcome::kThrough);
  EXPECT_EQ(run.events, GetParam().events);
  EXPECT_EQ(run.bytes_read, GetParam().file.size());
}

INSTANTIATE_TEST_SUITE_P(
    , FastParseTest,
    ::testing::Values(TakenFile{"<a/>", "<a/>"}, TakenFile{"<a></a>", "<a></a>"},
                      TakenFile{"<a >\n</a\t>", "<a>\n</a>"}, TakenFile{"\n<a/> \r\n\t", "<a/>"},
                      TakenFile{"<?xml version='1.0'?><a/>", "<a/>"},
                      TakenFile{"<?xml version='1.0' standalone='yes'?>\n<a/>", "[standalone]<a/>"},
                      TakenFile{"<?xml version='1.0' standalone='no'?><a/>", "<a/>"},
                      TakenFile{"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>", "<a>é</a>"},
                      TakenFile{"\xEF\xBB\xBF<a>é</a>", "<a>é</a>"},
                      TakenFile{"<a><b>x</b><b>y</b><c/><c /><d></d></a>", "<a><b>x</b><b>y</b><c/><c/><d></d></a>"},
                      TakenFile{"<a>x<b>y<c/>z</b>w</a>", "<a>x<b>y<c/>z</b>w</a>"},
                      TakenFile{"<a><b >x</b\n></a>", "<a><b>x</b></a>"},
                      TakenFile{"<a xmlns='u' b='c'><b/></a>", "<a xmlns=u b=c><b/></a>"},
                      TakenFile{"<p:a xmlns:p='u'><p:b>x</p:b></p:a>", "<p:a xmlns:p=u><p:b>x</p:b></p:a>"},
                      TakenFile{"<a>&lt;b&gt; &amp;&quot;&apos;&#65;&#x42;</a>", "<a><b> &\"'AB</a>"},
                      TakenFile{"<a><b>x &amp; y</b></a>", "<a><b>x & y</b></a>"},
                      TakenFile{"<a>\r\n<b>x\ry\r\n</b>\r\r\n</a>", "<a>\n<b>x\ny\n</b>\n\n</a>"},
                      TakenFile{"<a>]] > ]&gt; ]]</a>", "<a>]] > ]> ]]</a>"}, TakenFile{"<a>>\t>></a>", "<a>>\t>></a>"},
                      TakenFile{"<!--1--><a><!--2-->x<!----><b/><!-- - --></a><!--3-->\n",
                                "[comment:1]<a>[comment:2]x[comment:]<b/>[comment: - ]</a>[comment:3]"},
                      TakenFile{"<a><!-- <b>&c;</b> ]]> --></a>", "<a>[comment: <b>&c;</b> ]]> ]</a>"}),
    testing::Numbered());

struct GivenUp {
  std::string_view file;
  std::string_view events;  // told before
};

class GivenUpTest : public ::testing::TestWithParam<GivenUp> {};

TEST_P(GivenUpTest, TellsWhatComesBefore) {
  const FastRun run = RunOn(GetParam().file);
  EXPECT_EQ(run.outcome, FastOutcome::kGivenUp);
  EXPECT_EQ(run.events, GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(
    , GivenUpTest,
    ::testing::Values(
        GivenUp{"", ""}, GivenUp{" ", ""}, GivenUp{"x", ""}, GivenUp{"<", ""}, GivenUp{"<a", ""}, GivenUp{"<a>", "<a>"},
        GivenUp{"<a><b>", "<a><b>"}, GivenUp{"<a>x", "<a>x"}, GivenUp{"<a/>x", "<a/>"}, GivenUp{"<a/><b/>", "<a/>"},
        GivenUp{"<a></b>", "<a>"}, GivenUp{"<a></ab>", "<a>"}, GivenUp{"<ab></a>", "<ab>"}, GivenUp{"<a></ a>", "<a>"},
        GivenUp{"<a></a", "<a>"}, GivenUp{"<a></a x>", "<a>"}, GivenUp{"</a>", ""}, GivenUp{"<a><b c='d'/></a>", "<a>"},
        GivenUp{"<a><b\nc='d'>x</b></a>", "<a>"}, GivenUp{"<a><b c/></a>", "<a>"}, GivenUp{"<a>x<?i?></a>", "<a>x"},
        GivenUp{"<?i?><a/>", ""}, GivenUp{"<a/><?i?>", "<a/>"}, GivenUp{"<a>x<![CDATA[y]]></a>", "<a>x"},
        GivenUp{"<!DOCTYPE a><a/>", ""}, GivenUp{"<a><!ELEMENT></a>", "<a>"}, GivenUp{"<a>x<!-- -- --></a>", "<a>x"},
        GivenUp{"<a><!-- ---></a>", "<a>"}, GivenUp{"<a><!--x</a>", "<a>"}, GivenUp{"<a><!--\x01--></a>", "<a>"},
        GivenUp{"<a>x&e;</a>", "<a>x"}, GivenUp{"<a>x&#0;</a>", "<a>x"}, GivenUp{"<a>x&amp</a>", "<a>x"},
        GivenUp{"<a>x]]>y</a>", "<a>"}, GivenUp{"<a>x\ry]]></a>", "<a>"}, GivenUp{"<a>x&amp;y\r\nz]]></a>", "<a>x&"},
        GivenUp{"<a>x\x01</a>", "<a>"}, GivenUp{"<a>\xFF</a>", "<a>"},
        GivenUp{"<a><b>x\x7F\xED\xA0\x80</b></a>", "<a>"}, GivenUp{"<a><é/></a>", "<a>"},
        GivenUp{"<a><p:b/></a>", "<a>"}, GivenUp{"<a><1/></a>", "<a>"}, GivenUp{"<a>< b/></a>", "<a>"},
        GivenUp{"<a><b / ></a>", "<a>"}, GivenUp{"<a><b<c/></a>", "<a>"}, GivenUp{"<a><></></a>", "<a>"},
        GivenUp{"<a xml:lang='pt'/>", ""}, GivenUp{" <?xml version='1.0'?><a/>", ""},
        GivenUp{"<?xml version='1.1'?><a/>", ""}, GivenUp{"<?xml version='1.0' standalone='yes'?>", "[standalone]"},
        // Nothing of a piece that cannot be decoded to its end.
        GivenUp{"<?xml version='1.0' encoding='x'?><a/>", ""},
        GivenUp{"<?xml version='1.0' encoding='US-ASCII'?><a><b/>\xE9</a>", ""},
        GivenUp{"<?xml version='1.0' encoding='UTF-16'?><a/>", ""}),
    testing::Numbered());

TEST(FastParseLimitTest, TakesNothingBehindANul) {
  using namespace std::string_view_literals;
  EXPECT_EQ(RunOn("<a><b/>\0</a>"sv).events, "");
  EXPECT_EQ(RunOn("<a/>\0"sv).outcome, FastOutcome::kGivenUp);
}

TEST(FastParseLimitTest, TakesElementsToADepth) {
  const auto nested = [](size_t depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); };
  // The innermost is told as a leaf, which is not opened.
  EXPECT_EQ(RunOn(nested(251)).outcome, FastOutcome::kThrough);
  EXPECT_EQ(RunOn(nested(252)).outcome, FastOutcome::kGivenUp);
  EXPECT_TRUE(testing::Difference(ToldInPieces(nested(256), 64).told, ToldInPieces(nested(256), kRoom).told).empty());
}

TEST(FastParseLimitTest, TakesBlanksInTagsToALength) {
  for (const size_t blanks : {size_t{8'180}, size_t{8'200}}) {
    const std::string gap(blanks, ' ');
    const auto outcome = blanks < 8'192 ? FastOutcome::kThrough : FastOutcome::kGivenUp;
    EXPECT_EQ(RunOn("<a><b" + gap + ">x</b></a>").outcome, outcome);
    EXPECT_EQ(RunOn("<a><b" + gap + "/></a>").outcome, outcome);
    EXPECT_EQ(RunOn("<a><b></b" + gap + "></a>").outcome, outcome);
    EXPECT_EQ(RunOn("<a" + gap + "/>").outcome, outcome);
  }
}

TEST(FastParseLimitTest, TakesTextsAndCommentsOfAPiece) {
  const auto text = [](size_t length) { return "<a><b>" + std::string(length, 'x') + "</b></a>"; };
  EXPECT_EQ(RunOn(text(kRoom - 100)).outcome, FastOutcome::kThrough);
  EXPECT_EQ(RunOn(text(kRoom)).outcome, FastOutcome::kGivenUp);
  const auto comment = [](size_t length) { return "<a><!--" + std::string(length, 'x') + "--><b/></a>"; };
  EXPECT_EQ(RunOn(comment(kRoom - 100)).outcome, FastOutcome::kThrough);
  EXPECT_EQ(RunOn(comment(kRoom)).outcome, FastOutcome::kGivenUp);
}

// What stands between two tags is one text for ParserLimits, whatever comments are in it.
TEST(FastParseLimitTest, TakesCommentsInATextToALength) {
  const std::string comment = "<!--" + std::string(9'000, 'x') + "-->";
  EXPECT_EQ(RunOn("<a>" + Repeated(comment, 100) + "</a>").outcome, FastOutcome::kThrough);
  EXPECT_EQ(RunOn("<a>" + Repeated(comment, 120) + "</a>").outcome, FastOutcome::kGivenUp);
  EXPECT_EQ(RunOn("<a>" + Repeated(Repeated(comment, 60) + "<b/>", 3) + "</a>").outcome, FastOutcome::kThrough);
}

TEST(FastParseLimitTest, TellsWhatComesBeforeATag) {
  const FastRun run = RunOn("<!--é-->\n<a>x<b>y</b><c><d/></c></a>");
  EXPECT_THAT(run.before, ::testing::ElementsAre("<!--é-->\n", "<!--é-->\n<a>x", "<!--é-->\n<a>x<b>y</b>",
                                                 "<!--é-->\n<a>x<b>y</b><c>"));
}

constexpr std::string_view kPlainFile =
    "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>\r\n<!-- é -->\n<p:a xmlns:p='urn:p' k='1' p:l='2'>\n"
    "  <b>São &amp; João\r\n12 €😀</b>\r<b></b><c/><p:c />\n<!--\r\nx-->  <d>x<e>y</e>z<!---->w</d >\n"
    "<umnomecomprido>]]&gt;</umnomecomprido>\n</p:a>\n<!-- fim -->\n";

// Wherever its pieces end.
TEST(FastParsePieceTest, TellsTheSameInPiecesOfAnyLength) {
  const testing::FastTelling whole = ToldInPieces(kPlainFile, kRoom);
  ASSERT_TRUE(whole.taken);
  size_t taken = 0;
  for (size_t room = 8; room < kPlainFile.size() + 20; ++room) {
    const testing::FastTelling told = ToldInPieces(kPlainFile, room);
    EXPECT_EQ(Difference(told.told, whole.told), "") << room;
    taken += told.taken ? 1 : 0;
    // What is longest in it is the declaration.
    EXPECT_TRUE(told.taken || room <= 70) << room;
  }
  EXPECT_GT(taken, kPlainFile.size() - 60);
}

// The same of a file that is given up at its end.
TEST(FastParsePieceTest, IsLeftInPiecesOfAnyLength) {
  std::string file(kPlainFile);
  file.insert(file.find("</p:a>"), "<q r='s'>t</q><b>u</b><v/>");
  const testing::FastTelling whole = ToldInPieces(file, kRoom);
  ASSERT_FALSE(whole.taken);
  EXPECT_GT(whole.count.events, 15u);
  for (size_t room = 8; room < file.size() + 20; ++room) {
    EXPECT_EQ(Difference(ToldInPieces(file, room).told, whole.told), "") << room;
  }
}

class BrokenInput final : public ByteSource {
 public:
  explicit BrokenInput(std::string_view bytes) : bytes_(bytes) {}
  size_t Read(char* bytes, size_t size) override {
    if (bytes_.empty()) throw MakeRunTimeError(RunTimeError::kDeviceIO, "nome");
    return InputBytes(std::exchange(bytes_, {})).Read(bytes, size);
  }

 private:
  std::string_view bytes_;
};

TEST(FastParseFailureTest, AFileThatCannotBeReadIsAProblem) {
  BrokenInput input("<a><b>x</b>y");
  TextDecoder decoder(input);
  FastNames names;
  testing::Events told;
  FastEvents events(told);
  uint64_t bytes_read = 0;
  FastParse<FastEvents> parse(decoder, names, events, bytes_read);
  auto outcome = FastOutcome::kGoesOn;
  while (outcome == FastOutcome::kGoesOn) outcome = parse.ParsePiece();
  EXPECT_EQ(outcome, FastOutcome::kUnreadable);
  ASSERT_TRUE(parse.Problem());
  EXPECT_EQ(parse.Problem()->number, static_cast<int32_t>(RunTimeError::kDeviceIO));
  EXPECT_EQ(parse.Problem()->fault, XmlProblem::Fault::kUnreadable);
  EXPECT_EQ(told.log, "<a><b>x");
}

// A sink that takes some events only.
class Sink {
 public:
  explicit Sink(int events) : left_(events) {}
  bool Standalone() { return Takes(); }
  bool StartElement(const FastName&, std::span<const ParsedAttribute>) { return Takes(); }
  bool EndElement(const FastName&) { return Takes(); }
  bool EndEmptyTag(const FastName&) { return Takes(); }
  bool Leaf(const FastName&, std::string_view) { return Takes(); }
  bool Characters(std::string_view) { return Takes(); }
  bool Comment(std::string_view) { return Takes(); }
  int Asked() const { return asked_; }

 private:
  bool Takes() {
    ++asked_;
    return left_-- > 0;
  }
  int left_;
  int asked_ = 0;
};

TEST(FastParseSinkTest, MayGiveTheFileUpAtAnyEvent) {
  int most = 0;
  for (int events = 0; events < 100; ++events) {
    InputBytes input(kPlainFile);
    TextDecoder decoder(input);
    FastNames names;
    Sink sink(events);
    uint64_t bytes_read = 0;
    FastParse<Sink> parse(decoder, names, sink, bytes_read);
    const FastOutcome outcome = parse.ParsePiece();
    most = sink.Asked();
    if (outcome != FastOutcome::kGivenUp) break;
    EXPECT_EQ(sink.Asked(), events + 1);
  }
  EXPECT_GT(most, 30);
}

}  // namespace
}  // namespace zevo
