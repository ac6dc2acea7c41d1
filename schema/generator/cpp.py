"""How the catalogue's words are spelled in C++."""

from catalogue import SIMPLE

KEYWORDS = {
    "if", "else", "try", "catch", "default", "for", "while", "do", "switch", "case", "class", "struct", "union",
    "operator", "new", "delete", "return", "break", "continue", "throw", "template", "typename", "namespace", "auto",
    "bool", "int", "long", "short", "char", "float", "double", "void", "const", "static", "public", "private",
}

SIMPLE_CLASSES = {
    "string": "schema::string",
    "normalizedString": "schema::normalized_string",
    "boolean": "bool",
    "long": "long long",
    "double": "double",
    "hexBinary": "schema::hex_binary",
    "dateTime": "schema::date_time",
}

# The behaviour operations: result, parameters.
OPERATIONS = {
    "eval": ("COtxValue", "otxns::OtxContext& context"),
    "exec": ("void", "otxns::OtxContext& context"),
    "type": ("std::string", ""),
    "declare": ("void", "otxns::OtxContext& context, bool global"),
    "write": ("void", "otxns::OtxContext& context, const COtxValue& value"),
    "read": ("COtxValue", "otxns::OtxContext& context"),
    "steps": ("COtxValue", "otxns::OtxContext& context"),
}

# Where a family takes more than the context.
FAMILY_OPERATIONS = {
    ("otxns::Path", "write"): ("void", "otxns::OtxContext& context, const otxns::Name& variable, const COtxValue& value"),
    ("otxns::Path", "read"): ("COtxValue", "otxns::OtxContext& context, const otxns::Name& variable"),
    ("otxns::LoopConfigurationRealisation", "exec"): (
        "void",
        "otxns::OtxContext& context, const otxns::Flow& body, const otxns::OtxName& loopName",
    ),
    ("otxns::ProcedureRealisation", "exec"): (
        "void",
        "otxns::OtxContext& context, otxns::CallArguments& arguments",
    ),
}


def identifier(name):
    return name + "_" if name in KEYWORDS else name


def member_class(member):
    if member.interned:
        return "schema::InternedString"
    return SIMPLE_CLASSES[member.type] if member.type in SIMPLE else member.type


def holder(member):
    kind = {"one": "one", "required": "one", "default": "one", "optional": "optional", "sequence": "sequence"}
    return f"schema::{kind[member.cardinality]}<{member_class(member)}>"


def operation(catalogue, t, name):
    """The operation's result and parameters, and whether a base declares it."""
    chain, found = t, []
    while chain:
        if chain.custom and name in chain.operations:
            found.append(chain)
        chain = catalogue.types[chain.base] if chain.base else None
    root = found[-1]
    return FAMILY_OPERATIONS.get((root.qualified, name), OPERATIONS[name]), root is not t


def in_namespace(module, body):
    return f"namespace {module.name} {{\n\n{body}\n}}  // namespace {module.name}\n"


def wide(text):
    return f'u"{text}"'
