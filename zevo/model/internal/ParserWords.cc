// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/ParserWords.h>

#include <zevo/model/internal/Phrase.h>

#include <array>
#include <cstddef>

namespace zevo {
namespace {

// The numbers are libxml2's; the lower layers alone know its headers. Rows without a wording come last of their number.
constexpr auto kRows = std::to_array<Rewording>({
    {1, {}, {"O ficheiro não é XML bem formado", "The file is not well-formed XML"}},
    {4, "Document is empty", {"O ficheiro está vazio", "The file is empty"}},
    {4,
     {},
     {"O ficheiro não tem nenhum elemento onde devia começar o primeiro",
      "The file has no element where its first one should begin"}},
    {5,
     {},
     {"Há conteúdo a mais depois do fim do elemento principal",
      "There is more content behind the end of the root element"}},
    {6,
     {},
     {"Uma referência a um carácter, que se escreve como &#xE9;, está errada",
      "A character reference, which is written like &#xE9;, is wrong"}},
    {7,
     {},
     {"Uma referência a um carácter, que se escreve como &#233;, está errada",
      "A character reference, which is written like &#233;, is wrong"}},
    {8, {}, {"Uma referência a um carácter está errada", "A character reference is wrong"}},
    {9,
     "PCDATA invalid Char value {1}",
     {"O texto tem o carácter número {1}, que o XML não permite",
      "The text has character number {1}, which XML does not allow"}},
    {9,
     "xmlParseCharRef: invalid xmlChar value {1}",
     {"A referência é ao carácter número {1}, que o XML não permite",
      "The reference is to character number {1}, which XML does not allow"}},
    {9,
     "xmlParseCharRef: character reference out of bounds",
     {"A referência é a um carácter que não existe", "The reference is to a character that does not exist"}},
    {9,
     "xmlParseComment: invalid xmlChar value {1}",
     {"Um comentário tem o carácter número {1}, que o XML não permite",
      "A comment has character number {1}, which XML does not allow"}},
    {9,
     "Char 0x{1} out of allowed range",
     {"O carácter U+{1} não é permitido em XML", "The character U+{1} is not allowed in XML"}},
    {9,
     "invalid character in attribute value",
     {"O valor de um atributo tem um carácter que o XML não permite",
      "The value of an attribute has a character that XML does not allow"}},
    {9,
     "Input is not proper UTF-8, indicate encoding !\nBytes: {1}",
     {"Há bytes que não são UTF-8: {1}", "There are bytes that are not UTF-8: {1}"}},
    {9,
     "O carácter U+0000 não é permitido",
     {"O carácter U+0000 não é permitido em XML", "The character U+0000 is not allowed in XML"}},
    {9, {}, {"Há um carácter que o XML não permite", "There is a character that XML does not allow"}},
    {23,
     {},
     {"Falta o ponto e vírgula de uma referência (um & que é texto escreve-se &amp;)",
      "The semicolon of a reference is missing (an & that is text is written &amp;)"}},
    {26,
     "Entity '{1}' not defined",
     {"A referência &{1}; não existe (um & que é texto escreve-se &amp;)",
      "The reference &{1}; does not exist (an & that is text is written &amp;)"}},
    {26, {}, {"Uma referência não existe", "A reference does not exist"}},
    {27, {}, {"Uma referência não existe", "A reference does not exist"}},
    {31, {}, {"A codificação declarada não é suportada", "The encoding declared is not supported"}},
    {32,
     "A codificação declarada contradiz a do início do ficheiro",
     {"A codificação declarada contradiz a do início do ficheiro",
      "The encoding declared contradicts the beginning of the file"}},
    {32, {}, {"A codificação declarada não é suportada", "The encoding declared is not supported"}},
    {33,
     {},
     {"Falta a aspa antes de um valor da declaração XML",
      "The quotation mark before a value of the XML declaration is missing"}},
    {34,
     {},
     {"Falta a aspa depois de um valor da declaração XML",
      "The quotation mark behind a value of the XML declaration is missing"}},
    {38,
     {},
     {"O valor de um atributo tem um sinal <, que se escreve &lt;",
      "The value of an attribute has a <, which is written &lt;"}},
    {39,
     {},
     {"Falta a aspa antes do valor de um atributo", "The quotation mark before the value of an attribute is missing"}},
    {40,
     {},
     {"Falta a aspa depois do valor de um atributo", "The quotation mark behind the value of an attribute is missing"}},
    {41, "{1} mandates value for attribute {2}", {"O atributo {2} não tem valor", "Attribute {2} has no value"}},
    {41, {}, {"Um atributo não tem valor", "An attribute has no value"}},
    {42,
     "Attribute {1} redefined",
     {"O atributo {1} está repetido no mesmo elemento", "Attribute {1} stands twice in the same element"}},
    {42, {}, {"Um atributo está repetido no mesmo elemento", "An attribute stands twice in the same element"}},
    {45, "Comment too big found", {"Um comentário é longo de mais", "A comment is too long"}},
    {45, {}, {"Um comentário não acaba: falta -->", "A comment does not end: --> is missing"}},
    {46, {}, {"Uma instrução, que começa por <?, não tem nome", "An instruction, which begins with <?, has no name"}},
    {47,
     "ParsePI: PI {1} never end ...",
     {"A instrução {1} não acaba: falta ?>", "The instruction {1} does not end: ?> is missing"}},
    {47, "PI {1} too big found", {"A instrução {1} é longa de mais", "The instruction {1} is too long"}},
    {47, {}, {"Uma instrução não acaba: falta ?>", "An instruction does not end: ?> is missing"}},
    {56, {}, {"A declaração XML está errada", "The XML declaration is wrong"}},
    {57, {}, {"A declaração XML está errada: falta ?>", "The XML declaration is wrong: ?> is missing"}},
    {62, {}, {"Um texto tem os sinais ]]>, que se escrevem ]]&gt;", "A text has ]]>, which is written ]]&gt;"}},
    {63, "CData section too big found", {"Uma secção CDATA é longa de mais", "A CDATA section is too long"}},
    {63, {}, {"Uma secção CDATA não acaba: falta ]]>", "A CDATA section does not end: ]]> is missing"}},
    {64,
     "XML declaration allowed only at the start of the document",
     {"A declaração XML só pode estar no começo do ficheiro",
      "The XML declaration may stand at the beginning of the file only"}},
    {64, {}, {"O nome xml não pode ser o de uma instrução", "The name xml may not be that of an instruction"}},
    {65,
     "ParsePI: PI {1} space expected",
     {"Falta um espaço depois do nome da instrução {1}", "A space is missing behind the name of the instruction {1}"}},
    {65,
     "attributes construct error",
     {"Falta um espaço entre os atributos de um elemento", "A space is missing between the attributes of an element"}},
    {65, {}, {"Falta um espaço", "A space is missing"}},
    {68,
     "StartTag: invalid element name",
     {"Depois de um sinal < falta o nome de um elemento (um < que é texto escreve-se &lt;)",
      "The name of an element is missing behind a < (a < that is text is written &lt;)"}},
    {68, "error parsing attribute name", {"O nome de um atributo está errado", "The name of an attribute is wrong"}},
    {68,
     "xmlParseEntityRef: no name",
     {"Depois de um sinal & falta um nome (um & que é texto escreve-se &amp;)",
      "A name is missing behind an & (an & that is text is written &amp;)"}},
    {68, {}, {"Falta um nome", "A name is missing"}},
    {73,
     "Couldn't find end of Start Tag {1} line {2}",
     {"A etiqueta de {1} (linha {2}) não acaba: falta >", "The tag of {1} (line {2}) does not end: > is missing"}},
    {73, {}, {"Uma etiqueta não acaba: falta >", "A tag does not end: > is missing"}},
    {74, {}, {"Falta a etiqueta que fecha um elemento", "The tag that closes an element is missing"}},
    {75, {}, {"Falta o sinal = antes de um valor", "The = before a value is missing"}},
    {76,
     "Opening and ending tag mismatch: {1} line {2} and {3}",
     {"O elemento {1} (linha {2}) fecha com {3}", "Element {1} (line {2}) is closed by {3}"}},
    {76, {}, {"Um elemento fecha com o nome de outro", "An element is closed by the name of another"}},
    {77,
     "Premature end of data in tag {1} line {2}",
     {"O ficheiro acaba dentro do elemento {1}, da linha {2}", "The file ends inside element {1} of line {2}"}},
    {77, {}, {"O ficheiro acaba dentro de um elemento", "The file ends inside an element"}},
    {78,
     {},
     {"Na declaração XML, standalone só pode ser yes ou no",
      "In the XML declaration, standalone may be yes or no only"}},
    {79,
     {},
     {"O nome da codificação, na declaração XML, está errado",
      "The name of the encoding, in the XML declaration, is wrong"}},
    {80, {}, {"Um comentário tem os sinais -- dentro", "A comment has -- inside"}},
    {81, "Bytes que não são UTF-8", {"Há bytes que não são UTF-8", "There are bytes that are not UTF-8"}},
    {81,
     {},
     {"Há bytes que não pertencem à codificação do ficheiro",
      "There are bytes that do not belong to the encoding of the file"}},
    {96, {}, {"A declaração XML está errada: falta a versão", "The XML declaration is wrong: the version is missing"}},
    {108, "Unsupported version '{1}'", {"A versão {1} do XML não é lida", "Version {1} of XML is not read"}},
    {108, {}, {"A versão do XML não é lida", "The version of XML is not read"}},
    {110, {}, {"Um nome é longo de mais", "A name is too long"}},
    {111,
     "O ficheiro tem uma declaração DOCTYPE, que não é aceite",
     {"O ficheiro tem uma declaração DOCTYPE, que não é aceite",
      "The file has a DOCTYPE declaration, which is not accepted"}},
    {111,
     "Uma etiqueta tem mais de 256 atributos",
     {"Uma etiqueta tem mais de 256 atributos", "A tag has more than 256 attributes"}},
    {111,
     "Mais de 64 declarações de espaços de nomes valem ao mesmo tempo",
     {"Mais de 64 declarações de espaços de nomes valem ao mesmo tempo",
      "More than 64 namespace declarations are in force at the same time"}},
    {111,
     "O ficheiro tem mais de 10 000 nomes de instruções, prefixos e espaços de nomes",
     {"O ficheiro tem mais de 10 000 nomes de instruções, prefixos e espaços de nomes",
      "The file has more than 10,000 names of instructions, prefixes and namespaces"}},
    {111, "Uma etiqueta tem mais de 64 KiB", {"Uma etiqueta tem mais de 64 KiB", "A tag is longer than 64 KiB"}},
    {111,
     "Os elementos estão encaixados em mais de 256 níveis",
     {"Os elementos estão encaixados em mais de 256 níveis", "Elements are nested more than 256 deep"}},
    {111,
     "Um texto tem mais de 10 milhões de bytes",
     {"Um texto tem mais de 10 milhões de bytes", "A text has more than 10 million bytes"}},
    {111,
     "O ficheiro tem mais de 10 000 nomes de elementos e atributos",
     {"O ficheiro tem mais de 10 000 nomes de elementos e atributos",
      "The file has more than 10,000 names of elements and attributes"}},
    {111, "O esquema tem mais de 256 KiB", {"O esquema tem mais de 256 KiB", "The schema is larger than 256 KiB"}},
    {111,
     "O esquema tem mais de 10 000 elementos",
     {"O esquema tem mais de 10 000 elementos", "The schema has more than 10,000 elements"}},
    {111,
     "O esquema tem um conteúdo de mais de 500 elementos, em «{1}»",
     {"O esquema tem um conteúdo de mais de 500 elementos, em «{1}»",
      R"(The schema has a content of more than 500 elements, in "{1}")"}},
    {111,
     "O esquema tem definições que remetem umas para outras vezes de mais{1}, em «{2}»",
     {"O esquema tem definições que remetem umas para outras vezes de mais{1}, em «{2}»",
      R"(The schema has definitions that refer to each other too often, in "{2}")"}},
    {111,
     "O esquema repete em mais de 8 sítios do mesmo conteúdo, ou do mesmo padrão, o que pode estar vazio, em «{1}»",
     {"O esquema repete em mais de 8 sítios do mesmo conteúdo, ou do mesmo padrão, o que pode estar vazio, em «{1}»",
      R"(The schema repeats what may be empty in more than 8 places of one content or pattern, in "{1}")"}},
    {111,
     "O esquema levaria tempo de mais a preparar",
     {"O esquema levaria tempo de mais a preparar", "The schema would take too long to prepare"}},
    {111,
     "O esquema levaria memória de mais a preparar",
     {"O esquema levaria memória de mais a preparar", "The schema would take too much memory to prepare"}},
    {111,
     "O esquema é do espaço de nomes «{1}», mas tem de ser do espaço de nomes «{2}»",
     {"O esquema é do espaço de nomes «{1}», mas tem de ser do espaço de nomes «{2}»",
      R"(The schema is of the namespace "{1}", but must be of the namespace "{2}")"}},
    {111,
     "O esquema é de nenhum espaço de nomes, mas tem de ser do espaço de nomes «{1}»",
     {"O esquema não é de nenhum espaço de nomes, mas tem de ser do espaço de nomes «{1}»",
      R"(The schema is of no namespace, but must be of the namespace "{1}")"}},
    {111, {}, {"O ficheiro ou o esquema passa um limite", "The file or the schema goes beyond a limit"}},
    {200,
     "xmlns:{1}: Empty XML namespace is not allowed",
     {"O prefixo {1} é declarado para um espaço de nomes vazio", "The prefix {1} is declared for an empty namespace"}},
    {200, {}, {"A declaração de um espaço de nomes está errada", "The declaration of a namespace is wrong"}},
    {201,
     "Namespace prefix {1} for {2} on {3} is not defined",
     {"O prefixo {1} do atributo {2}, do elemento {3}, não está declarado",
      "The prefix {1} of attribute {2}, of element {3}, is not declared"}},
    {201,
     "Namespace prefix {1} on {2} is not defined",
     {"O prefixo {1} do elemento {2} não está declarado", "The prefix {1} of element {2} is not declared"}},
    {201, {}, {"Um prefixo não está declarado", "A prefix is not declared"}},
    {202,
     "Failed to parse QName '{1}'",
     {"O nome {1} tem dois pontos no sítio errado", "The name {1} has a colon in the wrong place"}},
    {202, {}, {"Um nome tem dois pontos no sítio errado", "A name has a colon in the wrong place"}},
    {203,
     "Namespaced Attribute {1} in '{2}' redefined",
     {"O atributo {1} está repetido no mesmo elemento", "Attribute {1} stands twice in the same element"}},
    {203, {}, {"Um atributo está repetido no mesmo elemento", "An attribute stands twice in the same element"}},
    {204, {}, {"A declaração de um espaço de nomes está errada", "The declaration of a namespace is wrong"}},
    {205,
     "colons are forbidden from PI names '{1}'",
     {"O nome da instrução {1} não pode ter dois pontos", "The name of the instruction {1} may not have a colon"}},
    {205, {}, {"O nome de uma instrução não pode ter dois pontos", "The name of an instruction may not have a colon"}},
    {1772,
     "The XML document '{1}' is not a schema document.",
     {"O ficheiro não é um esquema XML (XSD)", "The file is not an XML schema (XSD)"}},
    {1818, {}, {"A validação não chegou ao fim", "The validation did not come to its end"}},
    {3050,
     "O esquema remete para outro ficheiro",
     {"O esquema remete para outro ficheiro", "The schema refers to another file"}},
});

constexpr Phrase kOfFile{"O XML não está bem formado (erro {1} do analisador)",
                         "The XML is not well-formed (error {1} of the parser)"};
constexpr Phrase kOfSchema{"O esquema não pode ser usado (erro {1} do analisador)",
                           "The schema cannot be used (error {1} of the parser)"};
constexpr Phrase kIn{", em «{1}»", R"(, in "{1}")"};

// What libxml2 numbers: its parser and its namespaces, what a schema does not allow, schemas themselves.
struct Range {
  int32_t first;
  int32_t last;
};
constexpr Range kOfParser{1, 299};
constexpr Range kOfEncodings{1500, 1599};
constexpr Range kOfSchemas{1700, 1799};
constexpr Range kOfViolations{1801, 1899};
constexpr Range kMoreOfSchemas{3000, 3199};

constexpr bool IsIn(int32_t number, const Range& range) { return number >= range.first && number <= range.last; }

// What a text names first in quotation marks, without its namespace.
std::string_view FirstName(std::string_view text) {
  const size_t begin = text.find('\'');
  if (begin == std::string_view::npos) return {};
  const size_t end = text.find('\'', begin + 1);
  if (end == std::string_view::npos) return {};
  const std::string_view name = text.substr(begin + 1, end - begin - 1);
  return name.substr(name.rfind('}') + 1);
}

std::string OfSchema(int32_t number, std::string_view reason, Language language) {
  const std::string name = AbridgedText(FirstName(reason));
  std::string sentence = Filled(kOfSchema.In(language), std::array{std::to_string(number)});
  if (!name.empty()) sentence.append(Filled(kIn.In(language), std::array{name}));
  if (language == Language::kEnglish) {
    sentence.append(": ").append(reason.substr(0, reason.find_last_not_of(". \n") + 1));
  }
  return sentence;
}

// Where the parser's own words begin: behind the name of a schema, if there is one.
size_t BeginOfWords(std::string_view reason) {
  // libxml2 says of what element, type or attribute it speaks, and only then what of it.
  for (const std::string_view start :
       {"Element '", "element ", "complex type '", "simple type '", "local ", "attribute ", "The ", "(", "facet '",
        "content model", "model group", "Attribute "}) {
    const size_t at = reason.find(std::string(": ").append(start));
    if (at != std::string_view::npos && reason.substr(0, at).find('\'') == std::string_view::npos) return at + 2;
  }
  return 0;
}

}  // namespace

bool IsViolation(int32_t number) { return IsIn(number, kOfViolations) && number != 1818; }

std::string ParserSentence(int32_t number, std::string_view reason, bool placed, Language language) {
  // Behind the name of a schema, which may have ": " in it as the words may.
  for (size_t begin = 0; begin <= reason.size();) {
    std::string known = Reworded(kRows, number, reason.substr(begin), false, language);
    if (!known.empty()) return std::string(reason.substr(0, begin)).append(known);
    const size_t next = reason.find(": ", begin);
    if (next == std::string_view::npos) break;
    begin = next + 2;
  }
  if (IsIn(number, kOfSchemas) || IsIn(number, kMoreOfSchemas)) {
    const size_t begin = BeginOfWords(reason);
    return std::string(reason.substr(0, begin)).append(OfSchema(number, reason.substr(begin), language));
  }
  if (!placed) return {};
  if (std::string known = Reworded(kRows, number, {}, true, language); !known.empty()) return known;
  if (!IsIn(number, kOfParser) && !IsIn(number, kOfEncodings)) return {};
  return Filled(kOfFile.In(language), std::array{std::to_string(number)});
}

}  // namespace zevo
