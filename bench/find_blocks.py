"""Counts the blocks of the files that it is given with a regular expression."""

import re
import sys

MARKER = re.compile(
    r"(?P<open><!-- registry:(?P<name>[\w:-]+) -->\n)(?P<body>.*?)"
    r"(?P<close><!-- /registry:(?P=name) -->)", re.DOTALL)

count = 0
for path in sys.argv[1:]:
    with open(path, encoding="utf-8") as file:
        count += sum(1 for _ in MARKER.finditer(file.read()))
print(count)
