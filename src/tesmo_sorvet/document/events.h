// From a JSON parser's events to the list of a document's values.
#ifndef TESMO_SORVET_DOCUMENT_EVENTS_H
#define TESMO_SORVET_DOCUMENT_EVENTS_H

#include <rapidjson/reader.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tesmo_sorvet/document/document.h"
#include "tesmo_sorvet/document/refusal.h"

namespace tesmo_sorvet {

// Receives the events of the parser, which decodes strings in place. The strings and
// numbers that it is given lie in the parsed buffer, where they began.
class Events : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Events> {
 public:
  // `stream` is the one that the parser reads of `json`; all must outlive this.
  Events(rapidjson::InsituStringStream& stream, std::string_view json,
         std::vector<Token>& tokens)
      : stream_(stream),
        tokens_(tokens),
        has_escapes_(json.find("\\u") != std::string_view::npos) {}

  // Set once an event was refused, which stops the parser.
  [[nodiscard]] const std::optional<Refusal>& refusal() const { return refusal_; }

  bool Null();
  bool Bool(bool held);
  bool RawNumber(const char* text, rapidjson::SizeType size, bool is_copy);
  bool String(const char* text, rapidjson::SizeType size, bool is_copy);
  bool Key(const char* text, rapidjson::SizeType size, bool is_copy);
  bool StartObject() { return open(Kind::object); }
  bool EndObject(rapidjson::SizeType member_count);
  bool StartArray() { return open(Kind::array); }
  bool EndArray(rapidjson::SizeType element_count);

 private:
  bool open(Kind kind);
  bool close();
  bool require_distinct_names(std::size_t object);
  bool refuse(std::size_t offset, std::string message);
  std::size_t offset_of(std::string_view text) const;

  rapidjson::InsituStringStream& stream_;
  std::vector<Token>& tokens_;
  bool has_escapes_;                     // of code points, the only way to a lone surrogate
  std::vector<std::size_t> open_;        // the arrays and objects around what comes next
  std::vector<std::string_view> names_;  // room for the names of one object
  std::optional<Refusal> refusal_;
};

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_DOCUMENT_EVENTS_H
