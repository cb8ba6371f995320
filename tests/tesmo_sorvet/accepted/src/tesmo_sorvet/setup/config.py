"""A module whose rules text is as awkward as a plain literal may be."""

 TESMO_INSTRUCTION_CONTENT = "indented, so another name"
TESMO_INSTRUCTION_CONTENTS = "a longer name"
TESMO_INSTRUCTION_CONTENT: str = '''\
# Rules \\ "\"" \x41\u00e9\101 \
joined \q
<!-- registry:rules-routes -->
an old table
<!-- /registry:rules-routes --> behind
<!-- registry:orphan -->
end\t
'''  # and a comment
