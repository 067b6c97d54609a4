// The shipped schema against documents that must pass and documents that must fail: one complete valid document, and
// cases that each change it in one place.

#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaValidator.h>

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

// Holds every element that a file can hold, the optional ones too. Values that a case replaces occur once.
constexpr std::string_view kDocument = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
  <Header>
    <AuditFileVersion>1.01_01</AuditFileVersion>
    <CompanyID>Porto 12345</CompanyID>
    <TaxRegistrationNumber>501234567</TaxRegistrationNumber>
    <TaxAccountingBasis>I</TaxAccountingBasis>
    <CompanyName>Padaria São João, Lda.</CompanyName>
    <BusinessName>Pão &amp; Companhia</BusinessName>
    <CompanyAddress>
      <BuildingNumber>12-A</BuildingNumber>
      <StreetName>Rua da Alegria</StreetName>
      <AddressDetail>Rua da Alegria, 12-A</AddressDetail>
      <City>Porto</City>
      <PostalCode>4000-041</PostalCode>
      <Region>Douro Litoral</Region>
      <Country>PT</Country>
    </CompanyAddress>
    <FiscalYear>2008</FiscalYear>
    <StartDate>2008-01-01</StartDate>
    <EndDate>2008-12-31</EndDate>
    <CurrencyCode>EUR</CurrencyCode>
    <DateCreated>2009-01-15</DateCreated>
    <TaxEntity>Global</TaxEntity>
    <ProductCompanyTaxID>509876543</ProductCompanyTaxID>
    <SoftwareCertificateNumber>1234</SoftwareCertificateNumber>
    <ProductID>Contas Certas/Casa do Código</ProductID>
    <ProductVersion>7.2</ProductVersion>
    <HeaderComment>Exercício completo</HeaderComment>
    <Telephone>223456789</Telephone>
    <Fax>223456790</Fax>
    <Email>geral@padaria.example</Email>
    <Website>www.padaria.example</Website>
  </Header>
  <MasterFiles>
    <Product>
      <ProductType>P</ProductType>
      <ProductCode>PAO</ProductCode>
      <ProductGroup>Padaria</ProductGroup>
      <ProductDescription>Pão de trigo</ProductDescription>
      <ProductNumberCode>5601234567890</ProductNumberCode>
    </Product>
    <GeneralLedger>
      <AccountID>11</AccountID>
      <AccountDescription>Caixa</AccountDescription>
      <OpeningDebitBalance>1500.00</OpeningDebitBalance>
      <OpeningCreditBalance>0.00</OpeningCreditBalance>
    </GeneralLedger>
    <Customer>
      <CustomerID>C1</CustomerID>
      <AccountID>21111</AccountID>
      <CustomerTaxID>502222222</CustomerTaxID>
      <CompanyName>Café Avenida</CompanyName>
      <Contact>Inês Brandão</Contact>
      <BillingAddress>
        <BuildingNumber>7</BuildingNumber>
        <StreetName>Avenida Central</StreetName>
        <AddressDetail>Avenida Central, 7</AddressDetail>
        <City>Braga</City>
        <PostalCode>4710-229 BRAGA</PostalCode>
        <Region>Minho</Region>
        <Country>AO</Country>
      </BillingAddress>
      <ShipToAddress>
        <BuildingNumber>8</BuildingNumber>
        <StreetName>Praça Velha</StreetName>
        <AddressDetail>Praça Velha, 8</AddressDetail>
        <City>Guimarães</City>
        <PostalCode>4800</PostalCode>
        <Region>Ave</Region>
        <Country>Desconhecido</Country>
      </ShipToAddress>
      <Telephone>253000001</Telephone>
      <Fax>253000002</Fax>
      <Email>cafe@avenida.example</Email>
      <Website>www.avenida.example</Website>
      <SelfBillingIndicator>1</SelfBillingIndicator>
    </Customer>
    <Supplier>
      <SupplierID>F1</SupplierID>
      <AccountID>22111</AccountID>
      <SupplierTaxID>503333333</SupplierTaxID>
      <CompanyName>Moagem do Sul</CompanyName>
      <Contact>Rui Açor</Contact>
      <BillingAddress>
        <BuildingNumber>9</BuildingNumber>
        <StreetName>Estrada Nova</StreetName>
        <AddressDetail>Estrada Nova, 9</AddressDetail>
        <City>Évora</City>
        <PostalCode>7000-093</PostalCode>
        <Region>Alentejo</Region>
        <Country>ES</Country>
      </BillingAddress>
      <ShipFromAddress>
        <BuildingNumber>10</BuildingNumber>
        <StreetName>Largo do Moinho</StreetName>
        <AddressDetail>Largo do Moinho, 10</AddressDetail>
        <City>Beja</City>
        <PostalCode>7800-001</PostalCode>
        <Region>Baixo Alentejo</Region>
        <Country>FR</Country>
      </ShipFromAddress>
      <Telephone>266000001</Telephone>
      <Fax>266000002</Fax>
      <Email>geral@moagem.example</Email>
      <Website>www.moagem.example</Website>
      <SelfBillingIndicator>00</SelfBillingIndicator>
    </Supplier>
    <TaxTable>
      <TaxTableEntry>
        <TaxType>IVA</TaxType>
        <TaxCountryRegion>PT-AC</TaxCountryRegion>
        <TaxCode>RED</TaxCode>
        <Description>Taxa reduzida dos Açores</Description>
        <TaxExpirationDate>2010-06-30</TaxExpirationDate>
        <TaxPercentage>4.00</TaxPercentage>
      </TaxTableEntry>
      <TaxTableEntry>
        <TaxType>IS</TaxType>
        <TaxCountryRegion>PT-MA</TaxCountryRegion>
        <TaxCode>17.3.1</TaxCode>
        <Description>Imposto do selo</Description>
        <TaxAmount>5.25</TaxAmount>
      </TaxTableEntry>
    </TaxTable>
    <Customer>
      <CustomerID>C2</CustomerID>
      <AccountID>Desconhecido</AccountID>
      <CustomerTaxID>999999990</CustomerTaxID>
      <CompanyName>Consumidor final</CompanyName>
      <BillingAddress>
        <AddressDetail>Sem morada</AddressDetail>
        <City>Lisboa</City>
        <PostalCode>1000-001</PostalCode>
        <Country>BR</Country>
      </BillingAddress>
      <SelfBillingIndicator>0</SelfBillingIndicator>
    </Customer>
    <Supplier>
      <SupplierID>F2</SupplierID>
      <AccountID>22112</AccountID>
      <SupplierTaxID>504444444</SupplierTaxID>
      <CompanyName>Leveduras do Norte</CompanyName>
      <BillingAddress>
        <AddressDetail>Zona Industrial, lote 4</AddressDetail>
        <City>Maia</City>
        <PostalCode>4470-001</PostalCode>
        <Country>DE</Country>
      </BillingAddress>
      <SelfBillingIndicator>+0</SelfBillingIndicator>
    </Supplier>
    <Product>
      <ProductType>S</ProductType>
      <ProductCode>ENTREGA</ProductCode>
      <ProductDescription>Entrega ao domicílio</ProductDescription>
      <ProductNumberCode>S-001</ProductNumberCode>
    </Product>
    <GeneralLedger>
      <AccountID>21A</AccountID>
      <AccountDescription>Clientes</AccountDescription>
      <OpeningDebitBalance>20</OpeningDebitBalance>
      <OpeningCreditBalance>-20</OpeningCreditBalance>
    </GeneralLedger>
  </MasterFiles>
  <GeneralLedgerEntries>
    <NumberOfEntries>3</NumberOfEntries>
    <TotalDebit>300.00</TotalDebit>
    <TotalCredit>300.01</TotalCredit>
    <Journal>
      <JournalID>VENDAS</JournalID>
      <Description>Diário de vendas</Description>
      <Transaction>
        <TransactionID>2008-03-05 VENDAS 0001</TransactionID>
        <Period>3</Period>
        <TransactionDate>2008-03-05</TransactionDate>
        <SourceID>inês</SourceID>
        <Description>Fatura ao Café Avenida</Description>
        <DocArchivalNumber>ARQ-1</DocArchivalNumber>
        <TransactionType>N</TransactionType>
        <GLPostingDate>2008-03-06T09:00:00</GLPostingDate>
        <CustomerID>C1 em conta</CustomerID>
        <SupplierID>F1 em conta</SupplierID>
        <Line>
          <RecordID>1</RecordID>
          <AccountID>21111B</AccountID>
          <SourceDocumentID>FT 2008/1 em arquivo</SourceDocumentID>
          <SystemEntryDate>2008-03-05T10:00:00</SystemEntryDate>
          <Description>Cliente</Description>
          <DebitAmount>100.01</DebitAmount>
        </Line>
        <Line>
          <RecordID>2</RecordID>
          <AccountID>71</AccountID>
          <SystemEntryDate>2008-03-05T10:00:01</SystemEntryDate>
          <Description>Venda</Description>
          <CreditAmount>100.02</CreditAmount>
        </Line>
      </Transaction>
      <Transaction>
        <TransactionID>2008-03-06 VENDAS 0002</TransactionID>
        <Period>16</Period>
        <TransactionDate>2008-03-07</TransactionDate>
        <Description>Segunda venda</Description>
        <DocArchivalNumber>ARQ-2</DocArchivalNumber>
        <TransactionType>R</TransactionType>
        <GLPostingDate>2008-03-07T09:00:00</GLPostingDate>
        <Line>
          <RecordID>3</RecordID>
          <AccountID>72</AccountID>
          <SystemEntryDate>2008-03-07T10:00:00</SystemEntryDate>
          <Description>Serviço</Description>
          <CreditAmount>100.03</CreditAmount>
        </Line>
      </Transaction>
    </Journal>
    <Journal>
      <JournalID>COMPRAS</JournalID>
      <Description>Diário de compras</Description>
      <Transaction>
        <TransactionID>2008-03-08 COMPRAS 0001</TransactionID>
        <Period>4</Period>
        <TransactionDate>2008-03-08</TransactionDate>
        <Description>Compra de farinha</Description>
        <DocArchivalNumber>ARQ-3</DocArchivalNumber>
        <TransactionType>A</TransactionType>
        <GLPostingDate>2008-03-08T09:00:00</GLPostingDate>
        <Line>
          <RecordID>4</RecordID>
          <AccountID>31</AccountID>
          <SystemEntryDate>2008-03-08T10:00:00</SystemEntryDate>
          <Description>Farinha</Description>
          <DebitAmount>100.04</DebitAmount>
        </Line>
      </Transaction>
    </Journal>
  </GeneralLedgerEntries>
  <SourceDocuments>
    <SalesInvoices>
      <NumberOfEntries>2</NumberOfEntries>
      <TotalDebit>200.00</TotalDebit>
      <TotalCredit>200.01</TotalCredit>
      <Invoice>
        <InvoiceNo>FT 2008/1</InvoiceNo>
        <InvoiceStatus>N</InvoiceStatus>
        <Hash>mYJEv4iGwLcnQbRD7dPs2uD1mX08XjXIKcGg3GEHmwM=</Hash>
        <HashControl>1.0</HashControl>
        <Period>12</Period>
        <InvoiceDate>2008-03-09</InvoiceDate>
        <InvoiceType>FT</InvoiceType>
        <SelfBillingIndicator>000</SelfBillingIndicator>
        <SystemEntryDate>2008-03-09T10:00:00</SystemEntryDate>
        <TransactionID>2008-03-09 VENDAS 0009</TransactionID>
        <CustomerID>C1</CustomerID>
        <ShipTo>
          <DeliveryID>Entrega 1</DeliveryID>
          <DeliveryDate>2008-03-10</DeliveryDate>
          <Address>
            <BuildingNumber>11</BuildingNumber>
            <StreetName>Rua Direita</StreetName>
            <AddressDetail>Rua Direita, 11</AddressDetail>
            <City>Viseu</City>
            <PostalCode>3500-115</PostalCode>
            <Region>Dão</Region>
            <Country>BE</Country>
          </Address>
        </ShipTo>
        <ShipFrom>
          <DeliveryID>Saída 1</DeliveryID>
          <DeliveryDate>2008-03-11</DeliveryDate>
          <Address>
            <BuildingNumber>13</BuildingNumber>
            <StreetName>Rua do Cais</StreetName>
            <AddressDetail>Rua do Cais, 13</AddressDetail>
            <City>Gaia</City>
            <PostalCode>4400-001</PostalCode>
            <Region>Porto</Region>
            <Country>CH</Country>
          </Address>
        </ShipFrom>
        <Line>
          <LineNumber>1</LineNumber>
          <OrderReferences>
            <OriginatingON>Encomenda 1</OriginatingON>
            <OrderDate>2008-03-01</OrderDate>
          </OrderReferences>
          <OrderReferences>
            <OriginatingON>Encomenda 2</OriginatingON>
          </OrderReferences>
          <ProductCode>PAO</ProductCode>
          <ProductDescription>Pão fatiado</ProductDescription>
          <Quantity>10</Quantity>
          <UnitOfMeasure>kg</UnitOfMeasure>
          <UnitPrice>2.0000</UnitPrice>
          <TaxPointDate>2008-03-12</TaxPointDate>
          <References>
            <CreditNote>
              <Reference>FT 2008/0</Reference>
              <Reason>Devolução</Reason>
            </CreditNote>
          </References>
          <Description>Pão entregue</Description>
          <CreditAmount>20.00</CreditAmount>
          <Tax>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion>PT</TaxCountryRegion>
            <TaxCode>INT</TaxCode>
            <TaxPercentage>12.00</TaxPercentage>
          </Tax>
          <TaxExemptionReason>Artigo 9.º</TaxExemptionReason>
          <SettlementAmount>1.00</SettlementAmount>
        </Line>
        <Line>
          <LineNumber>2</LineNumber>
          <ProductCode>ENTREGA</ProductCode>
          <ProductDescription>Entrega urgente</ProductDescription>
          <Quantity>-1.5</Quantity>
          <UnitOfMeasure>h</UnitOfMeasure>
          <UnitPrice>-3</UnitPrice>
          <TaxPointDate>2008-03-13</TaxPointDate>
          <Description>Acerto</Description>
          <DebitAmount>4.50</DebitAmount>
        </Line>
        <DocumentTotals>
          <TaxPayable>2.40</TaxPayable>
          <NetTotal>15.50</NetTotal>
          <GrossTotal>17.90</GrossTotal>
          <Currency>
            <CurrencyCode>USD</CurrencyCode>
            <CurrencyCreditAmount>25.00</CurrencyCreditAmount>
          </Currency>
          <Settlement>
            <SettlementDiscount>2% a 30 dias</SettlementDiscount>
            <SettlementAmount>0.36</SettlementAmount>
            <SettlementDate>2008-04-08</SettlementDate>
            <PaymentMechanism>TB</PaymentMechanism>
          </Settlement>
        </DocumentTotals>
      </Invoice>
      <Invoice>
        <InvoiceNo>NC 2008/1</InvoiceNo>
        <InvoiceStatus>A</InvoiceStatus>
        <Hash>0</Hash>
        <InvoiceDate>2008-03-14</InvoiceDate>
        <InvoiceType>NC</InvoiceType>
        <SelfBillingIndicator>0000</SelfBillingIndicator>
        <SystemEntryDate>2008-03-14T10:00:00</SystemEntryDate>
        <CustomerID>C1</CustomerID>
        <Line>
          <LineNumber>3</LineNumber>
          <ProductCode>PAO</ProductCode>
          <ProductDescription>Pão devolvido</ProductDescription>
          <Quantity>5</Quantity>
          <UnitOfMeasure>un</UnitOfMeasure>
          <UnitPrice>1</UnitPrice>
          <TaxPointDate>2008-03-14</TaxPointDate>
          <Description>Devolução de pão</Description>
          <DebitAmount>5</DebitAmount>
          <Tax>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion>AF</TaxCountryRegion>
            <TaxCode>OUT</TaxCode>
            <TaxAmount>0.60</TaxAmount>
          </Tax>
        </Line>
        <DocumentTotals>
          <TaxPayable>0.60</TaxPayable>
          <NetTotal>5.00</NetTotal>
          <GrossTotal>5.60</GrossTotal>
          <Currency>
            <CurrencyDebitAmount>7.00</CurrencyDebitAmount>
          </Currency>
        </DocumentTotals>
      </Invoice>
    </SalesInvoices>
  </SourceDocuments>
