// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Violation.h>

#include <gtest/gtest.h>
#include <libxml/xmlerror.h>

#include <set>
#include <string>
#include <vector>

namespace zevo {
namespace {

struct Case {
  Violation violation;
  std::string portuguese;
  std::string english;
};

Violation OfInvoice(int32_t number, std::string path, std::string value, std::string allowed) {
  return {number, EntityKind::kInvoice, "FT A/12", std::move(path), {7, 9, 200}, std::move(value), std::move(allowed)};
}

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases{
      {OfInvoice(XML_SCHEMAV_ELEMENT_CONTENT, "Hash", "", "Hash"), "não tem Hash, que é obrigatório",
       "has no Hash, which is required"},
      {OfInvoice(XML_SCHEMAV_ELEMENT_CONTENT, "Line[2]/DebitAmount", "", "DebitAmount, CreditAmount"),
       ": Line[2] não tem DebitAmount ou CreditAmount, que é obrigatório",
       ": Line[2] has no DebitAmount or CreditAmount, which is required"},
      {OfInvoice(XML_SCHEMAV_ELEMENT_CONTENT, "InvoiceNo[2]", "", "1"), ": InvoiceNo[2] só pode aparecer uma vez",
       ": InvoiceNo[2] may appear only once"},
      {OfInvoice(XML_SCHEMAV_ELEMENT_CONTENT, "Telex", "", "ShipTo, ShipFrom, Line"),
       ": Telex não pode estar neste sítio, onde só pode estar ShipTo, ShipFrom ou Line",
       ": Telex may not stand here, where only ShipTo, ShipFrom or Line may"},
      {OfInvoice(XML_SCHEMAV_ELEMENT_CONTENT, "Telex", "", ""), ": Telex não pode estar neste sítio",
       ": Telex may not stand here"},
      {OfInvoice(XML_SCHEMAV_ELEMENT_CONTENT, "Hash", "xmlns=\"\"", "Hash"),
       ": Hash está noutro espaço de nomes, o que não pode ser", ": Hash is in another namespace, which may not be"},
      {OfInvoice(XML_SCHEMAV_CVC_IDC, "InvoiceNo", "FT A/12", ""),
       ": InvoiceNo, \"FT A/12\", já identifica outro registo",
       ": InvoiceNo, \"FT A/12\", already identifies another record"},
      {OfInvoice(XML_SCHEMAV_CVC_IDC, "CustomerID", "C9", "Customer"),
       ": CustomerID, \"C9\", não identifica nenhum Customer do ficheiro",
       ": CustomerID, \"C9\", identifies no Customer of the file"},
      {OfInvoice(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "Line[1]/Quantity", "1,5", "decimal"),
       ": Line[1]/Quantity, \"1,5\", tem de ser um número, com ponto antes das decimais",
       ": Line[1]/Quantity, \"1,5\", must be a number, with a point before its decimals"},
      {OfInvoice(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "A", "x", "gYear"),
       ": A, \"x\", tem de ser um valor do tipo gYear", ": A, \"x\", must be a value of the type gYear"},
      {OfInvoice(XML_SCHEMAV_CVC_LENGTH_VALID, "A", "x", "3"), ": A, \"x\", tem de ter exatamente 3 caracteres",
       ": A, \"x\", must have exactly 3 characters"},
      {OfInvoice(XML_SCHEMAV_CVC_MINLENGTH_VALID, "A", "", "1"), ": A, \"\", tem de ter pelo menos 1 carácter",
       ": A, \"\", must have at least 1 character"},
      {OfInvoice(XML_SCHEMAV_CVC_MAXLENGTH_VALID, "A", "xxx", "2"), ": A, \"xxx\", não pode ter mais de 2 caracteres",
       ": A, \"xxx\", must not have more than 2 characters"},
      {OfInvoice(XML_SCHEMAV_CVC_MININCLUSIVE_VALID, "A", "0", "1"), ": A, \"0\", não pode ser menor do que 1",
       ": A, \"0\", must not be less than 1"},
      {OfInvoice(XML_SCHEMAV_CVC_MAXINCLUSIVE_VALID, "A", "9", "1"), ": A, \"9\", não pode ser maior do que 1",
       ": A, \"9\", must not be greater than 1"},
      {OfInvoice(XML_SCHEMAV_CVC_MINEXCLUSIVE_VALID, "A", "0", "0"), ": A, \"0\", tem de ser maior do que 0",
       ": A, \"0\", must be greater than 0"},
      {OfInvoice(XML_SCHEMAV_CVC_MAXEXCLUSIVE_VALID, "A", "9", "9"), ": A, \"9\", tem de ser menor do que 9",
       ": A, \"9\", must be less than 9"},
      {OfInvoice(XML_SCHEMAV_CVC_TOTALDIGITS_VALID, "A", "12", "1"),
       ": A, \"12\", não pode ter mais de 1 algarismo ao todo", ": A, \"12\", must not have more than 1 digit in all"},
      {OfInvoice(XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID, "A", "1.234", "2"),
       ": A, \"1.234\", não pode ter mais de 2 algarismos depois do ponto",
       ": A, \"1.234\", must not have more than 2 digits behind the point"},
      {OfInvoice(XML_SCHEMAV_CVC_PATTERN_VALID, "A", "x", "[0-9]+"), ": A, \"x\", não tem a forma certa, que é [0-9]+",
       ": A, \"x\", does not have the right form, which is [0-9]+"},
      {OfInvoice(XML_SCHEMAV_CVC_PATTERN_VALID, "A", "3500", "([0-9]{4}-[0-9]{3})"),
       ": A, \"3500\", tem de ser um código postal, como 1000-001",
       ": A, \"3500\", must be a postal code, such as 1000-001"},
      {OfInvoice(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "InvoiceDate", " 2008-03-05", "date"),
       ": InvoiceDate, \" 2008-03-05\", tem de ser uma data, como 2008-03-05, sem espaços à volta",
       ": InvoiceDate, \" 2008-03-05\", must be a date, such as 2008-03-05, without blanks around it"},
      {OfInvoice(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "A", "-0.1234567890123456789012345", "decimal"),
       ": A, \"-0.1234567890123456789012345\", tem mais do que os 24 algarismos que um número pode ter",
       ": A, \"-0.1234567890123456789012345\", has more than the 24 digits that a number may have"},
      {OfInvoice(XML_SCHEMAV_CVC_ENUMERATION_VALID, "InvoiceStatus", "X", "N, S, A, F"),
       ": InvoiceStatus, \"X\", tem de ser um de: N, S, A, F", ": InvoiceStatus, \"X\", must be one of: N, S, A, F"},
      {OfInvoice(XML_SCHEMAV_CVC_ELT_5_2_2_2_1, "A", "ES", "PT"), ": A, \"ES\", tem de ser \"PT\"",
       ": A, \"ES\", must be \"PT\""},
      {OfInvoice(XML_SCHEMAV_CVC_ELT_5_2_2_2_2, "B", "ES", "PT"), ": B, \"ES\", tem de ser \"PT\"",
       ": B, \"ES\", must be \"PT\""},
      {OfInvoice(XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1, "@id", "1", ""),
       ": @id, \"1\", é um atributo que não pode existir", ": @id, \"1\", is an attribute that may not be there"},
      {OfInvoice(XML_SCHEMAV_CVC_TYPE_3_1_1, "A/@id", "1", ""), ": A/@id, \"1\", é um atributo que não pode existir",
       ": A/@id, \"1\", is an attribute that may not be there"},
      {OfInvoice(XML_SCHEMAV_CVC_COMPLEX_TYPE_2_3, "", "x", ""),
       ", \"x\", tem texto entre os seus elementos, o que não pode ser",
       ", \"x\", has text between its elements, which may not be"},
      {OfInvoice(XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1, "A", "x", ""), ": A, \"x\", tem de estar vazio",
       ": A, \"x\", must be empty"},
      {OfInvoice(XML_SCHEMAV_CVC_TYPE_3_1_2, "A/b", "", ""), ": A/b está dentro de um valor, que só pode ter texto",
       ": A/b is inside a value, which may have text only"},
      {OfInvoice(XML_SCHEMAV_CVC_ELT_5_2_2_1, "A/b", "", "PT"), ": A/b está dentro de um valor, que tem de ser \"PT\"",
       ": A/b is inside a value, which must be \"PT\""},
      {OfInvoice(1, "A", "x", ""), ": A, \"x\", não está de acordo com o esquema",
       ": A, \"x\", does not agree with the schema"},
  };
  return cases;
}

std::string Sentence(std::string subject, const std::string& rest, const std::string& place) {
  if (rest[0] != ':' && rest[0] != ',') subject += ' ';
  return subject + rest + place;
}

TEST(ViolationTest, EveryKindHasASentenceInBothLanguages) {
  std::set<std::string> portuguese;
  for (const Case& each : Cases()) {
    EXPECT_EQ(Describe(each.violation, Language::kPortuguese),
              Sentence("A fatura FT A/12", each.portuguese, " (linha 7, coluna 9)."));
    EXPECT_EQ(Describe(each.violation, Language::kEnglish),
              Sentence("Invoice FT A/12", each.english, " (line 7, column 9)."));
    portuguese.insert(each.portuguese);
  }
  EXPECT_EQ(portuguese.size(), Cases().size());
}

std::string RestOf(int32_t number, const std::string& value, const std::string& allowed, Language language) {
  const std::string sentence = Describe({number, {}, "", "A", {}, value, allowed}, language);
  return sentence.substr(sentence.find("\", ") + 3);
}

TEST(ViolationTest, PatternsOfTheSchemaAreToldInWords) {
  const std::string two_letters = "A[DEFGILMNOQRSTUWXZ]|B[ABDE]|Z[AMW]";
  const struct {
    std::string pattern;
    std::string portuguese;
    std::string english;
  } cases[] = {
      {two_letters + "|", "o código de um país, de duas letras (ISO 3166)",
       "the code of a country, of two letters (ISO 3166)"},
      {two_letters + "|Desconhecido|", "o código de um país, de duas letras (ISO 3166), ou Desconhecido",
       "the code of a country, of two letters (ISO 3166), or Desconhecido"},
      {two_letters + "|PT-(AC|MA)", "o código de um país, de duas letras (ISO 3166), PT-AC ou PT-MA",
       "the code of a country, of two letters (ISO 3166), PT-AC or PT-MA"},
      {"A(ED|FN|LL)|Z(AR|MK)|", "o código de uma moeda, de três letras (ISO 4217)",
       "the code of a currency, of three letters (ISO 4217)"},
      {"(([1-8][0-9a-zA-Z]*)|Desconhecido)",
       "um número de conta, que começa por um algarismo de 1 a 8, ou Desconhecido",
       "the number of an account, which begins with a digit from 1 to 8, or Desconhecido"},
      {"(([1-8][0-9a-zA-Z]*))", "um número de conta, que começa por um algarismo de 1 a 8",
       "the number of an account, which begins with a digit from 1 to 8"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(RestOf(XML_SCHEMAV_CVC_PATTERN_VALID, "x", each.pattern, Language::kPortuguese),
              "tem de ser " + each.portuguese + ".");
    EXPECT_EQ(RestOf(XML_SCHEMAV_CVC_PATTERN_VALID, "x", each.pattern, Language::kEnglish),
              "must be " + each.english + ".");
  }
  // One that only begins alike is another.
  EXPECT_EQ(RestOf(XML_SCHEMAV_CVC_PATTERN_VALID, "x", "(([1-8][0-9a-zA-Z]*))?", Language::kEnglish),
            "does not have the right form, which is (([1-8][0-9a-zA-Z]*))?.");
}

TEST(ViolationTest, NumbersMayHave24Digits) {
  const auto english = [](const std::string& value, const std::string& type) {
    return RestOf(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, value, type, Language::kEnglish);
  };
  const std::string digits(24, '1');
  const std::string too_many = "has more than the 24 digits that a number may have.";
  EXPECT_EQ(english(digits + "1", "decimal"), too_many);
  EXPECT_EQ(english(" +000" + digits + ".0", "decimal"), too_many);
  EXPECT_EQ(english(digits + "1", "integer"), too_many);
  EXPECT_EQ(english(digits, "decimal"), "must be a number, with a point before its decimals.");
  EXPECT_EQ(english(digits + ",1", "decimal"), "must be a number, with a point before its decimals.");
  EXPECT_EQ(english(digits + ".1", "integer"), "must be a whole number.");
}

TEST(ViolationTest, EveryKindOfRecordIsNamedInBothLanguages) {
  std::set<std::string> sentences;
  for (const EntityKind kind : EntityKinds()) {
    const Violation violation{XML_SCHEMAV_ELEMENT_CONTENT, kind, "K", "A", {}, "", ""};
    for (const Language language : {Language::kPortuguese, Language::kEnglish}) {
      const std::string sentence = Describe(violation, language);
      EXPECT_EQ(sentence.find(" K") != std::string::npos, !KeyOf(kind).empty()) << sentence;
      sentences.insert(sentence);
    }
  }
  EXPECT_EQ(sentences.size(), 2 * kEntityKinds);
}

TEST(ViolationTest, WhatStandsBetweenRecordsIsToldByItsPath) {
  const Violation missing{XML_SCHEMAV_ELEMENT_CONTENT, {}, "", "/AuditFile/MasterFiles", {3, 1, 90}, "", "MasterFiles"};
  EXPECT_EQ(Describe(missing, Language::kPortuguese),
            "/AuditFile não tem MasterFiles, que é obrigatório (linha 3, coluna 1).");
  const Violation root{XML_SCHEMAV_CVC_ELT_1, {}, "", "/Book", {1, 1, 0}, "", "urn:a"};
  EXPECT_EQ(Describe(root, Language::kPortuguese),
            "/Book não é o começo de um ficheiro deste esquema, que é do espaço de nomes urn:a (linha 1, coluna 1).");
  EXPECT_EQ(Describe(root, Language::kEnglish),
            "/Book does not begin a file of this schema, whose namespace is urn:a (line 1, column 1).");
}

TEST(ViolationTest, ARecordWithoutItsKeyIsSaidToHaveNone) {
  const Violation violation{XML_SCHEMAV_ELEMENT_CONTENT, EntityKind::kCustomer, "", "CustomerID", {}, "", "CustomerID"};
  EXPECT_EQ(Describe(violation, Language::kPortuguese),
            "O cliente (sem identificação) não tem CustomerID, que é obrigatório.");
  EXPECT_EQ(Describe(violation, Language::kEnglish),
            "Customer (without identification) has no CustomerID, which is required.");
}

// What libxml2 says itself, and the sentence in both languages.
TEST(ViolationTest, WhatLibxml2SaysIsWorded) {
  struct ToldCase {
    int32_t number;
    std::string said;
    std::string portuguese;
    std::string english;
  };
  const ToldCase cases[] = {
      {1871, "Element '{urn:a}x': This element is not expected.", "x não pode estar neste sítio",
       "x may not stand here"},
      {1871, "Element '{urn:a}x': This element is not expected. Expected is one of ( {urn:a}b, {urn:a}c ).",
       "x não pode estar neste sítio, onde só pode estar b ou c", "x may not stand here, where only b or c may"},
      {1871, "Element '{urn:a}x': Missing child element(s). Expected is ( {urn:a}b ).",
       "x não tem b, que é obrigatório", "x has no b, which is required"},
      {1824, "Element 'x': '1,5' is not a valid value of the atomic type 'xs:decimal'.",
       "x, \"1,5\", tem de ser um número, com ponto antes das decimais",
       "x, \"1,5\", must be a number, with a point before its decimals"},
      {1824, "Element 'x': 'a' is not a valid value of the local atomic type.",
       "x, \"a\", não está de acordo com o esquema", "x, \"a\", does not agree with the schema"},
      {1831,
       "Element 'x': [facet 'minLength'] The value '' has a length of '0'; this underruns the allowed minimum length "
       "of '1'.",
       "x, \"\", tem de ter pelo menos 1 carácter", "x, \"\", must have at least 1 character"},
      {1839, "Element 'x': [facet 'pattern'] The value 'a' is not accepted by the pattern '[0-9]{3}'.",
       "x, \"a\", não tem a forma certa, que é [0-9]{3}", "x, \"a\", does not have the right form, which is [0-9]{3}"},
      {1877, "Element '{urn:a}x': Duplicate key-sequence ['C1'] in unique identity-constraint '{urn:a}k'.",
       "x, \"C1\", já identifica outro registo", "x, \"C1\", already identifies another record"},
      {1874, "Element '{urn:a}x': The element is not 'nillable'.", "x não está de acordo com o esquema",
       "Element '{urn:a}x': The element is not 'nillable'"},
      {1875, "Odd words.", "O ficheiro não está de acordo com o esquema", "Odd words"},
  };
  for (const ToldCase& each : cases) {
    const Violation violation{each.number, {}, "", "", {2, 5, 0}, each.said, ""};
    EXPECT_EQ(Describe(violation, Language::kPortuguese), each.portuguese + " (linha 2, coluna 5).");
    EXPECT_EQ(Describe(violation, Language::kEnglish), each.english + " (line 2, column 5).");
  }
}

TEST(ViolationTest, LongTextsAreAbridgedByCharacters) {
  std::string value;
  for (int i = 0; i < 101; ++i) value += "ã";
  const std::string sentence =
      Describe(OfInvoice(XML_SCHEMAV_CVC_MAXLENGTH_VALID, "A", value, "60"), Language::kEnglish);
  EXPECT_EQ(sentence.find(value), std::string::npos);
  EXPECT_NE(sentence.find("\"" + value.substr(0, 200) + "…\""), std::string::npos);
}

}  // namespace
}  // namespace zevo
