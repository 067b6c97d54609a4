// SPDX-License-Identifier: Apache-2.0
#include <zevo/Error.h>

#include <array>
#include <utility>

namespace zevo {
namespace {

struct MessageRow {
  Message number;
  std::string_view text;
};

constexpr std::array kMessages = {
    MessageRow{Message::kNoFileName, "Não foi indicado o nome do ficheiro SAFT-PT."},
    MessageRow{Message::kFileNotFound, "Ficheiro SAFT-PT não encontrado."},
    MessageRow{Message::kFileExists, "Ficheiro SAFT-PT já existente."},
    MessageRow{Message::kAlreadyStarted, "O processo de exportação já foi iniciado."},
    MessageRow{Message::kNotStarted, "O processo de exportação ainda não foi iniciado."},
    MessageRow{Message::kHeaderExists, "Já existe um Header associado ao ficheiro."},
    MessageRow{Message::kHeaderMissing, "Ainda não existe um Header associado ao ficheiro."},
    MessageRow{Message::kEntriesMissingText, "Ainda não existe um GeneralLedgerEntries associado ao ficheiro."},
    MessageRow{Message::kEntriesExistText, "Já existe um GeneralLedgerEntries associado ao ficheiro."},
    MessageRow{Message::kJournalMissing, "Ainda não existe o Journal associado à Transaction."},
    MessageRow{Message::kSalesInvoicesMissing, "Ainda não existe um SalesInvoices associado ao ficheiro."},
    MessageRow{Message::kSalesInvoicesExist, "Já existe um SalesInvoices associado ao ficheiro."},
    MessageRow{Message::kEntityNotXml, "O conteúdo da entidade não é XML válido."},
    MessageRow{Message::kReadingAborted, "Leitura do ficheiro abortada pelo utilizador."},
};

struct RunTimeRow {
  RunTimeError number;
  std::string_view text;
};

constexpr std::array kRunTimeTexts = {
    RunTimeRow{RunTimeError::kInvalidCall, "Chamada ou argumento inválido"},
    RunTimeRow{RunTimeError::kOverflow, "Capacidade excedida"},
    RunTimeRow{RunTimeError::kOutOfMemory, "Memória insuficiente"},
    RunTimeRow{RunTimeError::kSubscriptOutOfRange, "Índice fora dos limites"},
    RunTimeRow{RunTimeError::kDivisionByZero, "Divisão por zero"},
    RunTimeRow{RunTimeError::kTypeMismatch, "Tipos incompatíveis"},
    RunTimeRow{RunTimeError::kBadFileName, "Nome ou número de ficheiro incorreto"},
    RunTimeRow{RunTimeError::kFileNotFound, "Ficheiro não encontrado"},
    RunTimeRow{RunTimeError::kDeviceIO, "Erro de leitura ou escrita no dispositivo"},
    RunTimeRow{RunTimeError::kDiskFull, "Disco cheio"},
    RunTimeRow{RunTimeError::kPermissionDenied, "Permissão negada"},
    RunTimeRow{RunTimeError::kPathFileAccess, "Erro de acesso ao caminho ou ficheiro"},
    RunTimeRow{RunTimeError::kPathNotFound, "Caminho não encontrado"},
    RunTimeRow{RunTimeError::kObjectNotSet, "Variável de objeto não definida"},
    RunTimeRow{RunTimeError::kDuplicateKey, "Esta chave já está associada a um elemento da coleção"},
};

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
  std::string description;
  for (const RunTimeRow& row : kRunTimeTexts) {
    if (row.number == number) description = row.text;
  }
  if (!detail.empty()) description.append(" (").append(detail).append(")");
  description.append(".");
  return Error(static_cast<int32_t>(number), std::string(kRunTimeSource), std::move(description));
}

std::string_view MessageText(int32_t errorNumber) {
  // Unsigned, so that a number far from the base wraps around instead of overflowing.
  const uint32_t key = static_cast<uint32_t>(errorNumber) - static_cast<uint32_t>(kErrorBase);
  for (const MessageRow& row : kMessages) {
    if (static_cast<uint32_t>(row.number) == key) return row.text;
  }
  return {};
}

}  // namespace zevo
