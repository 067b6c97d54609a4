// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Violation.h>

#include <zevo/Utf8.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

/// What is wrong, as far as sentences differ.
enum class Wrong : uint8_t {
  kMissing,
  kRepeated,
  kMisplaced,
  kNothingMore,
  kForeign,
  kDuplicate,
  kDangling,
  kType,
  kLength,
  kMinLength,
  kMaxLength,
  kMinInclusive,
  kMaxInclusive,
  kMinExclusive,
  kMaxExclusive,
  kTotalDigits,
  kFractionDigits,
  kPattern,
  kEnumeration,
  kFixed,
  kAttribute,
  kText,
  kEmpty,
  kElementInText,
  kElementInFixed,
  kRoot,
  kOther,
};

// Of the numbers of libxml2 those of which sentences are made. The lower layers alone know its headers.
struct NumberRow {
  int32_t number;
  Wrong wrong;
};
constexpr auto kNumberRows = std::to_array<NumberRow>({
    {1824, Wrong::kType},         {1827, Wrong::kAttribute},    {1828, Wrong::kElementInText},
    {1830, Wrong::kLength},       {1831, Wrong::kMinLength},    {1832, Wrong::kMaxLength},
    {1833, Wrong::kMinInclusive}, {1834, Wrong::kMaxInclusive}, {1835, Wrong::kMinExclusive},
    {1836, Wrong::kMaxExclusive}, {1837, Wrong::kTotalDigits},  {1838, Wrong::kFractionDigits},
    {1839, Wrong::kPattern},      {1840, Wrong::kEnumeration},  {1841, Wrong::kEmpty},
    {1843, Wrong::kText},         {1845, Wrong::kRoot},         {1856, Wrong::kElementInFixed},
    {1857, Wrong::kFixed},        {1858, Wrong::kFixed},        {1866, Wrong::kAttribute},
});

constexpr int32_t kElementContent = 1871;
constexpr int32_t kIdentity = 1877;

// A text in both languages.
struct Phrase {
  std::string_view portuguese;
  std::string_view english;

  std::string_view In(Language language) const { return language == Language::kPortuguese ? portuguese : english; }
};

// What follows on the element. "#" stands for what is allowed.
struct WrongRow {
  Wrong wrong;
  Phrase text;
};
constexpr auto kWrongRows = std::to_array<WrongRow>({
    {Wrong::kMissing, {"não tem #, que é obrigatório", "has no #, which is required"}},
    {Wrong::kRepeated, {"só pode aparecer uma vez", "may appear only once"}},
    {Wrong::kMisplaced, {"não pode estar neste sítio, onde só pode estar #", "may not stand here, where only # may"}},
    {Wrong::kNothingMore, {"não pode estar neste sítio", "may not stand here"}},
    {Wrong::kForeign, {"está noutro espaço de nomes, o que não pode ser", "is in another namespace, which may not be"}},
    {Wrong::kDuplicate, {"já identifica outro registo", "already identifies another record"}},
    {Wrong::kDangling, {"não identifica nenhum # do ficheiro", "identifies no # of the file"}},
    {Wrong::kType, {"tem de ser #", "must be #"}},
    {Wrong::kLength, {"tem de ter exatamente #", "must have exactly #"}},
    {Wrong::kMinLength, {"tem de ter pelo menos #", "must have at least #"}},
    {Wrong::kMaxLength, {"não pode ter mais de #", "must not have more than #"}},
    {Wrong::kMinInclusive, {"não pode ser menor do que #", "must not be less than #"}},
    {Wrong::kMaxInclusive, {"não pode ser maior do que #", "must not be greater than #"}},
    {Wrong::kMinExclusive, {"tem de ser maior do que #", "must be greater than #"}},
    {Wrong::kMaxExclusive, {"tem de ser menor do que #", "must be less than #"}},
    {Wrong::kTotalDigits, {"não pode ter mais de # ao todo", "must not have more than # in all"}},
    {Wrong::kFractionDigits, {"não pode ter mais de # depois do ponto", "must not have more than # behind the point"}},
    {Wrong::kPattern, {"não tem a forma certa, que é #", "does not have the right form, which is #"}},
    {Wrong::kEnumeration, {"tem de ser um de: #", "must be one of: #"}},
    {Wrong::kFixed, {"tem de ser \"#\"", "must be \"#\""}},
    {Wrong::kAttribute, {"é um atributo que não pode existir", "is an attribute that may not be there"}},
    {Wrong::kText,
     {"tem texto entre os seus elementos, o que não pode ser", "has text between its elements, which may not be"}},
    {Wrong::kEmpty, {"tem de estar vazio", "must be empty"}},
    {Wrong::kElementInText,
     {"está dentro de um valor, que só pode ter texto", "is inside a value, which may have text only"}},
    {Wrong::kElementInFixed,
     {"está dentro de um valor, que tem de ser \"#\"", "is inside a value, which must be \"#\""}},
    {Wrong::kRoot,
     {"não é o começo de um ficheiro deste esquema, que é do espaço de nomes #",
      "does not begin a file of this schema, whose namespace is #"}},
    {Wrong::kOther, {"não está de acordo com o esquema", "does not agree with the schema"}},
});

