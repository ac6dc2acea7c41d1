"""What the catalogue says about documents: which type may stand where, and the way to it from the root."""

import collections
import dataclasses
import heapq

ROOT = "otxns::Otx"
CORE = "otxns"
# The root's member whose content nothing touches unless it is called; declarations and signatures are evaluated
# before each run.
UNTOUCHED = "procedures"


@dataclasses.dataclass(frozen=True)
class Place:
    """A member, together with the type that declares it: an inherited member is the base's place."""

    owner: str
    name: str


@dataclasses.dataclass
class Step:
    """From an object to one that it holds."""

    place: Place
    repeats: bool
    type: object


class Model:
    def __init__(self, catalogue):
        self.types = catalogue.types
        self.modules = catalogue.modules
        self.members = {}
        self.places = {t.qualified: self.places_of(t) for t in self.types.values()}
        self.derived = collections.defaultdict(list)
        # The catalogue's order puts the core first.
        for t in self.types.values():
            if t.kind == "type" and not t.abstract:
                for base in self.chain(t):
                    self.derived[base.qualified].append(t)
        self.effort = self.efforts()

    def chain(self, t):
        """The type's bases from the root of the chain on, and the type itself."""
        return (self.chain(self.types[t.base]) if t.base else []) + [t]

    def places_of(self, t):
        found = []
        for owner in self.chain(t):
            for member in owner.members:
                found.append(Place(owner.qualified, member.name))
                self.members[found[-1]] = member
        return found

    def substitutes(self, place):
        """The element names that stand for this place's own, with their types; empty if the place stands for itself."""
        module = self.types[place.owner].module
        return {name: self.types[f"{module.name}::{found}"] for name, found in module.substitutions.get(place.name, [])}

    def is_text(self, place):
        """Whether the member holds a text: an attribute or an element of a simple type."""
        member = self.members[place]
        return member.type not in self.types or self.types[member.type].kind != "type"

    def fitting(self, place):
        """The types that may stand in a place for objects."""
        return list(self.substitutes(place).values()) or self.derived[self.members[place].type]

    def required_objects(self, t):
        return [p for p in self.places[t.qualified] if self.members[p].cardinality == "one" and not self.is_text(p)]

    def efforts(self):
        """How many objects the smallest instance of each type takes."""
        effort = dict.fromkeys(self.types, float("inf"))
        changed = True
        while changed:
            changed = False
            for t in self.types.values():
                needed = [min((effort[f.qualified] for f in self.fitting(p)), default=0) for p in self.required_objects(t)]
                if 1 + sum(needed) < effort[t.qualified]:
                    effort[t.qualified] = 1 + sum(needed)
                    changed = True
        return effort

    def smallest(self, place):
        """The types that fill a place with the fewest objects, of the module that the place asks for if there are any."""
        fitting = self.fitting(place)
        own = [t for t in fitting if t.module is self.types[self.members[place].type].module] or fitting
        least = min(self.effort[t.qualified] for t in own)
        return [t for t in own if self.effort[t.qualified] == least]

    def routes(self, home):
        """The best way from the root to each type that can stand in a document of module `home`: a list of steps.

        Ways through procedures are the best, ways through strange modules bad; members that repeat are better than
        others, since whatever follows can share what leads to them.
        """
        routes, count = {}, 0
        waiting = [(0, count, [], ROOT)]
        while waiting:
            cost, _, route, name = heapq.heappop(waiting)
            if name in routes:
                continue
            routes[name] = route
            for place in self.places[name]:
                if self.is_text(place):
                    continue
                repeats = self.members[place].cardinality == "sequence"
                entry = 1 if repeats else 2
                if name == ROOT and place.name != UNTOUCHED:
                    entry += 1000
                for t in self.fitting(place):
                    count += 1
                    strange = 0 if t.module.name in (CORE, home.name) else 50
                    step = Step(place, repeats, t)
                    heapq.heappush(waiting, (cost + entry + strange, count, route + [step], t.qualified))
        return routes

    def text_types(self, t):
        """The simple types of the catalogue that the members of a type hold."""
        found = [self.types[self.members[p].type] for p in self.places[t.qualified] if self.members[p].type in self.types]
        return [t for t in found if t.kind != "type"]

    def unreachable(self):
        """The concrete types that nothing in a document can hold."""
        standing = set(self.routes(self.modules[0]))
        standing |= {text.qualified for name in standing for text in self.text_types(self.types[name])}
        return [t for t in self.types.values() if not t.abstract and t.qualified not in standing]
