"""The changes that scripts/mutate.py tries: one small mistake each, in one place of a
source. Only places in code count, never in comments, includes or type brackets."""
import collections
import re

Mutant = collections.namedtuple("Mutant", "file line kind before after start end text")

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      |(?P<preprocessor>^[ ]*\#[^\n]*(?:\\\n[^\n]*)*)
      |(?P<string>"(?:[^"\\\n]|\\.)*")
      |(?P<char>'(?:[^'\\\n]|\\.)*')
      |(?P<number>\b(?:0x[0-9A-Fa-f]+|[0-9]+)[uUlL]*\b)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<operator><<=|>>=|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[-+*/%&|^<>!~=?:;,.(){}\[\]])
    """,
    re.VERBOSE | re.MULTILINE | re.DOTALL)

# Operators count only with a blank on both sides, which the format gives to those of two
# operands and to no type.
OPERATORS = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">"], "<=": ["<", ">"], ">": [">=", "<"],
    ">=": [">", "<"], "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"],
    "/": ["*"], "%": ["/"], "&": ["|"], "|": ["&"], "^": ["|"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-=", "="], "-=": ["+=", "="], "|=": ["&=", "="], "&=": ["|=", "="],
}
WORDS = {
    "true": ["false"], "false": ["true"], "break": [""], "continue": [""],
    "ONU_ABILITY_RET_OK": ["ONU_ABILITY_RET_NOT_FOUND"],
    "ONU_ABILITY_RET_NOT_FOUND": ["ONU_ABILITY_RET_OPERATE_FAILED"],
    "ONU_ABILITY_RET_OPERATE_FAILED": ["ONU_ABILITY_RET_OK"],
    "ONU_ABILITY_RET_INVALID_PARAM": ["ONU_ABILITY_RET_NULL_PTR"],
    "ONU_ABILITY_RET_NULL_PTR": ["ONU_ABILITY_RET_INVALID_PARAM"],
    "ONU_ABILITY_PROFILE_TYPE_REAL": ["ONU_ABILITY_PROFILE_TYPE_MATCH"],
    "ONU_ABILITY_PROFILE_TYPE_MATCH": ["ONU_ABILITY_PROFILE_TYPE_REAL"],
    "ONU_ABILITY_PROFILE_SOURCE_ALL": ["ONU_ABILITY_PROFILE_SOURCE_EXTERNAL"],
    "ONU_ABILITY_PROFILE_SOURCE_EXTERNAL": ["ONU_ABILITY_PROFILE_SOURCE_DEFAULT"],
    "ONU_ABILITY_MATCH_TYPE_PATTERN": ["ONU_ABILITY_MATCH_TYPE_EXACT"],
    "ONU_ABILITY_MATCH_TYPE_EXACT": ["ONU_ABILITY_MATCH_TYPE_PATTERN"],
    "ONU_ABILITY_VALUE_TYPE_USHORT": ["ONU_ABILITY_VALUE_TYPE_STRING"],
    "ONU_ABILITY_VALUE_TYPE_STRING": ["ONU_ABILITY_VALUE_TYPE_USHORT"],
    "ONU_ABILITY_WILDCARD": ["0"],
}
# A statement of one call, assignment or step, on its own lines.
STATEMENT = re.compile(
    r"^[ ]+(?!return\b|using\b|delete\b|throw\b|case\b|break\b|continue\b|goto\b|static\b|const\b"
    r"|auto\b|unsigned\b|int\b|char\b|bool\b|std::\w+(?:<[^\n]*>)? \w|else\b|if\b|for\b|while\b|do\b)"
    r"[\w*&(+-][^;{}\n]*(?:\n[^;{}\n]*){0,5}?;[ ]*$", re.MULTILINE)


def tokens(source):
    return [match for match in TOKEN.finditer(source)]


def changed_number(text):
    digits = text.rstrip("uUlL")
    suffix = text[len(digits):]
    value = int(digits, 0)
    base = (lambda n: hex(n)) if digits.lower().startswith("0x") else str
    return [base(other) + suffix for other in ((1,) if value == 0 else (value + 1, value - 1))]


def level_places(source):
    return {match.end(1) for match in
            re.finditer(r"(ONU_ABILITY_LOG(?:_BARE)?\(|ONU_ABILITY_LOG_FOR\([^,]+, )(?=\d)", source)}


def is_compiled_away(source, start):
    """Whether a text is for the compiler alone: a name in a static_assert."""
    statement = source[max(source.rfind(character, 0, start) for character in ";{}") + 1:start]
    return "static_assert(" in statement


def token_mutants(source):
    """(kind, start, end, replacement) of each change of a token."""
    levels = level_places(source)
    found = tokens(source)
    for index, token in enumerate(found):
        start, end, text = token.start(), token.end(), token.group()
        if token.lastgroup == "number":
            kind = "level" if start in levels else "constant"
            for other in changed_number(text):
                yield kind, start, end, other
        elif token.lastgroup == "string" and len(text) > 2 and not is_compiled_away(source, start):
            yield "message", start, end, '"~' + text[1:]
        elif token.lastgroup == "word":
            for other in WORDS.get(text, []):
                yield "constant" if other else "statement", start, end, other
            if text == "if":
                yield from condition_mutants(source, found, index)
        elif token.lastgroup == "operator":
            yield from operator_mutants(source, token)


def operator_mutants(source, token):
    start, end, text = token.start(), token.end(), token.group()
    if source[start - 1] == " " and source[end:end + 1] in (" ", "\n"):
        for other in OPERATORS.get(text, []):
            yield "operator", start, end, other
    elif text == "!" and re.match(r"[\w(]", source[end:end + 1]):
        yield "operator", start, end, ""
    elif text in ("++", "--"):
        yield "operator", start, end, {"++": "--", "--": "++"}[text]


def condition_mutants(source, found, index):
    """if (x) as if (!(x))."""
    if index + 1 >= len(found) or found[index + 1].group() != "(":
        return
    depth = 0
    for token in found[index + 1:]:
        depth += {"(": 1, ")": -1}.get(token.group(), 0)
        if depth == 0:
            start, end = found[index + 1].start(), token.end()
            if ";" not in source[start:end]:
                yield "condition", start, end, "(!" + source[start:end] + ")"
            return


def statement_mutants(source):
    comments = [(t.start(), t.end()) for t in tokens(source)
                if t.lastgroup in ("comment", "preprocessor")]
    body = source.find("{")
    for match in STATEMENT.finditer(source, body):
        inside = any(a < match.end() and match.start() < b for a, b in comments)
        if not inside and ("(" in match.group() or "=" in match.group() or "++" in match.group()):
            start = match.start() + len(match.group()) - len(match.group().lstrip())
            yield "statement", start, match.end(), ";" + "\n" * source[start:match.end()].count("\n")


def is_declaration(name, source, start):
    """Whether a statement of a header declares a member: those of functions stand further in."""
    return name.endswith(".h") and source[source.rfind("\n", 0, start) + 1:][:4].strip() != ""


def mutants_of(name, source):
    """All mutants of a source, in the order of their places."""
    result = []
    statements = [found for found in statement_mutants(source)
                  if not is_declaration(name, source, found[1])]
    for kind, start, end, other in list(token_mutants(source)) + statements:
        line = source.count("\n", 0, start) + 1
        line_start = source.rfind("\n", 0, start) + 1
        line_end = source.find("\n", max(end - 1, start))
        before = " ".join(source[line_start:line_end].split())
        after = " ".join((source[line_start:start] + other + source[end:line_end]).split())
        result.append(Mutant(name, line, kind, before, after, start, end, other))
    return sorted(result, key=lambda mutant: (mutant.start, mutant.end, mutant.text))
