// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTNAMES_H_
#define ZEVO_PLATFORM_FASTPATH_FASTNAMES_H_

#include <zevo/TextHash.h>
#include <zevo/platform/ByteScan.h>
#include <zevo/platform/Parser.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// A name of the file, with what makes it quick to find the next one: the name as it stands in a tag, and which name
/// came behind it the last time.
class FastName {
 public:
  /// The longest name that is taken, its prefix included.
  static constexpr size_t kMost = 62;

  FastName(std::string_view qualified, const ParsedName& parsed) : parsed_(parsed), size_(qualified.size() + 1) {
    qualified.copy(tag_.data(), qualified.size());
    tag_[qualified.size()] = '>';
    // Of the last word, the bytes that belong to the name.
    std::memset(reinterpret_cast<char*>(&last_mask_), 0xFF, (size_ - 1) % sizeof last_mask_ + 1);
  }

  const ParsedName& Parsed() const { return parsed_; }
  uint32_t Number() const { return parsed_.number; }
  std::string_view Qualified() const { return {tag_.data(), size_ - 1}; }
  /// The bytes of the name and the ">" behind it.
  size_t TagSize() const { return size_; }

  /// Whether the name and a ">" stand there. Eight bytes behind them must be readable.
  bool IsAt(const char* at) const {
    size_t word = 0;
    for (; word + sizeof last_mask_ < size_; word += sizeof last_mask_) {
      if (WordAt(at + word) != WordAt(tag_.data() + word)) return false;
    }
    return ((WordAt(at + word) ^ WordAt(tag_.data() + word)) & last_mask_) == 0;
  }

  // Which start tag came last behind a start tag of this name, and behind an end tag of it; null where none has yet.
  FastName* inside = nullptr;
  FastName* behind = nullptr;

 private:
  static uint64_t WordAt(const char* at) {
    uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return word;
  }

  ParsedName parsed_;
  size_t size_;
  uint64_t last_mask_ = 0;
  std::array<char, kMost + 2> tag_{};
};

/// The names of one parse, numbered as ParserRun numbers them: in the order in which they come first. Only plain names
/// are taken: ASCII, at most one prefix that is declared on the root.
class FastNames {
 public:
  FastNames() = default;
  FastNames(const FastNames&) = delete;
  FastNames& operator=(const FastNames&) = delete;

  /// Whether a name without a prefix is one that the fast path takes.
  static bool IsPlain(std::string_view name);
  /// Null for a name that the fast path does not take.
  FastName* Find(std::string_view qualified) {
    FastName*& recent = recent_[PlaceOf(qualified)];
    if (recent == nullptr || recent->Qualified() != qualified) recent = LookUp(qualified);
    return recent;
  }
  uint32_t Count() const { return static_cast<uint32_t>(names_.size()); }
  /// The one with a number, null where there is none.
  const FastName* Numbered(uint32_t number) const { return number - 1 < names_.size() ? &names_[number - 1] : nullptr; }

  /// Has names with this prefix taken from now on.
  void Declare(std::string_view prefix) { declared_.push_back(Interned(prefix)); }
  /// A name or a part of one as text that ends with a NUL: equal ones are the same pointers.
  const char* Interned(std::string_view text) { return Known(text).first.c_str(); }

 private:
  static constexpr size_t kRecent = 256;
  static constexpr size_t kLooked = 24;  // bytes that tell most names apart
  static constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15U;

  // Names that share a place cost no more than to be looked up.
  static size_t PlaceOf(std::string_view qualified) {
    uint64_t ends = qualified.size();
    ForEachWord(qualified.substr(0, kLooked), [&](uint64_t word) { ends = (ends ^ word) * kMultiplier; });
    return static_cast<size_t>(ends >> 56);
  }
  using Texts = TextMap<FastName*>;

  Texts::value_type& Known(std::string_view text) { return *texts_.try_emplace(std::string(text), nullptr).first; }
  FastName* LookUp(std::string_view qualified);
  const char* Declared(std::string_view prefix) const;

  std::array<FastName*, kRecent> recent_{};
  std::deque<FastName> names_;
  Texts texts_;  // names, and their parts, which are null
  std::vector<const char*> declared_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTNAMES_H_
