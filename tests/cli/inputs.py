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
    """One assignment whose term takes longer than anybody waits, and asks nobody: comparisons of lists that hold two lists each."""
    levels, comparisons = 22, 5000
    local = '<variable id="{0}" name="{0}"><realisation><dataType xsi:type="{1}">{2}</dataType></realisation></variable>'
    item = '<itemType xsi:type="Integer"/>'
    held = '<item xsi:type="ListValue" valueOf="{0}{1}"/>'
    locals_ = local.format("b", "Boolean", "")
    for name in "lm":
        locals_ += local.format(f"{name}0", "List", item)
        for level in range(levels):
            items = f"<items>{2 * held.format(name, level)}</items>"
            locals_ += local.format(f"{name}{level + 1}", "List", f"{item}<init>{item}{items}</init>")
    note = (
        '<action id="a{0}"><realisation xsi:type="Assignment"><result xsi:type="BooleanVariable" name="b"/>'
        "{1}</realisation></action>"
    )
    value = '<term xsi:type="ListValue" valueOf="{0}"/>'
    comparison = f'<term xsi:type="IsEqual">{value.format(f"l{levels}")}{value.format(f"m{levels}")}</term>'
    flow = note.format(1, '<term xsi:type="BooleanLiteral" value="true"/>')
    flow += note.format(2, f'<term xsi:type="LogicAnd">{comparisons * comparison}</term>')
    return procedure("").replace("<flow></flow>", f"<declarations>{locals_}</declarations><flow>{flow}</flow>")


HMI = f'xmlns:hmi="{CORE}/HMI" xmlns:event="{CORE}/Event"'


def string(name, text):
    return f'<{name} xsi:type="StringLiteral" value="{text}"/>'


def action(identity, content):
    return f'<action id="{identity}">{content}</action>'


def variable(name, type_name, content="", element="variable"):
    data_type = f'<dataType xsi:type="{type_name}">{content}</dataType>'
    return f'<{element} id="d-{name}" name="{name}"><realisation>{data_type}</realisation></{element}>'


def operator_procedure(flow, outs, variables=""):
    parameters = "".join(variable(*out, element="outParam") for out in outs)
    declarations = f"<declarations>{variables}</declarations>" if variables else ""
    return document(
        f'<procedures><procedure id="p" name="main"><realisation><parameters>{parameters}</parameters>'
        f"{declarations}<flow>{flow}</flow></realisation></procedure></procedures>"
    ).replace(" id=", f" {HMI} id=", 1)


def dialog(identity, kind, content):
    """A dialog; its elements stand in the order of the standard, the title and the message first."""
    return action(identity, f'<realisation xsi:type="hmi:{kind}">{content}</realisation>')


def confirm(identity, title, kind="YESNO_QUESTION", result="sure"):
    bound = f'<hmi:result xsi:type="hmi:ConfirmationTypeVariable" name="{result}"/>' if result else ""
    message_type = f'<hmi:messageType xsi:type="hmi:MessageTypeLiteral" value="{kind}"/>'
    return dialog(identity, "ConfirmDialog", string("hmi:title", title) + message_type + bound)


def dialogs(_):
    """One of each dialog."""
    options = (
        '<hmi:options xsi:type="ListLiteral"><itemType xsi:type="String"/><items>'
        + "".join(string("item", axle) for axle in ("front", "rear"))
        + "</items></hmi:options>"
    )
    flow = (
        confirm("a1", "Ready", "INFO", None)
        + confirm("a2", "Sure")
        + dialog(
            "a3",
            "ChoiceDialog",
            string("hmi:title", "Axle")
            + string("hmi:message", "Which one?")
            + options
            + '<hmi:default xsi:type="IntegerLiteral" value="1"/>'
            + '<hmi:result xsi:type="IntegerVariable" name="axle"/>',
        )
        + dialog(
            "a4",
            "InputDialog",
            string("hmi:message", "The number")
            + string("hmi:initialValue", "VB1")
            + string("hmi:restriction", "V[A-Z][0-9]+")
            + '<hmi:result xsi:type="StringVariable" name="number"/>',
        )
        + dialog("a5", "ShowDocumentDialog", string("hmi:document", "/manuals/brake.pdf"))
    )
    return operator_procedure(flow, [("sure", "hmi:ConfirmationType"), ("axle", "Integer"), ("number", "String")])


