# Documents that are generated because of their size, by the name of the generator.

CORE = "http://iso.org/OTX/1.0.0"
XSI = "http://www.w3.org/2001/XMLSchema-instance"


def document(content, attributes=""):
    return (
        '<?xml version="1.0" encoding="UTF-8"?>\n'
        f'<otx xmlns="{CORE}" xmlns:xsi="{XSI}" id="o" name="Generated" package="tests" version="1"'
        f' timestamp="2026-01-15T10:00:00"{attributes}>{content}</otx>\n'
    )


def procedure(flow):
    return document(
        '<procedures><procedure id="p" name="main"><realisation>'
        f"<flow>{flow}</flow></realisation></procedure></procedures>"
    )


def nested(depth):
    """Groups within groups, so that the deepest element stands `depth` elements below the top, the root counted."""
    groups = (depth - 5) // 2
    rest = (depth - 5) % 2
    inner = "<specification/>" if rest else ""
    opening = "".join(f'<group id="g{i}"><realisation>' for i in range(groups))
    if rest:
        opening += '<group id="last"/>'
        inner = ""
    return procedure(opening + inner + "</realisation></group>" * groups)


def attributes(count):
    """A root with `count` attributes, namespace declarations included."""
    fixed = 7
    return document("", "".join(f' a{i}="x"' for i in range(count - fixed)))


def expansion(_):
    """A few hundred bytes that entities would blow up to hundreds of megabytes."""
    entities = '<!ENTITY e0 "aaaaaaaaaaaaaaaa">' + "".join(
        f'<!ENTITY e{i} "{"".join(f"&e{i - 1};" for _ in range(16))}">' for i in range(1, 7)
    )
    body = document("<specification>&e6;</specification>")
    declaration, rest = body.split("\n", 1)
    return f"{declaration}\n<!DOCTYPE otx [{entities}]>\n{rest}"


def endless_term(_):
    """One assignment whose term takes longer than anybody waits: each level evaluates its middle operand twice."""
    term = '<term xsi:type="BooleanLiteral" value="true"/>'
    for _level in range(48):
        true = '<term xsi:type="BooleanLiteral" value="true"/>'
        term = f'<term xsi:type="IsEqual">{true}{term}{true}</term>'
    declarations = (
        '<declarations><variable id="v" name="b"><realisation><dataType xsi:type="Boolean"/></realisation>'
        "</variable></declarations>"
    )
    note = (
        '<action id="a{0}"><realisation xsi:type="Assignment"><result xsi:type="BooleanVariable" name="b"/>'
        "{1}</realisation></action>"
    )
    flow = note.format(1, '<term xsi:type="BooleanLiteral" value="true"/>') + note.format(2, term)
    return procedure("").replace("<flow></flow>", f"{declarations}<flow>{flow}</flow>")


GENERATORS = {
    "nested": nested,
    "attributes": attributes,
    "expansion": expansion,
    "endless-term": endless_term,
}


def generate(recipe):
    """The text of a recipe such as "nested 10001"."""
    name, _, number = recipe.partition(" ")
    return GENERATORS[name](int(number or 0))
