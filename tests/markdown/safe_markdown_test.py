"""Whatever a text holds, cmark-gfm shows all of it, and nothing of it acts on what stands around.

COUNT and SEED in the environment ask for other random texts."""

import os
import random
import re
import subprocess
import unittest

import visible_text
from hostile_texts import TEXTS, random_text
from shown_page import EXTENSIONS, Page

ADDRESS = re.compile(r"(https?|ftp)://|@", re.IGNORECASE)
MARKER = re.compile(r"<!--\s*/?\s*registry")
TAGS = {"p", "br", "pre", "code", "a"}  # what a text may become
DEFINITIONS = "\n[a]: /\n[b]: /\n[c]: /\n[x]: /\n"  # what a "[a]" could refer to
ROW = "| a | b | c |\n| - | - | - |\n| BEGIN | {} | END |\n"
ROW_HTML = r"<table>.*<td>BEGIN</td>\n<td>(?P<text>.*)</td>\n<td>END</td>.*</table>"

# Of each: the operation, what stands around its result, and the HTML that stands around then.
CONTEXTS = {
    "paragraphs": ("blocks", "BEGIN\n\n{}\n\nEND", "<p>BEGIN</p>(?P<text>.*)<p>END</p>"),
    "before a marker": ("blocks", "{}\n<!-- END -->", "(?P<text>.*)<!-- END -->"),
    "before a heading": ("blocks", "{}\n# END", "(?P<text>.*)<h1>END</h1>"),
    "before a list": ("blocks", "{}\n- END", "(?P<text>.*)<ul>\n<li>END</li>\n</ul>"),
    "in an item": ("item", "- {}\n- END", r"<ul>\n<li>(?P<text>.*)</li>\n"
                   r"<li>(\n<p>)?END(</p>\n)?</li>\n</ul>"),
    "twice": ("blocks", "{0}\n\nMIDDLE\n\n{0}\n\nEND",
              "(?P<text>.*)<p>MIDDLE</p>\n(?P=text)<p>END</p>"),
    "within a line": ("inline", "BEGIN {} END", "<p>BEGIN ?(?P<text>.*) END</p>"),
    "twice in a line": ("inline", "{0} MIDDLE {0} END",
                        "<p>(?P<text>.*?) ?MIDDLE ?(?P=text) END</p>"),
    "items": ("inline", "- {0}\n- {0}\n- END",
              r"<ul>\n<li>(?P<text>.*)</li>\n<li>(?P=text)</li>\n<li>END</li>\n</ul>"),
    "as a heading": ("inline", "## {}\nEND", r"<h2>(?P<text>.*)</h2>\n<p>END</p>"),
    "in a cell": ("cell", ROW, ROW_HTML),
    "blocks in a cell": ("blocks in a cell", ROW, ROW_HTML),
    "as HTML": ("html", "<details>\n<summary>{}</summary>\nEND\n</details>",
                r"<details>\n<summary>(?P<text>.*)</summary>\nEND\n</details>"),
}
EXPECTED = {"inline": visible_text.of_inline, "cell": visible_text.of_inline,
            "blocks": visible_text.of_blocks, "item": visible_text.of_blocks,
            "blocks in a cell": visible_text.of_blocks,
            "html": lambda text: visible_text.collapsed(visible_text.shown(text))}


def run(command, text):
    return subprocess.run(command, check=True, input=text, stdout=subprocess.PIPE).stdout


def written(operation, texts):
    parts = b"".join(part.encode() + b"\xff" for text in texts for part in (operation, text))
    return [part.decode() for part in run(os.environ["SAFE_MARKDOWN"], parts).split(b"\xff")[:-1]]


def rendered(documents):
    """The HTML of each document; all are one for cmark-gfm, unless one reaches into the next."""
    end = "THE DOCUMENT ENDS"
    page = "".join(f"{document}\n\n{end}\n\n" for document in documents) + DEFINITIONS
    pages = run(["cmark-gfm", "--unsafe", *EXTENSIONS], page.encode()).decode().split(f"<p>{end}</p>\n")[:-1]
    if len(pages) != len(documents) > 1:
        return [rendered([document]) for document in documents]
    return pages if len(documents) > 1 else "".join(pages)


def fault(text, markdown, page, around, expected):
    """What is wrong with a page, if anything."""
    found = re.fullmatch(around, page.strip(), re.DOTALL)
    if not found:
        return "acts on what stands around it"
    if MARKER.search(markdown):
        return "has a marker"
    shown = Page(found["text"])
    if shown.tags - TAGS or ("a" in shown.tags and not ADDRESS.search(text)):
        return f"is live: {shown.tags}"
    if visible_text.collapsed(shown.text) != expected:
        return f"shows {visible_text.collapsed(shown.text)!r}, not {expected!r}"
    return None


def faults(context, texts):
    operation, frame, around = CONTEXTS[context]
    markdown = written(operation, texts)
    pages = rendered([frame.format(each) for each in markdown])
    for text, each, page in zip(texts, markdown, pages, strict=True):
        if operation == "blocks in a cell" and "<pre>" in each:
            continue  # HTML is no block in a cell
        if wrong := fault(text, each, page, around, EXPECTED[operation](text)):
            yield f"{context}: {text!r}\nas\n{each}\n{wrong}, in\n{page}"


class SafeMarkdown(unittest.TestCase):
    def expect_no_faults(self, texts):
        found = [fault for context in CONTEXTS for fault in faults(context, texts)]
        self.assertEqual(len(found), 0, "\n\n".join(found[:5]))

    def test_hostile_texts(self):
        self.expect_no_faults(TEXTS)

    def test_random_texts(self):
        chance = random.Random(int(os.environ.get("SEED", 1)))
        self.expect_no_faults([random_text(chance)
                               for _ in range(int(os.environ.get("COUNT", 500)))])


if __name__ == "__main__":
    unittest.main()