def screens(_):
    """A screen that stays, with a parameter that changes, and one that the run waits for."""
    opening = (
        '<realisation xsi:type="hmi:OpenScreen" screen="{0}"{1}><hmi:screenHandle name="{2}"/>'
        "<hmi:arguments>{3}</hmi:arguments></realisation>"
    )
    bound = '<hmi:{0}Arg param="{1}"><hmi:variable xsi:type="IntegerVariable" name="{1}"/></hmi:{0}Arg>'
    flow = (
        action("a1", opening.format("Monitor", "", "monitor", bound.format("in", "count")))
        + action(
            "a2",
            '<realisation xsi:type="Assignment"><result xsi:type="IntegerVariable" name="count"/>'
            '<term xsi:type="IntegerLiteral" value="7"/></realisation>',
        )
        + action(
            "a3",
            opening.format("Settings", ' modal="true"', "settings", bound.format("inout", "limit") + bound.format("out", "axle")),
        )
        + action("a4", '<realisation xsi:type="hmi:CloseScreen"><hmi:screen name="monitor"/></realisation>')
    )
    return operator_procedure(
        flow,
        [("limit", "Integer", '<init value="5"/>'), ("axle", "Integer"), ("count", "Integer", '<init value="1"/>')],
        variable("monitor", "hmi:Screen") + variable("settings", "hmi:Screen"),
    )


def last_dialog(_):
    """Nothing comes behind the dialog."""
    return operator_procedure(confirm("a1", "Last"), [("sure", "hmi:ConfirmationType")])


def open_screen(identity, screen, handle, arguments=""):
    content = f'<hmi:screenHandle name="{handle}"/>' + (f"<hmi:arguments>{arguments}</hmi:arguments>" if arguments else "")
    return action(identity, f'<realisation xsi:type="hmi:OpenScreen" screen="{screen}">{content}</realisation>')


def wait(identity, source_type, content):
    source = f'<event:source xsi:type="{source_type}">{content}</event:source>'
    return action(identity, f'<realisation xsi:type="event:WaitForEvent">{source}</realisation>')


def wait_for_closing(identity, handle):
    return wait(identity, "hmi:ScreenClosedEventSource", f'<hmi:screen xsi:type="hmi:ScreenValue" valueOf="{handle}"/>')


def take_closing(identity, handle, taken):
    """Keeps the event source of a screen's closing in a variable: a screen that is closed already has none any more."""
    return action(
        identity,
        f'<realisation xsi:type="Assignment"><result xsi:type="event:EventSourceVariable" name="{taken}"/>'
        '<term xsi:type="hmi:ScreenClosedEventSource">'
        f'<hmi:screen xsi:type="hmi:ScreenValue" valueOf="{handle}"/></term></realisation>',
    )


def wait_for_taken(identity, taken):
    return wait(identity, "event:EventSourceValue", "").replace("></event:source>", f' valueOf="{taken}"/>')


def closing(_):
    """Waits until somebody closes a screen that holds nobody."""
    flow = open_screen("a1", "Monitor", "monitor") + take_closing("a2", "monitor", "closed") + wait_for_taken("a3", "closed")
    variables = variable("monitor", "hmi:Screen") + variable("closed", "event:EventSource")
    return operator_procedure(flow, [], variables)


def given_value(_):
    """Waits until somebody sets what a screen gives out."""
    bound = '<hmi:outArg param="axle"><hmi:variable xsi:type="IntegerVariable" name="axle"/></hmi:outArg>'
    flow = open_screen("a1", "Settings", "settings", bound) + wait(
        "a2", "event:MonitorChangeEventSource", '<event:variable xsi:type="IntegerVariable" name="axle"/>'
    )
    return operator_procedure(flow, [("axle", "Integer")], variable("settings", "hmi:Screen"))


def closings(_):
    """Three screens; waits for the closing of the second, then for that of the first."""
    names = ("first", "second", "third")
    flow = "".join(open_screen(f"a-{name}", name, name) for name in names)
    flow += wait_for_closing("w1", "second") + wait_for_closing("w2", "first")
    return operator_procedure(flow, [], "".join(variable(name, "hmi:Screen") for name in names))


