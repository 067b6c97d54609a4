// SPDX-License-Identifier: Apache-2.0
#include <zevo/Digit.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/platform/LetterCase.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

// The tax numbers and addresses of the company, its customers and its suppliers.

namespace zevo {
namespace {

constexpr std::string_view kFinalConsumerNumber = "999999990";
constexpr std::string_view kFinalConsumerName = "Consumidor final";
constexpr std::string_view kUnknown = "Desconhecido";

bool HasDigits(std::string_view text, size_t count) {
  return text.size() == count && std::ranges::all_of(text, IsDigit);
}

// The digit that nine digits must end in: weights 9 to 2 over the first eight, modulo 11.
char CheckDigitOf(std::string_view number) {
  int sum = 0;
  for (int i = 0; i < 8; ++i) sum += (9 - i) * (number[static_cast<size_t>(i)] - '0');
  const int rest = sum % 11;
  return static_cast<char>('0' + (rest < 2 ? 0 : 11 - rest));
}

bool IsTaxNumber(std::string_view text) { return HasDigits(text, 9) && text.back() == CheckDigitOf(text); }

bool HasKnownPrefix(std::string_view number) {
  constexpr std::array<std::string_view, 18> kPrefixes{"1",  "2",  "3",  "5",  "6",  "8",  "45", "70", "71",
                                                       "72", "74", "75", "77", "78", "79", "90", "91", "98"};
  return number.starts_with("99") ||
         std::ranges::any_of(kPrefixes, [&](std::string_view prefix) { return number.starts_with(prefix); });
}

bool IsPortuguese(const PartyFacts& party) { return party.billing.country.Read() && *party.billing.country == "PT"; }

// The code of a country in front of a tax number: that of the address, PT in any case; empty without.
std::string_view CountryInFront(const PartyFacts& party) {
  const std::string_view number = *party.tax_id;
  if (number.starts_with("PT")) return "PT";
  if (!party.billing.country.Read()) return {};
  const std::string_view country = *party.billing.country;
  if (country == "GR" && number.starts_with("EL")) return "EL";
  // Swiss numbers begin with CHE, which is part of them.
  if (country == "CH" && number.starts_with("CHE")) return {};
  return country.size() == 2 && number.starts_with(country) ? country : std::string_view();
}

// NIF-CHECK

constexpr RuleSentence kNoTaxNumber{
    Severity::kError,
    {"o número de contribuinte {found} não tem nove algarismos", "the tax number {found} does not have nine digits"}};
constexpr RuleSentence kWrongCheckDigit{
    Severity::kError,
    {"o número de contribuinte {found} não é válido: pelo algarismo de controlo, o último, seria {expected}",
     "the tax number {found} is not valid: by its check digit, the last one, it would be {expected}"}};
constexpr RuleSentence kEmptyTaxNumber{Severity::kWarning,
                                       {"o número de contribuinte está vazio", "the tax number is empty"}};

void JudgeTaxNumber(const EntityFacts& facts, const TextFact& number, Severity at_most, Judgement& judgement) {
  const std::string_view digits = TrimWhiteSpace(*number);
  if (!HasDigits(digits, 9)) {
    judgement.Tell(kNoTaxNumber, facts, number, {.at_most = at_most});
  } else if (!IsTaxNumber(digits)) {
    judgement.Tell(kWrongCheckDigit, facts, number,
                   {.expected = std::string(digits.substr(0, 8)) + CheckDigitOf(digits), .at_most = at_most});
  }
}

void JudgeTaxNumberOfCompany(const HeaderFacts& header, Judgement& judgement) {
  const TextFact& number = header.tax_registration_number;
  if (!number.Missing()) JudgeTaxNumber(header, number, Severity::kError, judgement);
}

void JudgeTaxNumberOfParty(const PartyFacts& party, Judgement& judgement) {
  if (party.tax_id.Missing()) return;
  if (IsWhiteSpace(*party.tax_id)) {
    judgement.Tell(kEmptyTaxNumber, party, party.tax_id);
  } else if (IsPortuguese(party) && CountryInFront(party).empty()) {
    JudgeTaxNumber(party, party.tax_id, Severity::kWarning, judgement);
  }
}

// NIF-PREFIX

constexpr RuleSentence kUnknownPrefix{Severity::kWarning,
                                      {"o número de contribuinte {found} não começa como nenhum dos que são atribuídos",
                                       "the tax number {found} does not begin as any of those that are given out"}};

void JudgePrefixOfCompany(const HeaderFacts& header, Judgement& judgement) {
  const TextFact& number = header.tax_registration_number;
  if (number.Missing()) return;
  const std::string_view digits = TrimWhiteSpace(*number);
  if (IsTaxNumber(digits) && !HasKnownPrefix(digits)) judgement.Tell(kUnknownPrefix, header, number);
}

void JudgePrefixOfParty(const PartyFacts& party, Judgement& judgement) {
  if (party.tax_id.Missing() || !IsPortuguese(party)) return;
  const std::string_view digits = TrimWhiteSpace(*party.tax_id);
  if (IsTaxNumber(digits) && !HasKnownPrefix(digits)) judgement.Tell(kUnknownPrefix, party, party.tax_id);
}

// NIF-COUNTRY

constexpr RuleSentence kCountryInFront{
    Severity::kWarning,
    {"o número de contribuinte {found} tem o código do país à frente; devia ser {expected}",
     "the tax number {found} has the code of the country in front; it should be {expected}"}};

void JudgeCountryInFront(const PartyFacts& party, Judgement& judgement) {
  if (party.tax_id.Missing()) return;
  const std::string_view country = CountryInFront(party);
  if (country.empty()) return;
  judgement.Tell(kCountryInFront, party, party.tax_id,
                 {.expected = std::string(TrimWhiteSpace(party.tax_id->substr(country.size())))});
}

// CUS-FINAL

constexpr RuleSentence kFinalConsumerOtherNumber{
    Severity::kWarning,
    {"o consumidor final tem o número de contribuinte {found}, e devia ter {expected}",
     "the final consumer has the tax number {found} and should have {expected}"}};
constexpr RuleSentence kFinalConsumerOtherName{
    Severity::kInformation,
    {"o número do consumidor final é o de \"{found}\", e devia ser o de \"{expected}\"",
     R"(the number of the final consumer is that of "{found}" and should be that of "{expected}")"}};

void JudgeFinalConsumer(const PartyFacts& party, Judgement& judgement) {
  if (party.Kind() != EntityKind::kCustomer || party.tax_id.Missing() || party.name.Missing()) return;
  const bool name = EqualIgnoringCase(TrimWhiteSpace(*party.name), kFinalConsumerName);
  const bool number = TrimWhiteSpace(*party.tax_id) == kFinalConsumerNumber;
  if (name && !number) {
    judgement.Tell(kFinalConsumerOtherNumber, party, party.tax_id, {.expected = std::string(kFinalConsumerNumber)});
  }
  if (number && !name) {
    judgement.Tell(kFinalConsumerOtherName, party, party.name, {.expected = std::string(kFinalConsumerName)});
  }
}

// ADR-POSTCODE

constexpr RuleSentence kNoPostalCode{
    Severity::kWarning,
    {"o código postal \"{found}\" não tem a forma 1234-567, nem é \"{expected}\"",
     R"(the postal code "{found}" does not have the form 1234-567, nor is it "{expected}")"}};

void JudgePostalCode(const EntityFacts& facts, const AddressFacts& address, Judgement& judgement) {
  if (!address.country.Read() || *address.country != "PT" || address.postal_code.Missing()) return;
  const std::string_view code = *address.postal_code;
  if (code == kUnknown) return;
  if (code.size() == 8 && HasDigits(code.substr(0, 4), 4) && code[4] == '-' && HasDigits(code.substr(5), 3)) return;
  judgement.Tell(kNoPostalCode, facts, address.postal_code, {.expected = std::string(kUnknown)});
}

void JudgeAddresses(const PartyFacts& party, Judgement& judgement) {
  JudgePostalCode(party, party.billing, judgement);
  JudgePostalCode(party, party.shipping, judgement);
}

void JudgeShippingAddresses(const InvoiceFacts& invoice, Judgement& judgement) {
  JudgePostalCode(invoice, invoice.ship_to.address, judgement);
  JudgePostalCode(invoice, invoice.ship_from.address, judgement);
}

constexpr Rule kPartyRules[] = {
    {.info = {"NIF-CHECK",
              Severity::kError,
              {"Número de contribuinte", "Tax number"},
              {"O número de contribuinte da empresa tem nove algarismos, e o último é o de controlo: pesos 9 a 2 sobre "
               "os oito primeiros, resto r da soma por 11; 0 se r é menor do que 2, senão 11 − r. Só aviso: também o "
               "dos clientes e fornecedores com morada em Portugal; o dos outros não está vazio.",
               "The tax number of the company has nine digits, the last of which is the check digit: weights 9 to 2 "
               "over the first eight, r the sum modulo 11; 0 when r is less than 2, else 11 − r. A warning only: so "
               "has that of customers and suppliers with an address in Portugal; that of the others is not empty."},
              ""},
     .header = JudgeTaxNumberOfCompany,
     .party = JudgeTaxNumberOfParty},
    {.info = {"NIF-PREFIX",
              Severity::kWarning,
              {"Início do número de contribuinte", "Beginning of the tax number"},
              {"O número de contribuinte português começa por 1, 2, 3, 5, 6, 8, 45, 70, 71, 72, 74, 75, 77, 78, 79, "
               "90, 91, 98 ou 99.",
               "A Portuguese tax number begins with 1, 2, 3, 5, 6, 8, 45, 70, 71, 72, 74, 75, 77, 78, 79, 90, 91, 98 "
               "or 99."},
              ""},
     .header = JudgePrefixOfCompany,
     .party = JudgePrefixOfParty},
    {.info = {"NIF-COUNTRY",
              Severity::kWarning,
              {"País à frente do número de contribuinte", "Country in front of the tax number"},
              {"O número de contribuinte não começa pelo código do país da morada (na Grécia também não por EL), nem "
               "por PT. Um número assim não é verificado por NIF-CHECK nem NIF-PREFIX.",
               "The tax number does not begin with the code of its address's country (in Greece not with EL either), "
               "nor with PT. Such a number is judged neither by NIF-CHECK nor by NIF-PREFIX."},
              "Portaria 1192/2009"},
     .party = JudgeCountryInFront},
    {.info = {"CUS-FINAL",
              Severity::kWarning,
              {"Consumidor final", "Final consumer"},
              {"O cliente \"Consumidor final\" tem o número de contribuinte 999999990. Só informação: nenhum cliente "
               "de outro nome o tem.",
               "The customer \"Consumidor final\" has the tax number 999999990. Information only: no customer of "
               "another name has it."},
              "Portaria 1192/2009"},
     .party = JudgeFinalConsumer},
    {.info = {"ADR-POSTCODE",
              Severity::kWarning,
              {"Código postal", "Postal code"},
              {"O código postal de uma morada em Portugal tem a forma 1234-567, ou é \"Desconhecido\". O da empresa é "
               "verificado pelo esquema.",
               "The postal code of an address in Portugal has the form 1234-567 or is \"Desconhecido\". The schema "
               "looks at the company's."},
              "Portaria 1192/2009"},
     .party = JudgeAddresses,
     .invoice = JudgeShippingAddresses},
};

}  // namespace

std::span<const Rule> PartyRules() { return kPartyRules; }

}  // namespace zevo
