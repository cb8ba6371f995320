"""What a reader is to see of a text: all of it but the marks of its code, with white space
collapsed. Read with regular expressions, as CommonMark tells of code spans and fences."""

import re
import unicodedata

FENCE = re.compile(r"[ \t]*(`{3,}(?=[^`]*$)|~{3,})[ \t]*(.*?)[ \t]*$")
LANGUAGE = re.compile(r"[\w+#.-]*$", re.ASCII)
BEGINS_BLOCK = re.compile(r"[ \t]*(([-*+•]|\d{1,9}[.)])([ \t]|$)|#{1,6}([ \t]|$)|[|>])", re.ASCII)
IS_BLOCK = re.compile(r"[ \t]*(#{1,6}([ \t]|$)|[|>])")
CODE_OR_ESCAPE = re.compile(r"\\[!-/:-@[-`{-~]|(?P<quotes>`+)")
FENCED_SPAN = re.compile(r"[ \t]*[\w+#.-]*[ \t]*(\n.*)?\n[ \t]*$", re.ASCII | re.DOTALL)
SPACE = re.compile("[ \t\n\u2003]+")


def collapsed(text):
    return SPACE.sub(" ", text).strip(" ")


def spelled(character):
    code = ord(character)
    if character in "\n\t\u200c\u200d" or unicodedata.category(character) not in "Cc Cf Zl Zp":
        return character
    return rf"\x{code:02x}" if code < 256 else rf"\u{code:04x}" if code < 65536 else rf"\U{code:08x}"


def shown(text):
    return "".join(map(spelled, text.replace("\r\n", "\n").replace("\r", "\n")))


def code(before, quotes, content, after):
    fenced = FENCED_SPAN.match(content)
    is_alone = re.search(r"(^|\n)[ \t]*$", before) and re.match(r"[ \t]*(\n|$)", after)
    if fenced and is_alone and len(quotes) > 2:
        content = f"{fenced[1] or ''}\n"
    content = re.sub("[ \t]*\n[ \t\n]*", " ", content)
    is_padded = content.strip(" ") and content[0] == content[-1] == " "
    return content[1:-1] if is_padded else content


def without_code_marks(paragraph):
    text, at = "", 0
    runs = [run.span() for run in re.finditer("`+", paragraph)]
    while found := CODE_OR_ESCAPE.search(paragraph, at):
        quotes = found["quotes"] or ""
        close = next(((begin, end) for begin, end in runs if begin >= found.end()
                      and end - begin == len(quotes) <= 80), None)
        text += paragraph[at:found.start()]
        content = paragraph[found.end():close[0]] if close else ""
        at = close[1] if close else found.end()
        text += code(text, quotes, content, paragraph[at:]) if close else found[0]
    return text + paragraph[at:]


def of_inline(text):
    return collapsed(without_code_marks(shown(text)))


def paragraphs(lines):
    """Groups of lines in which a code span may reach from one to the next."""
    while lines:
        size = 1
        while (size < len(lines) and lines[size].strip(" \t") and not IS_BLOCK.match(lines[0])
               and not BEGINS_BLOCK.match(lines[size])):
            size += 1
        yield "\n".join(line.strip(" \t") for line in lines[:size])
        lines = lines[size:]


def indent(line):
    line = line.expandtabs(4)
    return len(line) - len(line.lstrip(" "))


def of_blocks(text):
    lines = shown(text).split("\n")
    common = min((indent(line) for line in lines[1:] if line.strip(" \t")), default=0)
    lines[0] = common * " " + lines[0].lstrip(" \t")
    text, prose = [], []
    while lines:
        line = lines.pop(0)
        fence = FENCE.match(line)
        if not fence:
            prose.append(line)
            continue
        text += map(without_code_marks, paragraphs(prose))
        prose = []
        if not LANGUAGE.match(fence[2]):
            text.append(fence[2])
        close = re.compile(rf" {{0,{indent(line) + 3}}}{fence[1][0]}{{{len(fence[1])},}} *$")
        while lines and not close.match((line := lines.pop(0)).expandtabs(4)):
            text.append(line)
    text += map(without_code_marks, paragraphs(prose))
    return collapsed("\n".join(text))
