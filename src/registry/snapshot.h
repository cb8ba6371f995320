// The text of a file that keeps what a server answered.
#ifndef REGISTRY_SNAPSHOT_H
#define REGISTRY_SNAPSHOT_H

#include <cstdint>
#include <string>

#include "json/node.h"

namespace registry {

// In which the entries of each list stand: a server may shuffle them.
enum class Order : std::uint8_t { as_answered, by_name };

// For people and version control to read: what says the same comes to the same text. The
// members serverInfo, instructions, tools, prompts, resources and resourceTemplates come
// first, in this order; entries keep their members. Left out is what differs from call to
// call, and each hint of a tool that says what holds without it.
//
// A catalog of the text has what a catalog of the answer has, but that such a hint is not
// given. The text of the text is itself. Refuses an answer that is no object.
std::string snapshot_text(const json::Node& answer, Order order);

}  // namespace registry

#endif  // REGISTRY_SNAPSHOT_H
