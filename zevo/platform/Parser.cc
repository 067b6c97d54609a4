// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Parser.h>

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/ParserLimits.h>
#include <zevo/platform/ParserPosition.h>
#include <zevo/platform/Text.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/ValidationPlug.h>

#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <vector>

namespace zevo {
namespace {

using Fault = XmlProblem::Fault;

const char* Text(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

std::string_view View(const xmlChar* text, int length) {
  return std::string_view(Text(text), static_cast<size_t>(length));
}

std::string_view ReasonOf(const xmlError& error) { return error.message == nullptr ? "" : error.message; }

// libxml2 makes a document for the entities that a file declares, and forgets it where the file breaks off.
struct FreeContext {
  void operator()(xmlParserCtxt* context) const {
    xmlFreeDoc(context->myDoc);
    xmlFreeParserCtxt(context);
  }
};

// Makes libxml2 ready for use, once in the process. The library never shuts it down: the host may use it too.
void InitialiseXml() {
  static std::once_flag once;
  std::call_once(once, xmlInitParser);
}

// What the system says of a file that it does not give.
XmlProblem Unreadable(const Error& error) {
  return {.number = error.Number(), .reason = error.Description(), .fault = Fault::kUnreadable};
}

ParsedName Numbered(ParserLimits& limits, const xmlChar* local, const xmlChar* prefix) {
  return {Text(local), Text(prefix), limits.NumberOf(Text(local), Text(prefix))};
}

// The attributes of a start tag, from what libxml2 tells of them.
class Attributes {
 public:
  // Rows of two pointers for declarations and of five for the rest. Valid until the next call.
  [[gnu::noinline]] std::span<const ParsedAttribute> Collect(ParserLimits& limits, int declarations,
                                                             const xmlChar** declared, int attributes,
                                                             const xmlChar** given) {
    collected_.clear();
    changed_.clear();
    for (ptrdiff_t i = 0; i < declarations; ++i) {
      const char* const prefix = Text(declared[i * 2]);
      const char* const uri = Text(declared[i * 2 + 1]);
      if (prefix != nullptr) limits.CountOtherName(prefix);
      if (uri != nullptr) limits.CountOtherName(uri);
      const ParsedName name = prefix == nullptr ? ParsedName{"xmlns", nullptr} : ParsedName{prefix, "xmlns"};
      collected_.push_back({name, uri == nullptr ? "" : WithAmpersands(uri)});
    }
    for (ptrdiff_t i = 0; i < attributes; ++i) {
      const xmlChar* const* row = given + i * 5;
      const std::string_view value = View(row[3], static_cast<int>(row[4] - row[3]));
      collected_.push_back({Numbered(limits, row[0], row[1]), WithAmpersands(value)});
    }
    return collected_;
  }

 private:
  // libxml2 hands over an ampersand as a reference here.
  std::string_view WithAmpersands(std::string_view value) {
    if (value.find('&') == std::string_view::npos) return value;
    return changed_.emplace_back(ReplaceAll(value, "&#38;", "&"));
  }

  std::vector<ParsedAttribute> collected_;
  std::deque<std::string> changed_;
};

// One run over one file: stands between libxml2's callbacks and the handler, and keeps what stops it. A driver makes a
// libxml2 parser with these callbacks and the run as its user data, begins, has the parser take what Deliver gives, and
// ends.
class Run {
 public:
  Run(TextDecoder& decoder, ParserHandler& handler, const ProblemSink& violated, uint64_t& bytesRead)
      : decoder_(decoder), handler_(handler), violated_(violated), bytes_read_(bytesRead) {}

  static xmlSAXHandler Callbacks();

  // Takes the parser over, which is null when there was no memory for it. `validation` may be null.
  void Begin(xmlParserCtxt* parser, xmlSchemaValidCtxt* validation);
  // The next decoded bytes: none at the end of the file, and none once the run has stopped.
  int Deliver(char* buffer, int size);
  // Gives what stopped the run, or raises what was thrown in it.
  std::optional<XmlProblem> End();

 private:
  static Run& Of(void* self) { return *static_cast<Run*>(self); }

  // Runs what may throw between libxml2's frames, which no exception may cross.
  template <class Action>
  void Guard(Action&& action) {
    try {
      action();
    } catch (const ParserLimits::Passed& limit) {
      Refuse(limit.reason);
    } catch (...) {
      Keep(std::current_exception());
    }
  }

  // The same for an event of the parser, with the bytes since the one before.
  template <class Action>
  void GuardEvent(Action&& action) {
    if (stopped_) return;
    const size_t position = position_.Bytes();
    Guard([&] { action(*this, position - event_end_); });
    event_end_ = position;
  }

  static void OnStartElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri,
                             int namespaces, const xmlChar** namespaceTexts, int attributes, int,
                             const xmlChar** attributeTexts) {
    if (Of(self).plug_) Of(self).plug_->StartElement(local, prefix, uri);
    Of(self).GuardEvent([&](Run& run, size_t length) {
      run.limits_.StartElement(length);
      std::span<const ParsedAttribute> collected;
      if (namespaces + attributes > 0) {
        ParserLimits::CheckAttributes(attributes);
        run.CheckDeclarations();
        collected = run.attributes_.Collect(run.limits_, namespaces, namespaceTexts, attributes, attributeTexts);
      }
      run.handler_.StartElement(Numbered(run.limits_, local, prefix), collected);
    });
  }

  static void OnEndElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar*) {
    if (Of(self).plug_) Of(self).plug_->EndElement();
    Of(self).GuardEvent([&](Run& run, size_t) {
      run.limits_.EndElement();
      run.handler_.EndElement({Text(local), Text(prefix)});
    });
  }

