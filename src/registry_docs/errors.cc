#include "registry_docs/errors.h"

#include <utility>

namespace registry_docs {

MissingKeyError::MissingKeyError(const std::string& where, std::string key)
    : std::runtime_error(where + ": expected the key \"" + key + "\", found none"),
      key_(std::move(key)) {}

FileError::FileError(std::string path, std::error_code code)
    : FileError(std::move(path), code, code.message()) {}

FileError::FileError(std::string path, std::error_code code, const std::string& reason)
    : std::runtime_error(path + ": " + reason), path_(std::move(path)), code_(code) {}

DecodeError::DecodeError(std::string path, std::size_t offset)
    : std::runtime_error(path + ": expected UTF-8, found an ill-formed sequence at byte " +
                         std::to_string(offset)),
      path_(std::move(path)),
      offset_(offset) {}

}  // namespace registry_docs
