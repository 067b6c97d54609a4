// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/AuditViews.h"

namespace zevo::saft {
namespace {

// A document counts as a sale when it is neither cancelled nor merged into others, and below zero when it lowers what
// the customer owes. A line has the tax of its rate, an amount of tax, or none. A text of a date begins with its month
// in every database.
constexpr TableView kViews[] = {
    {"live_invoices", R"(
  SELECT invoices.*,
         substr(CAST(invoice_date AS TEXT), 1, 7) AS month,
         CASE WHEN invoice_type IN ('NC', 'TD', 'DA', 'RE') THEN -1 ELSE 1 END AS sign
  FROM invoices
  WHERE COALESCE(invoice_status, '') NOT IN ('A', 'F')
    AND lower(COALESCE(transaction_id, '')) <> 'anulado')"},
    {"live_invoice_lines", R"(
  SELECT invoice_lines.*,
         live_invoices.month,
         COALESCE(credit_amount, 0) - COALESCE(debit_amount, 0) AS net,
         CASE WHEN debit_amount IS NULL THEN quantity ELSE -quantity END AS sold
  FROM invoice_lines
  JOIN live_invoices ON live_invoices.file_id = invoice_lines.file_id
                    AND live_invoices.position = invoice_lines.invoice_position)"},
    {"sales_by_month", R"(
  SELECT file_id,
         month,
         count(*) AS documents,
         round(sum(sign * document_totals_net_total), 2) AS net,
         round(sum(sign * document_totals_tax_payable), 2) AS tax,
         round(sum(sign * document_totals_gross_total), 2) AS gross
  FROM live_invoices
  GROUP BY file_id, month)"},
    {"sales_by_customer", R"(
  SELECT file_id,
         customer_id,
         (SELECT min(company_name) FROM customers
          WHERE customers.file_id = live_invoices.file_id
            AND customers.customer_id = live_invoices.customer_id) AS company_name,
         count(*) AS documents,
         round(sum(sign * document_totals_net_total), 2) AS net,
         round(sum(sign * document_totals_tax_payable), 2) AS tax,
         round(sum(sign * document_totals_gross_total), 2) AS gross
  FROM live_invoices
  GROUP BY file_id, customer_id)"},
    {"sales_by_product", R"(
  SELECT file_id,
         product_code,
         (SELECT min(product_description) FROM products
          WHERE products.file_id = live_invoice_lines.file_id
            AND products.product_code = live_invoice_lines.product_code) AS product_description,
         count(*) AS lines,
         sum(sold) AS quantity,
         round(sum(net), 2) AS net
  FROM live_invoice_lines
  GROUP BY file_id, product_code)"},
    {"vat_by_month", R"(
  SELECT file_id,
         month,
         tax_tax_type AS tax_type,
         tax_tax_country_region AS region,
         tax_tax_code AS tax_code,
         tax_tax_percentage AS percentage,
         count(*) AS lines,
         round(sum(net), 2) AS net,
         round(sum(COALESCE(net * tax_tax_percentage / 100.0,
                            CASE WHEN debit_amount IS NULL THEN tax_tax_amount ELSE -tax_tax_amount END,
                            0)), 2) AS tax
  FROM live_invoice_lines
  GROUP BY file_id, month, tax_tax_type, tax_tax_country_region, tax_tax_code, tax_tax_percentage)"},
    {"invoice_series", R"(
  SELECT file_id,
         series,
         min(number) AS first,
         max(number) AS last,
         count(*) AS documents,
         max(number) - min(number) + 1 - count(DISTINCT number) AS missing
  FROM (SELECT file_id,
               substr(prefix, 1, length(prefix) - 1) AS series,
               CAST(NULLIF(substr(invoice_no, length(prefix) + 1), '') AS NUMERIC) AS number
        FROM (SELECT file_id, invoice_no, rtrim(invoice_no, '0123456789') AS prefix FROM invoices) AS prefixes
        WHERE prefix LIKE '%/') AS numbers
  GROUP BY file_id, series)"},
    {"journal_totals", R"(
  SELECT journals.file_id,
         journals.journal_id,
         journals.description,
         count(DISTINCT transactions.position) AS transactions,
         count(transaction_lines.position) AS lines,
         round(COALESCE(sum(debit_amount), 0), 2) AS debit,
         round(COALESCE(sum(credit_amount), 0), 2) AS credit
  FROM journals
  LEFT JOIN transactions ON transactions.file_id = journals.file_id
                        AND transactions.journal_position = journals.position
  LEFT JOIN transaction_lines ON transaction_lines.file_id = transactions.file_id
                             AND transaction_lines.transaction_position = transactions.position
  GROUP BY journals.file_id, journals.position, journals.journal_id, journals.description)"},
    {"account_totals", R"(
  SELECT file_id,
         account_id,
         count(*) AS lines,
         sum(COALESCE(debit_amount, 0)) AS debit,
         sum(COALESCE(credit_amount, 0)) AS credit
  FROM transaction_lines
  GROUP BY file_id, account_id)"},
    {"trial_balance", R"(
  SELECT general_ledger.file_id,
         general_ledger.account_id,
         general_ledger.account_description,
         COALESCE(opening_debit_balance, 0) AS opening_debit,
         COALESCE(opening_credit_balance, 0) AS opening_credit,
         round(COALESCE(sum(debit), 0), 2) AS debit,
         round(COALESCE(sum(credit), 0), 2) AS credit,
         round(COALESCE(opening_debit_balance, 0) - COALESCE(opening_credit_balance, 0)
               + COALESCE(sum(debit), 0) - COALESCE(sum(credit), 0), 2) AS balance
  FROM general_ledger
  LEFT JOIN account_totals ON account_totals.file_id = general_ledger.file_id
                          AND substr(account_totals.account_id, 1, length(general_ledger.account_id))
                              = general_ledger.account_id
  GROUP BY general_ledger.file_id, general_ledger.position, general_ledger.account_id,
           general_ledger.account_description, opening_debit_balance, opening_credit_balance)"},
    {"account_statement", R"(
  SELECT transaction_lines.file_id,
         transaction_lines.account_id,
         transactions.transaction_date,
         transactions.journal_id,
         transactions.transaction_id,
         transaction_lines.record_id,
         transaction_lines.description,
         debit_amount AS debit,
         credit_amount AS credit,
         round(COALESCE((SELECT sum(COALESCE(opening_debit_balance, 0) - COALESCE(opening_credit_balance, 0))
                         FROM general_ledger
                         WHERE general_ledger.file_id = transaction_lines.file_id
                           AND general_ledger.account_id = transaction_lines.account_id), 0)
               + sum(COALESCE(debit_amount, 0) - COALESCE(credit_amount, 0))
                 OVER (PARTITION BY transaction_lines.file_id, transaction_lines.account_id
                       ORDER BY transactions.transaction_date, transactions.position, transaction_lines.position), 2)
           AS balance
  FROM transaction_lines
  JOIN transactions ON transactions.file_id = transaction_lines.file_id
                   AND transactions.position = transaction_lines.transaction_position)"},
};

}  // namespace

std::span<const TableView> AuditViews() { return kViews; }

}  // namespace zevo::saft
