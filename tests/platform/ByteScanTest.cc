// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/ByteScan.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

using Ascii = StopBytes<0x01, true>;
using Printable = StopBytes<0x20, true>;
using Markup = StopBytes<0x20, true, '&', '<', '>', '"'>;
using ControlOrBlank = StopBytes<0x20, false, '\x7F', '='>;

// What a scan must find: the loop that looks at each byte.
template <class Stops>
size_t Naive(std::string_view text) {
  size_t run = 0;
  while (run < text.size() && !Stops::Has(text[run])) ++run;
  return run;
}

// One scan with one kind of blocks.
template <class S, class B>
struct Case {
  using Stops = S;
  using Kind = B;
};

template <class C>
class ByteScanTest : public ::testing::Test {
 protected:
  using Stops = typename C::Stops;
  using Scan = ByteScan<Stops, typename C::Kind>;

  // In memory of exactly its size, as a sanitizer sees, and behind so many bytes that it is aligned in every way.
  static void Expect(std::string_view text, size_t alignment) {
    const std::vector<char> from = Aligned(text, alignment);
    const std::string_view given(from.data() + alignment, text.size());
    const size_t run = Naive<Stops>(text);
    ASSERT_EQ(Scan::Run(given), run) << alignment << " " << text.size();
    ASSERT_EQ(Scan::Finds(given), run < text.size());
    std::vector<char> to(alignment + text.size() + 1, '!');
    ASSERT_EQ(Scan::CopyRun(given.data(), given.size(), to.data() + alignment), run);
    ASSERT_EQ(std::string_view(to.data() + alignment, run), text.substr(0, run));
    ASSERT_TRUE(
        std::all_of(to.begin(), to.begin() + static_cast<std::ptrdiff_t>(alignment), [](char c) { return c == '!'; }));
    ASSERT_EQ(to.back(), '!');
  }

 private:
  static std::vector<char> Aligned(std::string_view text, size_t alignment) {
    std::vector<char> bytes(alignment + text.size());
    std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(alignment));
    return bytes;
  }
};

using Cases = ::testing::Types<
#ifdef __SSE2__
    Case<Ascii, RegisterBlocks>, Case<Printable, RegisterBlocks>, Case<Markup, RegisterBlocks>,
    Case<ControlOrBlank, RegisterBlocks>,
#endif
    Case<Ascii, WordBlocks>, Case<Printable, WordBlocks>, Case<Markup, WordBlocks>, Case<ControlOrBlank, WordBlocks>>;
TYPED_TEST_SUITE(ByteScanTest, Cases);

constexpr size_t kLongest = 67;

TYPED_TEST(ByteScanTest, FindsNothingInPlainBytesOfAnyLengthAndAlignment) {
  for (size_t alignment = 0; alignment < 16; ++alignment) {
    for (size_t size = 0; size <= kLongest; ++size) this->Expect(std::string(size, 'x'), alignment);
  }
}

TYPED_TEST(ByteScanTest, FindsTheFirstStopWhereverItStands) {
  for (size_t alignment = 0; alignment < 16; ++alignment) {
    for (size_t size = 1; size <= kLongest; ++size) {
      for (size_t at = 0; at < size; ++at) {
        std::string text(size, 'x');
        // One of them is a stop of every scan; the last byte is another.
        text[at] = '\0';
        text.back() = '\x1F';
        this->Expect(text, alignment);
      }
    }
  }
}

TYPED_TEST(ByteScanTest, EveryByteIsAStopOrNoneWhereverItStands) {
  for (int byte = 0; byte < 256; ++byte) {
    for (const size_t size : {size_t{3}, size_t{5}, size_t{11}, size_t{16}, size_t{37}}) {
      for (size_t at = 0; at < size; ++at) {
        for (const char other : {'x', '\x20', '\x7E'}) {
          std::string text(size, other);
          text[at] = static_cast<char>(byte);
          this->Expect(text, 0);
        }
      }
    }
  }
}

TEST(ForEachWordTest, GivesAllBytesAndTheLastEightOnceMore) {
  const auto words = [](std::string_view text) {
    std::vector<std::string> found;
    ForEachWord(text, [&](uint64_t word) {
      std::string bytes(sizeof word, '\0');
      std::memcpy(bytes.data(), &word, sizeof word);
      found.push_back(bytes);
    });
    return found;
  };
  EXPECT_EQ(words("abcdefgh"), std::vector<std::string>({"abcdefgh"}));
  EXPECT_EQ(words("abcdefghi"), std::vector<std::string>({"abcdefgh", "bcdefghi"}));
  EXPECT_EQ(words("abcdefghijklmnop"), std::vector<std::string>({"abcdefgh", "ijklmnop"}));
}

TEST(ForEachWordTest, AShortTextIsOneNumber) {
  const auto number = [](std::string_view text) {
    std::vector<uint64_t> found;
    ForEachWord(text, [&](uint64_t word) { found.push_back(word); });
    EXPECT_EQ(found.size(), 1U);
    return found.at(0);
  };
  EXPECT_EQ(number(""), 0U);
  EXPECT_EQ(number("\x01\xFF"), 0x01FFU);
}

}  // namespace
}  // namespace zevo
