// SPDX-License-Identifier: Apache-2.0
#include <zevo/Error.h>

#include <utility>

namespace zevo {
namespace {

// Without a default, so that the compiler names what has no text.

std::string_view TextOf(Message message) {
  switch (message) {
    case Message::kNoFileName:
      return "Não foi indicado o nome do ficheiro SAFT-PT.";
    case Message::kFileNotFound:
      return "Ficheiro SAFT-PT não encontrado.";
    case Message::kFileExists:
      return "Ficheiro SAFT-PT já existente.";
    case Message::kAlreadyStarted:
      return "O processo de exportação já foi iniciado.";
    case Message::kNotStarted:
      return "O processo de exportação ainda não foi iniciado.";
    case Message::kHeaderExists:
      return "Já existe um Header associado ao ficheiro.";
    case Message::kHeaderMissing:
      return "Ainda não existe um Header associado ao ficheiro.";
    case Message::kEntriesMissingText:
      return "Ainda não existe um GeneralLedgerEntries associado ao ficheiro.";
    case Message::kEntriesExistText:
      return "Já existe um GeneralLedgerEntries associado ao ficheiro.";
    case Message::kJournalMissing:
      return "Ainda não existe o Journal associado à Transaction.";
    case Message::kSalesInvoicesMissing:
      return "Ainda não existe um SalesInvoices associado ao ficheiro.";
    case Message::kSalesInvoicesExist:
      return "Já existe um SalesInvoices associado ao ficheiro.";
    case Message::kEntityNotXml:
      return "O conteúdo da entidade não é XML válido.";
    case Message::kReadingAborted:
      return "Leitura do ficheiro abortada pelo utilizador.";
    case Message::kOtherVersion:
    case Message::kNoAuditFile:
    case Message::kRuleFailed:
      return {};  // the error itself says it
  }
  return {};
}

std::string_view TextOf(RunTimeError number) {
  switch (number) {
    case RunTimeError::kInvalidCall:
      return "Chamada ou argumento inválido";
    case RunTimeError::kOverflow:
      return "Capacidade excedida";
    case RunTimeError::kOutOfMemory:
      return "Memória insuficiente";
    case RunTimeError::kSubscriptOutOfRange:
      return "Índice fora dos limites";
    case RunTimeError::kDivisionByZero:
      return "Divisão por zero";
    case RunTimeError::kTypeMismatch:
      return "Tipos incompatíveis";
    case RunTimeError::kBadFileName:
      return "Nome ou número de ficheiro incorreto";
    case RunTimeError::kFileNotFound:
      return "Ficheiro não encontrado";
    case RunTimeError::kDeviceIO:
      return "Erro de leitura ou escrita no dispositivo";
    case RunTimeError::kDiskFull:
      return "Disco cheio";
    case RunTimeError::kPermissionDenied:
      return "Permissão negada";
    case RunTimeError::kPathFileAccess:
      return "Erro de acesso ao caminho ou ficheiro";
    case RunTimeError::kPathNotFound:
      return "Caminho não encontrado";
    case RunTimeError::kObjectNotSet:
      return "Variável de objeto não definida";
    case RunTimeError::kDuplicateKey:
      return "Esta chave já está associada a um elemento da coleção";
  }
  return {};
}

}  // namespace

Error::Error(int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {
  const std::string_view text = description_.empty() ? MessageText(number_) : description_;
  what_.append(source_).append(": ").append(text).append(" [").append(std::to_string(number_)).append("]");
}

Error::~Error() = default;

Error LibraryError(Message message, std::string_view source) {
  return Error(kErrorBase + static_cast<int32_t>(message), std::string(source));
}

Error MakeRunTimeError(RunTimeError number, std::string_view detail) {
  std::string description(TextOf(number));
  if (!detail.empty()) description.append(" (").append(detail).append(")");
  description.append(".");
  return Error(static_cast<int32_t>(number), std::string(kRunTimeSource), std::move(description));
}

std::string_view MessageText(int32_t errorNumber) {
  // Unsigned, so that a number far from the base wraps around instead of overflowing.
  const uint32_t number = static_cast<uint32_t>(errorNumber) - static_cast<uint32_t>(kErrorBase);
  return TextOf(static_cast<Message>(number));
}

}  // namespace zevo
