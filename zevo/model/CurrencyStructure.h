// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_CURRENCYSTRUCTURE_H_
#define ZEVO_MODEL_CURRENCYSTRUCTURE_H_

#include <zevo/model/Record.h>

namespace zevo {

/// The total of an invoice in a foreign currency. It carries either a debit or a credit: the debit unless that is 0.
class ZEVO_API CurrencyStructure : public Record {
  ZEVO_RECORD(CurrencyStructure, kCurrency);

  /// Three-letter code of ISO 4217.
  ZEVO_TEXT(CurrencyCode);

  /// Gross total in the foreign currency, of a document that debits.
  ZEVO_AMOUNT(CurrencyDebitAmount);

  /// Gross total in the foreign currency, of a document that credits.
  ZEVO_AMOUNT(CurrencyCreditAmount);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_CURRENCYSTRUCTURE_H_