consteval bool SentencesInOrderOfValues() {
  for (size_t i = 0; i < kWrongRows.size(); ++i) {
    if (static_cast<size_t>(kWrongRows[i].wrong) != i) return false;
  }
  return kWrongRows.size() == static_cast<size_t>(Wrong::kOther) + 1;
}
static_assert(SentencesInOrderOfValues());

// Types, by their names in XML Schema.
struct TypeRow {
  std::string_view name;
  Phrase text;
};
constexpr auto kTypeRows = std::to_array<TypeRow>({
    {"decimal", {"um número, com ponto antes das decimais", "a number, with a point before its decimals"}},
    {"integer", {"um número inteiro", "a whole number"}},
    {"date", {"uma data, como 2008-03-05", "a date, such as 2008-03-05"}},
    {"dateTime", {"uma data e hora, como 2008-03-05T10:30:00", "a date and time, such as 2008-03-05T10:30:00"}},
    {"time", {"uma hora, como 10:30:00", "a time, such as 10:30:00"}},
    {"boolean", {"true ou false", "true or false"}},
});

// Records as sentences begin with them; "#" stands for the key.
struct RecordRow {
  EntityKind kind;
  Phrase text;
};
constexpr auto kRecordRows = std::to_array<RecordRow>({
    {EntityKind::kHeader, {"O cabeçalho", "The header"}},
    {EntityKind::kGeneralLedger, {"A conta #", "Account #"}},
    {EntityKind::kCustomer, {"O cliente #", "Customer #"}},
    {EntityKind::kSupplier, {"O fornecedor #", "Supplier #"}},
    {EntityKind::kProduct, {"O produto #", "Product #"}},
    {EntityKind::kTaxTable, {"A tabela de impostos", "The tax table"}},
    {EntityKind::kGeneralLedgerEntries, {"A secção dos movimentos", "The section of ledger entries"}},
    {EntityKind::kJournal, {"O diário #", "Journal #"}},
    {EntityKind::kTransaction, {"O movimento #", "Transaction #"}},
    {EntityKind::kSalesInvoices, {"A secção das faturas", "The section of invoices"}},
    {EntityKind::kInvoice, {"A fatura #", "Invoice #"}},
});

consteval bool RecordsInOrderOfValues() {
  for (size_t i = 0; i < kRecordRows.size(); ++i) {
    if (static_cast<size_t>(kRecordRows[i].kind) != i) return false;
  }
  return kRecordRows.size() == kEntityKinds;
}
static_assert(RecordsInOrderOfValues());

constexpr Phrase kNoKey{"(sem identificação)", "(without identification)"};
constexpr Phrase kOr{" ou ", " or "};
constexpr Phrase kLine{" (linha ", " (line "};
constexpr Phrase kColumn{", coluna ", ", column "};
constexpr Phrase kCharacter{"carácter", "character"};
constexpr Phrase kCharacters{"caracteres", "characters"};
constexpr Phrase kDigit{"algarismo", "digit"};
constexpr Phrase kDigits{"algarismos", "digits"};
constexpr Phrase kValueOfType{"um valor do tipo ", "a value of the type "};

std::string_view LastStep(std::string_view path) {
  std::string_view step = path.substr(path.rfind('/') + 1);
  return step.substr(0, step.find('['));
}

// Whether a list of names, or of codes, has one.
bool Lists(std::string_view list, std::string_view name) {
  while (!list.empty()) {
    const size_t comma = std::min(list.find(", "), list.size());
    if (list.substr(0, comma) == name) return true;
    list.remove_prefix(std::min(comma + 2, list.size()));
  }
  return false;
}