  void OnText(const xmlChar* text, int length, bool cdata) {
    GuardEvent([&](Run& run, size_t) {
      run.limits_.AddText(static_cast<size_t>(length));
      cdata ? run.handler_.CData(View(text, length)) : run.handler_.Characters(View(text, length));
    });
  }

  static void OnParserError(void* self, xmlErrorPtr error);
  static void OnViolation(void* self, xmlErrorPtr error);
  void TellViolation(const xmlError& error);

  // libxml2 counts two pointers for each declaration, also while it is still in the tag.
  void CheckDeclarations() const { ParserLimits::CheckDeclarations(parser_->nsNr / 2); }
  bool InTag() const;

  void FailDecoding();
  void FailAsIllFormed(int number, std::string_view reason) { Fail(number, reason, Fault::kNotWellFormed); }
  void Refuse(std::string_view reason) { Fail(XML_ERR_USER_STOP, reason, Fault::kRefused); }
  [[gnu::cold]] void Fail(int number, std::string_view reason, Fault fault);

  // The first failure is the one that is told. From then on events are dropped and the file seems to end: halting
  // libxml2 itself would free its buffers under calls that are still using them.
  void Keep(XmlProblem problem) {
    if (!std::exchange(stopped_, true)) problem_ = std::move(problem);
  }
  void Keep(std::exception_ptr thrown) {
    if (!std::exchange(stopped_, true)) thrown_ = std::move(thrown);
  }

  // Where the parser is or, when decoding stopped, the byte that stopped it.
  FilePlace Place() {
    return decoder_.fault() == TextDecoder::Fault::kNone ? position_.Place() : position_.PlaceOfMore();
  }

