"""Reads the catalogue files: one module of the document model each."""

import dataclasses
import pathlib


class CatalogueError(Exception):
    """A line that can't be read, with its place."""


@dataclasses.dataclass
class Member:
    kind: str  # element or attribute
    name: str
    type: str  # a simple type's name, or module::Type
    cardinality: str  # one, optional, sequence; required, optional, default
    default: str | None = None
    interned: bool = False
    qualified: bool = False
    # Its name in C++; an attribute that is called like an element of its class gets a number.
    spelled: str = ""


@dataclasses.dataclass
class Type:
    module: "Module"
    name: str
    kind: str  # type, string, enumeration
    base: str | None = None
    abstract: bool = False
    custom: bool = False
    root: bool = False
    ordered: bool = False
    interned: bool = False
    operations: list = dataclasses.field(default_factory=list)
    members: list = dataclasses.field(default_factory=list)
    literals: list = dataclasses.field(default_factory=list)

    @property
    def qualified(self):
        return f"{self.module.name}::{self.name}"

    @property
    def data_class(self):
        """The generated class that holds the data."""
        return self.name + "_base" if self.custom else self.name


@dataclasses.dataclass
class Module:
    file: str
    name: str
    space: str
    types: list = dataclasses.field(default_factory=list)
    substitutions: dict = dataclasses.field(default_factory=dict)


SIMPLE = {"string", "normalizedString", "boolean", "long", "double", "hexBinary", "dateTime"}


def read_module(path):
    module = None
    current = None
    for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        words = line.split("#")[0].split() if line.lstrip().startswith("#") else line.split()
        if not words:
            continue
        try:
            if not line[0].isspace():
                current, module = read_head(path, module, words)
            else:
                read_detail(current, words)
        except (IndexError, ValueError, KeyError) as error:
            raise CatalogueError(f"{path}:{number}: can't read '{line.strip()}' ({error})") from error
    return module


def read_head(path, module, words):
    if words[0] == "module":
        return None, Module(path.stem, words[1], words[2])
    if words[0] == "substitution":
        module.substitutions[words[1]] = []
        return module.substitutions[words[1]], module
    if words[0] not in ("type", "string", "enumeration"):
        raise ValueError("unknown word " + words[0])
    made = Type(module, words[1], words[0])
    rest = words[2:]
    if rest[:1] == [":"]:
        made.base = qualify(rest[1], module)
        rest = rest[2:]
    if "does" in rest:
        made.operations = rest[rest.index("does") + 1 :]
        rest = rest[: rest.index("does")]
    for flag in rest:
        if flag not in ("abstract", "custom", "root", "interned"):
            raise ValueError("unknown word " + flag)
        setattr(made, flag, True)
    module.types.append(made)
    return made, module


def read_detail(current, words):
    if isinstance(current, list):
        current.append((words[1], words[2]))
    elif words[0] == "literal":
        current.literals.append(words[1])
    elif words[0] == "ordered":
        current.ordered = True
    elif words[0] in ("element", "attribute"):
        member = Member(words[0], words[1], words[2], words[3])
        rest = words[4:]
        if member.cardinality == "default":
            member.default = rest.pop(0)
        for flag in rest:
            if flag not in ("interned", "qualified"):
                raise ValueError("unknown word " + flag)
            setattr(member, flag, True)
        if member.type not in SIMPLE:
            member.type = qualify(member.type, current.module)
        allowed = ("one", "optional", "sequence") if words[0] == "element" else ("required", "optional", "default")
        if member.cardinality not in allowed:
            raise ValueError("unknown cardinality " + member.cardinality)
        clash = any(other.name == member.name for other in current.members)
        member.spelled = member.name + ("1" if clash else "")
        current.members.append(member)
    else:
        raise ValueError("unknown word " + words[0])


def qualify(name, module):
    return name if "::" in name else f"{module.name}::{name}"


class Catalogue:
    """All modules, with the types by their qualified names."""

    def __init__(self, folder):
        paths = sorted(pathlib.Path(folder).glob("*.otxs"))
        self.modules = [read_module(path) for path in paths]
        # The core comes first: everything builds on it.
        self.modules.sort(key=lambda module: (module.name != "otxns", module.name))
        self.types = {t.qualified: t for module in self.modules for t in module.types}
        for t in self.types.values():
            self.check(t)

    def check(self, t):
        for name in ([t.base] if t.base else []) + [m.type for m in t.members if m.type not in SIMPLE]:
            if name not in self.types:
                raise CatalogueError(f"{t.module.file}: {t.name} names {name}, which is no type")

    def base_first(self, types):
        """The types in an order in which each stands after its base."""
        ordered, done = [], set()

        def visit(t):
            if t.qualified in done:
                return
            done.add(t.qualified)
            if t.base:
                visit(self.types[t.base])
            if t in wanted:
                ordered.append(t)

        wanted = list(types)
        for t in wanted:
            visit(t)
        return ordered

    def module_dependencies(self, module):
        """The modules whose classes this one's derive from."""
        return sorted(
            {self.types[t.base].module.file for t in module.types if t.base and self.types[t.base].module is not module}
        )

    def names(self):
        found = {m.name for t in self.types.values() for m in t.members}
        found |= {name for module in self.modules for group in module.substitutions.values() for name, _ in group}
        return sorted(found)

    def groups(self):
        return [head for module in self.modules for head in module.substitutions]