Wrong WrongOf(const Violation& violation) {
  const bool missing = !violation.allowed.empty() && Lists(violation.allowed, LastStep(violation.path));
  if (violation.number == kElementContent) {
    if (!violation.value.empty()) return Wrong::kForeign;
    if (missing) return Wrong::kMissing;
    if (violation.allowed == "1") return Wrong::kRepeated;
    return violation.allowed.empty() ? Wrong::kNothingMore : Wrong::kMisplaced;
  }
  if (violation.number == kIdentity) {
    if (missing) return Wrong::kMissing;
    return violation.allowed.empty() ? Wrong::kDuplicate : Wrong::kDangling;
  }
  const auto row = std::ranges::find(kNumberRows, violation.number, &NumberRow::number);
  return row == kNumberRows.end() ? Wrong::kOther : row->wrong;
}

// The first characters of a text, as a sentence may have it.
std::string Abridged(std::string_view text) {
  constexpr int kMost = 100;
  std::string_view rest = text;
  for (int i = 0; i < kMost && !rest.empty(); ++i) TakeCharacter(rest);
  if (rest.empty()) return std::string(text);
  return std::string(text.substr(0, text.size() - rest.size())).append("…");
}

std::string Counted(std::string_view number, const Phrase& one, const Phrase& several, Language language) {
  return std::string(number).append(" ").append((number == "1" ? one : several).In(language));
}

// Names of which one is wanted, the last two joined by a word.
std::string OneOf(std::string_view names, Language language) {
  const size_t last = names.rfind(", ");
  if (last == std::string_view::npos) return std::string(names);
  return std::string(names.substr(0, last)).append(kOr.In(language)).append(names.substr(last + 2));
}

std::string AllowedIn(const Violation& violation, Wrong wrong, Language language) {
  switch (wrong) {
    case Wrong::kMissing:
    case Wrong::kMisplaced:
      return OneOf(violation.allowed, language);
    case Wrong::kType: {
      const auto type = std::ranges::find(kTypeRows, violation.allowed, &TypeRow::name);
      if (type != kTypeRows.end()) return std::string(type->text.In(language));
      return std::string(kValueOfType.In(language)).append(violation.allowed);
    }
    case Wrong::kLength:
    case Wrong::kMinLength:
    case Wrong::kMaxLength:
      return Counted(violation.allowed, kCharacter, kCharacters, language);
    case Wrong::kTotalDigits:
    case Wrong::kFractionDigits:
      return Counted(violation.allowed, kDigit, kDigits, language);
    default:
      return Abridged(violation.allowed);
  }
}

bool HasValue(Wrong wrong) {
  switch (wrong) {
    case Wrong::kMissing:
    case Wrong::kRepeated:
    case Wrong::kMisplaced:
    case Wrong::kNothingMore:
    case Wrong::kForeign:
    case Wrong::kElementInText:
    case Wrong::kElementInFixed:
    case Wrong::kRoot:
      return false;
    default:
      return true;
  }
}

std::string Filled(std::string_view text, std::string_view with) {
  std::string filled(text);
  if (const size_t at = filled.find('#'); at != std::string::npos) filled.replace(at, 1, with);
  return filled;
}

// What a sentence begins with: the record, and the element in it.
std::string SubjectOf(const Violation& violation, std::string_view path, Language language) {
  if (!violation.kind) return std::string(path);
  const RecordRow& row = kRecordRows[static_cast<size_t>(*violation.kind)];
  const std::string key = violation.key.empty() ? std::string(kNoKey.In(language)) : Abridged(violation.key);
  std::string subject = Filled(row.text.In(language), key);
  if (!path.empty()) subject.append(": ").append(path);
  return subject;
}

std::string WordedIn(const Violation& violation, Language language) {
  if (violation.path.empty() && !violation.kind) {
    return violation.value.substr(0, violation.value.find_last_not_of('.') + 1);
  }
  const Wrong wrong = WrongOf(violation);
  std::string_view path = violation.path;
  // What lacks is told of the element that lacks it.
  if (wrong == Wrong::kMissing) {
    const size_t slash = path.rfind('/');
    path = slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
  }
  std::string sentence = SubjectOf(violation, path, language);
  if (HasValue(wrong)) sentence.append(", \"").append(Abridged(violation.value)).append("\",");
  const Phrase& text = kWrongRows[static_cast<size_t>(wrong)].text;
  return sentence.append(" ").append(Filled(text.In(language), AllowedIn(violation, wrong, language)));
}

}  // namespace

std::string Describe(const Violation& violation, Language language) {
  std::string sentence = WordedIn(violation, language);
  if (violation.place.line > 0) {
    sentence.append(kLine.In(language)).append(std::to_string(violation.place.line));
    sentence.append(kColumn.In(language)).append(std::to_string(violation.place.column)).append(")");
  }
  return sentence += '.';
}

}  // namespace zevo
