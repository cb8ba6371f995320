"""What we say that git ignores, git ignores. SEED and COUNT are of the repositories of random trees."""

import os
import pathlib
import random
import subprocess
import tempfile
import unittest

CLASSES = "alnum alpha blank cntrl digit graph lower print punct space upper xdigit".split()
ASCII = [chr(code) for code in range(1, 128) if chr(code) not in "/."]

# For each name: the rules of .gitignore, the files of the tree, and what is ignored of it.
# A directory that is ignored stands for all that it holds.
CASES = {
    "at any depth": ("foo", "foo a/foo foox", "foo a/foo"),
    "anchored": ("/foo\na/b", "foo a/foo a/b x/a/b", "foo a/b"),
    "a trailing slash is of directories": ("d/\n/e/", "d a/d/x e/x a/e/x", "a/d e"),
    "two slashes": ("//foo\nbar//\n/\n//\n!", "foo bar/x", ""),
    "an escaped slash": ("a\\/b\n\\/c\nd\\/", "a/b c d/x", "a/b"),
    "the last rule wins": ("*.o\n!a.o\nb.o\n!b.o\nb.o", "a.o b.o c.o", "b.o c.o"),
    "no way back into what is ignored": ("d\n!d/keep\ne/*\n!e/keep", "d/keep e/keep e/x", "d e/x"),
    "all but": ("/*\n!/a\n/a/*\n!/a/b", "x a/b/c a/d", "x a/d .gitignore"),
    "comments": ("#a\n\\#b\n #c\nd #e", ["#a", "#b", "#c", " #c", "d #e", "d"], ["#b", " #c", "d #e"]),
    "escaped marks": ("\\!a\n!!b\n\\c", ["!a", "!b", "b", "c"], ["!a", "c"]),
    "blanks at the end": ("a  \nb\\ \nc\\  \nd\t\ne\\\\ \n   \nf \\",
                          ["a", "b ", "c ", "c", "d", "d\t", "e\\", "f ", "f \\"],
                          ["a", "b ", "c ", "d\t", "e\\"]),
    "blanks within": ("a b\n c", ["a b", " c", "c"], ["a b", " c"]),
    "CR LF": ("a\r\n\r\n#b\r\nc/\r\nd \r\ne\r\r\nf\r", ["a", "c/x", "d", "e", "e\r", "f", "#b"],
              ["a", "c", "d", "e\r", "f"]),
    "a byte-order mark": ("\ufeffa\n\ufeffb", ["a", "b", "\ufeffb"], ["a", "\ufeffb"]),
    "a byte of 0": ("a\0b\nc", "a ab c", "a c"),
    "stars": ("*.o\nx*y\n?z", "a.o a/b.o xy xay x/y az z aaz", "a.o a/b.o xy xay az"),
    "stars stay in a directory": ("a/*/c\nb/*", "a/b/c a/b/d/c b/x", "a/b/c b/x"),
    "directories": ("a/**/z\n**/y\nb/**", "a/z a/1/2/z 1/z y 1/2/y b/c/d", "a/z a/1/2/z y 1/2/y b/c"),
    "directories, one at least": ("a/**\\/z", "a/z a/1/z a/1/2/z", "a/1/z a/1/2/z"),
    "two stars in a name": ("foo**/bar\n?o**/x", "foobar foo/bar foo/x/bar foo-/bar 1oo/x 1o/1/x",
                            "foobar foo/bar foo/x foo-/bar 1oo/x"),
    "two stars behind a name": ("a/b**\n!a/bx/", "a/bx/y a/by", "a/bx/y a/by"),
    "classes": ("[a-c]1\n[!a-c]2\n[]]3\n[[:digit:]]4\n[^a]5\n[a-]6\n[a-c-e]7\n[z-a]8\n[a-[:digit:]]9",
                "a1 d1 a2 d2 ]3 44 d4 a5 b5 -6 b6 -7 d7 z8 m8 [9 a]9 :]9 19 1]9",
                "a1 d2 ]3 44 b5 -6 -7 z8 a]9 :]9"),
    "faulty classes": ("[a\n[[:foo:]]\nb[\nc\\\n[]", "[a a f b[ b c [] [[:foo:]]", ""),
    "bytes": ("?\n??x\né1\n[à-ü]2", "é éx é1 é2", "éx é1"),
    "case": ("Foo", "foo Foo", "Foo"),
    "nothing but a mark": ("!\n/\n**/\n\\", "a b/c", "b"),
    **{f"class {name}": (f"[[:{name}:]]", ASCII, None) for name in CLASSES},
}


def write(path, data):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data.encode("utf-8", "surrogateescape"))


def make_repository(tree):
    """What `git init` makes, as far as git needs it, in a tenth of the time."""
    write(tree / ".git/HEAD", "ref: refs/heads/main\n")
    for name in ("objects", "refs"):
        (tree / ".git" / name).mkdir()


def parts(output):
    return {part.decode("utf-8", "surrogateescape") for part in output.split(b"\0") if part}


def all_paths(tree):
    """Each with "./" before it, since a ":" means something to git."""
    return [f"./{path.relative_to(tree)}" for path in tree.rglob("*") if ".git" not in path.parts]


def ignored_by_git(tree):
    environment = {"PATH": os.environ["PATH"], "HOME": "/nonexistent", "GIT_CONFIG_NOSYSTEM": "1"}
    paths = "\0".join(all_paths(tree)).encode("utf-8", "surrogateescape")
    done = subprocess.run(["git", "check-ignore", "-z", "--stdin"], cwd=tree, env=environment,
                          input=paths, capture_output=True, check=False)
    if done.returncode > 1:  # 1: nothing is ignored
        raise AssertionError(done.stderr)
    return {os.path.normpath(path) for path in parts(done.stdout)}


