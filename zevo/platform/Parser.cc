// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Parser.h>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/ParserRun.h>
#include <zevo/platform/TextDecoder.h>

namespace zevo {
namespace {

// Drives a run in one call: libxml2 asks for the bytes of the file until its end.
std::optional<XmlProblem> ParseWhole(ParserRun& run, xmlSchemaValidCtxt* validation) {
  xmlSAXHandler callbacks = ParserRun::Callbacks();
  const auto deliver = [](void* asked, char* buffer, int size) {
    return static_cast<ParserRun*>(asked)->Deliver(buffer, size);
  };
  xmlParserCtxt* const parser = xmlCreateIOParserCtxt(&callbacks, &run, deliver, nullptr, &run, XML_CHAR_ENCODING_UTF8);
  run.Begin(parser, validation);
  xmlParseDocument(parser);
  return run.End();
}

}  // namespace

std::optional<XmlProblem> Parser::Parse(ParserHandler& handler, _xmlSchemaValidCtxt* validation,
                                        const ProblemSink& violated) {
  bytes_read_ = 0;
  std::optional<InputFile> file;
  std::optional<TextDecoder> decoder;
  try {
    decoder.emplace(input_ != nullptr ? *input_ : file.emplace(file_));
  } catch (const Error& error) {
    return UnreadableFile(error);
  }
  ParserRun run(*decoder, handler, violated, bytes_read_);
  return ParseWhole(run, validation);
}

}  // namespace zevo
