// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Parser.h>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/ParserRun.h>
#include <zevo/platform/RestOfEvents.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/fastpath/FastEvents.h>
#include <zevo/platform/fastpath/FastNames.h>
#include <zevo/platform/fastpath/FastParse.h>
#include <zevo/platform/fastpath/FastPath.h>

namespace zevo {

std::optional<XmlProblem> Parser::Parse(ParserHandler& handler) {
  if (!IsFastPathOn()) return ParseWithLibxml2(handler);
  bytes_read_ = 0;
  std::optional<InputFile> file;
  std::optional<TextDecoder> decoder;
  ByteSource* input = input_;
  bool fast = false;
  try {
    if (input == nullptr) input = &file.emplace(file_);
    fast = input->CanRestart();
    decoder.emplace(*input);
  } catch (const Error& error) {
    return UnreadableFile(error);
  }
  if (!fast) return Run(*decoder, handler, nullptr, {});

  FastNames names;
  FastEvents events(handler);
  FastParse<FastEvents> parse(*decoder, names, events, bytes_read_);
  auto outcome = FastOutcome::kGoesOn;
  while (outcome == FastOutcome::kGoesOn) outcome = parse.ParsePiece();
  if (outcome != FastOutcome::kGivenUp) return parse.Problem();
  try {
    input->Restart();
    decoder.emplace(*input);
  } catch (const Error& error) {
    return UnreadableFile(error);
  }
  RestOfEvents rest(handler, events.Count(), &names);
  return Run(*decoder, rest, nullptr, {});
}

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
  return Run(*decoder, handler, validation, violated);
}

// Has libxml2 do it in one call: it asks for the bytes of the file until its end.
std::optional<XmlProblem> Parser::Run(TextDecoder& decoder, ParserHandler& handler, _xmlSchemaValidCtxt* validation,
                                      const ProblemSink& violated) {
  ParserRun run(decoder, handler, violated, bytes_read_);
  xmlSAXHandler callbacks = ParserRun::Callbacks();
  const auto deliver = [](void* asked, char* buffer, int size) {
    return static_cast<ParserRun*>(asked)->Deliver(buffer, size);
  };
  xmlParserCtxt* const parser = xmlCreateIOParserCtxt(&callbacks, &run, deliver, nullptr, &run, XML_CHAR_ENCODING_UTF8);
  run.Begin(parser, validation);
  xmlParseDocument(parser);
  return run.End();
}

}  // namespace zevo
