"""What the catalogue says of a module's types, as tables for its page."""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "schema" / "generator"))

import catalogue  # noqa: E402  (the generator's own reader of the catalogue)

# What a type is, by the first of its ancestors that is named here, and what a type of that kind does without behaviour.
KINDS = (
    ("otxns::Exception", "Exceptions"),
    ("otxns::LoopConfigurationRealisation", "Loops"),
    ("otxns::ActionRealisation", "Actions"),
    ("otxns::Node", "Nodes"),
    ("otxns::Variable", "Variables"),
    ("otxns::Term", "Terms"),
    ("otxns::DataType", "Data types"),
    ("otxns::Declaration", "Declarations"),
    ("otxns::SignatureRealisation", "Signatures"),
)
ORDER = ("Nodes", "Loops", "Actions", "Terms", "Data types", "Exceptions", "Declarations", "Signatures")
# Without behaviour these don't end a run.
HARMLESS = {"Data types": "variables begin empty: ", "Signatures": "the empty value: "}
ROOTS = {root for root, _ in KINDS}


class Catalogue:
    def __init__(self, folder):
        self._catalogue = catalogue.Catalogue(folder)
        # xlink and xmlmime only lend attributes to the other modules.
        self.modules = [module for module in self._catalogue.modules if module.file not in ("xlink", "xmlmime")]

    def ancestors(self, found):
        while found is not None:
            yield found
            found = self._catalogue.types[found.base] if found.base else None

    def kind(self, found):
        for ancestor in self.ancestors(found):
            for root, name in KINDS:
                if ancestor.qualified == root:
                    return name
        return None

    def works(self, found):
        """Whether it has behaviour, its own or that of an ancestor other than its family's default."""
        for ancestor in self.ancestors(found):
            if ancestor.qualified in ROOTS - {"otxns::Exception", "otxns::Declaration"}:
                return False
            if ancestor.operations:
                return True
        return False

    def counted(self, module):
        """(kind, names that work, names that don't) in the order in which pages show them. Parts of others, and the variables of
        a type, which work whenever their type does, are left out."""
        for kind in ORDER:
            names = [found for found in module.types
                     if found.kind == "type" and not found.abstract and self.kind(found) == kind]
            if names:
                yield (kind, sorted(found.name for found in names if self.works(found)),
                       sorted(found.name for found in names if not self.works(found)))

    def table(self, module):
        lines = ["| | Works | Stands in the model only |", "|---|---|---|"]
        for kind, works, refused in self.counted(module):
            default = HARMLESS.get(kind, "")
            lines.append(f"| {kind} | {', '.join(works) or '-'} | {(default + ', '.join(refused)) if refused else '-'} |")
        return lines

    def totals(self, module):
        """How many types work, and how many end the run when it reaches them."""
        works = sum(len(names) for _, names, _ in self.counted(module))
        refused = sum(len(names) for kind, _, names in self.counted(module) if kind not in HARMLESS)
        return works, refused
