// The first host's blocks for any other server.
#ifndef REGISTRY_GENERAL_HOST_H
#define REGISTRY_GENERAL_HOST_H

#include <memory>
#include <vector>

#include "json/document.h"
#include "json_schema/fault.h"
#include "registry/repository.h"
#include "registry_docs/host.h"

namespace registry {

// The host whose blocks are those that the first one has as well, of the answer or, without
// one, of the tools that the registry document declares. Owns both documents. What cannot be
// read of a schema joins the faults. Reads the rules text if a file shall hold the rules
// block. Throws InputError, FileError or DecodeError.
registry_docs::Host general_host(const Repository& repository,
                                 const std::shared_ptr<json::Document>& answer,
                                 std::vector<json_schema::Fault>& faults);

}  // namespace registry

#endif  // REGISTRY_GENERAL_HOST_H
