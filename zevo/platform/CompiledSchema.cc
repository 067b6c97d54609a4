// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/CompiledSchema.h>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <libxml/xmlschemastypes.h>
#include <zevo/Error.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/File.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaRestrictions.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/XmlProblem.h>
#include <zevo/platform/fastpath/FastPath.h>
#include <zevo/platform/fastpath/FastSchema.h>

#include <cstddef>
#include <mutex>
#include <optional>

namespace zevo {
namespace {

struct FreeContext {
  void operator()(xmlSchemaParserCtxt* context) const { xmlSchemaFreeParserCtxt(context); }
};

// The first error that compiling a schema reports.
struct FirstError {
  std::optional<XmlProblem> problem;

  static void Take(void* self, xmlErrorPtr reported) {
    auto& first = *static_cast<FirstError*>(self);
    if (first.problem || reported->level < XML_ERR_ERROR) return;
    first.problem = {.number = reported->code,
                     .reason = reported->message == nullptr ? "" : reported->message,
                     .fault = XmlProblem::Fault::kSchema,
                     .place = {reported->line, reported->int2}};
  }
};

// The text of a schema in UTF-8, with an XML declaration that says so.
std::string Utf8Of(std::string_view bytes) {
  InputBytes input(bytes);
  TextDecoder decoder(input);
  std::string text;
  constexpr size_t kPiece = size_t{64} * 1024;
  for (size_t got = kPiece; got > 0;) {
    const size_t length = text.size();
    text.resize(length + kPiece);
    got = decoder.Read(text.data() + length, kPiece);
    text.resize(length + got);
  }
  if (const auto encoding = DeclaredEncoding(text)) {
    text.replace(static_cast<size_t>(encoding->data() - text.data()), encoding->size(), "UTF-8");
  }
  return text;
}

}  // namespace

void CompiledSchema::Free::operator()(xmlSchema* schema) const { xmlSchemaFree(schema); }

CompiledSchema::CompiledSchema(const SchemaSource& schema, std::string_view targetNamespace,
                               std::string_view errorSource)
    : name_(schema.Name()) {
  std::string bytes;
  try {
    bytes = schema.Read();
  } catch (const Error& error) {
    throw Error(error.Number(), std::string(errorSource), error.Description());
  }
  try {
    Compile(bytes, targetNamespace, errorSource);
  } catch (const Error& error) {
    // Where memory runs out, the schema is not named.
    if (error.Number() == static_cast<int32_t>(RunTimeError::kOutOfMemory)) throw;
    throw Error(error.Number(), std::string(errorSource), name_ + ": " + error.Description());
  }
}

CompiledSchema::~CompiledSchema() = default;

void CompiledSchema::Compile(std::string_view bytes, std::string_view targetNamespace, std::string_view errorSource) {
  // libxml2 makes its table of built-in types at its first use, without a lock.
  static std::once_flag once;
  std::call_once(once, xmlSchemaInitTypes);
  // Read by our own parser first, so that a schema meets the same refusals as any file.
  Document document;
  LoadSchemaDocument(bytes, errorSource, document);
  RequireModestSchema(document, targetNamespace, errorSource);
  const HostErrorHandlers aside;
  CompileWithLibxml2(Utf8Of(bytes), errorSource);
  if constexpr (kHasFastPath) {
    if (IsFastPathOn()) tables_ = SchemaTables::Of(bytes, document);
    if (tables_) fast_ = FastSchema::Of(*tables_);
  }
}

void CompiledSchema::CompileWithLibxml2(const std::string& text, std::string_view errorSource) {
  FirstError first;
  const std::unique_ptr<xmlSchemaParserCtxt, FreeContext> context(
      xmlSchemaNewMemParserCtxt(text.data(), static_cast<int>(text.size())));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  xmlSchemaSetParserStructuredErrors(context.get(), &FirstError::Take, &first);
  compiled_.reset(xmlSchemaParse(context.get()));
  Raise(first.problem, errorSource);
  if (!compiled_) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
}

}  // namespace zevo
