# Writes OUTPUT, a source of the program that says its VERSION and the commit of SOURCES, unless it
# says so already. Sources that git does not know have no commit.
execute_process(COMMAND git -C ${SOURCES} describe --always --dirty --abbrev=12 --exclude=*
                OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE
                RESULT_VARIABLE failure ERROR_QUIET)
if(failure OR NOT EXISTS ${SOURCES}/.git)
  set(text ${VERSION})
else()
  set(text "${VERSION} (${commit})")
endif()
file(CONFIGURE OUTPUT ${OUTPUT} @ONLY CONTENT [[
#include "gen_registry_docs/version.h"

namespace gen_registry_docs {

std::string_view version() { return "@text@"; }

}  // namespace gen_registry_docs
]])
