// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/SystemReasons.h>

#include <zevo/model/internal/Phrase.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace zevo {
namespace {

struct ReasonRow {
  int error;
  Phrase text;
};
constexpr auto kReasonRows = std::to_array<ReasonRow>({
    {ENOENT, {"O ficheiro não existe", "There is no such file"}},
    {EACCES, {"Não há permissão", "There is no permission"}},
    {EPERM, {"O sistema não permite a operação", "The system does not permit the operation"}},
    {EROFS, {"O disco só permite leitura", "The disk can only be read"}},
    {ENOSPC, {"O disco está cheio", "The disk is full"}},
    {EFBIG, {"O ficheiro fica grande de mais", "The file becomes too large"}},
    {EIO, {"O disco falhou", "The disk failed"}},
    {EISDIR, {"É uma pasta", "It is a folder"}},
    {ENOTDIR, {"Uma parte do caminho não é uma pasta", "A part of the path is not a folder"}},
    {ELOOP, {"As ligações andam em círculo", "The links go round in a circle"}},
    {ENAMETOOLONG, {"O nome é longo de mais", "The name is too long"}},
    {EMFILE, {"O programa tem ficheiros abertos de mais", "The program has too many open files"}},
    {ENFILE, {"O sistema tem ficheiros abertos de mais", "The system has too many open files"}},
    {EEXIST, {"O ficheiro já existe", "The file exists already"}},
    {ETXTBSY, {"O ficheiro é um programa que está a correr", "The file is a program that is running"}},
    {EBUSY, {"O ficheiro está a ser usado", "The file is in use"}},
    {EINVAL, {"O sistema não aceita o nome ou a operação", "The system does not accept the name or the operation"}},
    {EILSEQ, {"O nome tem bytes que não são texto", "The name has bytes that are no text"}},
    {EBADF, {"O ficheiro não está aberto", "The file is not open"}},
    {EPIPE, {"O programa que recebia os dados terminou", "The program that took the data has ended"}},
    {ENOMEM, {"Não há memória suficiente", "There is not enough memory"}},
    {ENXIO, {"O dispositivo não existe", "There is no such device"}},
    {ENODEV, {"O dispositivo não existe", "There is no such device"}},
    {EXDEV, {"O ficheiro está noutro disco", "The file is on another disk"}},
    {EAGAIN, {"O ficheiro está ocupado", "The file is busy"}},
    {EINTR, {"A operação foi interrompida", "The operation was interrupted"}},
    {ETIMEDOUT, {"O disco não respondeu a tempo", "The disk did not answer in time"}},
    {EOVERFLOW, {"O ficheiro é grande de mais", "The file is too large"}},
    {ENOTSUP, {"O disco não conhece a operação", "The disk does not know the operation"}},
#ifdef EDQUOT
    {EDQUOT, {"A quota de disco está esgotada", "The disk quota is used up"}},
#endif
#ifdef ESTALE
    {ESTALE, {"O ficheiro da rede já não existe", "The file on the network is no longer there"}},
#endif
});

constexpr Phrase kNoFolder{"A pasta não existe", "There is no such folder"};

}  // namespace

std::string SystemReason(int error, bool creating, Language language) {
  if (creating && error == ENOENT) return std::string(kNoFolder.In(language));
  const auto row = std::ranges::find(kReasonRows, error, &ReasonRow::error);
  return row == kReasonRows.end() ? std::generic_category().message(error) : std::string(row->text.In(language));
}

std::string SystemReason(std::string_view detail, bool creating, Language language) {
  for (const auto& [error, text] : kReasonRows) {
    const std::string said = std::generic_category().message(error) + ": ";
    if (detail.starts_with(said)) {
      return SystemReason(error, creating, language).append(": ").append(detail.substr(said.size()));
    }
  }
  return {};
}

}  // namespace zevo
