// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/Error.h>

#include <cstdint>
#include <exception>
#include <limits>
#include <string_view>
#include <type_traits>

#include "tests/support/Errors.h"

namespace zevo {
namespace {

using testing::NumberOf;

static_assert(std::is_base_of_v<std::exception, Error>);
static_assert(kErrorBase == -2147221504);

TEST(ErrorTest, EveryMessageHasItsText) {
  const struct {
    int32_t raised;
    std::string_view text;
  } kRows[] = {
      {-2147221503, "Não foi indicado o nome do ficheiro SAFT-PT."},
      {-2147221502, "Ficheiro SAFT-PT não encontrado."},
      {-2147221501, "Ficheiro SAFT-PT já existente."},
      {-2147221500, "O processo de exportação já foi iniciado."},
      {-2147221499, "O processo de exportação ainda não foi iniciado."},
      {static_cast<int32_t>(0x80040065U), "Já existe um Header associado ao ficheiro."},
      {static_cast<int32_t>(0x80040066U), "Ainda não existe um Header associado ao ficheiro."},
      {static_cast<int32_t>(0x800400C9U), "Ainda não existe um GeneralLedgerEntries associado ao ficheiro."},
      {static_cast<int32_t>(0x800400CAU), "Já existe um GeneralLedgerEntries associado ao ficheiro."},
      {static_cast<int32_t>(0x800400FBU), "Ainda não existe o Journal associado à Transaction."},
      {static_cast<int32_t>(0x8004012DU), "Ainda não existe um SalesInvoices associado ao ficheiro."},
      {static_cast<int32_t>(0x8004012EU), "Já existe um SalesInvoices associado ao ficheiro."},
      {static_cast<int32_t>(0x80040191U), "O conteúdo da entidade não é XML válido."},
      {-2147221003, "Leitura do ficheiro abortada pelo utilizador."},
  };
  for (const auto& row : kRows) EXPECT_EQ(MessageText(row.raised), row.text) << row.raised;
}

TEST(ErrorTest, OtherNumbersHaveNoText) {
  for (const int32_t number :
       {0, 1, 5, 101, 501, -1, kErrorBase, kErrorBase + 6, kErrorBase + 100, kErrorBase + 103, kErrorBase + 500,
        kErrorBase + 502, kErrorBase - 1, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()}) {
    EXPECT_EQ(MessageText(number), "") << number;
  }
}

TEST(ErrorTest, AnErrorOfTheLibraryCarriesNumberAndSourceButNoDescription) {
  const Error error = LibraryError(Message::kHeaderExists, "HeaderDALC.CreateHeader");
  EXPECT_EQ(error.Number(), NumberOf(Message::kHeaderExists));
  EXPECT_EQ(error.Source(), "HeaderDALC.CreateHeader");
  EXPECT_EQ(error.Description(), "");
  EXPECT_STREQ(error.what(), "HeaderDALC.CreateHeader: Já existe um Header associado ao ficheiro. [-2147221403]");
}

TEST(ErrorTest, ARunTimeErrorCarriesItsOwnDescription) {
  for (const RunTimeError number :
       {RunTimeError::kInvalidCall, RunTimeError::kOverflow, RunTimeError::kOutOfMemory,
        RunTimeError::kSubscriptOutOfRange, RunTimeError::kDivisionByZero, RunTimeError::kTypeMismatch,
        RunTimeError::kBadFileName, RunTimeError::kFileNotFound, RunTimeError::kDeviceIO, RunTimeError::kDiskFull,
        RunTimeError::kPermissionDenied, RunTimeError::kPathFileAccess, RunTimeError::kPathNotFound,
        RunTimeError::kObjectNotSet, RunTimeError::kDuplicateKey}) {
    const Error error = MakeRunTimeError(number);
    EXPECT_EQ(error.Number(), static_cast<int32_t>(number));
    EXPECT_GT(error.Number(), 0);
    EXPECT_EQ(error.Source(), "ZevoAdapters11");
    EXPECT_GT(error.Description().size(), 1U) << error.Number();
    EXPECT_EQ(error.Description().back(), '.');
    EXPECT_NE(std::string_view(error.what()).find(error.Description()), std::string_view::npos);
  }
}

TEST(ErrorTest, ADetailFollowsInBrackets) {
  EXPECT_EQ(MakeRunTimeError(RunTimeError::kDiskFull, "a.xml").Description(), "Disco cheio (a.xml).");
  EXPECT_EQ(MakeRunTimeError(RunTimeError::kDiskFull).Description(), "Disco cheio.");
}

TEST(ErrorTest, RunTimeErrorsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(RunTimeError::kInvalidCall), 5);
  EXPECT_EQ(static_cast<int>(RunTimeError::kOverflow), 6);
  EXPECT_EQ(static_cast<int>(RunTimeError::kOutOfMemory), 7);
  EXPECT_EQ(static_cast<int>(RunTimeError::kSubscriptOutOfRange), 9);
  EXPECT_EQ(static_cast<int>(RunTimeError::kDivisionByZero), 11);
  EXPECT_EQ(static_cast<int>(RunTimeError::kTypeMismatch), 13);
  EXPECT_EQ(static_cast<int>(RunTimeError::kBadFileName), 52);
  EXPECT_EQ(static_cast<int>(RunTimeError::kFileNotFound), 53);
  EXPECT_EQ(static_cast<int>(RunTimeError::kDeviceIO), 57);
  EXPECT_EQ(static_cast<int>(RunTimeError::kDiskFull), 61);
  EXPECT_EQ(static_cast<int>(RunTimeError::kPermissionDenied), 70);
  EXPECT_EQ(static_cast<int>(RunTimeError::kPathFileAccess), 75);
  EXPECT_EQ(static_cast<int>(RunTimeError::kPathNotFound), 76);
  EXPECT_EQ(static_cast<int>(RunTimeError::kObjectNotSet), 91);
  EXPECT_EQ(static_cast<int>(RunTimeError::kDuplicateKey), 457);
}

TEST(ErrorTest, WhatNamesSourceDescriptionAndNumber) {
  EXPECT_STREQ(Error(-1, "Supplier", "Obsoleta").what(), "Supplier: Obsoleta [-1]");
  const Error copy = Error(7, "A.B", "texto");
  EXPECT_STREQ(Error(copy).what(), "A.B: texto [7]");
}

TEST(ErrorTest, IsCaughtAsAnException) {
  try {
    throw LibraryError(Message::kNoFileName, "AuditFile.CreateAuditFile");
  } catch (const std::exception& error) {
    EXPECT_NE(std::string_view(error.what()).find("AuditFile.CreateAuditFile"), std::string_view::npos);
  }
}

}  // namespace
}  // namespace zevo
