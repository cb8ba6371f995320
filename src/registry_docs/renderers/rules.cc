#include "registry_docs/blocks/margin.h"
#include "registry_docs/blocks/render.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/text.h"

namespace registry_docs {

std::string rules_block(const Host& host) {
  const std::string& rules = host.TESMO_INSTRUCTION_CONTENT;
  const auto changed =
      blocks::with_bodies(rules, blocks::scan(rules), [&](const blocks::Block& block) {
        return blocks::new_body(rules, block, host.rules_table());
      });
  return std::string(strip(host.without_markers(changed ? *changed : rules)));
}

}  // namespace registry_docs