  TextDecoder& decoder_;
  ParserHandler& handler_;
  const ProblemSink& violated_;
  uint64_t& bytes_read_;
  std::unique_ptr<xmlParserCtxt, FreeContext> parser_;
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

xmlSAXHandler Run::Callbacks() {
  xmlSAXHandler sax{};
  sax.initialized = XML_SAX2_MAGIC;
  sax.startElementNs = &Run::OnStartElement;
  sax.endElementNs = &Run::OnEndElement;
  sax.characters = [](void* self, const xmlChar* text, int length) { Of(self).OnText(text, length, false); };
  sax.ignorableWhitespace = sax.characters;
  sax.cdataBlock = [](void* self, const xmlChar* text, int length) { Of(self).OnText(text, length, true); };
  sax.comment = [](void* self, const xmlChar* text) {
    Of(self).GuardEvent([&](Run& run, size_t) { run.handler_.Comment(Text(text)); });
  };
  sax.processingInstruction = [](void* self, const xmlChar* target, const xmlChar* data) {
    Of(self).GuardEvent([&](Run& run, size_t) {
      run.limits_.CountOtherName(Text(target));
      run.handler_.Instruction(Text(target), data == nullptr ? "" : Text(data));
    });
  };
  sax.startDocument = [](void* self) {
    Of(self).GuardEvent([](Run& run, size_t) {
      if (run.parser_->standalone == 1) run.handler_.Standalone();
    });
  };
  sax.internalSubset = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
    Of(self).Refuse("O ficheiro tem uma declaração DOCTYPE, que não é aceite");
  };
  sax.serror = &Run::OnParserError;
  return sax;
}

void Run::Begin(xmlParserCtxt* parser, xmlSchemaValidCtxt* validation) {
  if (parser == nullptr) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  parser_.reset(parser);
  position_.Watch(*parser);
  parser->_private = this;
  // The bytes are UTF-8 by now, whatever the declaration or their beginning says.
  parser->encoding = xmlStrdup(BAD_CAST "UTF-8");
  xmlCtxtUseOptions(parser, XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
  if (validation == nullptr) return;
  plug_.emplace(*parser, *validation);
  xmlSchemaSetValidStructuredErrors(validation, &Run::OnViolation, this);
}

int Run::Deliver(char* buffer, int size) {
  if (stopped_) return 0;
  position_.Follow();
  size_t length = 0;
  Guard([&] {
    if (parser_) {
      // The parser asks for bytes in the middle of a tag as well: without this it would first read all of it.
      if (InTag()) ParserLimits::CheckUnfinishedTag(delivered_ - event_end_);
      CheckDeclarations();
    }
    try {
      length = decoder_.Read(buffer, static_cast<size_t>(size));
    } catch (const Error& error) {
      return Keep(Unreadable(error));
    }
    if (length == 0) FailDecoding();
    bytes_read_ = decoder_.BytesTaken();
  });
  delivered_ += length;
  return static_cast<int>(length);
}

std::optional<XmlProblem> Run::End() {
  plug_.reset();
  if (parser_->wellFormed == 0) FailAsIllFormed(XML_ERR_INTERNAL_ERROR, "O ficheiro não é XML bem formado");
  if (thrown_) std::rethrow_exception(thrown_);
  return problem_;
}

// A validation that listens in puts itself in front of the user data, so the run is found by the parser.
void Run::OnParserError(void*, xmlErrorPtr error) {
  auto* const parser = static_cast<xmlParserCtxt*>(error->ctxt);
  if (parser == nullptr || parser->_private == nullptr) return;
  // A namespace may have any name. libxml2 says this too where it had no memory to look whether the name is a URI.
  if (error->level < XML_ERR_ERROR || error->code == XML_WAR_NS_URI) return;
  Of(parser->_private).FailAsIllFormed(error->code, ReasonOf(*error));
}

void Run::OnViolation(void* self, xmlErrorPtr error) {
  Run& run = Of(self);
  if (error->level < XML_ERR_ERROR || run.stopped_) return;
  switch (error->code) {
    case XML_SCHEMAV_INTERNAL:
    case XML_ERR_NO_MEMORY:
      return run.Fail(error->code, ReasonOf(*error), Fault::kSchema);
    default:
      return run.TellViolation(*error);
  }
}

void Run::TellViolation(const xmlError& error) {
  Guard([&] {
    const bool goOn = violated_(
        {.number = error.code, .reason = std::string(ReasonOf(error)), .fault = Fault::kInvalid, .place = Place()});
    if (!goOn) stopped_ = true;
  });
}

bool Run::InTag() const {
  switch (parser_->instate) {
    case XML_PARSER_CONTENT:
    case XML_PARSER_START_TAG:
    case XML_PARSER_END_TAG:
    case XML_PARSER_ATTRIBUTE_VALUE:
      return true;
    default:
      return false;
  }
}

void Run::FailDecoding() {
  switch (decoder_.fault()) {
    case TextDecoder::Fault::kNone:
      return;
    case TextDecoder::Fault::kUnknownEncoding:
      return FailAsIllFormed(XML_ERR_UNSUPPORTED_ENCODING, "A codificação declarada não é suportada");
    case TextDecoder::Fault::kContradictoryEncoding:
      return FailAsIllFormed(XML_ERR_UNSUPPORTED_ENCODING, "A codificação declarada contradiz a do início do ficheiro");
    case TextDecoder::Fault::kNul:
      return FailAsIllFormed(XML_ERR_INVALID_CHAR, "O carácter U+0000 não é permitido");
    case TextDecoder::Fault::kUndecodable:
      return FailAsIllFormed(XML_ERR_INVALID_ENCODING, "Bytes que a codificação não define");
  }
}

void Run::Fail(int number, std::string_view reason, Fault fault) {
  try {
    if (number == XML_ERR_NO_MEMORY) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
    Keep({.number = number, .reason = std::string(reason), .fault = fault, .place = Place()});
  } catch (...) {
    Keep(std::current_exception());
  }
}

// Drives a run in one call: libxml2 asks for the bytes of the file until its end.
std::optional<XmlProblem> ParseWhole(Run& run, xmlSchemaValidCtxt* validation) {
  xmlSAXHandler callbacks = Run::Callbacks();
  const auto deliver = [](void* asked, char* buffer, int size) {
    return static_cast<Run*>(asked)->Deliver(buffer, size);
  };
  xmlParserCtxt* const parser = xmlCreateIOParserCtxt(&callbacks, &run, deliver, nullptr, &run, XML_CHAR_ENCODING_UTF8);
  run.Begin(parser, validation);
  xmlParseDocument(parser);
  return run.End();
}

}  // namespace

std::optional<XmlProblem> Parser::Parse(ParserHandler& handler, _xmlSchemaValidCtxt* validation,
                                        const ProblemSink& violated) {
  InitialiseXml();
  bytes_read_ = 0;
  std::optional<InputFile> file;
  std::optional<TextDecoder> decoder;
  try {
    decoder.emplace(input_ != nullptr ? *input_ : file.emplace(file_));
  } catch (const Error& error) {
    return Unreadable(error);
  }
  Run run(*decoder, handler, violated, bytes_read_);
  return ParseWhole(run, validation);
}

}  // namespace zevo
