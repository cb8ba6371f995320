"""What cmark-gfm shows of a page that is made of a server's answer."""

import collections
import html.parser
import subprocess

import visible_text

EXTENSIONS = [part for name in ("table", "strikethrough", "autolink", "tagfilter", "tasklist")
              for part in ("--extension", name)]


class Page(html.parser.HTMLParser):
    """What a page shows, and the names of its tags."""

    def __init__(self, page):
        super().__init__()
        self.text, self.tags = "", set()
        self.feed(page)
        self.close()

    def handle_starttag(self, tag, attrs):
        self.tags.add(tag)
        self.handle_endtag(tag)

    def handle_endtag(self, tag):
        self.text += "\n" if tag in ("p", "pre", "br") else ""

    def handle_data(self, data):
        self.text += data


def rendered(markdown):
    """The HTML of a page."""
    command = ["cmark-gfm", "--unsafe", *EXTENSIONS]
    return subprocess.run(command, check=True, input=markdown.encode(),
                          stdout=subprocess.PIPE).stdout.decode()


def descriptions(value, is_names=False):
    """Every text of an answer or a schema that is for readers: no member's name is taken for one."""
    if isinstance(value, list):
        for each in value:
            yield from descriptions(each)
    elif isinstance(value, dict):
        for name, member in value.items():
            if name == "description" and isinstance(member, str) and not is_names:
                yield member
            elif is_names or name not in ("enum", "const", "default", "examples", "_meta"):
                yield from descriptions(member, name in ("properties", "$defs", "definitions"))


def unseen(answer, markdown):
    """The descriptions of an answer that its page does not show as they are, as often as it has
    them."""
    shown = visible_text.collapsed(Page(rendered(markdown)).text)
    counts = collections.Counter(map(visible_text.of_blocks, descriptions(answer)))
    return [text for text, count in counts.items() if text and shown.count(text) < count]
