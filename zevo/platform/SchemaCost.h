// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMACOST_H_
#define ZEVO_PLATFORM_SCHEMACOST_H_

#include <zevo/platform/AutomatonSize.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/SchemaReferences.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace zevo {

/// What libxml2 takes to compile a schema, by estimate: for its content models, its patterns, its substitution groups
/// and the values that it gives.
class SchemaCost {
 public:
  /// Throws SchemaLimits::Passed for a content model or a pattern beyond its own limits. `schema` is the root of a
  /// document, `references` are its definitions; both are looked at only here.
  SchemaCost(Element schema, const SchemaReferences& references);

  double Seconds() const { return seconds_; }
  double Bytes() const { return bytes_; }

 private:
  // The content of a complex type, or a part of it.
  struct Model {
    AutomatonSize size;
    double particles = 0;
  };

  // What a value of a simple type is validated against.
  struct Scope {
    double types = 0;  // and their facets
    double patterns = 0;
    double widest = 1;  // of the patterns

    void Add(const Scope& other) {
      types += other.types;
      patterns += other.patterns;
      widest = std::max(widest, other.widest);
    }
  };

  template <class Value>
  using Known = std::unordered_map<const Node*, Value>;

  void CountSubstitutions();
  void Measure(Element definition);
  void Weigh(Element element);

  Model ModelOf(Element type) const;
  Model ParticleOf(Element particle) const;
  Model TermOf(Element particle) const;

  Scope ScopeOf(Element type) const;
  Scope BaseOf(Element variety) const;
  Scope TypeOf(Element declaration) const;
  Element TypeNamed(std::string_view name) const { return references_.Find(name, {"simpleType", "complexType"}); }
  void WeighValues(Element type);

  void Spend(double seconds, double bytes) {
    seconds_ += seconds;
    bytes_ += bytes;
  }
  void SpendOnAutomaton(const AutomatonSize& size, Element within);
  void SpendOnModel(const Model& model, Element type);
  void SpendOnValue(std::string_view value, const Scope& scope);

  const Document& document_;
  const SchemaReferences& references_;
  // Of definitions, as far as they are known by now.
  Known<double> substitutes_;
  Known<Model> models_;
  Known<Scope> scopes_;
  double seconds_ = 0;
  double bytes_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMACOST_H_
