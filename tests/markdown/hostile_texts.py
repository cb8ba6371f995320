"""Texts that Markdown would make something else of."""

TEXTS = [
    # What no one means to be Markdown.
    "plain words", "snake_case and CONSTANT_NAME_2", "a - b + c = d", "3 * 4", "a < b > c",
    "e.g. this", "figma.com/(file|design)/<fileKey>/...", "*.ext", "**/*.ext", "src/**/*.{ts,tsx}",
    "[a, b]", "nodes[] and connections[]", "[]", "[](x)", "[][]", "a[](b)", "![]", "[] [x]",
    "nodes[]: a", "~5 seconds", "username~name", "C:\\Users\\*", "\\d+\\.\\d*", "\\", "\\\\",
    "a\\", "a\\\nb", "\\\\\\", "\\ a", "a \\\n b", "AT&T; Q&A", "x&y;", "C #", "C#", "# C #", "##",
    "a ##", "a#", "a\n#", "see #12", "100%", "$5 and $6", "a@b.cd", "mailto:a_b@c.de", "@user",
    "{{mustache}}", "{% liquid %}", "${x}", "a:b:c", ":tada:", "5 * * * *", "* * *", "a * b * c",
    "_ _ _", "- - -",
    # Emphasis.
    "*a*", "**a**", "***a***", "_a_", "__a__", "__init__.py", "_a", "a_", "*a", "a*", "a*b*c",
    "a_b_c", "ä_b_ö", "“_a_”", "(_a_)", "a_(b)_c", "_\n_a_", "*\n*a*", "~a~", "~~a~~", "~~~a~~~",
    "a~b~c", "~ ~", "~~ ~~", "**Note:** a_b", "*(*a*)*", "** a **", "_ a _", "a__b__c",
    "a\u00a0_b_\u00a0c", "*\u00a0a*", "→_a_←", "中_文_字", "*中*文", "e\u0301_b_", "_\U0001f600_",
    # Links, addresses and references.
    "[a](b)", "![a](b)", "[a][b]", "[a]", "[a]: b", "[a]: <b> 'c'", "[^1]", "[^1]: note",
    "^[note]", "[ ] task", "[x] task", "- [ ] task", "a]", "[a", "[[[[", "]]]]", "[a[b]c](d)",
    "[a]\n(b)", "[a\nb](c)", "!", "!\\[a](b)", "[`a`](b)", "[a](`b`)", "http://a.b",
    "https://a.b/c_d_e", "(https://a.b/c)", "https://a.b/c).", "https://a.b/(c)_d.",
    "<https://a.b>", "https://<a>.b/<c>", "https://*.a.b/*", "_https://a.b_", "\\https://a.b",
    "*https://a.b*", "https://", "https://.", "https:///a", "HTTPS://A.B", "xhttp://a.b",
    "1http://a.b", "ftp://a.b/_c_", "https://a.b/?c=d&amp;e&copy;f&g", "https://a.b`c`",
    "`https://a.b`", "'https://a.b', \"https://a.b\"", "https://a.b/{id}|c", "https://a.b\\_c",
    "https://ä.ö/ü", "https://a.b。", "中https://a.b中", "https://a.b/[c]",
    "[https://a.b](https://c.d)", "www.a.b/*c*_d_", "www.a.b/\\_c", "(www.a.b)", "www.", "WWW.a.b",
    "www.a.b\n<c>", "<a@b.cd>", "<1@b.cd>", "mailto:a@b.cd/*c*", "xmpp:a@b.cd",
    "javascript://a*b*", "https://a.b/c https://d.e/f", "a_https://b.c", "https://a.b/ü_ü_",
    "https://a.b/c_", "https://a.b/c_d", "https://a.b/c**", "https://\\<a>.b",
    "https://a.b/<!-- c -->", "a://b_c_",
    # HTML.
    "<b>a</b>", "<b>", "</b>", "<br/>", "<div>\n\na", "<script>alert(1)</script>", "<textarea>",
    "<style>\n", "<pre>\n\n*a*", "<!--", "-->", "<!-- a -->", "<!-- a", "a --> b", "<?php ?>",
    "<!DOCTYPE html>", "<![CDATA[a]]>", "<a href=\"b\">c</a>", "<img src=x onerror=y>", "<", "a <",
    "<<<<", "< a >", "<a", "<a\nb>", "<5", "<=", "<-", "</",
    "<details>\n<summary>a</summary>\n\nb", "<table><tr><td>", "&lt;b&gt;", "&amp;", "&", "&#35;",
    "&#x23;", "&#0;", "&copy", "&copy;", "&nosuch;", "&amp", "a&", "&&amp;", "\\&amp;", "&;",
    "&#;", "&#x;", "&emsp;a", "&Tab;a",
    # Markers.
    "<!-- registry:x -->", "<!-- /registry:x -->", "`<!-- registry:x -->`",
    "a `<!-- /registry:x -->` b", "```\n<!-- registry:x -->\n*a* &amp;\n\n# b\n```",
    "<!-- registry:x -->\na\n<!-- /registry:x -->", "`<!--\nregistry:x -->`",
    "```<!-- registry:x -->```", "``` <!-- registry:x -->\na\n```", "`<!-- registry:`a`x -->`",
    "<!--registry:x-->", "`<!-- / registry : x -->`",
    "`*a* _b_ [c](d) &amp; https://e.f <g> \\ <!-- registry:x -->`", "``a`b <!-- registry:x -->``",
    # Code spans.
    "`a`", "``a`b``", "`a", "a`", "`", "``", "`` ` ``", "` a `", "`  `", "` `", "`a\nb`",
    "`a\n- b`", "`a\n\nb`", "a `b` c `d", "`a``b`", "``a`", "`a` `b", "`\\`", "\\`a`", "\\\\`a`",
    "\\\\\\`a`", "`a\\` b`", "`a|b`", "`a\\|b`", "`\\|`", "a\\|b", "|", "\\|", "`*a*`", "`<b>`",
    "`&amp;`", "`a`_b_", "_`a`_", "*`a`*", "`a`*b*", "[`a`]", "`a ``` b`", "``` a ```",
    "```a``` b", "```a\nb```", "a\n```b```", "`\ta\t`", "`\n`", "`\na\n`", "`a  \n  b`",
    "`a\x1b[0mb`", "`\u202eabc`", "`a` - `b`", "`-` a", "`#`",
    # Fences.
    "```\na\n```", "```json\n{\"a\": [1, 2]}\n```", "~~~\na\n~~~", "a\n```\nb\n```\nc", "```\na",
    "~~~\na\n```", "```\na\n~~~", "````\n```\na\n```\n````", "```\n````\n```\n`",
    "  ```\n  a\n    b\n  ```\nc", "a:\n      ```sh\n      b\n        c\n      ```",
    "```js title=\"a\"\nb\n```", "```\n\n\na\n\n\n```", "```\n```", "```", "~~~", "```\n",
    "~~~ a ~~~\nb", "``` a`b\nc", "```\na\n```\n```\nb\n```", "```\na\n``` b\nc\n```",
    "a\n\n    ```\n    b\n    ```", "```\na\n    ```\nb\n```", "\t```\n\ta\n\t```",
    "```sh\ncurl \\\n  -H 'a'\n```", "```\n| a |\n```", "- a\n  ```\n  b\n  ```\n- c",
    "```\n# a\n---\n<b>\n```\n# c", "`a\n```\nb`\n```", "```\n\x1b[0m\u202e\n```",
    "```\na  \n\tb\n```", "```a b\n```", "````\na\n```\nb", "```\n</code></pre>\n```",
    "```\n<!-- registry:x -->\n</pre>",
    # Blocks.
    "# a", "## a\nb", "####### a", "#a", "a\n# b\nc", "a\n===", "a\n---", "===", "---", "***",
    "___", "--", "=", "-", "+", "*", "1.", "1)", "a\n-", "a\n=", "- a", "* a", "+ a", "1. a",
    "12) a", "1234567890. a", "- a\n- b\n  - c\n    - d\ne", "1. a\n   b\n2. c", "• a\n• b", "> a",
    ">a\nb", "> a\n> b", "a\n> b", "    a", "a\n\n    b", "\ta", "a\n\tb\n\t\tc",
    "a\n      b\n  c", "- - a", "- # a", "1. - > a", "-\ta", "#\ta", "2024. A year", "a\n2. b",
    "| a | b |\n| - | - |\n| c | d |", "|a|\n|-|", "a | b\n- | -\nc | d", "a\n:-", "a\n:-:\nb",
    "a\n-|", "|-|", "a\n|", ":-", ":\n-", "|\n-|-", "a\n\n\n\nb", "\n\n a \n\n", " ", "", "\n",
    "a  \nb", "a\t\nb", "  a\n  b", "a\r\nb\rc", "a\r\n\r\nb", "a:\n- b\n- c\n\nd", "[a]: b\nc",
    "a\n[a]: b", "[^a]: b\n\n    c", "a\n    b\n    c", "---\na: b\n---", "***\na", "* * *\na",
    "- - -\na", "_ _ _\na", "a\n_ _ _\nb", "+\n+\n+", "-\n-\n-", ":\n:\n-:", "```a\n", "a\n~~~",
    "a\n~~ ~", "END", "a\\\n# b", "a\n\\# b", "\\- a", "\\> a", "1\\. a",
    # Characters.
    "\0", "a\x1b[31mb", "\x7f", "\x85", "a\u202eb", "\u2066a\u2069", "\ufeffa", "a\u200bb",
    "a\u00adb", "a\u2028b\u2029c", "\U0001f468\u200d\U0001f469", "\u200ca", "\U000e0041", "\fa\vb",
    "\\\x1b", "*\x1b*", "_\u200b_", "a\u00a0b", "\u3000a", "\u2003a", "\x1c", "\b", "\u0600",
    "\x01- a", "\x1b- a", "`\0`", "\ue000", "\uffff", "\U0010ffff", "é", "e\u0301", "日本語。", "שלום",
    "😀", "a\u200d", "&\u200d;",
    # Sizes.
    "`" * 81 + "a" + "`" * 81, "`" * 80 + "a" + "`" * 80, "[" * 100, "*" * 100, "_a" * 100,
    "<" * 100, "> " * 100, "- " * 50, "`" * 7 + "a" * 3, " ".join("`" * n for n in range(30)),
    "&" * 50, "\\" * 101, "~" * 50, "#" * 50, "\n".join(["- a"] * 50), "a " * 500,
]

PIECES = [
    "a", "b ", " ", "  ", "\n", "\n\n", "\n  ", "\n    ", "*", "**", "_", "~", "~~", "`", "``",
    "```", "```\n", "\n```", "~~~", "\\", "[", "]", "(", ")", "[]", "!", "<", ">", "</", "<!--",
    "-->", "<!-- registry:x -->", "&", "&amp;", "&#35;", ";", "#", "# ", "\n# ", "-", "- ", "\n- ",
    "--", "---", "\n---\n", "=", "\n===", "+ ", "\n+ ", "1. ", "\n1) ", "2", "|", "\n|", "|-|",
    ":-", ":", "://", "https://", "https://a.b/", "www.", "www.a.b", "@", "a@b.cd", ".", ",", "\"",
    "'", "/", "{", "}", "é", "中", "“", "\u00a0", "\u202e", "\x1b", "\t", "\r\n", "<b>", "<div>",
    "<script>", "<pre>", "•", "\n• ", "> ", "\n> ", "$", "^", "?", "%",
]


def random_text(chance):
    return "".join(chance.choices(PIECES, k=chance.randint(1, 25)))
