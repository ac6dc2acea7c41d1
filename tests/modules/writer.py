"""Writes a tree of objects as an XML document, and lists the types that stand in it."""

import itertools
from xml.sax.saxutils import escape, quoteattr

from instances import Object
from model import CORE

INSTANCE = "http://www.w3.org/2001/XMLSchema-instance"


class Writer:
    def __init__(self, model, objects):
        self.model = model
        self.objects = objects

    def document(self, root):
        modules = {t.module.name: t.module for o in self.objects for t in self.model.chain(o.type)}
        spaces = {"xmlns": modules.pop(CORE).space, "xmlns:xsi": INSTANCE}
        spaces |= {f"xmlns:{name}": module.space for name, module in sorted(modules.items())}
        head, *rest = self.element("otx", root, spaces)
        # The root's attributes are many: one a line.
        head = head.replace('" ', '"\n     ')
        return "\n".join(['<?xml version="1.0" encoding="UTF-8"?>', head, *rest]) + "\n"

    def name(self, module, local):
        return local if module.name == CORE else f"{module.name}:{local}"

    def element(self, name, o, attributes, depth=0):
        for place, text in self.present(o, "attribute"):
            attributes[place.name] = text
        head = name + "".join(f" {key}={quoteattr(value)}" for key, value in attributes.items())
        inner = [line for place, held in self.elements(o) for line in self.member(place, held, depth + 1)]
        indent = " " * depth
        if not inner:
            return [f"{indent}<{head}/>"]
        return [f"{indent}<{head}>", *inner, f"{indent}</{name}>"]

    def member(self, place, held, depth):
        module = self.model.types[place.owner].module
        name = self.name(module, place.name)
        if not isinstance(held, Object):
            return [f"{' ' * depth}<{name}>{escape(held)}</{name}>"]
        substitutes = {t.qualified: local for local, t in self.model.substitutes(place).items()}
        if held.type.qualified in substitutes:
            return self.element(self.name(module, substitutes[held.type.qualified]), held, {}, depth)
        attributes = {}
        if held.type.qualified != self.model.members[place].type:
            attributes["xsi:type"] = self.name(held.type.module, held.type.name)
        return self.element(name, held, attributes, depth)

    def present(self, o, kind):
        for place in self.model.places[o.type.qualified]:
            if self.model.members[place].kind == kind:
                for held in o.at(place):
                    yield place, held

    def elements(self, o):
        found = list(self.present(o, "element"))
        if not o.type.ordered:
            return found
        # The document's order is kept between these members: they take turns.
        rows = [[entry for entry in found if entry[0] == place] for place in dict.fromkeys(place for place, _ in found)]
        return [entry for turn in itertools.zip_longest(*rows) for entry in turn if entry]

    def types(self):
        """The types that stand in the document; a default value stands too where its attribute is absent."""
        found = {o.type.qualified for o in self.objects}
        for o in self.objects:
            for place in self.model.places[o.type.qualified]:
                member = self.model.members[place]
                if self.model.is_text(place) and (o.at(place) or member.default is not None):
                    found.add(member.type)
        return [self.model.types[name] for name in found if name in self.model.types]
