"""Single-line faults in C++ sources: where they can be planted and what they change.

Reads text only, knows nothing of builds or tests. Comments, strings, preprocessor lines, static_assert, guards
against numbers that are none, using and template heads hold no faults, nor do functions that are only declared.
The sources are formatted by .clang-format: a binary operator stands between blanks, a template bracket does not.
"""
import random
import re
from dataclasses import dataclass

LITERAL = r"(?:0[xX][0-9a-fA-F']+|(?:\d[\d']*\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)[fFuUlL]*"

HIDDEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<raw>R"(?P<tag>[^(\s]*)\(.*?\)(?P=tag)")
      | (?P<string>"(?:\\.|[^"\\\n])*")
      | (?P<number>(?<![\w.])(?:0[xX])?[\d.][\w.']*)   # so that the mark in 1'000 opens no character
      | (?P<char>'(?:\\.|[^'\\\n])*')
      | (?P<preprocessor>^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)
      | (?P<head>\b(?:static_assert|check_val|check_force)\s*\([^;]*; | \busing\b[^;]*; | \[\[.*?\]\] |
                 ^[ \t]*template\s*<[^\n]*)
    """, re.VERBOSE | re.DOTALL | re.MULTILINE)

# Names of parameters and their order mean nothing where a function is only declared.
DECLARED_FUNCTION = re.compile(
    r"^[ \t]*(?!return\b|throw\b|delete\b|else\b|goto\b|case\b|new\b)(?:[a-z]+ )*[A-Za-z_][\w:<>]*[ *&]+"
    r"(?:[\w:]+|\(\*\w+\))\((?:[^(){};=]|\([^()]*\))*\)(?: const)?;", re.MULTILINE)

OPERATORS = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&&": "||", "||": "&&", "&": "|", "|": "&",
             "<<": ">>", ">>": "<<", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=",
             "=": None, "<": ">=", ">": "<=", "<=": ">", ">=": "<", "==": "!=", "!=": "=="}
COMPARISONS = {"<", ">", "<=", ">=", "==", "!="}
OPERATOR = re.compile(r"(?<=\s)(" + "|".join(re.escape(o) for o in sorted(OPERATORS, key=len, reverse=True)) +
                      r")(?=\s|$)")
UNARY = re.compile(r"(?<![\w)\]\-])(-|!)(?=[\w(.])")
NUMBER = re.compile(r"(?<![\w.'])" + LITERAL + r"(?![\w.'])")
INDEX = re.compile(r"(?<=\w\[)(\d+)(?=\])")
# The size of an array: a larger one changes nothing.
ARRAY_SIZE = re.compile(r"(?:^|(?<=[\s(,{;]))(?!return |case |else |delete )[A-Za-z_][\w:<>]*[*&]? [*&]?\w+((?:\[[^\]]*\])+)")

# Words that a slip of the hand puts in each other's place, as whole parts of a name.
NEIGHBOURS = [("left", "right"), ("lft", "rgt"), ("x", "y"), ("y", "z"), ("dx", "dy"), ("dy", "dz"), ("lat", "lon"),
              ("sin", "cos"), ("elev", "ailn"), ("ptch", "roll"), ("up", "down"), ("root", "tip"), ("inn", "out"),
              ("low", "high"), ("lo", "hi"), ("min", "max"), ("fltmin2", "fltmax2"), ("intmin2", "intmax2"),
              ("first", "last"), ("begin", "end"), ("prev", "next"), ("x1", "y1"), ("x2", "y2"), ("fwd", "aft"),
              ("top", "bottom"), ("width", "height"), ("sou", "nor"), ("wes", "eas")]
OTHER_WORD = {}
for one, other in NEIGHBOURS:
    OTHER_WORD.setdefault(one, []).append(other)
    OTHER_WORD.setdefault(other, []).append(one)
WORD = re.compile(r"(?<![A-Za-z0-9])(" + "|".join(sorted(OTHER_WORD, key=len, reverse=True)) + r")(?![A-Za-z0-9])")

# What stands in front of the name of a variable where it is declared: another name there does not compile.
NAMED_FIRST = re.compile(r"\b(?:float|double|int|bool|char|auto|unsigned|long|size_t|uint\d+_t)[*&]? "
                         r"(?:[*&]?\w+ = [\w.-]+, )*[*&]?\w*$")

ARGUMENT = r"-?[A-Za-z_0-9][\w.:]*(?:->\w+|\.\w+|\[\w*\])*(?:\([\w.]*\))?"
SYMMETRIC = re.compile(r"\b(?:pythag|hypotf?|(?:flt|int)(?:max|min)2|max|min|swap|sqr)\($")
ARGUMENTS = re.compile(r"(?<=[(,{])(\s?)(" + ARGUMENT + r"), (" + ARGUMENT + r")(?=[,)}])")

DECLARED = re.compile(r"^(?:const|static|constexpr|auto|extern|struct|class|enum|union|typedef|friend|inline|unsigned|"
                      r"return|case|default|namespace|public|private|goto|throw|delete)\b|"
                      r"^[\w:<>,]+(?:<[^;()]*>)?[*&]* [*&]*\w+\s*(?:[;={(\[,]|$)")
GUARD = re.compile(r"^(?:\} )?(?:else )?(?:if|for|while) \(|^else\b|^\} else ")


@dataclass(frozen=True)
class Fault:
    """One line of a file, as it is and as the fault leaves it."""
    file: str    # from the root of the tree, with slashes
    line: int    # from 1
    kind: str
    before: str  # without line ends
    after: str

    def shown(self):
        return f"{self.file}:{self.line}\n- {self.before.strip()}\n+ {self.after.strip()}"


def blank(match):
    """What a match hides, as blanks; a number stays, and a string keeps its marks, so that the line keeps its form."""
    text = match.group(0)
    if match.group("number"):
        return text
    if match.group("string") or match.group("char"):
        return text[0] + " " * (len(text) - 2) + text[-1]
    return re.sub(r"[^\n]", " ", text)


def code_of(text):
    """The text with all that holds no fault as blanks."""
    code = HIDDEN.sub(blank, text)
    return DECLARED_FUNCTION.sub(lambda match: re.sub(r"[^\n]", " ", match.group(0)), code)


def guarded_part(code):
    """Where the statement behind a one-line `if (...)`, `for (...)`, `else` begins; 0 for none, None if open."""
    stripped = code.strip()
    start = len(code) - len(code.lstrip())
    if not GUARD.match(stripped):
        return start
    place = start
    if "(" in code and not re.match(r"^(?:\} )?else (?!if)", stripped):
        depth = 0
        for place in range(code.index("("), len(code)):
            depth += {"(": 1, ")": -1}.get(code[place], 0)
            if depth == 0:
                break
        else:
            return None
        place += 1
    else:
        place = code.index("else") + 4
    rest = code[place:]
    return place + len(rest) - len(rest.lstrip())


def removed(code, line, previous):
    """The line without its statement, or None where it holds no whole one."""
    stripped = code.strip()
    if not stripped.endswith(";") or stripped.startswith(("}", ")", ".", "?", ":", "+", "-", "*", "<<", "&&", "||")):
        return None
    if previous and not previous.endswith((";", "{", "}", ")", ":", "else")):
        return None
    start = guarded_part(code)
    if start is None:
        return None
    statement = code[start:].strip()
    if statement == ";" or statement.count("(") != statement.count(")") or ";" in statement[:-1]:
        return None
    if DECLARED.search(statement) and statement != "return;" or statement.endswith(("= default;", "= delete;")):
        return None
    return line[:start] + ";"


def number_of(text):
    bare = text.rstrip("fFuUlL") if not text[:2].lower() == "0x" else text.rstrip("uUlL")
    try:
        return float(int(bare.replace("'", ""), 0)) if bare[:2].lower() == "0x" else float(bare.replace("'", ""))
    except ValueError:
        return None


def faults_of_line(code, line, previous):
    """Every fault of a line: pairs of its kind and the line with it."""
    found = []

    def replace(kind, start, end, text):
        found.append((kind, line[:start] + text + line[end:]))

    for match in OPERATOR.finditer(code):
        other = OPERATORS[match.group(1)]
        if other and not code[:match.start()].rstrip().endswith("operator"):
            replace("comparison" if match.group(1) in COMPARISONS else "operator", match.start(), match.end(), other)
    for match in UNARY.finditer(code):
        replace("sign", match.start(), match.end(), "")
    sizes = [match.span(1) for match in ARRAY_SIZE.finditer(code)]
    indices = {match.start() for match in INDEX.finditer(code)}
    for match in NUMBER.finditer(code):
        if any(start < match.start() < end for start, end in sizes):
            continue
        text = match.group(0)
        value = number_of(text)
        if match.start() in indices:
            replace("neighbour", match.start(), match.end(), str(int(value) ^ 1))
        elif value == 0 and text[:2].lower() != "0x":
            replace("constant", match.start(), match.end(), text.replace("0", "1", 1))
        elif value is not None:
            replace("constant", match.start(), match.end(), f"(2 * {text})")
    for match in WORD.finditer(code):
        if NAMED_FIRST.search(code[:match.start()]):
            continue
        for other in OTHER_WORD[match.group(1)]:
            replace("neighbour", match.start(), match.end(), other)
    for match in ARGUMENTS.finditer(code) if not code.lstrip().startswith(":") else ():
        blank_before, one, other = match.groups()
        if one != other and not SYMMETRIC.search(code[:match.start()]):
            replace("neighbour", match.start(), match.end(), f"{blank_before}{other}, {one}")
    without = removed(code, line, previous)
    if without is not None:
        found.append(("removed", without))
    return [(kind, after) for kind, after in found if after != line]


def faults_of_file(root, file):
    """Line number to its faults, of the lines that have any."""
    lines = (root / file).read_text(encoding="utf-8").split("\n")
    code_lines = code_of("\n".join(lines)).split("\n")
    faults, previous = {}, ""
    for number, (code, line) in enumerate(zip(code_lines, lines), 1):
        if not code.strip():
            continue
        of_line = faults_of_line(code, line, previous)
        if of_line:
            faults[number] = [Fault(file, number, kind, line, after) for kind, after in of_line]
        previous = code.strip()
    return faults


def shuffled_of_line(faults, dice):
    """The faults of one line, the kinds in a drawn order, so that numbers do not outweigh the rest."""
    kinds = sorted({fault.kind for fault in faults})
    dice.shuffle(kinds)
    ordered = []
    for kind in kinds:
        of_kind = [fault for fault in faults if fault.kind == kind]
        dice.shuffle(of_kind)
        ordered += of_kind
    return ordered


def draw(root, files, count, seed):
    """`count` lists of faults, spread evenly over the mutable lines of all files. Of a list the first that
    compiles is planted: the rest stands by. Without a count each fault is a list of its own."""
    lines = [faults for file in files for _, faults in sorted(faults_of_file(root, file).items())]
    if not count:
        return [[fault] for faults in lines for fault in faults]
    count = min(count, len(lines))
    drawn = []
    for part in range(count):
        dice = random.Random(f"{seed} {part}")
        stratum = lines[part * len(lines) // count:(part + 1) * len(lines) // count]
        dice.shuffle(stratum)
        drawn.append([fault for faults in stratum for fault in shuffled_of_line(faults, dice)])
    return drawn
