// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_NAMETABLE_H_
#define ZEVO_PLATFORM_NAMETABLE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// The names of a document's elements and attributes, each held once under a small number. The names that the table
/// starts with have the numbers 1, 2 and so on in their order; 0 is no name.
class NameTable {
 public:
  static constexpr uint32_t kNone = 0;
  /// The greatest number that a node has room for.
  static constexpr uint32_t kMostNames = (1U << 24) - 1;
  /// The greatest length of a short name.
  static constexpr size_t kShort = 32;

  explicit NameTable(std::span<const std::string_view> first);

  uint32_t Find(std::string_view name) const;
  uint32_t Add(std::string_view name);
  /// Adds a qualified name; `prefix` may be null. `number` is a small one that stands for the same name until the next
  /// call of ForgetParsed: the name is only looked at when its number is new.
  uint32_t AddParsed(uint32_t number, const char* local, const char* prefix) {
    if (number < parsed_.size() && parsed_[number] != kNone) return parsed_[number];
    return AddNewlyParsed(number, local, prefix);
  }
  void ForgetParsed() { parsed_.clear(); }

  /// Whether a name is one of the first that the table started with, all of them ASCII without a prefix, or no name.
  /// Others may be so too.
  bool IsPlain(uint32_t name) const { return name <= plain_; }
  std::string_view Text(uint32_t name) const { return entries_[name].text; }
  /// The name without its prefix; the name itself when it has none.
  uint32_t Local(uint32_t name) const { return entries_[name].local; }
  /// Whether Windows-1252 has every character of the name.
  bool IsWindows1252(uint32_t name) const { return entries_[name].is_windows1252; }
  bool IsAscii(uint32_t name) const { return entries_[name].is_ascii; }
  /// Whether a name is short and ASCII. From the beginning of its text kShort bytes can be read, however long it is.
  bool IsShort(uint32_t name) const { return entries_[name].is_short; }

 private:
  struct Entry {
    std::string_view text;
    uint32_t local;
    bool is_windows1252;
    bool is_ascii;
    bool is_short;
  };
  size_t SlotOf(std::string_view name) const;
  uint32_t AddNewlyParsed(uint32_t number, const char* local, const char* prefix);
  uint32_t Insert(std::string_view text);
  void Grow();

  uint32_t plain_ = 0;
  std::vector<Entry> entries_;
  std::deque<std::string> texts_;
  std::vector<uint32_t> slots_;  // open addressing by the keyed hash of the text
  // A cache of recent answers, by QuickHash.
  mutable std::array<uint32_t, 1024> asked_{};
  std::vector<uint32_t> parsed_;  // the name for each number given to AddParsed
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_NAMETABLE_H_