</AuditFile>
)xml";

// One replacement on the valid document, and what comes of it.
struct SchemaCase {
  std::string name;
  std::string text;  // occurs once in the document
  std::string replacement;
  std::string violation;  // part of the description of the first violation; empty when the document stays valid
};

void PrintTo(const SchemaCase& schema_case, std::ostream* out) { *out << schema_case.name; }

constexpr std::string_view kValid = "";
constexpr std::string_view kPattern = "[facet 'pattern']";
constexpr std::string_view kLength = "[facet 'length']";
constexpr std::string_view kMinLength = "[facet 'minLength']";
constexpr std::string_view kMaxLength = "[facet 'maxLength']";
constexpr std::string_view kEnumeration = "[facet 'enumeration']";
constexpr std::string_view kMinInclusive = "[facet 'minInclusive']";
constexpr std::string_view kMaxInclusive = "[facet 'maxInclusive']";
constexpr std::string_view kNotExpected = "This element is not expected.";
constexpr std::string_view kNoChildren = "Missing child element(s).";

std::string Leaf(std::string_view element, std::string_view value) {
  return "<" + std::string(element) + ">" + std::string(value) + "</" + std::string(element) + ">";
}

// The part of the document from the first `start` through the next `end`.
std::string Part(std::string_view start, std::string_view end) {
  const std::size_t first = kDocument.find(start);
  const std::size_t last = kDocument.find(end, first);
  if (first == std::string_view::npos || last == std::string_view::npos) return std::string(start);
  return std::string(kDocument.substr(first, last + end.size() - first));
}

// The first element of that name, whole.
std::string Group(std::string_view element) {
  return Part("<" + std::string(element) + ">", "</" + std::string(element) + ">");
}

// As a violation begins that is reported at an element.
std::string At(std::string_view element, std::string_view violation) {
  return "}" + std::string(element) + "': " + std::string(violation);
}

// As a violation ends that comes of an element left out: it is the last of those that could have followed.
std::string Lacks(std::string_view element) { return "}" + std::string(element) + " )."; }

