// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Violation.h>

#include <zevo/Digit.h>
#include <zevo/model/Decimal.h>
#include <zevo/model/SentenceName.h>
#include <zevo/model/internal/Phrase.h>
#include <zevo/model/internal/ToldViolation.h>
#include <zevo/platform/Text.h>

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
  kTypeWithBlanks,
  kTooManyDigits,
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
  kPatternInWords,
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

// What follows on the element. "{1}" stands for what is allowed.
struct WrongRow {
  Wrong wrong;
  Phrase text;
};
constexpr auto kWrongRows = std::to_array<WrongRow>({
    {Wrong::kMissing, {"não tem {1}, que é obrigatório", "has no {1}, which is required"}},
    {Wrong::kRepeated, {"só pode aparecer uma vez", "may appear only once"}},
    {Wrong::kMisplaced,
     {"não pode estar neste sítio, onde só pode estar {1}", "may not stand here, where only {1} may"}},
    {Wrong::kNothingMore, {"não pode estar neste sítio", "may not stand here"}},
    {Wrong::kForeign, {"está noutro espaço de nomes, o que não pode ser", "is in another namespace, which may not be"}},
    {Wrong::kDuplicate, {"já identifica outro registo", "already identifies another record"}},
    {Wrong::kDangling, {"não identifica nenhum {1} do ficheiro", "identifies no {1} of the file"}},
    {Wrong::kType, {"tem de ser {1}", "must be {1}"}},
    {Wrong::kTypeWithBlanks, {"tem de ser {1}, sem espaços à volta", "must be {1}, without blanks around it"}},
    {Wrong::kTooManyDigits,
     {"tem mais do que os 24 algarismos que um número pode ter", "has more than the 24 digits that a number may have"}},
    {Wrong::kLength, {"tem de ter exatamente {1}", "must have exactly {1}"}},
    {Wrong::kMinLength, {"tem de ter pelo menos {1}", "must have at least {1}"}},
    {Wrong::kMaxLength, {"não pode ter mais de {1}", "must not have more than {1}"}},
    {Wrong::kMinInclusive, {"não pode ser menor do que {1}", "must not be less than {1}"}},
    {Wrong::kMaxInclusive, {"não pode ser maior do que {1}", "must not be greater than {1}"}},
    {Wrong::kMinExclusive, {"tem de ser maior do que {1}", "must be greater than {1}"}},
    {Wrong::kMaxExclusive, {"tem de ser menor do que {1}", "must be less than {1}"}},
    {Wrong::kTotalDigits, {"não pode ter mais de {1} ao todo", "must not have more than {1} in all"}},
    {Wrong::kFractionDigits,
     {"não pode ter mais de {1} depois do ponto", "must not have more than {1} behind the point"}},
    {Wrong::kPattern, {"não tem a forma certa, que é {1}", "does not have the right form, which is {1}"}},
    {Wrong::kPatternInWords, {"tem de ser {1}", "must be {1}"}},
    {Wrong::kEnumeration, {"tem de ser um de: {1}", "must be one of: {1}"}},
    {Wrong::kFixed, {"tem de ser \"{1}\"", "must be \"{1}\""}},
    {Wrong::kAttribute, {"é um atributo que não pode existir", "is an attribute that may not be there"}},
    {Wrong::kText,
     {"tem texto entre os seus elementos, o que não pode ser", "has text between its elements, which may not be"}},
    {Wrong::kEmpty, {"tem de estar vazio", "must be empty"}},
    {Wrong::kElementInText,
     {"está dentro de um valor, que só pode ter texto", "is inside a value, which may have text only"}},
    {Wrong::kElementInFixed,
     {"está dentro de um valor, que tem de ser \"{1}\"", "is inside a value, which must be \"{1}\""}},
    {Wrong::kRoot,
     {"não é o começo de um ficheiro deste esquema, que é do espaço de nomes {1}",
      "does not begin a file of this schema, whose namespace is {1}"}},
    {Wrong::kOther, {"não está de acordo com o esquema", "does not agree with the schema"}},
});

