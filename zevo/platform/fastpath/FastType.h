// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTTYPE_H_
#define ZEVO_PLATFORM_FASTPATH_FASTTYPE_H_

#include <zevo/platform/KeyedHash.h>
#include <zevo/platform/SimpleType.h>
#include <zevo/platform/fastpath/PatternAutomaton.h>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace zevo {

/// A simple type made ready to judge texts quickly. It is sure of texts as they are usually written, such as numbers
/// without a plus sign and dates without a time zone; of all others libxml2 is asked. Never changes.
class FastType {
 public:
  explicit FastType(std::shared_ptr<const SimpleType> type);

  /// Whether the type has the text, valid UTF-8.
  bool Takes(std::string_view text) const { return IsSureOf(text) || type_->Takes(text); }
  /// Whether it has it for certain, without asking libxml2.
  bool IsSureOf(std::string_view text) const;

  /// Of the tables of its patterns.
  size_t Entries() const;

  /// Whether values can be told apart at all.
  bool HasKeys() const { return form_ == Form::kText || form_ == Form::kNumber; }
  /// For a text that the type takes: the same for equal values, and for no others, whichever types they are of. Nothing
  /// for texts that are written unusually.
  std::optional<Digest> KeyOf(std::string_view text) const;

 private:
  // kOther: libxml2 is always asked.
  enum class Form : uint8_t { kOther, kText, kNumber, kDate, kDateTime, kYear, kBoolean };

  // A number, or a date of which the digits are taken as one.
  struct Value {
    int64_t floor = 0;
    int64_t above = 0;  // the floor, in 10^-18
    friend bool operator==(const Value&, const Value&) = default;
    friend std::strong_ordering operator<=>(const Value& left, const Value& right) {
      return left.floor != right.floor ? left.floor <=> right.floor : left.above <=> right.above;
    }
  };
  struct Bound {
    Value value;
    bool inclusive = true;
  };

  bool AddFacets(const SimpleType& step);
  bool AddLimit(const SimpleType::Facet& limit);
  bool AddBound(const SimpleType::Facet& limit);
  bool AddValues(const SimpleType::Facets& values);
  bool AddPatterns(const SimpleType::Facets& patterns);
  void Narrow(std::optional<Bound>& bound, Bound narrower, bool least);

  bool IsPlain(std::string_view text) const;
  bool HasLength(std::string_view text) const;
  std::optional<Value> Read(std::string_view text) const;
  std::optional<Value> ReadNumber(std::string_view text) const;
  bool IsWithin(const Value& value) const;

  std::shared_ptr<const SimpleType> type_;
  Form form_ = Form::kOther;
  SimpleType::WhiteSpace white_space_;
  bool whole_ = false;  // a number without a fraction
  // Of a text, in characters.
  size_t least_length_ = 0;
  size_t most_length_ = SIZE_MAX;
  // Of a number.
  size_t most_digits_ = SIZE_MAX;
  size_t most_fraction_ = SIZE_MAX;
  std::optional<Bound> least_;
  std::optional<Bound> most_;
  // The values of the type, and for each restriction its patterns, of which one must match.
  std::optional<PatternAutomaton> values_;
  std::vector<std::vector<PatternAutomaton>> patterns_;
  uint64_t kind_ = 0;  // of keys: those of different kinds are never equal
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTTYPE_H_
