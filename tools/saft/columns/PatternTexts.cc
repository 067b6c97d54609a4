// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/PatternTexts.h"

#include <cstddef>
#include <iterator>
#include <utility>

namespace zevo::saft {
namespace {

constexpr size_t kMost = 1000;  // texts
constexpr int kDeepest = 20;    // groups in each other

unsigned ByteOf(char c) { return static_cast<unsigned char>(c); }

bool IsAscii(char c) { return ByteOf(c) < 0x80; }

class PatternReader {
 public:
  explicit PatternReader(std::string_view pattern) : left_(pattern) {}

  PatternTexts Read() {
    PatternTexts all = ReadAlternatives(0);
    return left_.empty() ? all : Unlisted();
  }

 private:
  static PatternTexts Unlisted() { return {.texts = {}, .others = true}; }

  bool Comes(char c) const { return !left_.empty() && left_.front() == c; }
  char Take() {
    const char c = left_.front();
    left_.remove_prefix(1);
    return c;
  }

  PatternTexts ReadAlternatives(int depth) {
    PatternTexts all;
    for (;;) {
      PatternTexts one = ReadSequence(depth);
      all.others |= one.others;
      all.texts.insert(all.texts.end(), std::make_move_iterator(one.texts.begin()),
                       std::make_move_iterator(one.texts.end()));
      if (all.texts.size() > kMost) all = Unlisted();
      if (!Comes('|')) return all;
      Take();
    }
  }

  PatternTexts ReadSequence(int depth) {
    PatternTexts all{.texts = {""}};
    while (!left_.empty() && !Comes('|') && !Comes(')')) {
      PatternTexts part = ReadPart(depth);
      if (SkipQuantifier()) part = Unlisted();
      PatternTexts longer{.texts = {}, .others = all.others || part.others};
      if (all.texts.size() * part.texts.size() > kMost) {
        longer = Unlisted();
      } else {
        for (const std::string& begin : all.texts) {
          for (const std::string& end : part.texts) longer.texts.push_back(begin + end);
        }
      }
      all = std::move(longer);
    }
    return all;
  }

  PatternTexts ReadPart(int depth) {
    const char c = Take();
    switch (c) {
      case '(':
        return ReadGroup(depth + 1);
      case '[':
        return ReadClass();
      case '\\':
        if (!left_.empty()) Take();
        return Unlisted();
      case '.':
        return Unlisted();
      default:
        return {.texts = {std::string(1, c)}};
    }
  }

  PatternTexts ReadGroup(int depth) {
    if (depth > kDeepest) {
      left_ = {};
      return Unlisted();
    }
    PatternTexts inside = ReadAlternatives(depth);
    if (Comes(')')) Take();
    return inside;
  }

  PatternTexts ReadClass() {
    PatternTexts all;
    if (Comes('^')) all.others = true;
    while (!left_.empty() && !Comes(']')) {
      const char first = Take();
      if (first == '\\' || first == '[') all.others = true;
      if (first == '\\' && !left_.empty()) Take();
      char last = first;
      if (Comes('-') && left_.size() > 1 && left_[1] != ']') {
        Take();
        last = Take();
      }
      // A character of several bytes cannot be taken apart.
      if (!IsAscii(first) || !IsAscii(last)) all.others = true;
      for (unsigned c = ByteOf(first); c <= ByteOf(last); ++c) all.texts.emplace_back(1, static_cast<char>(c));
    }
    if (!left_.empty()) Take();
    return all.others ? Unlisted() : all;
  }

  bool SkipQuantifier() {
    if (Comes('*') || Comes('+') || Comes('?')) {
      Take();
      return true;
    }
    if (!Comes('{')) return false;
    left_.remove_prefix(left_.find('}') == std::string_view::npos ? left_.size() : left_.find('}') + 1);
    return true;
  }

  std::string_view left_;
};

}  // namespace

PatternTexts TextsOf(std::string_view pattern) { return PatternReader(pattern).Read(); }

}  // namespace zevo::saft
