// A server's tools as templates see them: values of types whose members are known.
#ifndef LAYOUTS_SERVER_H
#define LAYOUTS_SERVER_H

#include <string>
#include <vector>

#include "json/node.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::support {

struct Field {
  std::string name;
  std::vector<Field> fields = {};
};

struct Tool {
  std::string name;
  std::string title;
  std::vector<Field> fields = {};
  json::MaybeNode meta = {};
};

struct Limit {};

struct Server {
  std::vector<Tool> tools;
  std::vector<Limit> limits;
};

layouts::View view_of(const Server& server);

}  // namespace registry_docs::support

#endif  // LAYOUTS_SERVER_H