def ignored_by_us(tree, start="."):
    command = [os.environ["PRINT_IGNORED"], tree / start]
    found = parts(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)
    return {os.path.relpath(path, tree) for path in found}


def outermost(paths):
    return {path for path in paths if os.path.dirname(path) not in paths}


def below(paths, number):
    return {path.partition("/")[2] for path in paths if path.startswith(f"{number}/")}


def words(text):
    return text.split() if isinstance(text, str) else text


def random_rule(chance):
    pieces = ["a", "b", "ab", "*", "**", "?", "/", "/", "/**/", "[ab]", "[!a]", "[a-", "\\", "\\b",
              "[", "]", " ", "\\ ", "***", "é", "[[:alpha:]]"]
    body = "".join(chance.choice(pieces) for _ in range(chance.randint(1, 5)))
    return (chance.choice(["", "", "", "!", "/", "!/", "#", "\\!"]) + body
            + chance.choice(["", "", "", "/", " ", "\r", "*"]))


def random_rules(chance):
    return chance.choice(["", "", "", "\ufeff"]) + "\n".join(
        random_rule(chance) for _ in range(chance.randint(1, 6)))


def make_random_tree(chance, tree):
    names = ["a", "b", "ab", "ba", "aab", "a b", "b ", "é", "[a", "\\", "a\r", "]"]
    for _ in range(30):
        path = tree.joinpath(*(chance.choice(names) for _ in range(chance.randint(1, 4))))
        try:
            write(path, "")
        except (NotADirectoryError, FileExistsError, IsADirectoryError):
            continue
        if chance.random() < 0.15:
            write(path.parent / ".gitignore", random_rules(chance))
    write(tree / ".gitignore", random_rules(chance))


class Ignore(unittest.TestCase):
    def setUp(self):
        self.directory = tempfile.TemporaryDirectory()
        self.addCleanup(self.directory.cleanup)
        self.tree = pathlib.Path(self.directory.name).resolve()
        make_repository(self.tree)

    def expect_same(self, tree):
        ours = ignored_by_us(tree)
        self.assertEqual(ours, ignored_by_git(tree))
        return ours

    def test_rules(self):
        for number, (rules, files, _) in enumerate(CASES.values()):
            for file in words(files):
                write(self.tree / str(number) / file, "")
            write(self.tree / str(number) / ".gitignore", rules)
        ours, theirs = ignored_by_us(self.tree), ignored_by_git(self.tree)
        for number, (name, (_, _, expected)) in enumerate(CASES.items()):
            with self.subTest(name):
                self.assertEqual(below(ours, number), below(theirs, number))
                if expected is not None:
                    self.assertEqual(outermost(below(ours, number)), set(words(expected)))

    def test_places_of_rules(self):
        (self.tree / "elsewhere").write_text("linked\n")
        for path, rules in {
                ".git/info/exclude": "by-exclude\nback-by-file\n/at-top",
                ".gitignore": "!back-by-file\nback-below\nin-ignored/\n/sub/anchored",
                "sub/.gitignore": "!back-below\n/own\nin/sub",
                "in-ignored/.gitignore": "!*",
                "not-a-file/.gitignore/x": ""}.items():
            write(self.tree / path, rules)
        (self.tree / "link").mkdir()
        (self.tree / "link/.gitignore").symlink_to("../elsewhere")
        (self.tree / "in-link").symlink_to("sub")
        for path in words("sub/by-exclude sub/back-by-file sub/at-top at-top sub/back-below "
                          "back-below in-ignored/x sub/anchored sub/own sub/sub/own sub/in/sub "
                          "link/linked not-a-file/y"):
            write(self.tree / path, "")
        self.assertEqual(outermost(self.expect_same(self.tree)), set(words(
            "sub/by-exclude at-top back-below in-ignored sub/anchored sub/own sub/in/sub")))
        self.assertEqual(ignored_by_us(self.tree, "sub"), set(words(
            "sub/by-exclude sub/anchored sub/own sub/in/sub")))

    def test_links_are_no_directories(self):
        write(self.tree / ".gitignore", "a/\nb")
        write(self.tree / "c/x", "")
        for name in "ab":
            (self.tree / name).symlink_to("c")
        self.assertEqual(self.expect_same(self.tree), {"b"})

    def test_repositories_within(self):
        write(self.tree / ".gitignore", "*.o\n/gone")
        for path in words("a.o in/a.o in/a.c gone/a.c"):
            write(self.tree / path, "")
        make_repository(self.tree / "in")
        write(self.tree / "in/.gitignore", "*.c")
        self.assertEqual(ignored_by_us(self.tree), set(words("a.o gone gone/a.c in/a.c")))
        self.assertEqual(self.expect_same(self.tree / "in"), {"a.c"})

    def test_random_trees(self):
        chance = random.Random(int(os.environ.get("SEED", 1)))
        seen = []
        for number in range(int(os.environ.get("COUNT", 20))):
            tree = self.tree / str(number)
            make_repository(tree)
            for part in range(20):
                make_random_tree(chance, tree / f"a{part}")
            if number % 2:
                write(tree / ".gitignore", random_rules(chance))
                write(tree / ".git/info/exclude", random_rules(chance))
            with self.subTest(number):
                seen.append(len(self.expect_same(tree)) / len(all_paths(tree)))
        self.assertTrue(0.1 < sum(seen) / len(seen) < 0.9, seen)


if __name__ == "__main__":
    unittest.main()
