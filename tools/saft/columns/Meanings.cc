// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/Meanings.h"

#include <algorithm>
#include <array>

namespace zevo::saft {
namespace {

constexpr auto kMeanings = std::to_array<Meaning>({
    {"Header.AuditFileVersion", "Version of the file layout.", "Versão do formato do ficheiro."},
    {"Header.CompanyID", "Registry office and number, or the tax number.",
     "Conservatória e número do registo comercial, ou o NIF.", "Porto 12345"},
    {"Header.TaxRegistrationNumber", "Tax number (NIF) of the company.", "NIF da empresa."},
    {"Header.TaxAccountingBasis", "What the file covers: C accounting, F invoicing, I both.",
     "O que o ficheiro abrange: C contabilidade, F faturação, I ambas."},
    {"Header.CompanyName", "Name of the company.", "Nome da empresa."},
    {"Header.BusinessName", "Trading name of the company.", "Designação comercial da empresa."},
    {"Header.CompanyAddress.PostalCode", "Portuguese postal code.", "Código postal português.", "4000-041"},
    {"Header.FiscalYear", "Year in which the fiscal year begins.", "Ano em que começa o exercício."},
    {"Header.StartDate", "First day of the period.", "Primeiro dia do período."},
    {"Header.EndDate", "Last day of the period.", "Último dia do período."},
    {"Header.CurrencyCode", "Currency of the amounts.", "Moeda dos valores."},
    {"Header.DateCreated", "Day on which the file is made.", "Data de criação do ficheiro."},
    {"Header.TaxEntity", "Establishment: Global, Sede or its own code.",
     "Estabelecimento: Global, Sede ou o código próprio."},
    {"Header.ProductCompanyTaxId", "Tax number of the maker of the library.", "NIF do produtor da biblioteca."},
    {"Header.SoftwareCertificateNumber", "Number of the program's certificate, 0 without one.",
     "Número do certificado do programa, 0 se não tiver."},
    {"Header.ProductID", "Accounting program and its maker.", "Programa de contabilidade e o seu produtor.",
     "Contas/Exemplo Lda"},
    {"Header.ProductVersion", "Version of the accounting program.", "Versão do programa de contabilidade."},
    {"Header.HeaderComment", "Remarks.", "Observações."},
    {"Header.Telephone", "Telephone of the company.", "Telefone da empresa."},
    {"Header.Fax", "Fax of the company.", "Fax da empresa."},
    {"Header.Email", "E-mail of the company.", "Correio eletrónico da empresa."},
    {"Header.Website", "Website of the company.", "Sítio da empresa na Internet."},

    {"GeneralLedger.AccountID", "Code of the ledger account.", "Código da conta.", "111"},
    {"GeneralLedger.AccountDescription", "Name of the account.", "Designação da conta."},
    {"GeneralLedger.OpeningDebitBalance", "Opening debit balance.", "Saldo devedor de abertura."},
    {"GeneralLedger.OpeningCreditBalance", "Opening credit balance.", "Saldo credor de abertura."},

    {"Customer.CustomerID", "Code of the customer, each its own.", "Código do cliente, único."},
    {"Customer.AccountID", "Ledger account of the customer, or Desconhecido.",
     "Conta do cliente no plano de contas, ou Desconhecido.", "2111"},
    {"Customer.CustomerTaxID", "Tax number, 999999990 for a final consumer.",
     "NIF do cliente, 999999990 para o consumidor final."},
    {"Customer.CompanyName", "Name of the customer.", "Nome do cliente."},
    {"Customer.Contact", "Person to speak to.", "Pessoa de contacto."},
    {"Customer.Telephone", "Telephone of the customer.", "Telefone do cliente."},
    {"Customer.Fax", "Fax of the customer.", "Fax do cliente."},
    {"Customer.Email", "E-mail of the customer.", "Correio eletrónico do cliente."},
    {"Customer.Website", "Website of the customer.", "Sítio do cliente na Internet."},
    {"Customer.SelfBillingIndicator", "1 with an agreement on self-billing.", "1 se houver acordo de autofaturação."},

    {"Supplier.SupplierID", "Code of the supplier, each its own.", "Código do fornecedor, único."},
    {"Supplier.AccountID", "Ledger account of the supplier, or Desconhecido.",
     "Conta do fornecedor no plano de contas, ou Desconhecido.", "2211"},
    {"Supplier.SupplierTaxID", "Tax number of the supplier.", "NIF do fornecedor."},
    {"Supplier.CompanyName", "Name of the supplier.", "Nome do fornecedor."},
    {"Supplier.Contact", "Person to speak to.", "Pessoa de contacto."},
    {"Supplier.Telephone", "Telephone of the supplier.", "Telefone do fornecedor."},
    {"Supplier.Fax", "Fax of the supplier.", "Fax do fornecedor."},
    {"Supplier.Email", "E-mail of the supplier.", "Correio eletrónico do fornecedor."},
    {"Supplier.Website", "Website of the supplier.", "Sítio do fornecedor na Internet."},
    {"Supplier.SelfBillingIndicator", "1 with an agreement on self-billing.", "1 se houver acordo de autofaturação."},

    {"Product.ProductType", "P goods, S services, O other charges, I taxes.",
     "P produtos, S serviços, O outros encargos, I impostos."},
    {"Product.ProductCode", "Code of the product, each its own.", "Código do produto, único."},
    {"Product.ProductGroup", "Family of products.", "Família de produtos."},
    {"Product.ProductDescription", "Name of the product.", "Designação do produto."},
    {"Product.ProductNumberCode", "Bar code, or the code of the product.", "Código de barras, ou o código do produto."},

    {"TaxTableEntry.TaxType", "Kind of tax.", "Tipo de imposto."},
    {"TaxTableEntry.TaxCountryRegion", "Country, or PT-AC and PT-MA for the islands.",
     "País, ou PT-AC e PT-MA para as regiões autónomas."},
    {"TaxTableEntry.TaxCode", "Code of the rate, such as NOR.", "Código da taxa, como NOR.", "NOR"},
    {"TaxTableEntry.Description", "Name of the rate.", "Designação da taxa."},
    {"TaxTableEntry.TaxExpirationDate", "Last day of a rate that has ended.", "Último dia de uma taxa que cessou."},
    {"TaxTableEntry.TaxPercentage", "Rate in percent.", "Taxa em percentagem."},
    {"TaxTableEntry.TaxAmount", "Amount of a tax without a rate.", "Valor de um imposto sem taxa."},

    {"Journal.JournalID", "Code of the journal, each its own.", "Código do diário, único."},
    {"Journal.Description", "Name of the journal.", "Designação do diário."},

    {"Transaction.JournalID", "Journal of the transaction, as in journals.csv.",
     "Diário do movimento, como em journals.csv."},
    {"Transaction.TransactionID", "Date, journal and document, each its own.", "Data, diário e documento, único.",
     "2010-01-31 J1 1"},
    {"Transaction.Period", "Month of the entry, 13 to 16 at the end of the year.",
     "Mês do movimento, 13 a 16 no fim do exercício."},
    {"Transaction.TransactionDate", "Date of the document.", "Data do documento."},
    {"Transaction.SourceID", "User who entered the transaction.", "Utilizador que registou o movimento."},
    {"Transaction.Description", "What the transaction is about.", "Descrição do movimento."},
    {"Transaction.DocArchivalNumber", "Number of the archived document.", "Número de arquivo do documento."},
    {"Transaction.TransactionType", "N normal, R regularisation, A result, J adjustment.",
     "N normal, R regularizações, A apuramento de resultados, J ajustamentos."},
    {"Transaction.GLPostingDate", "When the transaction was posted.", "Data e hora do movimento contabilístico."},
    {"Transaction.CustomerID", "Customer of the transaction, if any.", "Cliente do movimento, se houver."},
    {"Transaction.SupplierID", "Supplier of the transaction, if any.", "Fornecedor do movimento, se houver."},

    {"TransactionLine.TransactionID", "Transaction of the line, as in transactions.csv.",
     "Movimento da linha, como em transactions.csv.", "2010-01-31 J1 1"},
    {"TransactionLine.RecordID", "Number of the line in its transaction.", "Número da linha no movimento."},
    {"TransactionLine.AccountID", "Account that moves.", "Conta movimentada.", "111"},
    {"TransactionLine.SourceDocumentID", "Number of the document behind the line.",
     "Número do documento que originou a linha."},
    {"TransactionLine.SystemEntryDate", "When the line was entered.", "Data e hora do registo da linha."},
    {"TransactionLine.Description", "What the line is about.", "Descrição da linha."},
    {"TransactionLine.DebitAmount", "Amount debited.", "Valor a débito."},
    {"TransactionLine.CreditAmount", "Amount credited.", "Valor a crédito."},

    {"Invoice.InvoiceNo", "Type, series and number of the document.", "Tipo, série e número do documento.", "FT A/1"},
    {"Invoice.InvoiceStatus", "N normal, S self-billed, A cancelled, F invoiced.",
     "N normal, S autofaturação, A anulado, F faturado."},
    {"Invoice.Hash", "Signature of the document, 0 without one.", "Assinatura do documento, 0 se não tiver."},
    {"Invoice.HashControl", "Version of the key that signed.", "Versão da chave de assinatura."},
    {"Invoice.Period", "Month of the document.", "Mês do documento."},
    {"Invoice.InvoiceDate", "Date of the document.", "Data do documento."},
    {"Invoice.InvoiceType", "Kind of document, FT for an invoice.", "Tipo de documento, FT para fatura."},
    {"Invoice.SelfBillingIndicator", "1 where the customer issued it.", "1 se emitido pelo cliente."},
    {"Invoice.SystemEntryDate", "When the document was entered.", "Data e hora do registo do documento."},
    {"Invoice.TransactionID", "Ledger transaction of the document.", "Movimento contabilístico do documento.",
     "2010-01-31 J1 1"},
    {"Invoice.CustomerID", "Customer, as in customers.csv.", "Cliente, como em customers.csv."},
    {"Invoice.ShipTo.DeliveryID", "Number of the delivery.", "Número da entrega."},
    {"Invoice.ShipTo.DeliveryDate", "Day of the delivery.", "Data da entrega."},
    {"Invoice.ShipFrom.DeliveryID", "Number of the dispatch.", "Número da expedição."},
    {"Invoice.ShipFrom.DeliveryDate", "Day of the dispatch.", "Data da expedição."},
    {"Invoice.DocumentTotals.TaxPayable", "Total of the taxes.", "Total dos impostos."},
    {"Invoice.DocumentTotals.NetTotal", "Total without taxes.", "Total sem impostos."},
    {"Invoice.DocumentTotals.GrossTotal", "Total with taxes.", "Total com impostos."},
    {"Invoice.DocumentTotals.CurrencyValue.CurrencyCode", "Foreign currency.", "Moeda estrangeira."},
    {"Invoice.DocumentTotals.CurrencyValue.CurrencyDebitAmount", "Total in that currency, of a document that debits.",
     "Total nessa moeda, de um documento a débito."},
    {"Invoice.DocumentTotals.CurrencyValue.CurrencyCreditAmount", "Total in that currency, of one that credits.",
     "Total nessa moeda, de um documento a crédito."},
    {"Invoice.DocumentTotals.Settlement.SettlementDiscount", "Discount agreed, in words.",
     "Desconto acordado, por extenso."},
    {"Invoice.DocumentTotals.Settlement.SettlementAmount", "Amount of the discount.", "Valor do desconto."},
    {"Invoice.DocumentTotals.Settlement.SettlementDate", "Day of payment agreed.", "Data acordada de pagamento."},
    {"Invoice.DocumentTotals.Settlement.PaymentMechanism", "Means of payment, TB for a bank transfer.",
     "Meio de pagamento, TB para transferência bancária."},

    {"InvoiceLine.InvoiceNo", "Document of the line, as in invoices.csv.", "Documento da linha, como em invoices.csv.",
     "FT A/1"},
    {"InvoiceLine.LineNumber", "Number of the line in its document.", "Número da linha no documento."},
    {"InvoiceLine.ProductCode", "Product, as in products.csv.", "Produto, como em products.csv."},
    {"InvoiceLine.ProductDescription", "Name of the product.", "Designação do produto."},
    {"InvoiceLine.Quantity", "Quantity.", "Quantidade."},
    {"InvoiceLine.UnitOfMeasure", "Unit of the quantity.", "Unidade da quantidade."},
    {"InvoiceLine.UnitPrice", "Price of a unit without taxes.", "Preço unitário sem impostos."},
    {"InvoiceLine.TaxPointDate", "Day of the delivery or the service.", "Data da entrega ou da prestação do serviço."},
    {"InvoiceLine.Description", "What the line is about.", "Descrição da linha."},
    {"InvoiceLine.DebitAmount", "Amount without taxes, in a credit note.", "Valor sem impostos, numa nota de crédito."},
    {"InvoiceLine.CreditAmount", "Amount without taxes, in an invoice.", "Valor sem impostos, numa fatura."},
    {"InvoiceLine.Tax.TaxType", "Kind of tax.", "Tipo de imposto."},
    {"InvoiceLine.Tax.TaxCountryRegion", "Country, or PT-AC and PT-MA for the islands.",
     "País, ou PT-AC e PT-MA para as regiões autónomas."},
    {"InvoiceLine.Tax.TaxCode", "Code of the rate, as in tax_table.csv.", "Código da taxa, como em tax_table.csv.",
     "NOR"},
    {"InvoiceLine.Tax.TaxPercentage", "Rate in percent.", "Taxa em percentagem."},
    {"InvoiceLine.Tax.TaxAmount", "Amount of a tax without a rate.", "Valor de um imposto sem taxa."},
    {"InvoiceLine.TaxExemptionReason", "Legal ground of an exemption.", "Motivo legal da isenção."},
    {"InvoiceLine.SettlementAmount", "Discount on the line.", "Desconto da linha."},

    {"OrderReferences.InvoiceNo", "Document of the line, as in invoices.csv.",
     "Documento da linha, como em invoices.csv.", "FT A/1"},
    {"OrderReferences.LineNumber", "Line of the document.", "Linha do documento."},
    {"OrderReferences.OriginatingOn", "Number of the order.", "Número da encomenda."},
    {"OrderReferences.OrderDate", "Day of the order.", "Data da encomenda."},

    {"CreditNote.InvoiceNo", "Document of the line, as in invoices.csv.", "Documento da linha, como em invoices.csv.",
     "FT A/1"},
    {"CreditNote.LineNumber", "Line of the document.", "Linha do documento."},
    {"CreditNote.Reference", "Number of the document that is corrected.", "Número do documento retificado."},
    {"CreditNote.Reason", "Why it is corrected.", "Motivo da retificação."},

    {"*Address.BuildingNumber", "Number of the door.", "Número de polícia."},
    {"*Address.StreetName", "Street.", "Nome da rua."},
    {"*Address.AddressDetail", "Whole address, without the postal code.", "Morada completa, sem o código postal."},
    {"*Address.City", "Town.", "Localidade."},
    {"*Address.PostalCode", "Postal code.", "Código postal."},
    {"*Address.Region", "District.", "Distrito."},
    {"*Address.Country", "Country of the address.", "País da morada."},
});

// Whether a row is for a column, which is named from its kind.
bool IsFor(const Meaning& meaning, std::string_view kind, std::string_view column) {
  if (meaning.column.starts_with('*')) return column.ends_with(meaning.column.substr(1));
  return meaning.column.size() == kind.size() + 1 + column.size() && meaning.column.starts_with(kind) &&
         meaning.column.ends_with(column) && meaning.column[kind.size()] == '.';
}

}  // namespace

std::span<const Meaning> Meanings() { return kMeanings; }

const Meaning* MeaningOf(std::string_view kind, std::string_view column) {
  const auto found =
      std::ranges::find_if(kMeanings, [&](const Meaning& meaning) { return IsFor(meaning, kind, column); });
  return found == kMeanings.end() ? nullptr : &*found;
}

}  // namespace zevo::saft
