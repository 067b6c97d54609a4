// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DanglingUses.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/check/MoneyText.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The ledger entries.

namespace zevo {
namespace {

// GL-COUNT

constexpr RuleSentence kOtherNumberOfEntries{
    Severity::kError,
    {"NumberOfEntries é {found#}, mas o número de movimentos do ficheiro é {expected#} (diferença {difference#})",
     "NumberOfEntries is {found#}, but the number of transactions in the file is {expected#} (difference "
     "{difference#})"}};

void JudgeNumberOfEntries(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (!file.LedgerEntries().IsThere()) return;
  const SectionFacts& section = *file.LedgerEntries();
  const Decimal count = file.Ledger().Transactions();
  if (!section.entries.Read() || *section.entries == count) return;
  judgement.Tell(kOtherNumberOfEntries, section, section.entries,
                 {.expected = count.Text(), .difference = (*section.entries - count).Text()});
}

// GL-SUM

constexpr RuleSentence kOtherTotalDebit{
    Severity::kError,
    {"TotalDebit é {found#}, mas os débitos das linhas somam {expected#} (diferença {difference#})",
     "TotalDebit is {found#}, but the debits of the lines are {expected#} (difference {difference#})"}};
constexpr RuleSentence kOtherTotalCredit{
    Severity::kError,
    {"TotalCredit é {found#}, mas os créditos das linhas somam {expected#} (diferença {difference#})",
     "TotalCredit is {found#}, but the credits of the lines are {expected#} (difference {difference#})"}};

void JudgeTotal(const RuleSentence& sentence, const NumberFact& total, const AmountSum& sum, Judgement& judgement) {
  if (!total.Read() || !sum.known || sum.Allows(*total)) return;
  judgement.Tell(sentence, *judgement.File().LedgerEntries(), total,
                 {.expected = MoneyText(sum.sum), .difference = MoneyText(*total - sum.sum)});
}

void JudgeTotals(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (!file.LedgerEntries().IsThere()) return;
  // That there are no transactions, though there should be, is told once.
  const NumberFact& entries = file.LedgerEntries()->entries;
  if (file.Ledger().Transactions() == 0 && entries.Read() && !entries->IsZero() && judgement.IsOn("GL-COUNT")) return;
  JudgeTotal(kOtherTotalDebit, file.LedgerEntries()->debit, file.Ledger().OfAll().debit, judgement);
  JudgeTotal(kOtherTotalCredit, file.LedgerEntries()->credit, file.Ledger().OfAll().credit, judgement);
}

// GL-BALANCE

constexpr RuleSentence kUnbalanced{Severity::kError,
                                   {"os débitos somam {found#} e os créditos {expected#} (diferença {difference#})",
                                    "the debits are {found#} and the credits {expected#} (difference {difference#})"}};

void JudgeBalance(const TransactionFacts& transaction, Judgement& judgement) {
  const LedgerSums::Sums& sums = judgement.File().Ledger().OfThis();
  if (!sums.Known() || sums.debit.sum == sums.credit.sum) return;
  judgement.Tell(kUnbalanced, transaction, ElementSpot(),
                 {.found = MoneyText(sums.debit.sum),
                  .expected = MoneyText(sums.credit.sum),
                  .difference = MoneyText(sums.debit.sum - sums.credit.sum)});
}

// GL-TID

constexpr RuleSentence kOtherDateInId{
    Severity::kWarning,
    {"TransactionID {found} não começa pela data do movimento, {expected}",
     "TransactionID {found} does not begin with the date of the transaction, {expected}"}};
constexpr RuleSentence kOtherJournalInId{
    Severity::kWarning,
    {"TransactionID {found} não tem em segundo lugar o diário do movimento, {expected}",
     "TransactionID {found} does not have the journal of the transaction, {expected}, in second place"}};
constexpr RuleSentence kOtherDocumentInId{
    Severity::kWarning,
    {"TransactionID {found} não acaba no número de arquivo do documento, {expected}",
     "TransactionID {found} does not end in the archival number of the document, {expected}"}};
constexpr RuleSentence kPartNotCompared{
    Severity::kInformation,
    {"\"{found}\" não cabe num TransactionID e não foi comparado com ele, nem outros assim deste ficheiro",
     "\"{found}\" has no room in a TransactionID and was not compared with it, nor were others like it in this file"}};

// What may stand in a part of a TransactionID: letters and digits, as the schema counts them.
bool IsPart(std::string_view text, size_t longest) {
  static constexpr std::array<bool, 256> kIsMark = [] {
    std::array<bool, 256> marks{};
    constexpr std::string_view kMarks = " !\"#%&'()*,-./:;?@[\\]_{}\t\r\n";
    for (const char c : kMarks) marks[Byte(c)] = true;
    return marks;
  }();
  size_t characters = 0;
  for (const char c : text) {
    const auto byte = Byte(c);
    // A byte that continues a character counts for none.
    if ((byte & 0xC0U) != 0x80U) ++characters;
    if (kIsMark[byte]) return false;
  }
  return characters >= 1 && characters <= longest;
}

struct IdParts {
  CalendarDate date;
  std::string_view journal;
  std::string_view document;
};

// Nothing where the identifier is not of its form, which the schema tells.
std::optional<IdParts> PartsOf(std::string_view id) {
  constexpr size_t kDate = 10;
  if (id.size() <= kDate || id[kDate] != ' ') return std::nullopt;
  const auto date = CalendarDate::FromText(id.substr(0, kDate));
  if (!date) return std::nullopt;
  const std::string_view rest = id.substr(kDate + 1);
  const size_t blank = rest.find(' ');
  if (blank == std::string_view::npos) return std::nullopt;
  const IdParts parts{*date, rest.substr(0, blank), rest.substr(blank + 1)};
  const bool fits = IsPart(parts.journal, 30) && IsPart(parts.document, 20);
  return fits ? std::optional(parts) : std::nullopt;
}

void JudgeTransactionId(const TransactionFacts& transaction, Judgement& judgement) {
  if (transaction.id.Missing()) return;
  const auto parts = PartsOf(*transaction.id);
  if (transaction.date.Read() && parts && parts->date != *transaction.date) {
    judgement.Tell(kOtherDateInId, transaction, transaction.id, {.expected = transaction.date->Text()});
  }
  const std::string& journal = transaction.entity->JournalID();
  if (!journal.empty() && !IsPart(journal, 30)) {
    judgement.TellOnce(kPartNotCompared, transaction, ElementSpot(), {.found = journal});
  } else if (parts && !journal.empty() && parts->journal != journal) {
    judgement.Tell(kOtherJournalInId, transaction, transaction.id, {.expected = journal});
  }
  const TextFact& number = transaction.archival_number;
  if (number.Missing() || number->empty()) return;
  if (!IsPart(*number, 20)) {
    judgement.TellOnce(kPartNotCompared, transaction, number);
  } else if (parts && parts->document != *number) {
    judgement.Tell(kOtherDocumentInId, transaction, transaction.id, {.expected = std::string(*number)});
  }
}

// GL-PERIOD

constexpr RuleSentence kPeriodBeforeDate{
    Severity::kWarning,
    {"o período é {found}, mas a data do movimento é já do mês {expected} do exercício",
     "the period is {found}, but the date of the transaction is in month {expected} of the fiscal year"}};
constexpr RuleSentence kPeriodAfterDate{
    Severity::kInformation,
    {"o período é {found}, e a data do movimento é ainda do mês {expected} do exercício",
     "the period is {found}, and the date of the transaction is still in month {expected} of the fiscal year"}};
constexpr RuleSentence kClosingBeforeTheEnd{
    Severity::kWarning,
    {"o período é {found}, de apuramento, mas a data do movimento é do mês {expected} do exercício, não do último",
     "the period is {found}, for closing, but the date of the transaction is in month {expected} of the fiscal year, "
     "not in the last"}};

void JudgeLedgerPeriod(const TransactionFacts& transaction, Judgement& judgement) {
  if (!transaction.period.Read() || !transaction.date.Read()) return;
  const auto month = judgement.File().FiscalMonthOf(*transaction.date);
  if (!month) return;
  const int64_t period = *transaction.period;
  const auto tell = [&](const RuleSentence& sentence, std::string difference) {
    judgement.Tell(sentence, transaction, transaction.period,
                   {.expected = std::to_string(*month), .difference = std::move(difference)});
  };
  if (period > 12 && period <= 16) {
    if (*month < 12) tell(kClosingBeforeTheEnd, {});
  } else if (period >= 1 && period < *month) {
    tell(kPeriodBeforeDate, std::to_string(period - *month));
  } else if (period <= 12 && period > *month) {
    tell(kPeriodAfterDate, std::to_string(period - *month));
  }
}

// GL-DATE

constexpr RuleSentence kDateAfterEnd{
    Severity::kWarning,
    {"a data do movimento é {found}, depois do fim do período do ficheiro, em {expected}",
     "the date of the transaction is {found}, after the end of the file's period, on {expected}"}};
constexpr RuleSentence kDateBeforeStart{
    Severity::kInformation,
    {"a data do movimento é {found}, antes do começo do período do ficheiro, em {expected}",
     "the date of the transaction is {found}, before the beginning of the file's period, on {expected}"}};
constexpr RuleSentence kPostedBeforeDate{Severity::kInformation,
                                         {"o movimento foi lançado em {found}, antes da sua data, {expected}",
                                          "the transaction was posted on {found}, before its date, {expected}"}};

void JudgeLedgerDates(const TransactionFacts& transaction, Judgement& judgement) {
  if (!transaction.date.Read()) return;
  const CalendarDate& date = *transaction.date;
  if (!judgement.File().IsInPeriod(date).value_or(true)) {
    const HeaderFacts& header = *judgement.File().Header();
    const bool before = date < *header.start_date;
    judgement.Tell(before ? kDateBeforeStart : kDateAfterEnd, transaction, transaction.date,
                   {.expected = (before ? header.start_date : header.end_date)->Text()});
  }
  if (transaction.posting_date.Read() && transaction.posting_date->date < date) {
    judgement.Tell(kPostedBeforeDate, transaction, transaction.posting_date, {.expected = date.Text()});
  }
}

// GL-RECORD

constexpr RuleSentence kRepeatedRecord{Severity::kError,
                                       {"RecordID {found} aparece mais do que uma vez no movimento",
                                        "RecordID {found} appears more than once in the transaction"}};

// Whether record numbers ascend, as they do where lines are counted, so that none is repeated.
bool DoRecordIdsAscend(const std::vector<EntryLineFacts>& lines) {
  for (size_t i = 1; i < lines.size(); ++i) {
    const TextFact& before = lines[i - 1].record_id;
    const TextFact& id = lines[i].record_id;
    if (before.Missing() || id.Missing()) return false;
    if (before->size() != id->size() ? before->size() > id->size() : *before >= *id) return false;
  }
  return true;
}

void JudgeRecordIds(const TransactionFacts& transaction, Judgement& judgement) {
  if (DoRecordIdsAscend(transaction.lines)) return;
  std::vector<const EntryLineFacts*> lines;
  for (const EntryLineFacts& line : transaction.lines) {
    if (!line.record_id.Missing()) lines.push_back(&line);
  }
  std::ranges::stable_sort(lines, {}, [](const EntryLineFacts* line) { return *line->record_id; });
  std::vector<const EntryLineFacts*> repeated;
  for (size_t i = 1; i < lines.size(); ++i) {
    if (*lines[i]->record_id == *lines[i - 1]->record_id) repeated.push_back(lines[i]);
  }
  std::ranges::sort(repeated, {}, &EntryLineFacts::element);
  for (const EntryLineFacts* line : repeated) judgement.Tell(kRepeatedRecord, transaction, line->record_id);
}

// GL-INVOICE

constexpr RuleSentence kUnknownTransaction{
    Severity::kError,
    {"o movimento do documento, {found}, não está entre os movimentos do ficheiro",
     "the transaction of the document, {found}, is not among the transactions of the file"}};

constexpr RuleSentence kNoTransactions{
    Severity::kError,
    {"o movimento do documento, {found}, não está no ficheiro, que não tem nenhum movimento (documentos com movimento: "
     "{difference})",
     "the transaction of the document, {found}, is not in the file, which has no transactions at all (documents with "
     "one: {difference})"}};

void JudgeTransactionsOfInvoices(Judgement& judgement) {
  if (!judgement.File().HasBasis("I")) return;
  Tell({FileKeys::Use::kTransaction, &kUnknownTransaction, &kNoTransactions}, judgement);
}

// GL-GROSS

constexpr RuleSentence kMoreThanTransaction{
    Severity::kWarning,
    {"os documentos do mesmo movimento, com este, somam {found#}, mais do que os débitos dele, {expected#} "
     "(diferença {difference#})",
     "the documents of the same transaction, with this one, are {found#}, more than its debits, {expected#} "
     "(difference "
     "{difference#})"}};
constexpr RuleSentence kDateOfTransaction{
    Severity::kWarning,
    {"a data do documento é {found}, e a do seu movimento {expected}",
     "the date of the document is {found}, and that of its transaction {expected}"}};

void JudgeDateOfInvoice(const InvoiceFacts& invoice, Judgement& judgement) {
  const TransactionTable::Entry* const transaction = judgement.File().TransactionOfInvoice();
  if (transaction == nullptr) return;
  // A date out of the period is told by DATE-RANGE.
  if (!invoice.date.Read() || !judgement.File().IsInPeriod(*invoice.date).value_or(true)) return;
  if (transaction->Date() && *invoice.date != *transaction->Date()) {
    judgement.Tell(kDateOfTransaction, invoice, invoice.date, {.expected = transaction->Date()->Text()});
  }
}

void JudgeInvoicesOfTransactions(Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  for (const TransactionTable::Entry& transaction : judgement.File().Transactions().All()) {
    if (!transaction.IsExceeded()) continue;
    judgement.Tell(kMoreThanTransaction,
                   documents.Keep(documents[transaction.LastInvoice()], DocumentTable::Element::kNumber),
                   {.found = MoneyText(transaction.Gross()),
                    .expected = MoneyText(transaction.Debit()),
                    .difference = MoneyText(transaction.Gross() - transaction.Debit())});
  }
}

// GL-NEGATIVE

constexpr RuleSentence kNegativeAmount{
    Severity::kWarning,
    {"o valor {found#} é negativo; devia estar do outro lado (débito ou crédito), sem sinal",
     "the amount {found#} is negative; it should be on the other side (debit or credit), without a sign"}};

void JudgeNegativeAmounts(const TransactionFacts& transaction, Judgement& judgement) {
  for (const EntryLineFacts& line : transaction.lines) {
    for (const NumberFact* amount : {&line.debit, &line.credit}) {
      if (amount->Read() && amount->value.IsNegative()) judgement.Tell(kNegativeAmount, transaction, *amount);
    }
  }
}

// GL-OPENING

constexpr RuleSentence kBothBalances{
    Severity::kWarning,
    {"a conta tem saldo inicial devedor, {expected#}, e credor, {found#}; devia ter só um",
     "the account has an opening debit balance, {expected#}, and a credit balance, {found#}; it should have only one"}};
constexpr RuleSentence kOpeningUnbalanced{Severity::kWarning,
                                          {"os saldos iniciais das contas de movimento somam {found#} a débito e "
                                           "{expected#} a crédito (diferença {difference#})",
                                           "the opening balances of movement accounts are {found#} in debit and "
                                           "{expected#} in credit (difference {difference#})"}};

void JudgeOpening(const AccountFacts& account, Judgement& judgement) {
  if (!account.opening_debit.Read() || !account.opening_credit.Read()) return;
  if (account.opening_debit->IsZero() || account.opening_credit->IsZero()) return;
  judgement.Tell(kBothBalances, account, account.opening_credit, {.expected = MoneyText(*account.opening_debit)});
}

void JudgeOpeningSums(Judgement& judgement) {
  const AccountPlan& accounts = judgement.File().Accounts();
  if (accounts.IsEmpty() || !accounts.IsWhole()) return;
  const AccountPlan::Balances moved = accounts.OpeningOfMovementAccounts();
  const AccountPlan::Balances all = accounts.OpeningOfAll();
  if (moved.debit == moved.credit || all.debit == all.credit) return;
  judgement.Tell(kOpeningUnbalanced,
                 KeptElement{.kind = {}, .key = {}, .path = "/AuditFile/MasterFiles", .place = {}, .text = {}},
                 {.found = MoneyText(moved.debit),
                  .expected = MoneyText(moved.credit),
                  .difference = MoneyText(moved.debit - moved.credit)});
}

constexpr Rule kLedgerRules[] = {
    {.info = {"GL-COUNT",
              Severity::kError,
              {"Número de movimentos", "Number of transactions"},
              {"NumberOfEntries de GeneralLedgerEntries é o número de movimentos do ficheiro.",
               "NumberOfEntries of GeneralLedgerEntries is the number of transactions in the file."},
              "Portaria 1192/2009"},
     .at_end = JudgeNumberOfEntries},
    {.info = {"GL-SUM",
              Severity::kError,
              {"Totais dos movimentos", "Totals of ledger entries"},
              {"TotalDebit e TotalCredit são as somas das linhas de todos os movimentos. Por cada valor com mais de "
               "duas casas decimais aceita-se uma diferença de 0,005.",
               "TotalDebit and TotalCredit are the sums of the lines of all transactions. For each amount of more than "
               "two decimals a difference of 0.005 is accepted."},
              "Portaria 1192/2009"},
     .at_end = JudgeTotals},
    {.info = {"GL-BALANCE",
              Severity::kError,
              {"Débitos iguais aos créditos", "Debits equal credits"},
              {"Em cada movimento os débitos são iguais aos créditos, e assim também no ficheiro.",
               "In each transaction the debits are equal to the credits, and so they are in the file."},
              "Portaria 1192/2009"},
     .transaction = JudgeBalance},
    {.info = {"GL-TID",
              Severity::kWarning,
              {"Identificação do movimento", "Identification of the transaction"},
              {"TransactionID tem a data do movimento, o diário e o número de arquivo do documento. Uma parte que nele "
               "não cabe, como \"VEN 01/0001\", não se compara; isso é dito uma vez.",
               "TransactionID has the date of the transaction, the journal and the archival number of the document. A "
               "part that has no room in it, such as \"VEN 01/0001\", is not compared, which is told once."},
              "Portaria 1192/2009"},
     .transaction = JudgeTransactionId},
    {.info = {"GL-PERIOD",
              Severity::kWarning,
              {"Período do movimento", "Period of the transaction"},
              {"Um período de 1 a 12 não é anterior ao mês do exercício em que está a data do movimento; só "
               "informação: nem posterior. Os períodos 13 a 16 são só do último mês. Sem um exercício inteiro no "
               "cabeçalho não se verifica.",
               "A period from 1 to 12 is not before the month of the fiscal year that the date of the transaction is "
               "in; information only: nor after it. Periods 13 to 16 are of the last month only. Not judged where the "
               "header has no whole fiscal year."},
              "Portaria 1192/2009"},
     .transaction = JudgeLedgerPeriod},
    {.info = {"GL-DATE",
              Severity::kWarning,
              {"Data do movimento", "Date of the transaction"},
              {"TransactionDate não é posterior a EndDate. Só informação: não é anterior a StartDate, e GLPostingDate "
               "não é anterior a TransactionDate.",
               "TransactionDate is not after EndDate. Information only: it is not before StartDate, and GLPostingDate "
               "is not before TransactionDate."},
              "Portaria 1192/2009"},
     .transaction = JudgeLedgerDates},
    {.info = {"GL-RECORD",
              Severity::kError,
              {"Linhas do movimento", "Lines of the transaction"},
              {"Cada RecordID aparece uma só vez no seu movimento.",
               "Each RecordID appears only once in its transaction."},
              "Portaria 1192/2009"},
     .transaction = JudgeRecordIds},
    {.info = {"GL-INVOICE",
              Severity::kError,
              {"Movimentos dos documentos", "Transactions of documents"},
              {"Na base I o TransactionID de cada documento que não esteja anulado é o de um movimento do ficheiro; "
               "que não "
               "há nenhum é dito uma vez.",
               "With basis I the TransactionID of each document that is not cancelled is that of a transaction in the "
               "file; that there are none is told once."},
              "Portaria 1192/2009"},
     .at_end = JudgeTransactionsOfInvoices},
    {.info =
         {"GL-GROSS",
          Severity::kWarning,
          {"Documentos de um movimento", "Documents of a transaction"},
          {"Na base I a soma de GrossTotal dos documentos de um movimento, sem os anulados nem os resumidos, não "
           "excede os "
           "débitos dele, e cada documento tem a data do movimento. A soma não se verifica quando o movimento tem "
           "valores negativos.",
           "With basis I the sum of GrossTotal of a transaction's documents, without cancelled and summarised ones, "
           "does not exceed its debits, and each document has the date of the transaction. The sum is not judged where "
           "the transaction has negative amounts."},
          ""},
     .invoice = JudgeDateOfInvoice,
     .at_end = JudgeInvoicesOfTransactions},
    {.info = {"GL-NEGATIVE",
              Severity::kWarning,
              {"Valores negativos", "Negative amounts"},
              {"Os valores das linhas dos movimentos não são negativos.",
               "The amounts of ledger lines are not negative."},
              ""},
     .transaction = JudgeNegativeAmounts},
    {.info = {"GL-OPENING",
              Severity::kWarning,
              {"Saldos iniciais", "Opening balances"},
              {"Nenhuma conta tem saldo inicial devedor e credor. Os saldos iniciais a débito e a crédito são iguais "
               "nas contas de movimento, ou em todas.",
               "No account has both an opening debit and an opening credit balance. Opening debits and credits are "
               "equal over movement accounts, or over all."},
              ""},
     .account = JudgeOpening,
     .at_end = JudgeOpeningSums},
};

}  // namespace

std::span<const Rule> LedgerRules() { return kLedgerRules; }

}  // namespace zevo
