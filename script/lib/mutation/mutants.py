"""Finds what can be changed in a source: its mutants, from clang's syntax tree."""
import re
from dataclasses import dataclass, field
from pathlib import Path

from clang import cindex
from clang.cindex import CursorKind as Kind

# Each operator and what takes its place. The first kind is that of a whole condition, which is made true and false
# as well, so that the opposite would say nothing new.
BOUNDS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
OPPOSITES = {"<": ">=", "<=": ">", ">": "<=", ">=": "<", "==": "!=", "!=": "=="}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "<<": ">>", ">>": "<<", "&": "|", "|": "&", "^": "&"}
ASSIGNMENTS = {f"{old}=": f"{new}=" for old, new in ARITHMETIC.items()}
LOGIC = ("&&", "||")

EXPRESSIONS = {Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.CALL_EXPR, Kind.UNEXPOSED_EXPR}
STATEMENTS = EXPRESSIONS | {Kind.UNARY_OPERATOR, Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.RETURN_STMT}
FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
             Kind.CONVERSION_FUNCTION}
# What is a declaration to the compiler alone: a change is a broken build or nothing.
PASSED_OVER = {Kind.STATIC_ASSERT, Kind.ENUM_DECL, Kind.FRIEND_DECL, Kind.TEMPLATE_TYPE_PARAMETER,
               Kind.TEMPLATE_NON_TYPE_PARAMETER}
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.S)
INTEGER = re.compile(r"(0[xX][0-9a-fA-F']+|[0-9][0-9']*)([uUlLzZ]*)$")
STRING = re.compile(r'(u8|[LuU])?"(.)', re.S)


@dataclass
class Mutant:
    """One change of one place. Offsets are bytes of the file."""
    file: str
    start: int
    end: int
    text: str      # what stands there instead
    form: str      # how a switch is put around it: "value", "truth", "statement" or "constant"
    change: str    # for people
    function: str = ""
    line: int = 0
    source: str = ""  # the line, without its indentation
    in_lambda: bool = False
    nth: int = 1   # among the same changes of the same text
    number: int = 0

    def key(self):
        """What names the mutant as long as its line stays, wherever that moves to."""
        return (self.file, self.function, self.source, self.change, self.nth)


@dataclass
class Found:
    mutants: list = field(default_factory=list)
    # Variables that are constants to the compiler: (where the word stands, its end, end of the declaration, name).
    constants: list = field(default_factory=list)
    # Functions that may run in the compiler, and what they may give to members.
    constexpr_functions: list = field(default_factory=list)


