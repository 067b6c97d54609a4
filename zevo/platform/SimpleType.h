// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SIMPLETYPE_H_
#define ZEVO_PLATFORM_SIMPLETYPE_H_

#include <zevo/platform/Document.h>

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct _xmlSchemaType;   // NOLINT(bugprone-reserved-identifier): libxml2's name
struct _xmlSchemaFacet;  // NOLINT(bugprone-reserved-identifier): libxml2's name

namespace zevo {

/// What a schema demands of a text: a type of XML Schema's own, and what restricts it. libxml2 judges each.
class SimpleType {
 public:
  /// A type of XML Schema's own, such as "decimal". Nothing for a name of none, for lists, and for types whose texts
  /// mean something only where they stand, such as QName.
  static std::shared_ptr<const SimpleType> BuiltIn(std::string_view name);
  /// The restriction of another by the facets that are the children of an element of the schema. Nothing for a facet
  /// that libxml2 does not take.
  static std::shared_ptr<const SimpleType> Restricted(std::shared_ptr<const SimpleType> base, Element restriction);

  enum class WhiteSpace : uint8_t { kPreserve = 1, kReplace, kCollapse };  // libxml2's values
  struct FreeFacet {
    void operator()(_xmlSchemaFacet* facet) const;
  };
  struct Facet {
    int32_t number;  // of the violation
    std::string value;
    std::unique_ptr<_xmlSchemaFacet, FreeFacet> compiled;
  };
  using Facets = std::list<Facet>;  // libxml2 keeps the addresses of their values

  SimpleType() = default;
  SimpleType(const SimpleType&) = delete;
  SimpleType& operator=(const SimpleType&) = delete;

  /// What a text is refused for.
  struct Refusal {
    int32_t number;       // libxml2's
    std::string allowed;  // the value of the facet, or the name of the type; of an enumeration its values
  };
  /// Nothing for a text that is taken.
  std::optional<Refusal> Check(std::string_view text) const { return Judge(text, false); }
  /// Whether a text is taken for certain: not where libxml2 cannot tell, as of patterns that it gives up on.
  bool Takes(std::string_view text) const { return !Judge(text, true); }

  /// Whether it is a string of which every character counts.
  bool KeepsWhiteSpace() const { return IsString() && white_space_ == WhiteSpace::kPreserve; }
  /// A text by which equal values are found, for a text that is taken. Nothing where this library does not tell whether
  /// values are equal: for other types than strings and decimal numbers.
  std::optional<std::string> Comparable(std::string_view text) const;
  /// The text with its white space as the type has it.
  std::string Normalized(std::string_view text) const;

  // What it is made of, for those that judge texts without libxml2.

  /// The type of XML Schema's own that it restricts, or is.
  std::string_view BuiltInName() const { return name_; }
  WhiteSpace Space() const { return white_space_; }
  /// What it restricts; null for XML Schema's own.
  const SimpleType* Base() const { return base_.get(); }
  /// The facets of this restriction alone. A text must satisfy all limits and one of the patterns of each restriction,
  /// and be one of the values of the innermost that has values.
  const Facets& Limits() const { return limits_; }
  const Facets& Values() const { return enumeration_; }
  const Facets& Patterns() const { return patterns_; }

 private:
  std::optional<Refusal> Judge(std::string_view text, bool breakdownRefuses) const;
  bool IsString() const;
  bool TakesWhiteSpaceOff() const;
  bool Add(std::string_view facet, std::string_view value);

  std::shared_ptr<const SimpleType> base_;  // null for XML Schema's own
  _xmlSchemaType* built_in_ = nullptr;
  std::string_view name_;  // of the built-in type
  WhiteSpace white_space_ = WhiteSpace::kCollapse;
  Facets limits_;
  Facets enumeration_;
  Facets patterns_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SIMPLETYPE_H_
