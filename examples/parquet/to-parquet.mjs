// SPDX-License-Identifier: Apache-2.0
// Makes Parquet files of a folder that "saft export" wrote as CSV, one for each table, and asks them for the sales of each
// month: node to-parquet.mjs FOLDER PARQUET-FOLDER
import { mkdir, readFile } from "node:fs/promises";
import { join } from "node:path";
import { DuckDBInstance } from "@duckdb/node-api";

// The types of a Data Package. Ten decimals are more than amounts have; what is computed with them is exact.
const types = { string: "VARCHAR", integer: "BIGINT", number: "DECIMAL(38, 10)", date: "DATE", datetime: "TIMESTAMP" };

const text = (value) => `'${value.replaceAll("'", "''")}'`;

const [folder, target] = process.argv.slice(2);
const { resources } = JSON.parse(await readFile(join(folder, "datapackage.json"), "utf8"));
await mkdir(target);
const duckdb = await (await DuckDBInstance.create()).connect();

for (const { name, path, schema } of resources) {
  const files = [path].flat().map((file) => text(join(folder, file)));
  const columns = schema.fields.map((field) => `${text(field.name)}: ${text(types[field.type])}`);
  await duckdb.run(
    `COPY (SELECT * FROM read_csv([${files}], header = true, delim = ',', quote = '"', escape = '"',
                                  allow_quoted_nulls = false, columns = {${columns}}))
     TO ${text(join(target, `${name}.parquet`))} (FORMAT parquet)`);
}

const sales = await duckdb.runAndReadAll(
  `SELECT strftime(invoice_date, '%Y-%m') AS month, count(*) AS documents,
          sum(CASE WHEN invoice_type IN ('NC', 'TD', 'DA', 'RE') THEN -1 ELSE 1 END * document_totals_net_total)::DECIMAL(18, 2) AS net
   FROM ${text(join(target, "invoices.parquet"))}
   WHERE coalesce(invoice_status, '') NOT IN ('A', 'F')
   GROUP BY month ORDER BY month`);
for (const [month, documents, net] of sales.getRowsJson()) console.log(`${month} ${documents} ${net}`);
