// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/ErrorDescription.h>

#include <zevo/Error.h>
#include <zevo/model/Violation.h>
#include <zevo/model/internal/ParserWords.h>
#include <zevo/model/internal/Phrase.h>
#include <zevo/model/internal/SystemReasons.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>
#include <utility>

namespace zevo {
namespace {

constexpr int32_t Number(Message message) { return static_cast<int32_t>(message); }
constexpr int32_t Number(RunTimeError error) { return static_cast<int32_t>(error); }

constexpr Phrase kEntriesExist{"Já existe um GeneralLedgerEntries associado ao ficheiro",
                               "The file has a GeneralLedgerEntries already"};
constexpr Phrase kEntriesMissing{"Ainda não existe um GeneralLedgerEntries associado ao ficheiro",
                                 "The file has no GeneralLedgerEntries yet"};

// What the errors of the section's own operations mean, whose texts say the reverse.
constexpr std::string_view kEntriesOperations = "GeneralLedgerEntriesDALC.";
constexpr auto kEntriesRows = std::to_array<Rewording>({
    {Number(Message::kEntriesMissingText), {}, kEntriesExist},
    {Number(Message::kEntriesExistText), {}, kEntriesMissing},
});

constexpr auto kMessageRows = std::to_array<Rewording>({
    {Number(Message::kNoFileName),
     {},
     {"Não foi indicado o nome do ficheiro SAFT-PT", "No name was given for the SAFT-PT file"}},
    {Number(Message::kFileNotFound),
     "Ficheiro SAFT-PT não encontrado: não há permissão para chegar a {1}.",
     {"Não há permissão para chegar ao ficheiro SAFT-PT {1}", "There is no permission to reach the SAFT-PT file {1}"}},
    {Number(Message::kFileNotFound), {}, {"Ficheiro SAFT-PT não encontrado", "There is no such SAFT-PT file"}},
    {Number(Message::kFileExists), {}, {"Ficheiro SAFT-PT já existente", "The SAFT-PT file exists already"}},
    {Number(Message::kAlreadyStarted), {}, {"O processo de exportação já foi iniciado", "The file is open already"}},
    {Number(Message::kNotStarted), {}, {"O processo de exportação ainda não foi iniciado", "No file is open yet"}},
    {Number(Message::kHeaderExists),
     {},
     {"Já existe um Header associado ao ficheiro", "The file has a Header already"}},
    {Number(Message::kHeaderMissing),
     {},
     {"Ainda não existe um Header associado ao ficheiro", "The file has no Header yet"}},
    {Number(Message::kEntriesMissingText), {}, kEntriesMissing},
    {Number(Message::kEntriesExistText), {}, kEntriesExist},
    {Number(Message::kJournalMissing),
     {},
     {"Ainda não existe o Journal associado à Transaction", "There is no Journal yet for the Transaction"}},
    {Number(Message::kSalesInvoicesMissing),
     {},
     {"Ainda não existe um SalesInvoices associado ao ficheiro", "The file has no SalesInvoices yet"}},
    {Number(Message::kSalesInvoicesExist),
     {},
     {"Já existe um SalesInvoices associado ao ficheiro", "The file has a SalesInvoices already"}},
    {Number(Message::kEntityNotXml),
     {},
     {"O conteúdo da entidade não é XML válido", "The content of the record is not valid XML"}},
    {Number(Message::kReadingAborted),
     {},
     {"Leitura do ficheiro abortada pelo utilizador", "The reading of the file was ended by the user"}},
    {Number(Message::kOtherVersion),
     "O ficheiro é da versão {1}; só a versão 1.01_01 é lida",
     {"O ficheiro é da versão {1}; só a versão 1.01_01 é lida",
      "The file is of version {1}; only version 1.01_01 is read"}},
    {Number(Message::kOtherVersion),
     {},
     {"O ficheiro é de outra versão; só a versão 1.01_01 é lida",
      "The file is of another version; only version 1.01_01 is read"}},
    {Number(Message::kRuleFailed),
     "Há um erro deste programa na regra {1}; comunique-o, por favor",
     {"Há um erro deste programa na regra {1}; comunique-o, por favor",
      "There is a fault of this program in the rule {1}; please report it"}},
    {Number(Message::kNoAuditFile), {}, {"O ficheiro não é um ficheiro de auditoria", "The file is not an audit file"}},
});

// What details say that are more than a name or a value.
constexpr auto kDetailRows = std::to_array<Rewording>({
    {Number(RunTimeError::kInvalidCall),
     "{1}: carácter não permitido em XML",
     {"O texto de {1} tem um carácter que o XML não permite",
      "The text of {1} has a character that XML does not allow"}},
    {Number(RunTimeError::kPathFileAccess), "não é um ficheiro: {1}", {"Não é um ficheiro: {1}", "Not a file: {1}"}},
    {Number(RunTimeError::kDeviceIO),
     "o ficheiro mudou enquanto era lido: {1}",
     {"O ficheiro mudou enquanto era lido: {1}", "The file changed while it was being read: {1}"}},
    {Number(RunTimeError::kDeviceIO),
     "sem lugar para uma cópia da entrada padrão",
     {"Não há lugar para uma cópia temporária da entrada padrão, que se lê mais de uma vez",
      "There is no room for a temporary copy of standard input, which is read more than once"}},
    {Number(RunTimeError::kFileNotFound),
     "não foi indicado nenhum esquema",
     {"Não foi indicado nenhum esquema", "No schema was given"}},
});

struct RunTimeRow {
  RunTimeError number;
  std::string_view english;
};
constexpr auto kRunTimeRows = std::to_array<RunTimeRow>({
    {RunTimeError::kInvalidCall, "Invalid call or argument"},
    {RunTimeError::kOverflow, "The number is too large"},
    {RunTimeError::kOutOfMemory, "Not enough memory"},
    {RunTimeError::kSubscriptOutOfRange, "There is no such position"},
    {RunTimeError::kDivisionByZero, "Division by zero"},
    {RunTimeError::kTypeMismatch, "The value is of another type"},
    {RunTimeError::kBadFileName, "The name of the file cannot be used"},
    {RunTimeError::kFileNotFound, "There is no such file"},
    {RunTimeError::kDeviceIO, "The device failed to read or write"},
    {RunTimeError::kDiskFull, "The disk is full"},
    {RunTimeError::kPermissionDenied, "There is no permission"},
    {RunTimeError::kPathFileAccess, "The file or its path cannot be used"},
    {RunTimeError::kPathNotFound, "There is no such folder"},
    {RunTimeError::kObjectNotSet, "No record was given"},
    {RunTimeError::kDuplicateKey, "The collection has an item of this key already"},
});

// The description without its place, which is taken off it.
struct Placed {
  std::string_view reason;
  FilePlace place;
};

bool TakeNumberBehind(std::string_view& text, std::string_view name, int64_t& number) {
  const size_t at = text.rfind(name);
  if (at == std::string_view::npos) return false;
  const char* const begin = text.data() + at + name.size();
  const char* const end = text.data() + text.size();
  if (begin == end || std::from_chars(begin, end, number).ptr != end) return false;
  text = text.substr(0, at);
  return true;
}

Placed PlacedOf(std::string_view description) {
  Placed placed{description, {}};
  if (!description.ends_with(')')) return placed;
  std::string_view text = description.substr(0, description.size() - 1);
  TakeNumberBehind(text, ", coluna ", placed.place.column);
  if (!TakeNumberBehind(text, "(linha ", placed.place.line)) return {description, {}};
  placed.reason = text.substr(0, text.find_last_not_of(' ') + 1);
  return placed;
}

std::string_view WithoutStop(std::string_view sentence) {
  return sentence.ends_with('.') ? sentence.substr(0, sentence.size() - 1) : sentence;
}

// Of a run-time error, told by the text that its description begins with: the parser has numbers of its own, and some
// are the same.
std::string RunTimeSentence(const AuditException& error, Language language) {
  const auto row =
      std::ranges::find(kRunTimeRows, error.Number(), [](const RunTimeRow& each) { return Number(each.number); });
  if (row == kRunTimeRows.end()) return {};
  const std::string whole = MakeRunTimeError(row->number).Description();
  const std::string_view own = WithoutStop(whole);
  std::string_view detail = error.Description();
  if (!detail.starts_with(own)) return {};
  detail = WithoutStop(detail.substr(own.size()));
  std::string sentence(language == Language::kPortuguese ? own : row->english);
  if (!detail.starts_with(" (") || !detail.ends_with(')')) return sentence + ".";
  detail = detail.substr(2, detail.size() - 3);
  std::string known = Reworded(kDetailRows, error.Number(), detail, false, language);
  if (known.empty()) known = SystemReason(detail, row->number == RunTimeError::kPathNotFound, language);
  if (!known.empty()) return known + ".";
  return sentence.append(" (").append(detail).append(").");
}

std::string MessageSentence(const AuditException& error, Language language) {
  const auto number = static_cast<int32_t>(static_cast<uint32_t>(error.Number()) - static_cast<uint32_t>(kErrorBase));
  std::string sentence;
  if (error.Source().starts_with(kEntriesOperations)) {
    sentence = Reworded(kEntriesRows, number, error.Description(), true, language);
  }
  if (sentence.empty()) sentence = Reworded(kMessageRows, number, error.Description(), true, language);
  return sentence.empty() ? error.Description() : sentence + ".";
}

}  // namespace

std::string Describe(const AuditException& error, Language language) {
  if (error.Number() < 0) return MessageSentence(error, language);
  if (std::string sentence = RunTimeSentence(error, language); !sentence.empty()) return sentence;
  const auto [reason, place] = PlacedOf(error.Description());
  if (IsViolation(error.Number()) && place.line > 0) {
    Violation violation;
    violation.number = error.Number();
    violation.place = place;
    violation.value = reason;
    return Describe(violation, language);
  }
  std::string sentence = ParserSentence(error.Number(), reason, place.line > 0, language);
  return sentence.empty() ? error.Description() : WithPlace(std::move(sentence), place, language);
}

std::string DescribeSystemError(int error, Language language, bool creating) {
  return SystemReason(error, creating, language);
}

}  // namespace zevo
