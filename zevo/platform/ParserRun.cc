// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ParserRun.h>

#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>
#include <zevo/Error.h>
#include <zevo/platform/Text.h>

#include <mutex>

namespace zevo {
namespace {

using Fault = XmlProblem::Fault;

const char* Text(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

std::string_view View(const xmlChar* text, int length) {
  return std::string_view(Text(text), static_cast<size_t>(length));
}

std::string_view ReasonOf(const xmlError& error) { return error.message == nullptr ? "" : error.message; }

// Makes libxml2 ready for use, once in the process. The library never shuts it down: the host may use it too.
void InitialiseXml() {
  static std::once_flag once;
  std::call_once(once, xmlInitParser);
}

ParsedName Numbered(ParserLimits& limits, const xmlChar* local, const xmlChar* prefix) {
  return {Text(local), Text(prefix), limits.NumberOf(Text(local), Text(prefix))};
}

}  // namespace

// In an attribute libxml2 hands over an ampersand as a reference.
inline std::string_view ParserRun::Attributes::WithAmpersands(std::string_view value) {
  if (value.find('&') == std::string_view::npos) return value;
  return changed_.emplace_back(ReplaceAll(value, "&#38;", "&"));
}

std::span<const ParsedAttribute> ParserRun::Attributes::Collect(ParserLimits& limits, int declarations,
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

ParserRun::ParserRun(TextDecoder& decoder, ParserHandler& handler, const ProblemSink& violated, uint64_t& bytesRead)
    : decoder_(decoder), handler_(handler), violated_(violated), bytes_read_(bytesRead) {
  InitialiseXml();
}

template <class Action>
void ParserRun::Guard(Action&& action) {
  try {
    action();
  } catch (const ParserLimits::Passed& limit) {
    Refuse(limit.reason);
  } catch (...) {
    Keep(std::current_exception());
  }
}

template <class Action>
void ParserRun::GuardEvent(Action&& action) {
  if (stopped_) return;
  const size_t position = position_.Bytes();
  Guard([&] { action(*this, position - event_end_); });
  event_end_ = position;
}

xmlSAXHandler ParserRun::Callbacks() {
  xmlSAXHandler sax{};
  sax.initialized = XML_SAX2_MAGIC;
  sax.startElementNs = &ParserRun::OnStartElement;
  sax.endElementNs = &ParserRun::OnEndElement;
  sax.characters = [](void* self, const xmlChar* text, int length) { Of(self).OnText(text, length, false); };
  sax.ignorableWhitespace = sax.characters;
  sax.cdataBlock = [](void* self, const xmlChar* text, int length) { Of(self).OnText(text, length, true); };
  sax.comment = [](void* self, const xmlChar* text) {
    Of(self).GuardEvent([&](ParserRun& run, size_t) { run.handler_.Comment(Text(text)); });
  };
  sax.processingInstruction = [](void* self, const xmlChar* target, const xmlChar* data) {
    Of(self).GuardEvent([&](ParserRun& run, size_t) {
      run.limits_.CountOtherName(Text(target));
      run.handler_.Instruction(Text(target), data == nullptr ? "" : Text(data));
    });
  };
  sax.startDocument = [](void* self) {
    Of(self).GuardEvent([](ParserRun& run, size_t) {
      if (run.parser_->standalone == 1) run.handler_.Standalone();
    });
  };
  sax.internalSubset = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
    Of(self).Refuse("O ficheiro tem uma declaração DOCTYPE, que não é aceite");
  };
  sax.serror = &ParserRun::OnParserError;
  return sax;
}

void ParserRun::Begin(xmlParserCtxt* parser, xmlSchemaValidCtxt* validation) {
  if (parser == nullptr) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  parser_.reset(parser);
  position_.Watch(*parser);
  parser->_private = this;
  // The decoder has made UTF-8 of the bytes, whatever their declaration or their byte order mark says.
  parser->encoding = xmlStrdup(BAD_CAST "UTF-8");
  xmlCtxtUseOptions(parser, XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
  if (validation == nullptr) return;
  plug_.emplace(*parser, *validation);
  xmlSchemaSetValidStructuredErrors(validation, &ParserRun::OnViolation, this);
}

int ParserRun::Deliver(char* buffer, int size) {
  // A tag is limited while it is read: its own event comes only at its end, after all of it is in memory.
  if (!stopped_ && parser_ && InTag()) Guard([&] { ParserLimits::CheckUnfinishedTag(delivered_ - event_end_); });
  return Decode(buffer, size);
}

int ParserRun::Decode(char* buffer, int size) {
  if (stopped_) return 0;
  position_.Follow();
  size_t length = 0;
  Guard([&] {
    if (parser_) CheckDeclarations();
    try {
      length = decoder_.Read(buffer, static_cast<size_t>(size));
    } catch (const Error& error) {
      return Keep(UnreadableFile(error));
    }
    if (length == 0) FailDecoding();
    bytes_read_ = decoder_.BytesTaken();
  });
  delivered_ += length;
  return static_cast<int>(length);
}

std::optional<XmlProblem> ParserRun::End() {
  plug_.reset();
  if (parser_->wellFormed == 0) FailAsIllFormed(XML_ERR_INTERNAL_ERROR, "O ficheiro não é XML bem formado");
  if (thrown_) std::rethrow_exception(thrown_);
  return problem_;
}

void ParserRun::OnStartElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri,
                               int namespaces, const xmlChar** namespaceTexts, int attributes, int,
                               const xmlChar** attributeTexts) {
  if (Of(self).plug_) Of(self).plug_->StartElement(local, prefix, uri);
  Of(self).GuardEvent([&](ParserRun& run, size_t length) {
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

void ParserRun::OnEndElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar*) {
  if (Of(self).plug_) Of(self).plug_->EndElement();
  Of(self).GuardEvent([&](ParserRun& run, size_t) {
    run.limits_.EndElement();
    // What libxml2 has read last is the element's end: no other tag than an empty one has a slash there.
    const bool empty = run.parser_->input->cur[-2] == '/';
    const ParsedName name = {Text(local), Text(prefix)};
    empty ? run.handler_.EndEmptyTag(name) : run.handler_.EndElement(name);
  });
}

void ParserRun::OnText(const xmlChar* text, int length, bool cdata) {
  GuardEvent([&](ParserRun& run, size_t) {
    run.limits_.AddText(static_cast<size_t>(length));
    cdata ? run.handler_.CData(View(text, length)) : run.handler_.Characters(View(text, length));
  });
}

// A validation that listens in replaces the user data by its own, so the run is found through the parser.
void ParserRun::OnParserError(void*, xmlErrorPtr error) {
  auto* const parser = static_cast<xmlParserCtxt*>(error->ctxt);
  if (parser == nullptr || parser->_private == nullptr) return;
  // A namespace may have any name, be it no URI. libxml2 also gives this error where it has no memory to check that.
  if (error->level < XML_ERR_ERROR || error->code == XML_WAR_NS_URI) return;
  Of(parser->_private).FailAsIllFormed(error->code, ReasonOf(*error));
}

void ParserRun::OnViolation(void* self, xmlErrorPtr error) {
  ParserRun& run = Of(self);
  if (error->level < XML_ERR_ERROR || run.stopped_) return;
  switch (error->code) {
    case XML_SCHEMAV_INTERNAL:
    case XML_ERR_NO_MEMORY:
      return run.Fail(error->code, ReasonOf(*error), Fault::kSchema);
    default:
      return run.TellViolation(*error);
  }
}

void ParserRun::TellViolation(const xmlError& error) {
  Guard([&] {
    const bool goOn = violated_(
        {.number = error.code, .reason = std::string(ReasonOf(error)), .fault = Fault::kInvalid, .place = Place()});
    if (!goOn) stopped_ = true;
  });
}

bool ParserRun::InTag() const {
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

void ParserRun::FailDecoding() {
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

void ParserRun::FailAsIllFormed(int number, std::string_view reason) { Fail(number, reason, Fault::kNotWellFormed); }

void ParserRun::Refuse(std::string_view reason) { Fail(XML_ERR_USER_STOP, reason, Fault::kRefused); }

void ParserRun::Fail(int number, std::string_view reason, Fault fault) {
  // After a failure the parser may have let its bytes go: there is no place to be told any more.
  if (stopped_) return;
  try {
    if (number == XML_ERR_NO_MEMORY) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
    Keep({.number = number, .reason = std::string(reason), .fault = fault, .place = Place()});
  } catch (...) {
    Keep(std::current_exception());
  }
}

FilePlace ParserRun::Place() {
  return decoder_.fault() == TextDecoder::Fault::kNone ? position_.Place() : position_.PlaceOfMore();
}

}  // namespace zevo
