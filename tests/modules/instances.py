"""Builds the tree of objects of one module's document."""

import itertools

from model import ROOT

BARE = 1  # the variant that has only what it must have

TEXTS = {
    "string": ["text", "", "<&>\"'", "äöü €", " two\nlines "],
    "normalizedString": ["modules", "1.0"],
    "long": ["0", "-9223372036854775808", "9223372036854775807"],
    "double": ["0.5", "-1.5E10", "INF", "NaN"],
    "hexBinary": ["00", "", "deadBEEF"],
    "dateTime": ["2026-01-15T10:00:00.5+01:00"],
}


class Object:
    """An object of the document: its members by their places, objects or texts."""

    def __init__(self, of_type, sealed=False):
        self.type = of_type
        # Nothing more may be put into a sealed object.
        self.sealed = sealed
        self.members = {}

    def at(self, place):
        return self.members.setdefault(place, [])


class Builder:
    def __init__(self, model, module):
        self.model = model
        self.module = module
        self.routes = model.routes(module)
        self.texts = {name: itertools.cycle(values) for name, values in TEXTS.items()}
        self.turns = {}
        self.numbers = itertools.count(1)
        self.root = Object(model.types[ROOT])

    def build(self):
        """The document's root, with all types of the module below it."""
        self.place_main()
        for t in self.module.types:
            if t.kind == "type" and not t.abstract and t.qualified in self.routes:
                self.place_variants(t)
        for t in self.module.types:
            if t.kind != "type":
                self.place_text_type(t)
        self.finish(self.root)
        return self.root

    def place_main(self):
        """The procedure that is run: it returns."""
        end = self.object_on("otxns::Return")
        main = next(o for o in self.walk(self.root) if o.type.name == "Procedure")
        self.set_text(main, "name", "main")
        self.finish(end)
        for o in self.walk(main):
            o.sealed = True

    def place_text_type(self, t):
        """An enumeration or text type stands where a member of that type does; another module may have the only one."""
        if any(t in self.model.text_types(o.type) for o in self.walk(self.root)):
            return
        for owner in self.routes:
            if t in self.model.text_types(self.model.types[owner]):
                self.place_variants(self.model.types[owner])
                return

    def place_variants(self, t):
        route = self.routes[t.qualified]
        if not any(step.repeats for step in route):
            # There is room for one only, and whatever else goes into it must find it open.
            self.fill(self.object_on(t.qualified), 0)
            return
        for variant in range(self.variants(t)):
            made = Object(t, sealed=True)
            self.fill(made, variant)
            self.insert(self.root, route, made)

    def variants(self, t):
        """Full, bare, one entry in each sequence; then as many as the literals of its attributes take."""
        count = 1
        for place in self.model.places[t.qualified]:
            member = self.model.members[place]
            count = max(count, {"sequence": 3, "optional": 2, "default": 2}.get(member.cardinality, 1))
            if member.kind == "attribute" and self.literals(member):
                count = max(count, len(self.literals(member)) + (member.cardinality != "required"))
        return count

    @staticmethod
    def occurrences(member, variant):
        if member.cardinality in ("one", "required"):
            return 1
        if member.cardinality == "sequence":
            return {0: 2, BARE: 0, 2: 1}.get(variant, 0)
        if member.kind == "element":
            return 1 if variant == 0 else 0
        return 0 if variant == BARE else 1

    def fill(self, o, variant):
        for place in self.model.places[o.type.qualified]:
            member = self.model.members[place]
            present = o.at(place)
            while len(present) < self.occurrences(member, variant):
                present.append(self.text(member, variant) if self.model.is_text(place) else self.filler(place))

    def filler(self, place):
        """The smallest object that fits; the types that are equally small take turns."""
        if place not in self.turns:
            self.turns[place] = itertools.cycle(self.model.smallest(place))
        made = Object(next(self.turns[place]))
        self.fill(made, BARE)
        return made

    def literals(self, member):
        if member.type == "boolean":
            return ["true", "false"]
        return self.model.types[member.type].literals if member.type in self.model.types else []

    def text(self, member, variant):
        literals = self.literals(member)
        if literals:
            # The bare variant has no literal to show where the member may be absent.
            index = variant - 1 if member.cardinality != "required" and variant > BARE else variant
            return literals[index % len(literals)]
        if member.type in self.texts:
            return next(self.texts[member.type])
        return f"{member.name}{next(self.numbers)}"

    def set_text(self, o, name, text):
        place = next(p for p in self.model.places[o.type.qualified] if p.name == name)
        o.members[place] = [text]

    def object_on(self, qualified):
        """The first object at the end of the route to a type, made if there is none."""
        o = self.root
        for step in self.routes[qualified]:
            found = next((other for other in o.at(step.place) if other.type is step.type and not other.sealed), None)
            if found is None:
                found = Object(step.type)
                o.at(step.place).append(found)
            o = found
        return o

    def insert(self, o, route, made):
        """Puts an object at the end of a route, sharing what leads to it as far as there is room; tells if there was."""
        step, rest = route[0], route[1:]
        present = o.at(step.place)
        if rest:
            for other in reversed(present):
                if other.type is step.type and not other.sealed and self.insert(other, rest, made):
                    return True
        if present and not step.repeats:
            return False
        present.append(Object(step.type) if rest else made)
        return not rest or self.insert(present[-1], rest, made)

    def walk(self, o):
        yield o
        for present in o.members.values():
            for other in present:
                if isinstance(other, Object):
                    yield from self.walk(other)

    def finish(self, root):
        """Gives what all objects must have to those that only lead to others."""
        for o in list(self.walk(root)):
            self.fill(o, BARE)