std::string Repeated(std::string_view text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

// A leaf takes another value.
struct ValueCase {
  std::string_view name;
  std::string_view element;
  std::string_view value;
  std::string new_value;
  std::string_view violation;
};

std::vector<SchemaCase> FromValueCases(const std::vector<ValueCase>& rows) {
  std::vector<SchemaCase> cases;
  for (const ValueCase& row : rows) {
    cases.push_back({std::string(row.name), Leaf(row.element, row.value), Leaf(row.element, row.new_value),
                     row.violation.empty() ? "" : At(row.element, row.violation)});
  }
  return cases;
}

// A leaf, known by the value that it has in the document.
struct LeafRow {
  std::string_view owner;
  std::string_view element;
  std::string_view value;
};

// Texts are counted in characters, not bytes: the letter that fills them has two bytes.
std::vector<SchemaCase> LengthCases() {
  struct Row {
    LeafRow leaf;
    std::size_t max_length;
  };
  const std::vector<Row> rows = {
      {{"Header", "CompanyName", "Padaria São João, Lda."}, 60},
      {{"Header", "BusinessName", "Pão &amp; Companhia"}, 60},
      {{"Header", "TaxEntity", "Global"}, 20},
      {{"Header", "ProductCompanyTaxID", "509876543"}, 20},
      {{"Header", "SoftwareCertificateNumber", "1234"}, 20},
      {{"Header", "ProductVersion", "7.2"}, 30},
      {{"Header", "HeaderComment", "Exercício completo"}, 255},
      {{"Header", "Telephone", "223456789"}, 20},
      {{"Header", "Fax", "223456790"}, 20},
      {{"Header", "Email", "geral@padaria.example"}, 60},
      {{"Header", "Website", "www.padaria.example"}, 60},
      {{"CompanyAddress", "BuildingNumber", "12-A"}, 10},
      {{"CompanyAddress", "StreetName", "Rua da Alegria"}, 50},
      {{"CompanyAddress", "AddressDetail", "Rua da Alegria, 12-A"}, 60},
      {{"CompanyAddress", "City", "Porto"}, 50},
      {{"CompanyAddress", "Region", "Douro Litoral"}, 50},
      {{"GeneralLedger", "AccountDescription", "Caixa"}, 60},
      {{"Customer", "CustomerID", "C2"}, 30},
      {{"Customer", "CustomerTaxID", "502222222"}, 20},
      {{"Customer", "Contact", "Inês Brandão"}, 50},
      {{"Customer", "PostalCode", "4710-229 BRAGA"}, 20},
      {{"Customer", "Website", "www.avenida.example"}, 60},
      {{"Supplier", "SupplierID", "F1"}, 30},
      {{"Supplier", "SupplierTaxID", "503333333"}, 20},
      {{"Supplier", "PostalCode", "7000-093"}, 20},
      {{"Product", "ProductGroup", "Padaria"}, 50},
      {{"Product", "ProductDescription", "Pão de trigo"}, 60},
      {{"Product", "ProductNumberCode", "5601234567890"}, 50},
      {{"TaxTableEntry", "Description", "Imposto do selo"}, 255},
      {{"Journal", "JournalID", "VENDAS"}, 30},
      {{"Journal", "Description", "Diário de vendas"}, 60},
      {{"Transaction", "SourceID", "inês"}, 30},
      {{"Transaction", "DocArchivalNumber", "ARQ-1"}, 20},
      {{"Transaction", "CustomerID", "C1 em conta"}, 30},
      {{"TransactionLine", "RecordID", "1"}, 10},
      {{"TransactionLine", "SourceDocumentID", "FT 2008/1 em arquivo"}, 30},
      {{"TransactionLine", "Description", "Cliente"}, 60},
      {{"Invoice", "Hash", "mYJEv4iGwLcnQbRD7dPs2uD1mX08XjXIKcGg3GEHmwM="}, 200},
      {{"Invoice", "HashControl", "1.0"}, 40},
      {{"ShipTo", "DeliveryID", "Entrega 1"}, 30},
      {{"InvoiceLine", "OriginatingON", "Encomenda 1"}, 30},
      {{"InvoiceLine", "UnitOfMeasure", "kg"}, 20},
      {{"InvoiceLine", "Description", "Pão entregue"}, 60},
      {{"InvoiceLine", "TaxExemptionReason", "Artigo 9.º"}, 60},
      {{"CreditNote", "Reference", "FT 2008/0"}, 60},
      {{"CreditNote", "Reason", "Devolução"}, 50},
      {{"Settlement", "SettlementDiscount", "2% a 30 dias"}, 30},
  };
  std::vector<SchemaCase> cases;
  for (const auto& [leaf, max_length] : rows) {
    const std::string name = std::string(leaf.owner) + std::string(leaf.element);
    const std::string text = Leaf(leaf.element, leaf.value);
    cases.push_back({name + "OfOneCharacter", text, Leaf(leaf.element, "ã"), ""});
    cases.push_back({name + "AtItsLimit", text, Leaf(leaf.element, Repeated("ã", max_length)), ""});
    cases.push_back(
        {name + "PastItsLimit", text, Leaf(leaf.element, Repeated("ã", max_length + 1)), At(leaf.element, kMaxLength)});
    cases.push_back({name + "Empty", text, Leaf(leaf.element, ""), At(leaf.element, kMinLength)});
  }
  // Invoices refer to every product of the document, so it takes one more for a code that may be anything.
  const std::string before = "<MasterFiles>";
  const auto with_product = [&before](const std::string& code) {
    return before + "<Product><ProductType>P</ProductType>" + Leaf("ProductCode", code) +
           "<ProductDescription>Bolo</ProductDescription><ProductNumberCode>3</ProductNumberCode></Product>";
  };
  cases.push_back({"ProductCodeAtItsLimit", before, with_product(Repeated("ã", 30)), ""});
  cases.push_back({"ProductCodePastItsLimit", before, with_product(Repeated("ã", 31)), At("ProductCode", kMaxLength)});
  cases.push_back({"ProductCodeEmpty", before, with_product(""), At("ProductCode", kMinLength)});
  return cases;
}

std::vector<SchemaCase> PatternCases() {
  return FromValueCases({
      // The full stop of the version's pattern stands for any character.
      {"VersionWithAnyCharacterAfterTheFirst", "AuditFileVersion", "1.01_01", "1-01_01", kValid},
      {"VersionOfAnotherEdition", "AuditFileVersion", "1.01_01", "1.02_01", kPattern},
      {"VersionWithBlank", "AuditFileVersion", "1.01_01", "1.01_01 ", kPattern},
      {"CompanyIDOfDigits", "CompanyID", "Porto 12345", "501234567", kValid},
      {"CompanyIDOfOneDigit", "CompanyID", "Porto 12345", "5", kValid},
      {"CompanyIDWithHyphenAndSlash", "CompanyID", "Porto 12345", "Porto-3/A 12345", kValid},
      {"CompanyIDWithoutNumber", "CompanyID", "Porto 12345", "Porto", kPattern},
      {"CompanyIDWithTwoBlanks", "CompanyID", "Porto 12345", "Vila Real 12345", kPattern},
      {"CompanyIDWithAccent", "CompanyID", "Porto 12345", "Évora 12345", kPattern},
      {"CompanyIDAtItsLimit", "CompanyID", "Porto 12345", "Porto " + Repeated("1", 44), kValid},
      {"CompanyIDPastItsLimit", "CompanyID", "Porto 12345", "Porto " + Repeated("1", 45), kMaxLength},
      {"CompanyIDEmpty", "CompanyID", "Porto 12345", "", kMinLength},
      {"ProductIDAtItsLeast", "ProductID", "Contas Certas/Casa do Código", "á/b", kValid},
      {"ProductIDBelowItsLeast", "ProductID", "Contas Certas/Casa do Código", "a/", kMinLength},
      {"ProductIDWithoutCompany", "ProductID", "Contas Certas/Casa do Código", "Contas/", kPattern},
      {"ProductIDWithoutSlash", "ProductID", "Contas Certas/Casa do Código", "Contas Certas", kPattern},
      {"ProductIDWithTwoBlanks", "ProductID", "Contas Certas/Casa do Código", "Contas  Certas/Casa", kPattern},
      {"ProductIDWithPunctuation", "ProductID", "Contas Certas/Casa do Código", "Contas/Casa, Lda.", kPattern},
      {"ProductIDAtItsLimit", "ProductID", "Contas Certas/Casa do Código", "a/" + Repeated("ã", 253), kValid},
      {"ProductIDPastItsLimit", "ProductID", "Contas Certas/Casa do Código", "a/" + Repeated("ã", 254), kMaxLength},
      {"PostalCodeOfThePortugueseKindWithoutHyphen", "PostalCode", "4000-041", "4000041", kPattern},
      {"PostalCodeOfThePortugueseKindWithPlace", "PostalCode", "4000-041", "4000-041 PORTO", kPattern},
      {"PostalCodeOfThePortugueseKindInFourDigits", "PostalCode", "4000-041", "4000", kPattern},
      {"PostalCodeOfThePortugueseKindEmpty", "PostalCode", "4000-041", "", kPattern},
      {"PostalCodeOfAForeignCustomer", "PostalCode", "4710-229 BRAGA", "SW1A 1AA", kValid},
      {"PostalCodeOfAForeignSupplier", "PostalCode", "7000-093", "28001", kValid},
      {"LedgerAccountOfOneDigit", "AccountID", "11", "1", kValid},
      {"LedgerAccountWithLetters", "AccountID", "11", "8Zz9", kValid},
      {"LedgerAccountFromZero", "AccountID", "11", "01", kPattern},
      {"LedgerAccountFromNine", "AccountID", "11", "91", kPattern},
      {"LedgerAccountWithPoint", "AccountID", "11", "11.1", kPattern},
      {"LedgerAccountUnknown", "AccountID", "11", "Desconhecido", kPattern},
      {"LedgerAccountEmpty", "AccountID", "11", "", kMinLength},
      {"LedgerAccountAtItsLimit", "AccountID", "11", Repeated("1", 30), kValid},
      {"LedgerAccountPastItsLimit", "AccountID", "11", Repeated("1", 31), kMaxLength},
      {"TransactionLineAccountWithLetters", "AccountID", "21111B", "7a", kValid},
      {"TransactionLineAccountUnknown", "AccountID", "21111B", "Desconhecido", kPattern},
      {"TransactionLineAccountFromZero", "AccountID", "21111B", "0", kPattern},
      {"TransactionLineAccountPastItsLimit", "AccountID", "21111B", Repeated("2", 31), kMaxLength},
      {"CustomerAccountOfOneDigit", "AccountID", "21111", "2", kValid},
      {"CustomerAccountUnknown", "AccountID", "21111", "Desconhecido", kValid},
      {"CustomerAccountUnknownInSmallLetters", "AccountID", "21111", "desconhecido", kPattern},
      {"CustomerAccountFromNine", "AccountID", "21111", "9", kPattern},
      {"CustomerAccountEmpty", "AccountID", "21111", "", kMinLength},
      {"CustomerAccountAtItsLimit", "AccountID", "21111", Repeated("2", 30), kValid},
      {"CustomerAccountPastItsLimit", "AccountID", "21111", Repeated("2", 31), kMaxLength},
      {"SupplierAccountUnknown", "AccountID", "22111", "Desconhecido", kValid},
      {"SupplierAccountWithBlank", "AccountID", "22111", "22 111", kPattern},
      {"TaxCodeISE", "TaxCode", "RED", "ISE", kValid},
      {"TaxCodeNOR", "TaxCode", "RED", "NOR", kValid},
      {"TaxCodeOfAnotherWord", "TaxCode", "RED", "ESP", kPattern},
      {"TaxCodeOfWordAndNumber", "TaxCode", "RED", "RED1", kPattern},
      {"TaxCodeOfOneDigit", "TaxCode", "17.3.1", "1", kValid},
      {"TaxCodeOfPointsOnly", "TaxCode", "17.3.1", "..", kValid},
      {"TaxCodeWithComma", "TaxCode", "17.3.1", "17,3", kPattern},
      {"TaxCodeEmpty", "TaxCode", "17.3.1", "", kMinLength},
      {"TaxCodeAtItsLimit", "TaxCode", "17.3.1", "1234567.90", kValid},
      {"TaxCodePastItsLimit", "TaxCode", "17.3.1", "1234567.901", kMaxLength},
      {"InvoiceTaxCodeInSmallLetters", "TaxCode", "INT", "int", kPattern},
      {"InvoiceNoWithoutSeries", "InvoiceNo", "FT 2008/1", "FT /1", kValid},
      {"InvoiceNoWithEverySign", "InvoiceNo", "FT 2008/1", "f.T/_-9 a0/9", kValid},
      {"InvoiceNoWithoutNumber", "InvoiceNo", "FT 2008/1", "FT 2008/", kPattern},
      {"InvoiceNoWithoutType", "InvoiceNo", "FT 2008/1", "2008/1", kPattern},
      {"InvoiceNoWithTwoBlanks", "InvoiceNo", "FT 2008/1", "FT A 2008/1", kPattern},
      {"InvoiceNoWithHyphenInTheSeries", "InvoiceNo", "FT 2008/1", "FT 2008-A/1", kPattern},
      {"InvoiceNoEmpty", "InvoiceNo", "FT 2008/1", "", kMinLength},
      {"InvoiceNoAtItsLimit", "InvoiceNo", "FT 2008/1", "FT 2008/" + Repeated("1", 52), kValid},
      {"InvoiceNoPastItsLimit", "InvoiceNo", "FT 2008/1", "FT 2008/" + Repeated("1", 53), kMaxLength},
      {"TransactionIDWithUnderscore", "TransactionID", "2008-03-05 VENDAS 0001", "2008-03-05 V_1 1", kPattern},
      {"TransactionIDWithWordCharacters", "TransactionID", "2008-03-05 VENDAS 0001", "2008-03-05 Diário é1", kValid},
      {"TransactionIDOnAnImpossibleDay", "TransactionID", "2008-03-05 VENDAS 0001", "2008-19-39 V 1", kValid},
      {"TransactionIDInTheYearZero", "TransactionID", "2008-03-05 VENDAS 0001", "0008-03-05 V 1", kPattern},
      {"TransactionIDInTheTwentiethMonth", "TransactionID", "2008-03-05 VENDAS 0001", "2008-20-05 V 1", kPattern},
      {"TransactionIDOnTheFortiethDay", "TransactionID", "2008-03-05 VENDAS 0001", "2008-03-40 V 1", kPattern},
      {"TransactionIDWithoutDocument", "TransactionID", "2008-03-05 VENDAS 0001", "2008-03-05 VENDAS", kPattern},
      {"TransactionIDWithHyphen", "TransactionID", "2008-03-05 VENDAS 0001", "2008-03-05 V-1 1", kPattern},
      {"TransactionIDEmpty", "TransactionID", "2008-03-05 VENDAS 0001", "", kMinLength},
      {"TransactionIDOfTheLongestParts", "TransactionID", "2008-03-05 VENDAS 0001",
       "2008-03-05 " + Repeated("j", 30) + " " + Repeated("d", 20), kValid},
      {"TransactionIDOfATooLongJournal", "TransactionID", "2008-03-05 VENDAS 0001",
       "2008-03-05 " + Repeated("j", 31) + " 1", kPattern},
      {"TransactionIDOfATooLongDocument", "TransactionID", "2008-03-05 VENDAS 0001",
       "2008-03-05 j " + Repeated("d", 21), kPattern},
      {"TransactionIDPastItsLimit", "TransactionID", "2008-03-05 VENDAS 0001",
       "2008-03-05 " + Repeated("j", 30) + " " + Repeated("d", 29), kMaxLength},
      {"InvoiceTransactionIDWithoutDate", "TransactionID", "2008-03-09 VENDAS 0009", "VENDAS 9", kPattern},
  });
}

std::vector<SchemaCase> CodeCases() {
  std::vector<SchemaCase> cases = FromValueCases({
      {"CompanyCountryOtherThanPortugal", "Country", "PT", "ES",
       "The initial value 'ES' does not match the fixed value constraint 'PT'."},
      {"CompanyCountryUnknown", "Country", "PT", "Desconhecido", "The initial value 'Desconhecido' does not match"},
      {"CompanyCountryInSmallLetters", "Country", "PT", "pt", "The initial value 'pt' does not match"},
      {"CompanyCountryEmptyStandsForPortugal", "Country", "PT", "", kValid},
      {"CustomerCountryFirstOfTheList", "Country", "AO", "AF", kValid},
      {"CustomerCountryLastOfTheList", "Country", "AO", "ZW", kValid},
      {"CustomerCountryPortugal", "Country", "AO", "PT", kValid},
      {"CustomerCountryDissolved", "Country", "AO", "AN", kValid},
      {"CustomerCountryUnknown", "Country", "AO", "Desconhecido", kValid},
      {"CustomerCountryUnknownInSmallLetters", "Country", "AO", "desconhecido", kPattern},
      {"CustomerCountryOutsideTheList", "Country", "AO", "EU", kPattern},
      {"CustomerCountryYoungerThanTheList", "Country", "AO", "SX", kPattern},
      {"CustomerCountryInSmallLetters", "Country", "AO", "pt", kPattern},
      {"CustomerCountryOfThreeLetters", "Country", "AO", "PRT", kPattern},
      {"CustomerCountryOfTwoCodes", "Country", "AO", "PTES", kPattern},
      {"CustomerCountryARegion", "Country", "AO", "PT-AC", kPattern},
      {"CustomerCountryOfOneLetter", "Country", "AO", "P", kMinLength},
      {"CustomerCountryEmpty", "Country", "AO", "", kMinLength},
      {"ShipToAddressCountryKnown", "Country", "Desconhecido", "GB", kValid},
      {"ShipToCountryUnknown", "Country", "BE", "Desconhecido", kValid},
      {"ShipFromCountryOutsideTheList", "Country", "CH", "ZZ", kPattern},
      {"SupplierCountryFirstOfTheList", "Country", "ES", "AF", kValid},
      {"SupplierCountryLastOfTheList", "Country", "ES", "ZW", kValid},
      {"SupplierCountryPortugal", "Country", "ES", "PT", kValid},
      {"SupplierCountryUnknown", "Country", "ES", "Desconhecido", kLength},
      {"SupplierCountryOutsideTheList", "Country", "ES", "XX", kPattern},
      {"SupplierCountryOfOneLetter", "Country", "ES", "E", kLength},
      {"SupplierCountryOfThreeLetters", "Country", "ES", "ESP", kLength},
      {"SupplierCountryEmpty", "Country", "ES", "", kLength},
      {"SupplierShipFromCountryKnown", "Country", "FR", "IT", kValid},
      {"SupplierShipFromCountryUnknown", "Country", "FR", "Desconhecido", kLength},
      {"TaxRegionCountry", "TaxCountryRegion", "PT-AC", "ES", kValid},
      {"TaxRegionLastOfTheList", "TaxCountryRegion", "PT-AC", "ZW", kValid},
      {"TaxRegionMadeira", "TaxCountryRegion", "PT-AC", "PT-MA", kValid},
      {"TaxRegionThatIsNone", "TaxCountryRegion", "PT-AC", "PT-LX", kPattern},
      {"TaxRegionInSmallLetters", "TaxCountryRegion", "PT-AC", "PT-ac", kPattern},
      {"TaxRegionOutsideTheList", "TaxCountryRegion", "PT-AC", "UK", kPattern},
      {"TaxRegionUnknown", "TaxCountryRegion", "PT-AC", "Desconhecido", kMaxLength},
      {"TaxRegionOfOneLetter", "TaxCountryRegion", "PT-AC", "P", kMinLength},
      {"TaxRegionEmpty", "TaxCountryRegion", "PT-AC", "", kMinLength},
      {"TaxRegionPastItsLimit", "TaxCountryRegion", "PT-AC", "PT-ACO", kMaxLength},
      {"InvoiceTaxRegionAzores", "TaxCountryRegion", "PT", "PT-AC", kValid},
      {"InvoiceTaxRegionMadeira", "TaxCountryRegion", "PT", "PT-MA", kValid},
      {"InvoiceTaxRegionOutsideTheList", "TaxCountryRegion", "AF", "AA", kPattern},
      {"FileCurrencyOtherThanEuro", "CurrencyCode", "EUR", "GBP", kPattern},
      {"FileCurrencyInSmallLetters", "CurrencyCode", "EUR", "eur", kPattern},
      {"FileCurrencyEmpty", "CurrencyCode", "EUR", "", kPattern},
      {"InvoiceCurrencyFirstOfTheList", "CurrencyCode", "USD", "AED", kValid},
      {"InvoiceCurrencyLastOfTheList", "CurrencyCode", "USD", "ZWL", kValid},
      {"InvoiceCurrencyAloneWithItsLetter", "CurrencyCode", "USD", "QAR", kValid},
      {"InvoiceCurrencyForTests", "CurrencyCode", "USD", "XTS", kPattern},
      {"InvoiceCurrencyGoneBefore", "CurrencyCode", "USD", "PTE", kPattern},
      {"InvoiceCurrencyInSmallLetters", "CurrencyCode", "USD", "usd", kPattern},
      {"InvoiceCurrencyOfTwoLetters", "CurrencyCode", "USD", "US", kLength},
      {"InvoiceCurrencyOfFourLetters", "CurrencyCode", "USD", "USDX", kLength},
      {"InvoiceCurrencyEmpty", "CurrencyCode", "USD", "", kLength},
  });
  struct Row {
    std::string_view element;
    std::string_view value;
    std::vector<std::string_view> valid;
    std::vector<std::string_view> invalid;
  };
  const std::vector<Row> rows = {
      {"TaxAccountingBasis", "I", {"C", "F", "S", "P"}, {"N", "c", "CF"}},
      {"ProductType", "P", {"O", "I"}, {"A", "p", "PS"}},
      {"TaxType", "IS", {"IVA"}, {"IRS", "iva", "IV"}},
      {"TransactionType", "N", {"R", "A", "J"}, {"F", "n", "NR"}},
      {"InvoiceStatus", "N", {"S", "A", "F"}, {"R", "n", "NS"}},
      {"InvoiceType",
       "FT",
       {"FS", "ND", "NC", "VD", "TV", "TD", "AA", "DA", "RP", "RE", "CS", "LD", "RA"},
       {"FR", "ft", "F"}},
      {"PaymentMechanism", "TB", {"NU", "CH", "CD", "CC", "TR"}, {"MB", "tb", "T"}},
  };
  for (const Row& row : rows) {
    const std::string name(row.element);
    const std::string text = Leaf(row.element, row.value);
    for (const std::string_view code : row.valid) {
      cases.push_back({name + "Is_" + std::string(code), text, Leaf(row.element, code), ""});
    }
    for (const std::string_view code : row.invalid) {
      cases.push_back(
          {name + "IsNot_" + std::string(code), text, Leaf(row.element, code), At(row.element, kEnumeration)});
    }
    cases.push_back({name + "Empty", text, Leaf(row.element, ""), At(row.element, kEnumeration)});
  }
  return cases;
}

std::vector<SchemaCase> NumberAndDateCases() {
  std::vector<SchemaCase> cases = FromValueCases({
      {"TaxRegistrationNumberAtItsLeast", "TaxRegistrationNumber", "501234567", "100000000", kValid},
      {"TaxRegistrationNumberBelowItsLeast", "TaxRegistrationNumber", "501234567", "99999999", kMinInclusive},
      {"TaxRegistrationNumberAtItsMost", "TaxRegistrationNumber", "501234567", "999999999", kValid},
      {"TaxRegistrationNumberAboveItsMost", "TaxRegistrationNumber", "501234567", "1000000000", kMaxInclusive},
      {"FiscalYearAtItsLeast", "FiscalYear", "2008", "2000", kValid},
      {"FiscalYearBelowItsLeast", "FiscalYear", "2008", "1999", kMinInclusive},
      {"FiscalYearAtItsMost", "FiscalYear", "2008", "9999", kValid},
      {"FiscalYearAboveItsMost", "FiscalYear", "2008", "10000", kMaxInclusive},
      {"StartDateAtItsLeast", "StartDate", "2008-01-01", "2000-01-01", kValid},
      {"StartDateBelowItsLeast", "StartDate", "2008-01-01", "1999-12-31", kMinInclusive},
      {"StartDateAtItsMost", "StartDate", "2008-01-01", "9999-12-31", kValid},
      {"StartDateAboveItsMost", "StartDate", "2008-01-01", "10000-01-01", kMaxInclusive},
      {"EndDateAtItsLeast", "EndDate", "2008-12-31", "2000-01-01", kValid},
      {"EndDateBelowItsLeast", "EndDate", "2008-12-31", "1999-12-31", kMinInclusive},
      {"EndDateAboveItsMost", "EndDate", "2008-12-31", "10000-01-01", kMaxInclusive},
      {"DateCreatedBelowItsLeast", "DateCreated", "2009-01-15", "1999-12-31", kMinInclusive},
      {"DateCreatedAboveItsMost", "DateCreated", "2009-01-15", "10000-01-01", kMaxInclusive},
      {"InvoiceDateHasNoLeast", "InvoiceDate", "2008-03-09", "1999-12-31", kValid},
      {"AccountingPeriodAtItsLeast", "Period", "3", "1", kValid},
      {"AccountingPeriodBelowItsLeast", "Period", "3", "0", kMinInclusive},
      {"AccountingPeriodAtItsMost", "Period", "3", "16", kValid},
      {"AccountingPeriodAboveItsMost", "Period", "3", "17", kMaxInclusive},
      {"InvoicePeriodAtItsLeast", "Period", "12", "1", kValid},
      {"InvoicePeriodBelowItsLeast", "Period", "12", "0", kMinInclusive},
      {"InvoicePeriodAboveItsMost", "Period", "12", "13", kMaxInclusive},
      {"SelfBillingIndicatorZero", "SelfBillingIndicator", "1", "0", kValid},
      {"SelfBillingIndicatorBelowZero", "SelfBillingIndicator", "1", "-1", kMinInclusive},
      {"SelfBillingIndicatorTwo", "SelfBillingIndicator", "1", "2", kMaxInclusive},
      {"SupplierSelfBillingIndicatorOne", "SelfBillingIndicator", "00", "1", kValid},
      {"SupplierSelfBillingIndicatorTwo", "SelfBillingIndicator", "00", "2", kMaxInclusive},
      {"InvoiceSelfBillingIndicatorTwo", "SelfBillingIndicator", "000", "2", kMaxInclusive},
      {"NumberOfEntriesBelowZero", "NumberOfEntries", "3", "-1", kValid},
      {"OpeningBalanceBelowZero", "OpeningDebitBalance", "1500.00", "-0.01", kValid},
      {"AmountOfTheShortestForm", "TotalDebit", "300.00", ".5", kValid},
      {"AmountOfManyDecimals", "UnitPrice", "2.0000", "2.000001", kValid},
      {"EntryDateWithSecondsAndZone", "SystemEntryDate", "2008-03-05T10:00:00", "2008-03-05T10:00:00.5Z", kValid},
  });
  struct Row {
    std::string_view owner;
    std::string_view element;
    std::string_view value;
    std::string_view wrong;
  };
  const std::vector<Row> rows = {
      {"Header", "TaxRegistrationNumber", "501234567", "PT501234567"},
      {"Header", "FiscalYear", "2008", "2008.5"},
      {"Header", "StartDate", "2008-01-01", "01-01-2008"},
      {"Header", "EndDate", "2008-12-31", "2008-02-30"},
      {"Header", "DateCreated", "2009-01-15", "2009-01-15T00:00:00"},
      {"GeneralLedger", "OpeningDebitBalance", "1500.00", "1.500,00"},
      {"GeneralLedger", "OpeningCreditBalance", "0.00", ""},
      {"Customer", "SelfBillingIndicator", "1", "true"},
      {"TaxTableEntry", "TaxExpirationDate", "2010-06-30", "2010-06-31"},
      {"TaxTableEntry", "TaxPercentage", "4.00", "4%"},
      {"TaxTableEntry", "TaxAmount", "5.25", "5,25"},
      {"GeneralLedgerEntries", "NumberOfEntries", "3", "3.5"},
      {"GeneralLedgerEntries", "TotalDebit", "300.00", "300,00"},
      {"GeneralLedgerEntries", "TotalCredit", "300.01", "3e2"},
      {"Transaction", "Period", "3", "março"},
      {"Transaction", "TransactionDate", "2008-03-05", "2008/03/05"},
      {"Transaction", "GLPostingDate", "2008-03-06T09:00:00", "2008-03-06"},
      {"TransactionLine", "SystemEntryDate", "2008-03-05T10:00:00", "2008-03-05T10:00"},
      {"TransactionLine", "DebitAmount", "100.01", "cem"},
      {"TransactionLine", "CreditAmount", "100.02", ""},
      {"SalesInvoices", "NumberOfEntries", "2", "dois"},
      {"SalesInvoices", "TotalDebit", "200.00", "1 000.00"},
      {"SalesInvoices", "TotalCredit", "200.01", "EUR 1"},
      {"Invoice", "Period", "12", "12.0"},
      {"Invoice", "InvoiceDate", "2008-03-09", "2008-13-01"},
      {"Invoice", "SystemEntryDate", "2008-03-09T10:00:00", "2008-03-09 10:00:00"},
      {"ShipTo", "DeliveryDate", "2008-03-10", "2008-3-10"},
      {"InvoiceLine", "LineNumber", "1", "1.0"},
      {"InvoiceLine", "OrderDate", "2008-03-01", "2008-03"},
      {"InvoiceLine", "Quantity", "10", "10 kg"},
      {"InvoiceLine", "UnitPrice", "2.0000", "2,0000"},
      {"InvoiceLine", "TaxPointDate", "2008-03-12", "20080312"},
      {"InvoiceLine", "CreditAmount", "20.00", "INF"},
      {"InvoiceLine", "DebitAmount", "4.50", "NaN"},
      {"InvoiceLine", "SettlementAmount", "1.00", "um"},
      {"Tax", "TaxPercentage", "12.00", "doze"},
      {"Tax", "TaxAmount", "0.60", "0.6.0"},
      {"DocumentTotals", "TaxPayable", "2.40", "-"},
      {"DocumentTotals", "NetTotal", "15.50", "15.50 EUR"},
      {"DocumentTotals", "GrossTotal", "17.90", ""},
      {"Currency", "CurrencyCreditAmount", "25.00", "25,00"},
      {"Currency", "CurrencyDebitAmount", "7.00", "$7"},
      {"Settlement", "SettlementAmount", "0.36", "2%"},
      {"Settlement", "SettlementDate", "2008-04-08", "a pronto"},
  };
  for (const Row& row : rows) {
    const std::string problem = "'" + std::string(row.wrong) + "' is not a valid value of the";
    cases.push_back({std::string(row.owner) + std::string(row.element) + "OfAnotherKind", Leaf(row.element, row.value),
                     Leaf(row.element, row.wrong), At(row.element, problem)});
  }
  return cases;
}

// Leaves that may be left out, and leaves that may not: the first violation then names the one that is missed. None may
// stand twice.
std::vector<SchemaCase> PresenceCases() {
  const std::vector<LeafRow> optional = {
      {"Header", "BusinessName", "Pão &amp; Companhia"},
      {"Header", "HeaderComment", "Exercício completo"},
      {"Header", "Telephone", "223456789"},
      {"Header", "Fax", "223456790"},
      {"Header", "Email", "geral@padaria.example"},
      {"Header", "Website", "www.padaria.example"},
      {"CompanyAddress", "BuildingNumber", "12-A"},
      {"CompanyAddress", "StreetName", "Rua da Alegria"},
      {"CompanyAddress", "Region", "Douro Litoral"},
      {"Customer", "Contact", "Inês Brandão"},
      {"Customer", "Telephone", "253000001"},
      {"Customer", "Fax", "253000002"},
      {"Customer", "Email", "cafe@avenida.example"},
      {"Customer", "Website", "www.avenida.example"},
      {"BillingAddress", "BuildingNumber", "7"},
      {"BillingAddress", "StreetName", "Avenida Central"},
      {"BillingAddress", "Region", "Minho"},
      {"Supplier", "Contact", "Rui Açor"},
      {"Supplier", "Telephone", "266000001"},
      {"Supplier", "Fax", "266000002"},
      {"Supplier", "Email", "geral@moagem.example"},
      {"Supplier", "Website", "www.moagem.example"},
      {"ShipFromAddress", "BuildingNumber", "10"},
      {"ShipFromAddress", "StreetName", "Largo do Moinho"},
      {"ShipFromAddress", "Region", "Baixo Alentejo"},
      {"Product", "ProductGroup", "Padaria"},
      {"TaxTableEntry", "TaxExpirationDate", "2010-06-30"},
      {"Transaction", "SourceID", "inês"},
      {"Transaction", "CustomerID", "C1 em conta"},
      {"Transaction", "SupplierID", "F1 em conta"},
      {"TransactionLine", "SourceDocumentID", "FT 2008/1 em arquivo"},
      {"Invoice", "HashControl", "1.0"},
      {"Invoice", "Period", "12"},
      {"Invoice", "TransactionID", "2008-03-09 VENDAS 0009"},
      {"ShipTo", "DeliveryID", "Entrega 1"},
      {"ShipTo", "DeliveryDate", "2008-03-10"},
      {"OrderReferences", "OriginatingON", "Encomenda 1"},
      {"OrderReferences", "OrderDate", "2008-03-01"},
      {"CreditNote", "Reference", "FT 2008/0"},
      {"CreditNote", "Reason", "Devolução"},
      {"InvoiceLine", "TaxExemptionReason", "Artigo 9.º"},
      {"InvoiceLine", "SettlementAmount", "1.00"},
      {"Currency", "CurrencyCode", "USD"},
      {"Currency", "CurrencyCreditAmount", "25.00"},
      {"Currency", "CurrencyDebitAmount", "7.00"},
      {"Settlement", "SettlementDiscount", "2% a 30 dias"},
      {"Settlement", "SettlementAmount", "0.36"},
      {"Settlement", "SettlementDate", "2008-04-08"},
      {"Settlement", "PaymentMechanism", "TB"},
  };
  const std::vector<LeafRow> required = {
      {"Header", "AuditFileVersion", "1.01_01"},
      {"Header", "CompanyID", "Porto 12345"},
      {"Header", "TaxRegistrationNumber", "501234567"},
      {"Header", "TaxAccountingBasis", "I"},
      {"Header", "CompanyName", "Padaria São João, Lda."},
      {"Header", "FiscalYear", "2008"},
      {"Header", "StartDate", "2008-01-01"},
      {"Header", "EndDate", "2008-12-31"},
      {"Header", "CurrencyCode", "EUR"},
      {"Header", "DateCreated", "2009-01-15"},
      {"Header", "TaxEntity", "Global"},
      {"Header", "ProductCompanyTaxID", "509876543"},
      {"Header", "SoftwareCertificateNumber", "1234"},
      {"Header", "ProductID", "Contas Certas/Casa do Código"},
      {"Header", "ProductVersion", "7.2"},
      {"CompanyAddress", "AddressDetail", "Rua da Alegria, 12-A"},
      {"CompanyAddress", "City", "Porto"},
      {"CompanyAddress", "PostalCode", "4000-041"},
      {"CompanyAddress", "Country", "PT"},
      {"GeneralLedger", "AccountID", "11"},
      {"GeneralLedger", "AccountDescription", "Caixa"},
      {"GeneralLedger", "OpeningDebitBalance", "1500.00"},
      {"GeneralLedger", "OpeningCreditBalance", "0.00"},
      {"Customer", "CustomerID", "C2"},
      {"Customer", "AccountID", "21111"},
      {"Customer", "CustomerTaxID", "502222222"},
      {"Customer", "CompanyName", "Café Avenida"},
      {"Customer", "SelfBillingIndicator", "1"},
      {"BillingAddress", "AddressDetail", "Avenida Central, 7"},
      {"BillingAddress", "City", "Braga"},
      {"BillingAddress", "PostalCode", "4710-229 BRAGA"},
      {"BillingAddress", "Country", "AO"},
      {"Supplier", "SupplierID", "F1"},
      {"Supplier", "AccountID", "22111"},
      {"Supplier", "SupplierTaxID", "503333333"},
      {"Supplier", "CompanyName", "Moagem do Sul"},
      {"Supplier", "SelfBillingIndicator", "00"},
      {"ShipFromAddress", "AddressDetail", "Largo do Moinho, 10"},
      {"ShipFromAddress", "City", "Beja"},
      {"ShipFromAddress", "PostalCode", "7800-001"},
      {"ShipFromAddress", "Country", "FR"},
      {"Product", "ProductType", "P"},
      {"Product", "ProductDescription", "Pão de trigo"},
      {"Product", "ProductNumberCode", "5601234567890"},
      {"TaxTableEntry", "TaxType", "IS"},
      {"TaxTableEntry", "TaxCountryRegion", "PT-MA"},
      {"TaxTableEntry", "TaxCode", "17.3.1"},
      {"TaxTableEntry", "Description", "Imposto do selo"},
      {"GeneralLedgerEntries", "NumberOfEntries", "3"},
      {"GeneralLedgerEntries", "TotalDebit", "300.00"},
      {"GeneralLedgerEntries", "TotalCredit", "300.01"},
      {"Journal", "JournalID", "VENDAS"},
      {"Journal", "Description", "Diário de vendas"},
      {"Transaction", "TransactionID", "2008-03-05 VENDAS 0001"},
      {"Transaction", "Period", "3"},
      {"Transaction", "TransactionDate", "2008-03-05"},
      {"Transaction", "Description", "Fatura ao Café Avenida"},
      {"Transaction", "DocArchivalNumber", "ARQ-1"},
      {"Transaction", "TransactionType", "N"},
      {"Transaction", "GLPostingDate", "2008-03-06T09:00:00"},
      {"TransactionLine", "RecordID", "1"},
      {"TransactionLine", "AccountID", "21111B"},
      {"TransactionLine", "SystemEntryDate", "2008-03-05T10:00:00"},
      {"TransactionLine", "Description", "Cliente"},
      {"SalesInvoices", "NumberOfEntries", "2"},
      {"SalesInvoices", "TotalDebit", "200.00"},
      {"SalesInvoices", "TotalCredit", "200.01"},
      {"Invoice", "InvoiceNo", "FT 2008/1"},
      {"Invoice", "InvoiceStatus", "N"},
      {"Invoice", "Hash", "mYJEv4iGwLcnQbRD7dPs2uD1mX08XjXIKcGg3GEHmwM="},
      {"Invoice", "InvoiceDate", "2008-03-09"},
      {"Invoice", "InvoiceType", "FT"},
      {"Invoice", "SelfBillingIndicator", "000"},
      {"Invoice", "SystemEntryDate", "2008-03-09T10:00:00"},
      {"InvoiceLine", "LineNumber", "1"},
      {"InvoiceLine", "ProductDescription", "Pão fatiado"},
      {"InvoiceLine", "Quantity", "10"},
      {"InvoiceLine", "UnitOfMeasure", "kg"},
      {"InvoiceLine", "UnitPrice", "2.0000"},
      {"InvoiceLine", "TaxPointDate", "2008-03-12"},
      {"InvoiceLine", "Description", "Pão entregue"},
      {"Tax", "TaxCountryRegion", "PT"},
      {"Tax", "TaxCode", "INT"},
      {"DocumentTotals", "TaxPayable", "2.40"},
      {"DocumentTotals", "NetTotal", "15.50"},
      {"DocumentTotals", "GrossTotal", "17.90"},
  };
  const std::vector<LeafRow> alternative = {
      {"TaxTableEntry", "TaxPercentage", "4.00"},
      {"TaxTableEntry", "TaxAmount", "5.25"},
      {"TransactionLine", "DebitAmount", "100.01"},
      {"TransactionLine", "CreditAmount", "100.02"},
      {"InvoiceLine", "DebitAmount", "4.50"},
      {"InvoiceLine", "CreditAmount", "20.00"},
      {"Tax", "TaxPercentage", "12.00"},
      {"Tax", "TaxAmount", "0.60"},
  };
  std::vector<SchemaCase> cases;
  for (const LeafRow& row : optional) {
    const std::string leaf = Leaf(row.element, row.value);
    cases.push_back({std::string(row.owner) + "Without" + std::string(row.element), leaf, "", ""});
  }
  for (const LeafRow& row : required) {
    const std::string leaf = Leaf(row.element, row.value);
    cases.push_back({std::string(row.owner) + "Lacks" + std::string(row.element), leaf, "", Lacks(row.element)});
  }
  for (const std::vector<LeafRow>& rows : {optional, required, alternative}) {
    for (const LeafRow& row : rows) {
      const std::string leaf = Leaf(row.element, row.value);
      cases.push_back({std::string(row.owner) + "WithTwo" + std::string(row.element), leaf, leaf + leaf,
                       At(row.element, kNotExpected)});
    }
  }
  // Leaves whose value occurs elsewhere too, known by what follows them.
  struct Row {
    LeafRow leaf;
    std::string_view next;
  };
  const std::vector<Row> known_by_the_next = {
      {{"Product", "ProductCode", "PAO"}, "\n      <ProductGroup>"},
      {{"Invoice", "CustomerID", "C1"}, "\n        <ShipTo>"},
      {{"InvoiceLine", "ProductCode", "PAO"}, "\n          <ProductDescription>Pão fatiado<"},
      {{"Tax", "TaxType", "IVA"}, "\n            <TaxCountryRegion>PT<"},
  };
  for (const auto& [row, next] : known_by_the_next) {
    const std::string leaf = Leaf(row.element, row.value);
    const std::string rest(next);
    cases.push_back(
        {std::string(row.owner) + "Lacks" + std::string(row.element), leaf + rest, rest, Lacks(row.element)});
    cases.push_back({std::string(row.owner) + "WithTwo" + std::string(row.element), leaf + rest, leaf + leaf + rest,
                     At(row.element, kNotExpected)});
  }
  return cases;
}

// Groups left out or doubled, elements out of order, choices.
std::vector<SchemaCase> StructureCases() {
  const std::string header = Group("Header");
  const std::string master_files = Group("MasterFiles");
  const std::string entries = Group("GeneralLedgerEntries");
  const std::string documents = Group("SourceDocuments");
  const std::string tax_table = Group("TaxTable");
  const std::string journal = Part("<Journal>\n      <JournalID>COMPRAS", "</Journal>");
  const std::string transaction = Part("<Transaction>\n        <TransactionID>2008-03-08", "</Transaction>");
  const std::string transaction_line = Part("<Line>\n          <RecordID>4", "</Line>");
  const std::string invoice_line = Part("<Line>\n          <LineNumber>3", "</Line>");
  const std::string tax = Group("Tax");
  const std::string order_references = Group("OrderReferences");
  const std::string references = Group("References");
  const std::string currency = Group("Currency");
  const std::string supplier_address = Part("<BillingAddress>\n        <BuildingNumber>9<", "</BillingAddress>");
  std::vector<SchemaCase> cases = {
      {"FileLacksHeader", header, "", At("MasterFiles", kNotExpected)},
      {"FileLacksMasterFiles", master_files, "", At("GeneralLedgerEntries", kNotExpected)},
      {"FileWithoutGeneralLedgerEntries", entries, "", ""},
      {"FileWithoutSourceDocuments", documents, "", ""},
      {"FileWithSourceDocumentsBeforeEntries", entries + "\n  " + documents, documents + "\n  " + entries,
       At("GeneralLedgerEntries", kNotExpected)},
      {"FileOfAnotherNamespace", "PT_1.01_01\" xmlns:xsi", "PT_1.02_01\" xmlns:xsi",
       "No matching global declaration available for the validation root."},
      {"FileWithUnknownAttribute", "<AuditFile ", "<AuditFile version=\"1\" ",
       "The attribute 'version' is not allowed."},
      {"HeaderWithUnknownAttribute", "<Header>", "<Header language=\"pt\">",
       "The attribute 'language' is not allowed."},
      {"HeaderWithElementInNoNamespace", "<Header>\n    <AuditFileVersion>",
       "<Header>\n    <Extra xmlns=\"\"/><AuditFileVersion>", "Element 'Extra': This element is not expected."},
      {"HeaderWithUnknownElement", "<Fax>223456790</Fax>", "<Fax>223456790</Fax><Telex>1</Telex>",
       At("Telex", kNotExpected)},
      {"HeaderWithText", "<Header>", "<Header>texto", "Character content other than whitespace is not allowed"},
      {"HeaderOutOfOrder", "<StartDate>2008-01-01</StartDate>\n    <EndDate>2008-12-31</EndDate>",
       "<EndDate>2008-12-31</EndDate><StartDate>2008-01-01</StartDate>", At("EndDate", kNotExpected)},
      {"HeaderContactsOutOfOrder", "<Telephone>223456789</Telephone>\n    <Fax>223456790</Fax>",
       "<Fax>223456790</Fax><Telephone>223456789</Telephone>", At("Telephone", kNotExpected)},
      {"HeaderLacksCompanyAddress", Group("CompanyAddress"), "", Lacks("CompanyAddress")},
      {"CompanyAddressOutOfOrder", "<City>Porto</City>\n      <PostalCode>4000-041</PostalCode>",
       "<PostalCode>4000-041</PostalCode><City>Porto</City>", At("PostalCode", kNotExpected)},
      {"MasterFilesEmpty", master_files, "<MasterFiles/>", At("MasterFiles", kNoChildren)},
      {"MasterFilesOfOneTaxTable", master_files + "\n  " + entries + "\n  " + documents,
       "<MasterFiles>" + tax_table + "</MasterFiles>", ""},
      {"MasterFilesWithTwoTaxTables", tax_table, tax_table + tax_table, ""},
      {"MasterFilesWithTaxTableEntry", tax_table, Group("TaxTableEntry"), At("TaxTableEntry", kNotExpected)},
      {"MasterFilesWithInvoice", "<MasterFiles>", "<MasterFiles><Invoice/>", At("Invoice", kNotExpected)},
      {"GeneralLedgerOutOfOrder", "<AccountID>11</AccountID>\n      <AccountDescription>Caixa</AccountDescription>",
       "<AccountDescription>Caixa</AccountDescription><AccountID>11</AccountID>",
       At("AccountDescription", kNotExpected)},
      {"CustomerOutOfOrder", "<AccountID>21111</AccountID>\n      <CustomerTaxID>502222222</CustomerTaxID>",
       "<CustomerTaxID>502222222</CustomerTaxID><AccountID>21111</AccountID>", At("CustomerTaxID", kNotExpected)},
      {"CustomerLacksBillingAddress", Group("BillingAddress"), "", Lacks("BillingAddress")},
      {"CustomerWithoutShipToAddress", Group("ShipToAddress"), "", ""},
      {"CustomerWithShipFromAddress", "<Telephone>253000001</Telephone>",
       "<ShipFromAddress/><Telephone>253000001</Telephone>", At("ShipFromAddress", kNotExpected)},
      {"SupplierOutOfOrder", "<AccountID>22111</AccountID>\n      <SupplierTaxID>503333333</SupplierTaxID>",
       "<SupplierTaxID>503333333</SupplierTaxID><AccountID>22111</AccountID>", At("SupplierTaxID", kNotExpected)},
      {"SupplierLacksBillingAddress", supplier_address, "", Lacks("BillingAddress")},
      {"SupplierWithoutShipFromAddress", Group("ShipFromAddress"), "", ""},
      {"SupplierWithShipToAddress", "<Telephone>266000001</Telephone>",
       "<ShipToAddress/><Telephone>266000001</Telephone>", At("ShipToAddress", kNotExpected)},
      {"ProductOutOfOrder",
       "<ProductGroup>Padaria</ProductGroup>\n      <ProductDescription>Pão de trigo</ProductDescription>",
       "<ProductDescription>Pão de trigo</ProductDescription><ProductGroup>Padaria</ProductGroup>",
       At("ProductGroup", kNotExpected)},
      {"TaxTableEmpty", tax_table, "<TaxTable/>", At("TaxTable", kNoChildren)},
      {"TaxTableEntryWithAmountForPercentage", "<TaxPercentage>4.00</TaxPercentage>", "<TaxAmount>4.00</TaxAmount>",
       ""},
      {"TaxTableEntryLacksAmount", "<TaxAmount>5.25</TaxAmount>", "", At("TaxTableEntry", kNoChildren)},
      {"TaxTableEntryWithPercentageAndAmount", "<TaxPercentage>4.00</TaxPercentage>",
       "<TaxPercentage>4.00</TaxPercentage><TaxAmount>4.00</TaxAmount>", At("TaxAmount", kNotExpected)},
      {"TaxTableEntryOutOfOrder", "<TaxCode>17.3.1</TaxCode>\n        <Description>Imposto do selo</Description>",
       "<Description>Imposto do selo</Description><TaxCode>17.3.1</TaxCode>", At("Description", kNotExpected)},
      {"EntriesWithoutJournals", entries,
       "<GeneralLedgerEntries><NumberOfEntries>0</NumberOfEntries><TotalDebit>0</TotalDebit>"
       "<TotalCredit>0</TotalCredit></GeneralLedgerEntries>",
       ""},
      {"EntriesOutOfOrder", "<TotalDebit>300.00</TotalDebit>\n    <TotalCredit>300.01</TotalCredit>",
       "<TotalCredit>300.01</TotalCredit><TotalDebit>300.00</TotalDebit>", At("TotalCredit", kNotExpected)},
      {"EntriesWithoutTheirLastJournal", journal, "", ""},
      {"JournalWithoutTransactions", transaction, "", ""},
      {"JournalOutOfOrder", "<JournalID>VENDAS</JournalID>\n      <Description>Diário de vendas</Description>",
       "<Description>Diário de vendas</Description><JournalID>VENDAS</JournalID>", At("Description", kNotExpected)},
      {"TransactionLacksLines", transaction_line, "", At("Transaction", kNoChildren)},
      {"TransactionOutOfOrder", "<CustomerID>C1 em conta</CustomerID>\n        <SupplierID>F1 em conta</SupplierID>",
       "<SupplierID>F1 em conta</SupplierID><CustomerID>C1 em conta</CustomerID>", At("CustomerID", kNotExpected)},
      {"TransactionWithLineOfAnInvoice", transaction_line, invoice_line, At("LineNumber", kNotExpected)},
      {"TransactionLineWithCreditForDebit", "<DebitAmount>100.01</DebitAmount>", "<CreditAmount>100.01</CreditAmount>",
       ""},
      {"TransactionLineWithDebitAndCredit", "<DebitAmount>100.01</DebitAmount>",
       "<DebitAmount>100.01</DebitAmount><CreditAmount>100.01</CreditAmount>", At("CreditAmount", kNotExpected)},
      {"TransactionLineLacksAmount", "<DebitAmount>100.01</DebitAmount>", "", At("Line", kNoChildren)},
      {"TransactionLineWithTax", "<DebitAmount>100.01</DebitAmount>", "<DebitAmount>100.01</DebitAmount>" + tax,
       At("Tax", kNotExpected)},
      {"TransactionLineOutOfOrder", "<RecordID>1</RecordID>\n          <AccountID>21111B</AccountID>",
       "<AccountID>21111B</AccountID><RecordID>1</RecordID>", At("AccountID", kNotExpected)},
      {"SourceDocumentsEmpty", documents, "<SourceDocuments/>", ""},
      {"SourceDocumentsWithInvoice", "<SalesInvoices>", "<Invoice/><SalesInvoices>", At("Invoice", kNotExpected)},
      {"SalesInvoicesLackInvoices", documents,
       "<SourceDocuments><SalesInvoices><NumberOfEntries>0</NumberOfEntries><TotalDebit>0</TotalDebit>"
       "<TotalCredit>0</TotalCredit></SalesInvoices></SourceDocuments>",
       At("SalesInvoices", kNoChildren)},
      {"SalesInvoicesOutOfOrder", "<TotalDebit>200.00</TotalDebit>\n      <TotalCredit>200.01</TotalCredit>",
       "<TotalCredit>200.01</TotalCredit><TotalDebit>200.00</TotalDebit>", At("TotalCredit", kNotExpected)},
      {"InvoiceOutOfOrder", "<InvoiceDate>2008-03-09</InvoiceDate>\n        <InvoiceType>FT</InvoiceType>",
       "<InvoiceType>FT</InvoiceType><InvoiceDate>2008-03-09</InvoiceDate>", At("InvoiceType", kNotExpected)},
      {"InvoiceWithoutShipTo", Group("ShipTo"), "", ""},
      {"InvoiceWithoutShipFrom", Group("ShipFrom"), "", ""},
      {"InvoiceWithEmptyShipTo", Group("ShipTo"), "<ShipTo/>", ""},
      {"InvoiceWithShipFromBeforeShipTo", Group("ShipTo") + "\n        " + Group("ShipFrom"),
       Group("ShipFrom") + Group("ShipTo"), At("ShipTo", kNotExpected)},
      {"ShipToWithoutAddress", Group("Address"), "", ""},
      {"ShipToOutOfOrder", "<DeliveryID>Entrega 1</DeliveryID>\n          <DeliveryDate>2008-03-10</DeliveryDate>",
       "<DeliveryDate>2008-03-10</DeliveryDate><DeliveryID>Entrega 1</DeliveryID>", At("DeliveryID", kNotExpected)},
      {"InvoiceLacksLines", invoice_line, "", At("DocumentTotals", kNotExpected)},
      {"InvoiceLacksDocumentTotals", Group("DocumentTotals"), "", At("Invoice", kNoChildren)},
      {"InvoiceWithLineOfATransaction", invoice_line, transaction_line, At("RecordID", kNotExpected)},
      {"InvoiceLineWithoutOrderReferences",
       order_references + "\n          " +
           Part("<OrderReferences>\n            <OriginatingON>Encomenda 2", "</OrderReferences>"),
       "", ""},
      {"InvoiceLineWithEmptyOrderReferences", order_references, "<OrderReferences/>", ""},
      {"InvoiceLineWithThreeOrderReferences", order_references, order_references + order_references, ""},
      {"InvoiceLineOutOfOrder", "<Quantity>10</Quantity>\n          <UnitOfMeasure>kg</UnitOfMeasure>",
       "<UnitOfMeasure>kg</UnitOfMeasure><Quantity>10</Quantity>", At("UnitOfMeasure", kNotExpected)},
      {"OrderReferencesOutOfOrder",
       "<OriginatingON>Encomenda 1</OriginatingON>\n            <OrderDate>2008-03-01</OrderDate>",
       "<OrderDate>2008-03-01</OrderDate><OriginatingON>Encomenda 1</OriginatingON>",
       At("OriginatingON", kNotExpected)},
      {"InvoiceLineWithoutReferences", references, "", ""},
      {"ReferencesEmpty", Group("CreditNote"), "", ""},
      {"CreditNoteOutOfOrder", "<Reference>FT 2008/0</Reference>\n              <Reason>Devolução</Reason>",
       "<Reason>Devolução</Reason><Reference>FT 2008/0</Reference>", At("Reference", kNotExpected)},
      {"InvoiceLineWithDebitForCredit", "<CreditAmount>20.00</CreditAmount>", "<DebitAmount>20.00</DebitAmount>", ""},
      {"InvoiceLineWithDebitAndCredit", "<DebitAmount>4.50</DebitAmount>",
       "<DebitAmount>4.50</DebitAmount><CreditAmount>4.50</CreditAmount>", At("CreditAmount", kNotExpected)},
      {"InvoiceLineLacksAmount", "<DebitAmount>4.50</DebitAmount>", "", At("Line", kNoChildren)},
      {"InvoiceLineWithoutTax", tax, "", ""},
      {"TaxWithAmountForPercentage", "<TaxPercentage>12.00</TaxPercentage>", "<TaxAmount>12.00</TaxAmount>", ""},
      {"TaxLacksPercentage", "<TaxPercentage>12.00</TaxPercentage>", "", At("Tax", kNoChildren)},
      {"TaxWithPercentageAndAmount", "<TaxPercentage>12.00</TaxPercentage>",
       "<TaxPercentage>12.00</TaxPercentage><TaxAmount>12.00</TaxAmount>", At("TaxAmount", kNotExpected)},
      {"TaxWithDescription", "<TaxCode>INT</TaxCode>", "<TaxCode>INT</TaxCode><Description>IVA</Description>",
       At("Description", kNotExpected)},
      {"TaxOutOfOrder", "<TaxCountryRegion>PT</TaxCountryRegion>\n            <TaxCode>INT</TaxCode>",
       "<TaxCode>INT</TaxCode><TaxCountryRegion>PT</TaxCountryRegion>", At("TaxCode", kNotExpected)},
      {"DocumentTotalsOutOfOrder", "<NetTotal>15.50</NetTotal>\n          <GrossTotal>17.90</GrossTotal>",
       "<GrossTotal>17.90</GrossTotal><NetTotal>15.50</NetTotal>", At("GrossTotal", kNotExpected)},
      {"DocumentTotalsWithoutCurrency", currency, "", ""},
      {"DocumentTotalsWithoutSettlement", Group("Settlement"), "", ""},
      {"CurrencyEmpty", currency, "<Currency/>", ""},
      {"CurrencyWithCreditAndDebit", "<CurrencyCreditAmount>25.00</CurrencyCreditAmount>",
       "<CurrencyCreditAmount>25.00</CurrencyCreditAmount><CurrencyDebitAmount>25.00</CurrencyDebitAmount>",
       At("CurrencyDebitAmount", kNotExpected)},
      {"CurrencyWithDebitAndCredit", "<CurrencyDebitAmount>7.00</CurrencyDebitAmount>",
       "<CurrencyDebitAmount>7.00</CurrencyDebitAmount><CurrencyCreditAmount>7.00</CurrencyCreditAmount>",
       At("CurrencyCreditAmount", kNotExpected)},
      {"CurrencyOutOfOrder", currency,
       "<Currency><CurrencyCreditAmount>25.00</CurrencyCreditAmount><CurrencyCode>USD</CurrencyCode></Currency>",
       At("CurrencyCode", kNotExpected)},
      {"SettlementEmpty", Group("Settlement"), "<Settlement/>", ""},
      {"SettlementOutOfOrder",
       "<SettlementAmount>0.36</SettlementAmount>\n            <SettlementDate>2008-04-08</SettlementDate>",
       "<SettlementDate>2008-04-08</SettlementDate><SettlementAmount>0.36</SettlementAmount>",
       At("SettlementAmount", kNotExpected)},
      {"SupplierWithTwoBillingAddresses", supplier_address, supplier_address + supplier_address,
       At("BillingAddress", kNotExpected)},
  };
  for (const std::string_view element :
       {"Header", "CompanyAddress", "MasterFiles", "BillingAddress", "ShipToAddress", "ShipFromAddress",
        "GeneralLedgerEntries", "SourceDocuments", "SalesInvoices", "ShipTo", "ShipFrom", "Address", "References",
        "CreditNote", "Tax", "DocumentTotals", "Currency", "Settlement"}) {
    const std::string group = Group(element);
    cases.push_back({"Two" + std::string(element), group, group + group, At(element, kNotExpected)});
  }
  return cases;
}

// Identifiers that must be unique, references that must be met, and those of which nothing is asked.
std::vector<SchemaCase> KeyCases() {
  const std::string duplicate = "Duplicate key-sequence ";
  const std::string dangling = "No match found for key-sequence ";
  const std::string invoice_customer = "<CustomerID>C1</CustomerID>\n        <ShipTo>";
  const std::string line_product = "<ProductCode>ENTREGA</ProductCode>\n          <ProductDescription>Entrega urgente";
  return {
      {"CustomerIDTwice", "<CustomerID>C2</CustomerID>", "<CustomerID>C1</CustomerID>", duplicate + "['C1']"},
      {"CustomerIDTwiceInOtherLetterCase", "<CustomerID>C2</CustomerID>", "<CustomerID>c1</CustomerID>", ""},
      {"SupplierIDTwice", "<SupplierID>F2</SupplierID>", "<SupplierID>F1</SupplierID>", duplicate + "['F1']"},
      {"SupplierIDLikeACustomerID", "<SupplierID>F2</SupplierID>", "<SupplierID>C1</SupplierID>", ""},
      {"ProductCodeTwice", "<ProductCode>ENTREGA</ProductCode>\n      <ProductDescription>Entrega ao",
       "<ProductCode>PAO</ProductCode>\n      <ProductDescription>Entrega ao", duplicate + "['PAO']"},
      {"InvoiceNoTwice", "<InvoiceNo>NC 2008/1</InvoiceNo>", "<InvoiceNo>FT 2008/1</InvoiceNo>",
       duplicate + "['FT 2008/1']"},
      {"JournalIDTwice", "<JournalID>COMPRAS</JournalID>", "<JournalID>VENDAS</JournalID>", duplicate + "['VENDAS']"},
      {"TransactionIDTwiceInOneJournal", "<TransactionID>2008-03-06 VENDAS 0002</TransactionID>",
       "<TransactionID>2008-03-05 VENDAS 0001</TransactionID>", duplicate + "['2008-03-05 VENDAS 0001']"},
      {"TransactionIDTwiceInTwoJournals", "<TransactionID>2008-03-08 COMPRAS 0001</TransactionID>",
       "<TransactionID>2008-03-05 VENDAS 0001</TransactionID>", duplicate + "['2008-03-05 VENDAS 0001']"},
      {"InvoiceOfTheOtherCustomer", invoice_customer, "<CustomerID>C2</CustomerID><ShipTo>", ""},
      {"InvoiceOfNoCustomer", invoice_customer, "<CustomerID>C9</CustomerID><ShipTo>", dangling + "['C9']"},
      {"InvoiceOfACustomerInOtherLetterCase", invoice_customer, "<CustomerID>c1</CustomerID><ShipTo>",
       dangling + "['c1']"},
      {"InvoiceOfASupplier", invoice_customer, "<CustomerID>F1</CustomerID><ShipTo>", dangling + "['F1']"},
      {"InvoiceLineOfTheOtherProduct", line_product,
       "<ProductCode>PAO</ProductCode><ProductDescription>Entrega urgente", ""},
      {"InvoiceLineOfNoProduct", line_product, "<ProductCode>BOLO</ProductCode><ProductDescription>Entrega urgente",
       dangling + "['BOLO']"},
      {"InvoiceWithTransactionIDOfAnEntry", "<TransactionID>2008-03-09 VENDAS 0009</TransactionID>",
       "<TransactionID>2008-03-05 VENDAS 0001</TransactionID>", ""},
      {"TransactionOfACustomer", "<CustomerID>C1 em conta</CustomerID>", "<CustomerID>C1</CustomerID>", ""},
      {"LedgerAccountTwice", "<AccountID>21A</AccountID>", "<AccountID>11</AccountID>", ""},
      {"RecordIDTwice", "<RecordID>2</RecordID>", "<RecordID>1</RecordID>", ""},
      {"LineNumberTwice", "<LineNumber>2</LineNumber>", "<LineNumber>1</LineNumber>", ""},
  };
}

SchemaValidator& Validator() {
  static SchemaValidator validator("SchemaTest", "urn:OECD:StandardAuditFile-Tax:PT_1.01_01");
  static const bool compiled = (validator.Compile(SchemaSource(ZEVO_SCHEMA_FILE)), true);
  static_cast<void>(compiled);
  return validator;
}

// The description of the first violation, or nothing for a valid document.
std::optional<std::string> FirstViolation(const std::string& name, std::string_view document) {
  SchemaValidator& validator = Validator();
  const std::string path = testing::TempDir() + "SchemaTest_" + name + ".xml";
  std::ofstream(path, std::ios::binary) << document;
  std::optional<std::string> violation;
  try {
    validator.Validate(path);
  } catch (const Error& error) {
    violation = error.Description();
  }
  std::remove(path.c_str());
  return violation;
}

TEST(SchemaDocumentTest, CompleteDocumentIsValid) {
  EXPECT_EQ(FirstViolation("CompleteDocument", kDocument), std::nullopt);
}

class SchemaTest : public testing::TestWithParam<SchemaCase> {};

TEST_P(SchemaTest, ChangedDocument) {
  const SchemaCase& schema_case = GetParam();
  const std::size_t position = kDocument.find(schema_case.text);
  ASSERT_NE(position, std::string_view::npos) << schema_case.text;
  ASSERT_EQ(kDocument.find(schema_case.text, position + 1), std::string_view::npos) << schema_case.text;
  ASSERT_NE(schema_case.text, schema_case.replacement);

  std::string document(kDocument);
  document.replace(position, schema_case.text.size(), schema_case.replacement);
  const std::optional<std::string> violation = FirstViolation(schema_case.name, document);

  if (schema_case.violation.empty()) {
    EXPECT_EQ(violation, std::nullopt);
  } else {
    ASSERT_TRUE(violation.has_value()) << "passed, but should fail with: " << schema_case.violation;
    EXPECT_NE(violation->find(schema_case.violation), std::string::npos)
        << "fails with: " << *violation << "\nbut should with: " << schema_case.violation;
  }
}

std::string NameOf(const testing::TestParamInfo<SchemaCase>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Lengths, SchemaTest, testing::ValuesIn(LengthCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Patterns, SchemaTest, testing::ValuesIn(PatternCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Codes, SchemaTest, testing::ValuesIn(CodeCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(NumbersAndDates, SchemaTest, testing::ValuesIn(NumberAndDateCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Presence, SchemaTest, testing::ValuesIn(PresenceCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Structure, SchemaTest, testing::ValuesIn(StructureCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Keys, SchemaTest, testing::ValuesIn(KeyCases()), NameOf);

}  // namespace
}  // namespace zevo
