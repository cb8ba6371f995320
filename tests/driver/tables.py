"""The rows of generated tables, as cmark-gfm reads them."""

import re
import subprocess
import xml.etree.ElementTree

END = "the end"
TABLE_LINE = re.compile(r"^\|.*\|$", re.MULTILINE)
MARKER = re.compile(r"<!-- (/?)registry:([\w:-]+) -->")


def with_last_cell(line):
    """One cell more, to be found again: rows are filled up and cut off to the header's length."""
    return f"{line} --- |" if set(line) <= set("| -") else f"{line} {END} |"


def elements(markdown):
    """What stands in a document, one behind the other."""
    marked = TABLE_LINE.sub(lambda line: with_last_cell(line[0]), markdown)
    output = subprocess.run(["cmark-gfm", "--extension", "table", "--to", "xml"], check=True,
                            input=marked.encode(), stdout=subprocess.PIPE).stdout.decode()
    # XML has no control characters, and names here need no namespace.
    output = re.sub(r'[\0-\x08\x0b\x0c\x0e-\x1f\ufffe\uffff]| xmlns="[^"]*"', "", output)
    return xml.etree.ElementTree.fromstring(output)


def told_by(row):
    """What a row is about, which its first code names."""
    if row[-1].findtext("text") != END:
        cells = [[part.text for part in cell.iter() if not len(part)] for cell in row]
        raise AssertionError(f"expected as many cells as titles, found {cells}")
    return row.findtext(".//code")


def rows(markdown):
    """Of each generated block, what the rows of its tables are about."""
    blocks, names = {}, []
    for element in elements(markdown):
        if marker := MARKER.match(element.text or ""):
            names = []
            if marker[1] == "":
                blocks[marker[2]] = names
        names += map(told_by, element.findall("table_row"))
    return blocks
