// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/CreateCommand.h"

#include <iostream>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/create/EntriesWriter.h"
#include "tools/saft/create/InvoicesWriter.h"
#include "tools/saft/create/MasterFilesWriter.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {
namespace {

constexpr const char* kContentHelp =
    R"(The files are UTF-8 with commas, and quotation marks around cells that need them. The first row names the columns. A
column is a property of the record, such as CustomerID; a dot leads into a child: BillingAddress.City. Codes are
written as in the audit file (FT), flags as 0 or 1, numbers with a point. Spaces at the ends of a cell do not count. An
empty cell leaves the default; a child that may be absent is there when one of its cells is filled. The ledger section is
there when journals.csv and transactions.csv are, even without rows, the sales section when there is an invoice.

The names are these, letter for letter: a CSV file of another name is an error, files that are no CSV are left alone. A
row whose parent is not there is an error too, and so are an AuditFileVersion other than 1.01_01 and records with the
same key, but for those of one document: lines with one LineNumber or RecordID and credit notes of a line with one
Reference are all kept. Orders and credit notes that name such a line go to the lines of that number in turn, and what
is left over to the first. An order may also stand in invoice_lines.csv, as OrderReferences.OriginatingOn and
OrderReferences.OrderDate.

Told and counted on standard error:

  - texts that are longer than the schema allows, which are shortened
  - rows whose cells are all empty, which are skipped
  - section totals of more than two decimals, which are rounded: the file has them with two
  - values of TaxType and ProductCompanyTaxId other than those that are the same in every file, which are written
  - the InvoiceType FS, for which the library has no code: the element is empty
  - a header without a BusinessName: the element is empty
  - a second order of a line, which is left out
  - keys that repeat in one document, and orders and credit notes that name one of several lines of the same number
  - with --stream, texts with carriage returns, which are not written as references and read back as line feeds
  - numbers that the file does not hold as given; with them nothing is written, unless --round is given:
      amounts and quantities of more than four decimals, which are rounded
      quantities, and tax percentages and amounts of invoice lines, that single precision changes: it keeps about
      seven digits
      a second number where the file holds only one: CreditAmount beside DebitAmount, TaxAmount beside TaxPercentage,
      CurrencyCreditAmount beside CurrencyDebitAmount, neither of them 0. The first of them is written.

Not told, because it is how audit files are written here: totals of sections are computed. Customers stand together, and
so do the records of every other kind; there is one tax table. Spaces at the ends of texts are left out, and so are
elements without a text that may be absent. Numbers have no zeros to spare. Where there is no SettlementAmount it is
added as 0, and so is the CurrencyCreditAmount of a currency without amount. A debit of 0 is written as a credit, a tax
percentage of 0 as a tax amount, and the country of the company is PT where it is not given.)";

std::string DatasetHelp() {
  constexpr size_t kNameWidth = 23;
  std::string help = "The dataset is a folder of CSV files, each of which may be absent:\n\n";
  for (const DatasetFile& file : Dataset::Files()) {
    help.append("  ").append(file.name).append(kNameWidth - file.name.size(), ' ').append(file.description) += '\n';
  }
  help +=
      "\n\"saft template\" writes them empty, \"saft columns\" tells which columns are required and what goes into "
      "them.\n";
  return help.append("\n").append(kContentHelp).append("\n\n").append(Say(words::kFormHelp));
}

}  // namespace

CreateCommand::CreateCommand(CLI::App& options) : schema_(options) {
  options.add_option("DATASET", dataset_, "Folder of the dataset")->required()->option_text(" ");
  options.add_option("FILE.xml", file_, "Audit file to write; it must not exist yet")->required()->option_text(" ");
  options.add_flag("--stream", stream_, "Write the file from front to back instead of building it in memory first");
  options.add_flag("--round", round_, "Write numbers that the file does not hold as given all the same, see below");
  options.footer(DatasetHelp());
}

ExitCode CreateCommand::Run() const {
  schema_.Use();
  schema_.RequireUsable();
  const Interruption interruption(Interruption::During::kWriting);
  AuditFileOutput output(file_, stream_ ? AuditFileOutput::kSequential : AuditFileOutput::kInMemory);
  Dataset dataset(dataset_);
  MasterFilesWriter(dataset, output).Write();
  EntriesWriter(dataset, output, std::cerr).Write();
  InvoicesWriter(dataset, output).Write();
  dataset.Altered().ReportForms(std::cerr);
  if (!round_ && dataset.Altered().HasLostNumbers()) {
    dataset.Altered().ReportLostNumbers(std::cerr);
    throw Failure(file_, "not written, because of these numbers; --round writes it all the same");
  }
  if (!stream_) dataset.Altered().ForgetReturns();
  output.Save();
  dataset.Altered().Report(std::cerr);
  return kDone;
}

}  // namespace zevo::saft