class Finder:
    """Walks the tree of one file."""

    def __init__(self, file, text):
        self.file = file
        self.bytes = text
        self.found = Found()
        self.seen = set()
        self.path = None
        self.function = ""
        self.lambdas = 0

    def run(self, unit, path):
        self.path = str(path)
        top = self.children(unit.cursor)
        self.add_macros(top)
        for child in top:
            self.walk(child, None, ())
        self.number_equals()
        return self.found

    # --- the source

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def text(self, start, end):
        return self.bytes[start:end].decode()

    def of(self, cursor):
        return self.text(*self.span(cursor))

    def is_here(self, cursor):
        start = cursor.extent.start
        return start.file is not None and start.file.name == self.path

    def children(self, cursor):
        return [child for child in cursor.get_children() if self.is_here(child)]

    # --- the walk

    def walk(self, cursor, parent, functions):
        if cursor.kind in PASSED_OVER or cursor.kind == Kind.MACRO_DEFINITION:
            return
        if cursor.kind in FUNCTIONS or (cursor.kind in (Kind.VAR_DECL, Kind.FIELD_DECL) and not functions):
            functions = (*functions, cursor.spelling)
        if self.is_defaulted(cursor):
            return
        self.note_constant(cursor)
        self.function = functions[-1] if functions else ""
        self.change_expression(cursor, parent)
        self.change_constant(cursor, parent)
        self.change_conditions(cursor)
        self.change_statements(cursor)
        self.lambdas += cursor.kind == Kind.LAMBDA_EXPR
        for child in self.children(cursor):
            if cursor.kind != Kind.DECL_REF_EXPR:
                self.walk(child, cursor, functions)
        self.lambdas -= cursor.kind == Kind.LAMBDA_EXPR

    def is_defaulted(self, cursor):
        return cursor.kind in FUNCTIONS and bool(re.search(r"=\s*(default|delete)$", self.of(cursor)))

    def note_constant(self, cursor):
        start, end = self.span(cursor)
        head = self.text(start, end)
        if cursor.kind == Kind.VAR_DECL:
            word = re.match(r"(?:(?:inline|static)\s+)*constexpr\b", head)
            if word:
                self.found.constants.append((start, start + word.end(), end, cursor.spelling))
        elif cursor.kind == Kind.FIELD_DECL or (
                cursor.kind in FUNCTIONS and re.match(r"(?:\w+\s+)*?(constexpr|consteval)\b", head.split("(")[0])):
            self.found.constexpr_functions.append((start, end))

    def add(self, start, end, text, form, change):
        if (start, end, text) in self.seen or self.text(start, end) == text:
            return
        self.seen.add((start, end, text))
        begin = self.bytes.rfind(b"\n", 0, start) + 1
        stop = self.bytes.find(b"\n", start)
        source = " ".join(COMMENT.sub("", self.bytes[begin:stop].decode()).split())
        line = self.bytes.count(b"\n", 0, start) + 1
        self.found.mutants.append(
            Mutant(self.file, start, end, text, form, change, self.function, line, source, self.lambdas > 0))

    def number_equals(self):
        self.found.mutants.sort(key=lambda mutant: (mutant.start, mutant.end, mutant.change))
        count = {}
        for mutant in self.found.mutants:
            key = mutant.key()
            count[key] = count.get(key, 0) + 1
            mutant.nth = count[key]

    # --- operators

    def operands(self, cursor):
        """(left, operator, right) of a binary operator, whether the language's own or a function."""
        if cursor.kind not in EXPRESSIONS:
            return None
        parts = [child for child in self.children(cursor) if not child.spelling.startswith("operator")
                 or child.kind not in (Kind.DECL_REF_EXPR, Kind.UNEXPOSED_EXPR, Kind.OVERLOADED_DECL_REF)
                 or self.of(child) not in (*OPPOSITES, *ARITHMETIC, *ASSIGNMENTS, *LOGIC, "=")]
        if len(parts) != 2:
            return None
        (start, left_end), (right_start, end) = map(self.span, parts)
        if (start, end) != self.span(cursor) or left_end > right_start:
            return None
        between = COMMENT.sub("", self.text(left_end, right_start)).strip()
        if between not in (*OPPOSITES, *ARITHMETIC, *ASSIGNMENTS, *LOGIC):
            return None
        return self.of(parts[0]), between, self.of(parts[1])

    def change_expression(self, cursor, parent):
        start, end = self.span(cursor)
        binary = self.operands(cursor)
        if binary:
            left, operator, right = binary
            if operator in OPPOSITES:
                self.change_comparison(cursor, binary, self.is_condition(cursor, parent))
            elif operator in LOGIC:
                for operand, other in ((left, "right"), (right, "left")):
                    self.add(start, end, operand, "truth", f"`{self.short(cursor)}` without its {other} side")
            elif cursor.kind == Kind.CALL_EXPR:
                if operator == "+":
                    self.add(start, end, left, "value", f"`{self.short(cursor)}` without its right side")
            else:
                new = (ARITHMETIC | ASSIGNMENTS)[operator]
                self.add(start, end, f"{left} {new} {right}", "value", f"`{operator}` becomes `{new}`")
        elif cursor.kind in (Kind.UNARY_OPERATOR, Kind.CALL_EXPR):
            children = self.children(cursor)
            operand = children[-1] if children else None
            if operand is None or self.span(operand)[1] != end or self.span(operand)[0] <= start:
                return
            operator = self.text(start, self.span(operand)[0]).strip()
            if operator == "!" and not self.is_condition(cursor, parent):
                self.add(start, end, self.of(operand), "truth", "`!` is left out")
            elif operator in ("-", "~"):
                self.add(start, end, self.of(operand), "value", f"`{operator}` is left out")

    def change_comparison(self, cursor, binary, is_condition):
        left, operator, right = binary
        start, end = self.span(cursor)
        for table in (BOUNDS,) if is_condition else (BOUNDS, OPPOSITES):
            if operator in table:
                new = table[operator]
                self.add(start, end, f"{left} {new} {right}", "truth", f"`{operator}` becomes `{new}`")

    def short(self, cursor):
        text = " ".join(self.of(cursor).split())
        return text if len(text) <= 60 else f"{text[:28]} ... {text[-28:]}"

    # --- conditions

    def is_condition(self, cursor, parent):
        return parent is not None and self.span(cursor) in [self.span(c) for c, _ in self.conditions(parent)]

    def conditions(self, cursor):
        """The conditions that a statement or a choice decides by, with what they can become."""
        children = self.children(cursor)
        if cursor.kind == Kind.CONDITIONAL_OPERATOR and len(children) == 3:
            return [(children[0], ("true", "false"))]
        if cursor.kind == Kind.IF_STMT and not re.match(r"if\s+constexpr\b", self.of(cursor)):
            body = next((i for i, child in enumerate(children) if self.closes_before(cursor, child)), 0)
            if body and not any(child.kind in (Kind.VAR_DECL, Kind.DECL_STMT) and
                                self.span(child)[1] >= self.span(children[body - 1])[1] for child in children[:body]):
                return [(children[body - 1], ("true", "false"))]
        if cursor.kind == Kind.WHILE_STMT and len(children) == 2 and children[0].kind != Kind.VAR_DECL:
            return [(children[0], ("false",))]
        return []

    def closes_before(self, statement, child):
        """Whether the parenthesis of the statement is closed where the child begins."""
        start = self.span(statement)[0]
        text = re.sub(r"""L?"(\\.|[^"\\])*"|L?'(\\.|[^'\\])*'""", "", self.text(start, self.span(child)[0]))
        text = COMMENT.sub("", text)
        return text.count("(") == text.count(")")

    def change_conditions(self, cursor):
        for condition, outcomes in self.conditions(cursor):
            start, end = self.span(condition)
            for outcome in outcomes:
                self.add(start, end, outcome, "truth", f"`{self.short(condition)}` becomes `{outcome}`")
        if cursor.kind == Kind.RETURN_STMT:
            for value in self.children(cursor):
                plain = not self.operands(value) and not re.match(r"!|true$|false$|\{", self.of(value))
                if value.type.get_canonical().kind == cindex.TypeKind.BOOL and plain:
                    start, end = self.span(value)
                    self.add(start, end, f"!({self.of(value)})", "truth", "the opposite is returned")

    # --- statements

    def change_statements(self, cursor):
        children = self.children(cursor)
        if cursor.kind == Kind.COMPOUND_STMT:
            bodies = children
        elif cursor.kind == Kind.IF_STMT:
            # One statement without an else: the condition that is false does the same.
            bodies = [child for child in children if self.closes_before(cursor, child)]
            bodies = bodies if len(bodies) > 1 else []
        elif cursor.kind in (Kind.FOR_STMT, Kind.WHILE_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.CASE_STMT,
                             Kind.DEFAULT_STMT):
            bodies = children[-1:]
        else:
            return
        for child in bodies:
            if child.kind not in STATEMENTS or (child.kind == Kind.RETURN_STMT and self.children(child)):
                continue
            start, end = self.span(child)
            rest = re.match(rb"\s*;", self.bytes[end:])
            if rest and re.match(r"[\w:(*&+!-]", self.text(start, start + 1)):
                end += rest.end()
                self.add(start, end, ";", "statement", f"`{self.short(child)}` is left out")

    # --- constants

    def change_constant(self, cursor, parent):
        start, end = self.span(cursor)
        text = self.text(start, end)
        if cursor.kind == Kind.INTEGER_LITERAL and INTEGER.match(text):
            digits, suffix = INTEGER.match(text).groups()
            value = int(digits.replace("'", ""), 0) if digits.lower().startswith("0x") else int(digits.replace("'", ""))
            in_table = parent is not None and parent.kind in (Kind.INIT_LIST_EXPR, Kind.FIELD_DECL)
            for new in (value + 1,) if in_table or value == 0 else (value + 1, value - 1):
                self.add(start, end, f"{new}{suffix}", "value", f"`{text}` becomes `{new}{suffix}`")
        elif cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR and text in ("true", "false"):
            other = "false" if text == "true" else "true"
            self.add(start, end, other, "value", f"`{text}` becomes `{other}`")
        elif cursor.kind == Kind.CHARACTER_LITERAL and text.endswith("'"):
            self.add(start, end, f"static_cast<decltype({text})>({text} + 1)", "value", f"`{text}` becomes the next")
        elif cursor.kind == Kind.STRING_LITERAL and STRING.match(text) and STRING.match(text)[2] not in '"\\':
            first = STRING.match(text).start(2)
            other = text[:first] + ("#" if text[first] != "#" else "~") + text[first + 1:]
            self.add(start, end, other, "value", f"`{text}` becomes `{other}`")

    def add_macros(self, top):
        """Constants that are macros of the project."""
        for cursor in top:
            definition = cursor.referenced if cursor.kind == Kind.MACRO_INSTANTIATION else None
            if definition is None or definition.location.file is None:
                continue
            start, end = self.span(cursor)
            text = self.text(start, end)
            if re.fullmatch(r"ID[A-Z]_\w+", text) and "resources/" in definition.location.file.name:
                self.function = ""
                self.add(start, end, f"({text} + 1)", "value", f"`{text}` becomes the next")


def find(file, path, arguments):
    """The mutants of a file of the project, of which a copy lies at path and compiles with the arguments."""
    path = Path(path)
    source = str(path)
    unsaved = []
    if path.suffix == ".h":
        source = f"{path}.mutate.cpp"
        unsaved = [(source, f'#include "{path}"\n')]
    options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
    unit = cindex.Index.create().parse(source, args=arguments, unsaved_files=unsaved, options=options)
    errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if errors:
        raise RuntimeError(f"clang refuses {file}: {errors[0]}")
    return Finder(file, path.read_bytes()).run(unit, path)