consteval bool SentencesInOrderOfValues() {
  for (size_t i = 0; i < kWrongRows.size(); ++i) {
    if (static_cast<size_t>(kWrongRows[i].wrong) != i) return false;
  }
  return kWrongRows.size() == static_cast<size_t>(Wrong::kOther) + 1;
}
static_assert(SentencesInOrderOfValues());

const Phrase& PhraseOf(Wrong wrong) { return kWrongRows[static_cast<size_t>(wrong)].text; }

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

// Patterns that are lists of codes, or that an example tells better, by how they begin and end.
struct PatternRow {
  std::string_view front;
  std::string_view back;
  Phrase text;
};
constexpr auto kPatternRows = std::to_array<PatternRow>({
    {"A[DEFGILMNOQRSTUWXZ]|",
     "|PT-(AC|MA)",
     {"o código de um país, de duas letras (ISO 3166), PT-AC ou PT-MA",
      "the code of a country, of two letters (ISO 3166), PT-AC or PT-MA"}},
    {"A[DEFGILMNOQRSTUWXZ]|",
     "|Desconhecido|",
     {"o código de um país, de duas letras (ISO 3166), ou Desconhecido",
      "the code of a country, of two letters (ISO 3166), or Desconhecido"}},
    {"A[DEFGILMNOQRSTUWXZ]|",
     "|",
     {"o código de um país, de duas letras (ISO 3166)", "the code of a country, of two letters (ISO 3166)"}},
    {"A(ED|FN|",
     "|",
     {"o código de uma moeda, de três letras (ISO 4217)", "the code of a currency, of three letters (ISO 4217)"}},
    {"RED|INT|NOR|ISE|OUT|([0-9.])*",
     "",
     {"RED, INT, NOR, ISE, OUT ou o número de uma verba, como 17.3.1",
      "RED, INT, NOR, ISE, OUT or the number of an item, such as 17.3.1"}},
    {"(([1-8][0-9a-zA-Z]*)",
     "|Desconhecido)",
     {"um número de conta, que começa por um algarismo de 1 a 8, ou Desconhecido",
      "the number of an account, which begins with a digit from 1 to 8, or Desconhecido"}},
    {"(([1-8][0-9a-zA-Z]*))",
     "",
     {"um número de conta, que começa por um algarismo de 1 a 8",
      "the number of an account, which begins with a digit from 1 to 8"}},
    {"([0-9]{4}-[0-9]{3})", "", {"um código postal, como 1000-001", "a postal code, such as 1000-001"}},
    {"([a-zA-Z0-9./_-])+ ([a-zA-Z0-9]*/[0-9]+)",
     "",
     {"o tipo, um espaço, a série, uma barra e o número, como FT A/12",
      "the type, a blank, the series, a slash and the number, such as FT A/12"}},
    {R"([1-9][0-9]{3}-[01][0-9]-[0-3][0-9] \w{1,30} \w{1,20})",
     "",
     {"a data, o diário e o número do movimento, separados por um espaço, como 2008-03-05 VENDAS 1",
      "the date, journal and number of the transaction with a blank between them, such as 2008-03-05 VENDAS 1"}},
    {R"(([0-9])+|([a-zA-Z0-9\-/]+ [0-9]+))",
     "",
     {"algarismos, ou a conservatória, um espaço e algarismos, como Lisboa 12345",
      "digits, or the registry, a blank and digits, such as Lisboa 12345"}},
    {R"(\w+(\s\w+)*/\w+(\s\w+)*)",
     "",
     {"o programa, uma barra e quem o produz, como Contas/Exemplo",
      "the program, a slash and its maker, such as Contas/Exemplo"}},
});

// The most digits of a number that libxml2 takes, zeros in front not counted.
constexpr size_t kMostDigits = 24;

