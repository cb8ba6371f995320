// The parameters that a JSON Schema describes.
#ifndef REGISTRY_INPUTS_H
#define REGISTRY_INPUTS_H

#include <deque>
#include <string>
#include <string_view>

#include "json/node.h"
#include "json_schema/fault.h"
#include "tesmo_sorvet/inputs.h"

namespace registry {

// From an input schema, whose every word is put into those of the parameter tables. What
// cannot be read is "any", and joins the faults. Borrows from the document, and from `texts`,
// which the texts that no document holds join.
tesmo_sorvet::Inputs described_inputs(const json::Node& declared,
                                      std::deque<std::string>& texts,
                                      std::vector<json_schema::Fault>& faults);

}  // namespace registry

#endif  // REGISTRY_INPUTS_H
