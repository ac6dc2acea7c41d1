#!/usr/bin/env python3
"""Writes the documents of this folder that are too large to keep: generate.py FOLDER.

Each comes with its expectation, in the form of the documents beside this script.
"""
import json
import pathlib
import sys

NAMESPACE = "http://iso.org/OTX/1.0.0"
LIMIT = 10_000  # levels of nested elements, attributes of one element
AROUND_FLOW = 5  # otx, procedures, procedure, realisation, flow
AROUND_LANE = 3  # parallel, realisation, lane: what the mode of that name puts round a flow

ROOT = (
    '<?xml version="1.0" encoding="UTF-8"?>\n'
    f'<otx xmlns="{NAMESPACE}" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"\n'
    '     id="o" name="x" package="test" version="1" timestamp="2026-01-15T10:00:00">\n'
)
SET = (
    '<action id="a"><realisation xsi:type="Assignment"><result xsi:type="{kind}Variable" name="r"/>'
    "{term}</realisation></action>"
)


def document(flow, kind="Integer"):
    """A document whose procedure main has the out parameter r and this flow."""
    return (
        f'{ROOT}<procedures><procedure id="p" name="main"><realisation><parameters><outParam id="d" name="r">'
        f'<realisation><dataType xsi:type="{kind}"/></realisation></outParam></parameters>'
        f"<flow>\n{flow}\n</flow></realisation></procedure></procedures></otx>\n"
    )


def assign(term, kind="Integer"):
    return SET.format(kind=kind, term=term)


ONE = assign('<term xsi:type="IntegerLiteral" value="1"/>')


def finished(value):
    return {"outcome": "finished", "out": {"r": value}}


def unloadable(line, column, cause):
    what = f"VelkOTX XML Parsing Exception: :{line}:{column} error: {cause}"
    return {"outcome": "unloadable", "what": what, "text": "", "line": line, "column": column}


def nested(levels):
    """An element that nobody knows, nested until the document is so many levels deep, each on a line of its own."""
    inner = levels - AROUND_FLOW
    return document(ONE + "\n" + "<x>\n" * inner + "</x>\n" * inner)


def negated(levels):
    """A term that negates true so many times."""
    literal = '<term xsi:type="BooleanLiteral" value="true"/>'
    return document(assign('<term xsi:type="LogicNot">' * levels + literal + "</term>" * levels, "Boolean"), "Boolean")


def grouped(levels):
    """An assignment inside of so many groups."""
    opening = "".join(f'<group id="g{i}"><realisation>' for i in range(levels))
    return document(opening + ONE + "</realisation></group>" * levels)


def attributes(count):
    """An action with so many attributes, its id among them."""
    return document(action_with(count) + "\n" + ONE)


def action_with(count):
    unknown = "".join(f' x{i}=""' for i in range(count - 1))
    return f'<action id="a0"{unknown}/>'


def sum_of(count):
    numerals = '<numeral xsi:type="IntegerLiteral" value="1"/>' * count
    return document(assign(f'<term xsi:type="Add">{numerals}</term>'))


def long_text(length):
    text = f'<term xsi:type="StringLiteral" value="{"a" * length}"/>'
    return document(assign(f'<term xsi:type="IsEqual">{text}{text}</term>', "Boolean"), "Boolean")


# The line on which the flow's content starts: after the declaration, the root on two lines, and what leads to the flow.
FIRST_LINE = 5


def too_deep():
    line = FIRST_LINE + LIMIT + 1 - AROUND_FLOW
    return unloadable(line, len("<x>") + 1, f"elements nested more than {LIMIT} deep")


def too_many(count):
    column = len(action_with(count)) + 1
    return unloadable(FIRST_LINE, column, f"more than {LIMIT} attributes in one element")


DOCUMENTS = {
    "deep-unknown": (nested(LIMIT - 1), finished(1), "%skip lane the lane's own three levels pass the limit"),
    "deep-unknown-in-lane": (nested(LIMIT - 1 - AROUND_LANE), finished(1)),
    "bad-deep-unknown": (nested(LIMIT + 1), too_deep()),
    "bad-deep-unknown-far": (nested(20 * LIMIT), too_deep()),
    "deep-terms": (negated(2_000), finished(True)),
    "deep-groups": (grouped(500), finished(1)),
    "many-attributes": (attributes(LIMIT), finished(1)),
    "bad-many-attributes": (attributes(LIMIT + 1), too_many(LIMIT + 1)),
    "bad-many-attributes-far": (attributes(10 * LIMIT), too_many(10 * LIMIT)),
    "wide-term": (sum_of(20_000), finished(20_000)),
    "wide-flow": (document("\n".join([ONE] * 20_000)), finished(1)),
    "long-text": (long_text(1_000_000), finished(True)),
}


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for name, (text, outcome, *directives) in DOCUMENTS.items():
        (folder / f"{name}.otx").write_text(text, encoding="utf-8")
        lines = [*directives, json.dumps(outcome, separators=(",", ":"))]
        (folder / f"{name}.expect").write_text("\n".join(lines) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