constexpr Phrase kFile{"O ficheiro", "The file"};
constexpr Phrase kOr{" ou ", " or "};
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

// Null for a pattern that is told as it is.
const Phrase* WordsOfPattern(std::string_view pattern) {
  const auto row = std::ranges::find_if(kPatternRows, [&](const PatternRow& known) {
    return pattern.starts_with(known.front) && pattern.ends_with(known.back) &&
           (!known.back.empty() || pattern.size() == known.front.size());
  });
  return row == kPatternRows.end() ? nullptr : &row->text;
}

// How a text is none of a type, which is told of the commonest.
Wrong WrongOfType(const Violation& violation) {
  const std::string_view type = violation.allowed;
  if (type == "date" || type == "dateTime" || type == "time") {
    return TrimWhiteSpace(violation.value) == violation.value ? Wrong::kType : Wrong::kTypeWithBlanks;
  }
  const bool whole = type == "integer" && violation.value.find('.') == std::string::npos;
  if ((!whole && type != "decimal") || !Decimal::FromText(violation.value)) return Wrong::kType;
  const std::string_view number = violation.value;
  const size_t first = std::min(number.find_first_of("123456789"), number.size());
  const auto digits = std::ranges::count_if(number.substr(first), IsDigit);
  return static_cast<size_t>(digits) > kMostDigits ? Wrong::kTooManyDigits : Wrong::kType;
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
  if (row == kNumberRows.end()) return Wrong::kOther;
  if (row->wrong == Wrong::kType) return WrongOfType(violation);
  const bool in_words = row->wrong == Wrong::kPattern && WordsOfPattern(violation.allowed) != nullptr;
  return in_words ? Wrong::kPatternInWords : row->wrong;
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
    case Wrong::kPatternInWords:
      return std::string(WordsOfPattern(violation.allowed)->In(language));
    case Wrong::kType:
    case Wrong::kTypeWithBlanks: {
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
      return AbridgedText(violation.allowed);
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

// What a sentence begins with: the record, and the element in it.
std::string SubjectOf(const Violation& violation, std::string_view path, Language language) {
  if (!violation.kind) return std::string(path);
  std::string subject = SentenceName(*violation.kind, violation.key, language);
  if (!path.empty()) subject.append(": ").append(path);
  return subject;
}

std::string WordedIn(const Violation& violation, Wrong wrong, Language language) {
  std::string_view path = violation.path;
  // What lacks is told of the element that lacks it.
  if (wrong == Wrong::kMissing) {
    const size_t slash = path.rfind('/');
    path = slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
  }
  std::string sentence = SubjectOf(violation, path, language);
  if (HasValue(wrong)) sentence.append(", \"").append(AbridgedText(violation.value)).append("\",");
  const Phrase& text = PhraseOf(wrong);
  return sentence.append(" ").append(Filled(text.In(language), std::array{AllowedIn(violation, wrong, language)}));
}

// What libxml2 told itself: in the same words where it is understood.
std::string WordedAsTold(const Violation& violation, Language language) {
  const auto [read, understood] = ReadTold(violation);
  if (understood) {
    const Wrong wrong = WrongOf(read);
    const bool complete = !read.allowed.empty() || PhraseOf(wrong).english.find("{1}") == std::string_view::npos;
    return WordedIn(read, complete ? wrong : Wrong::kOther, language);
  }
  if (language == Language::kEnglish) return violation.value.substr(0, violation.value.find_last_not_of('.') + 1);
  const std::string subject = read.path.empty() ? std::string(kFile.In(language)) : read.path;
  return subject + " " + std::string(PhraseOf(Wrong::kOther).In(language));
}

}  // namespace

std::string Describe(const Violation& violation, Language language) {
  const bool told = violation.path.empty() && !violation.kind;
  return WithPlace(told ? WordedAsTold(violation, language) : WordedIn(violation, WrongOf(violation), language),
                   violation.place, language);
}

}  // namespace zevo
