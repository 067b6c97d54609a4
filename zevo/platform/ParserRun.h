// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PARSERRUN_H_
#define ZEVO_PLATFORM_PARSERRUN_H_

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <zevo/FilePlace.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/ParserLimits.h>
#include <zevo/platform/ParserPosition.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/ValidationPlug.h>
#include <zevo/platform/XmlProblem.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo {

/// One run over one file: stands between libxml2's callbacks and the handler, and keeps what stops it. A driver makes a
/// libxml2 parser with these callbacks and the run as its user data, begins, has the parser take what Deliver gives,
/// and ends. A run that is given up before its end is destroyed.
class ParserRun {
 public:
  /// What it is given must outlive it. `violated` is called only with a validation. `bytesRead` is kept up to date with
  /// the bytes of the file that the decoder has taken in.
  ParserRun(TextDecoder& decoder, ParserHandler& handler, const ProblemSink& violated, uint64_t& bytesRead);
  ParserRun(const ParserRun&) = delete;
  ParserRun& operator=(const ParserRun&) = delete;

  static xmlSAXHandler Callbacks();

  /// Takes over the parser, which is null when there was no memory for it: that raises error 7. `validation`, which may
  /// be null, listens in until the end.
  void Begin(xmlParserCtxt* parser, xmlSchemaValidCtxt* validation);

  /// Decodes up to `size` bytes, at least four, and gives their number: none at the end of the file, and none once the
  /// run has stopped. Raises nothing, so that libxml2 may call it.
  int Deliver(char* buffer, int size);

  // For a driver that gives the parser whole tags before it asks for them.

  /// Deliver, without its look at how long an unfinished tag is.
  int Decode(char* buffer, int size);
  bool HasStopped() const { return stopped_; }
  /// How many decoded bytes the parser has taken in.
  size_t Position() const { return position_.Bytes(); }
  xmlParserCtxt& Context() { return *parser_; }

  /// To be called once the parser has been told that there is no more. Gives what stopped the run, or raises what was
  /// thrown in it.
  std::optional<XmlProblem> End();

 private:
  // The attributes of a start tag, from what libxml2 tells of them.
  class Attributes {
   public:
    // Rows of two pointers for declarations and of five for the rest. Valid until the next call.
    [[gnu::noinline]] std::span<const ParsedAttribute> Collect(ParserLimits& limits, int declarations,
                                                               const xmlChar** declared, int attributes,
                                                               const xmlChar** given);

   private:
    std::string_view WithAmpersands(std::string_view value);

    std::vector<ParsedAttribute> collected_;
    std::deque<std::string> changed_;
  };

  // libxml2 makes a document for the entities that a file declares, and does not free it where the file breaks off.
  struct FreeParser {
    void operator()(xmlParserCtxt* parser) const {
      xmlFreeDoc(parser->myDoc);
      xmlFreeParserCtxt(parser);
    }
  };

  static ParserRun& Of(void* self) { return *static_cast<ParserRun*>(self); }

  // Runs what may throw between libxml2's frames, which no exception may cross.
  template <class Action>
  void Guard(Action&& action);
  // The same for an event of the parser. `action` gets the run and the bytes since the last event. Does nothing once
  // the run has stopped.
  template <class Action>
  void GuardEvent(Action&& action);

  static void OnStartElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri,
                             int namespaces, const xmlChar** namespaceTexts, int attributes, int defaulted,
                             const xmlChar** attributeTexts);
  static void OnEndElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri);
  void OnText(const xmlChar* text, int length, bool cdata);
  static void OnParserError(void* self, xmlErrorPtr error);
  static void OnViolation(void* self, xmlErrorPtr error);
  void TellViolation(const xmlError& error);

  // libxml2 keeps two pointers for each declaration, those of an unfinished tag included.
  void CheckDeclarations() const { ParserLimits::CheckDeclarations(parser_->nsNr / 2); }
  bool InTag() const;

  void FailDecoding();
  void FailAsIllFormed(int number, std::string_view reason);
  void Refuse(std::string_view reason);
  [[gnu::cold]] void Fail(int number, std::string_view reason, XmlProblem::Fault fault);

  // The first failure is the one that is told. From then on events are dropped and the file seems to end: halting
  // libxml2 itself would free its buffers under calls that are still using them.
  void Keep(XmlProblem problem) {
    if (!std::exchange(stopped_, true)) problem_ = std::move(problem);
  }
  void Keep(std::exception_ptr thrown) {
    if (!std::exchange(stopped_, true)) thrown_ = std::move(thrown);
  }

  // Where the parser is or, once decoding has stopped, where the byte is that stopped it.
  FilePlace Place();

  TextDecoder& decoder_;
  ParserHandler& handler_;
  const ProblemSink& violated_;
  uint64_t& bytes_read_;
  std::unique_ptr<xmlParserCtxt, FreeParser> parser_;
  std::optional<ValidationPlug> plug_;
  ParserPosition position_;
  ParserLimits limits_;
  Attributes attributes_;
  size_t delivered_ = 0;
  size_t event_end_ = 0;  // where the parser stood at the end of the last event
  bool stopped_ = false;
  std::optional<XmlProblem> problem_;
  std::exception_ptr thrown_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PARSERRUN_H_