def changing(_):
    """A screen with a value that changes ten times a second until the screen is closed."""
    bound = '<hmi:inArg param="count"><hmi:variable xsi:type="IntegerVariable" name="count"/></hmi:inArg>'
    true = '<realisation xsi:type="WhileLoop"><test xsi:type="BooleanLiteral" value="true"/></realisation>'
    count = (
        '<term xsi:type="Add"><numeral xsi:type="IntegerValue" valueOf="count"/>'
        '<numeral xsi:type="IntegerLiteral" value="1"/></term>'
    )
    flow = (
        open_screen("a1", "Monitor", "monitor", bound)
        + take_closing("a2", "monitor", "closed")  # ahead of all changes
        + '<parallel id="n1"><realisation><lane>'
        + wait_for_taken("a3", "closed")
        + '<terminateLanes id="n2"/></lane><lane>'
        + f'<loop id="n3"><realisation><configuration id="c3">{true}</configuration><flow>'
        + wait("a4", "event:TimerExpiredEventSource", '<event:timeout xsi:type="IntegerLiteral" value="100"/>')
        + action(
            "a5", f'<realisation xsi:type="Assignment"><result xsi:type="IntegerVariable" name="count"/>{count}</realisation>'
        )
        + "</flow></realisation></loop></lane></realisation></parallel>"
    )
    variables = variable("monitor", "hmi:Screen") + variable("closed", "event:EventSource")
    return operator_procedure(flow, [("count", "Integer", '<init value="1"/>')], variables)


def session(_):
    """Enters the extended session of a control unit, which is kept alive, and waits for the closing of a screen."""
    channel = '<diag:comChannel xsi:type="diag:ComChannelValue" valueOf="channel"/>'
    parameter = (
        "<diag:requestParam>" + string("diag:value", "extended")
        + "<diag:path>" + string("stepByName", "Session") + "</diag:path></diag:requestParam>"
    )
    flow = (
        action(
            "c1",
            '<realisation xsi:type="Assignment"><result xsi:type="diag:ComChannelVariable" name="channel"/>'
            f'<term xsi:type="diag:GetComChannel">{string("diag:identifier", "Engine")}</term></realisation>',
        )
        + action(
            "c2",
            '<realisation xsi:type="diag:ExecuteDiagService"><diag:diagService xsi:type="diag:CreateDiagServiceByName">'
            f'{channel}{string("diag:name", "StartSession")}</diag:diagService>'
            f"<diag:requestParameters>{parameter}</diag:requestParameters></realisation>",
        )
        + open_screen("a1", "Monitor", "monitor")
        + wait_for_closing("a2", "monitor")
    )
    variables = variable("monitor", "hmi:Screen") + variable("channel", "diag:ComChannel")
    return operator_procedure(flow, [], variables).replace(" id=", f' xmlns:diag="{CORE}/DiagCom" id=', 1)


def timer(_):
    """A screen that stays open while the sequence waits for its timer, a while in each of two lanes."""
    pause = '<event:timeout xsi:type="IntegerLiteral" value="{}"/>'
    lanes = "".join(
        f'<lane id="l{number}">{wait(f"w{number}", "event:TimerExpiredEventSource", pause.format(number * 400))}</lane>'
        for number in (1, 2)
    )
    flow = (
        open_screen("a1", "Monitor", "monitor")
        + f'<parallel id="x"><realisation>{lanes}</realisation></parallel>'
        + action("a3", '<realisation xsi:type="hmi:CloseScreen"><hmi:screen name="monitor"/></realisation>')
    )
    return operator_procedure(flow, [], variable("monitor", "hmi:Screen"))


GENERATORS = {
    "given-value": given_value,
    "closings": closings,
    "changing": changing,
    "session": session,
    "timer": timer,
    "dialogs": dialogs,
    "screens": screens,
    "closing": closing,
    "last-dialog": last_dialog,
    "nested": nested,
    "attributes": attributes,
    "expansion": expansion,
    "endless-term": endless_term,
}


def generate(recipe):
    """The text of a recipe such as "nested 10001"."""
    name, _, number = recipe.partition(" ")
    return GENERATORS[name](int(number or 0))
