"""Every link of a Markdown file within the project leads to a file, and to a heading of it."""

import pathlib
import re
import unittest

TOP = pathlib.Path(__file__).parents[2]
PAGES = [path for places in ("*.md", "docs/*.md", "examples/**/*.md", "packaging/**/*.md")
         for path in TOP.glob(places)]
FENCED = re.compile(r"^ *(```+).*?^ *\1$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(([^()\s]+)\)|(?:src|srcset|href)=\"([^\"\s]+)\"")


def anchors_of(path):
    """The anchors of a page's headings, as GitHub makes them."""
    headings = re.findall(r"^#+ +(.*)", FENCED.sub("", path.read_text(encoding="utf-8")), re.MULTILINE)
    found = [re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings]
    return {each + (f"-{before}" if (before := found[:at].count(each)) else "") for at, each in enumerate(found)}


class Links(unittest.TestCase):
    def test_links_lead_somewhere(self):
        count = 0  # a pattern that finds no link would pass
        for page in PAGES:
            text = re.sub(r"`[^`\n]*`", "", FENCED.sub("", page.read_text(encoding="utf-8")))
            for link in (first or second for first, second in LINK.findall(text)):
                if not re.match(r"\w+:", link):
                    count += 1
                    file, _, anchor = link.partition("#")
                    target = page.parent / (file or page.name)
                    with self.subTest(page=str(page.relative_to(TOP)), link=link):
                        self.assertTrue(target.exists())
                        self.assertIn(anchor, anchors_of(target) if anchor else {""})
        self.assertGreater(count, 50)


if __name__ == "__main__":
    unittest.main()
