"""The generated sources: constructors, tables, registration, names."""

from catalogue import SIMPLE
from cpp import holder, identifier, in_namespace, member_class, wide

# How many types share a source: few enough for builds side by side, many enough to pay for the headers.
CHUNK = 60
NOTE = "// Generated from the catalogue. {}\n"
CARDINALITY = {"one": "oneElement", "optional": "optionalElement", "sequence": "sequenceElement"}
PRESENCE = {"required": "required", "optional": "optional", "default": "defaulted"}


def chunks(catalogue, module):
    types = catalogue.base_first(module.types)
    return [types[i : i + CHUNK] for i in range(0, len(types), CHUNK)]


def definitions(catalogue, module, types):
    needed = {module.file} | {catalogue.types[m.type].module.file for t in types for m in t.members if m.type not in SIMPLE}
    text = NOTE.format(f"Constructors and tables of module {module.name}.")
    text += "".join(f"#include <schema/{file}.h>\n" for file in sorted(needed))
    # The classes' operations return and take values of the value library.
    text += "#include <schema/Holders.h>\n#include <schema/Reader.h>\n#include <schema/Registry.h>\n#include <schema/names.h>\n\n"
    text += "#include <otx/value/COtxValue.h>\n\n#include <cstddef>\n\n"
    text += in_namespace(module, "\n".join(one_class(catalogue, t) for t in types))
    return text + registration(catalogue, module, types)


def one_class(catalogue, t):
    if t.kind == "type":
        return data_class(catalogue, t)
    return simple_class(t)


def simple_class(t):
    n = t.name
    base = "schema::Enumeration" if t.kind == "enumeration" else "schema::InternedString" if t.interned else "schema::string"
    text = ""
    if t.kind == "enumeration":
        values = ", ".join(f'"{value}"' for value in t.literals)
        text += (
            f"schema::Enumeration::Literals {n}::literals() {{\n"
            f"    static constexpr std::string_view all[] = {{{values}}};\n    return all;\n}}\n\n"
            f"{n}::{n}(const std::string& text, const schema::DomElement* element, schema::flags f, schema::container* owner)\n"
            f"    : Enumeration(literals(), text, element, f, owner) {{}}\n\n"
            f"{n}::{n}(const schema::DomElement& element, schema::flags f, schema::container* owner)\n"
            f"    : Enumeration(literals(), schema::string(element), &element, f, owner) {{}}\n\n"
        )
    else:
        text += (
            f"{n}::{n}(const std::string& text, const schema::DomElement* element, schema::flags f, schema::container* owner)\n"
            f"    : {base}(text, element, f, owner) {{}}\n\n"
            f"{n}::{n}(const schema::DomElement& element, schema::flags f, schema::container* owner)\n"
            f"    : {base}(element, f, owner) {{}}\n\n"
        )
    return text + (
        f"{n}::{n}(const {n}& other, schema::flags f, schema::container* owner) : {base}(other, f, owner) {{}}\n\n"
        f"{n}* {n}::_clone(schema::flags f, schema::container* owner) const {{\n    return new {n}(*this, f, owner);\n}}\n"
    )


def data_class(catalogue, t):
    n = t.data_class
    base = t.base if t.base else "schema::type"
    base_flags = "f | schema::flags::base"
    made = "".join(f", {m.spelled}_member(this)" for m in t.members)
    copied = "".join(f", {m.spelled}_member(other.{m.spelled}_member, f, this)" for m in t.members)
    if t.ordered:
        copied += ", order_(other.order_)"
    base_name = base.split("::")[-1]
    if base.startswith("schema::"):
        base_name = base
    elif catalogue.types[base].module is not t.module:
        base_name = base
    # The root of the tree takes no fields; an empty copy places it in its container.
    stream_base = f"{base_name}(stream, {base_flags}, owner)" if t.base else "schema::type(schema::type(), f, owner)"
    text = (
        f"{n}::{n}(const schema::DomElement& element, schema::flags f, schema::container* owner)\n"
        f"    : {base_name}(element, {base_flags}, owner){made} {{\n"
        f"    if ((f & schema::flags::base) == 0) schema::parse(*this, table(), element, f);\n}}\n\n"
        f"{n}::{n}(schema::InputStream& stream, schema::flags f, schema::container* owner)\n"
        f"    : {stream_base}{made} {{\n"
        f"    if ((f & schema::flags::base) == 0) schema::extractFields(stream, *this, table(), f);\n}}\n\n"
        f"{n}::{n}(const {n}& other, schema::flags f, schema::container* owner) : {base_name}(other, f, owner){copied} {{}}\n\n"
        f"{n}::~{n}() = default;\n\n"
    )
    if not t.abstract and not t.custom:
        text += f"{n}* {n}::_clone(schema::flags f, schema::container* owner) const {{\n    return new {n}(*this, f, owner);\n}}\n\n"
    return text + table(catalogue, t)


def table(catalogue, t):
    n = t.data_class
    elements = [m for m in t.members if m.kind == "element"]
    attributes = [m for m in t.members if m.kind == "attribute"]
    text = f"const schema::ClassTable& {n}::table() {{\n"
    if elements:
        text += "    static constexpr schema::Element elements[] = {\n"
        text += "".join(element_row(catalogue, t, m) for m in elements) + "    };\n"
    if attributes:
        text += "    static constexpr schema::Attribute attributes[] = {\n"
        text += "".join(attribute_row(t, m) for m in attributes) + "    };\n"
    base = f"&{t.base}::table()" if t.base else "nullptr"
    order = "nullptr"
    if t.ordered:
        order = f"[](schema::type& object) {{ return &static_cast<{n}&>(object).order_; }}"
    text += (
        f"    static const schema::ClassTable made{{{base}, {'elements' if elements else '{}'}, "
        f"{'attributes' if attributes else '{}'},\n        {order}}};\n    return made;\n}}\n"
    )
    return text


def at(t, m):
    return f"offsetof({t.data_class}, {m.spelled}_member)"


def element_row(catalogue, t, m):
    groups = catalogue.groups()
    group = f"schema::groups::{m.name}" if m.name in groups else "0"
    cls = member_class(m)
    if m.type in SIMPLE:
        name, factory = f'{{"{m.type}", "http://www.w3.org/2001/XMLSchema"}}', f"schema::make<{cls}>"
    else:
        other = catalogue.types[m.type]
        name = f'{{"{other.name}", "{other.module.space}"}}'
        factory = "nullptr" if other.abstract else f"schema::make<{cls}>"
    return (
        f"        {{schema::names::{identifier(m.name)}, schema::spaces::{t.module.name}, {group},\n"
        f"         {at(t, m)},\n"
        f"         &schema::{CARDINALITY[m.cardinality]}<{cls}>, {name}, {factory}}},\n"
    )


def attribute_row(t, m):
    space = f"schema::spaces::{t.module.name}" if m.qualified else "0"
    kind = "optionalAttribute" if m.cardinality == "optional" else "oneAttribute"
    default = "nullptr"
    if m.default is not None:
        cls = member_class(m)
        default = (
            f"[](void* holder, schema::container* owner) {{\n"
            f'             static const {cls} value("{m.default}");\n'
            f"             static_cast<{holder(m)}*>(holder)->set(std::unique_ptr<{cls}>(value._clone(0, owner)));\n"
            f"         }}"
        )
    return (
        f"        {{schema::names::{identifier(m.name)}, {space}, schema::Presence::{PRESENCE[m.cardinality]},\n"
        f"         {at(t, m)},\n"
        f"         &schema::{kind}<{member_class(m)}>, {default}}},\n"
    )


def registration(catalogue, module, types):
    """The registered types among those of one source, and the module's substitution groups with its first."""
    rows = "".join(
        f'    {{{{"{t.name}", "{module.space}"}}, schema::make<{t.qualified}>, &typeid({t.qualified}),\n'
        f"     {f'&{t.qualified}::table()' if t.kind == 'type' else 'nullptr'}, schema::insert<{t.qualified}>, schema::extract<{t.qualified}>}},\n"
        for t in types
        if not t.abstract
    )
    text = f"\nnamespace {{\n\nconst schema::RegisteredType types[] = {{\n{rows}}};\n\n"
    substitutes = ""
    if types[0] is catalogue.base_first(module.types)[0]:
        substitutes = "".join(
            f'    {{{{"{head}", "{module.space}"}}, schema::names::{identifier(name)}, schema::spaces::{module.name}, '
            f'schema::groups::{head}, {{"{type_name}", "{module.space}"}}, schema::make<{module.name}::{type_name}>}},\n'
            for head, group in module.substitutions.items()
            for name, type_name in group
        )
    if substitutes:
        text += f"const schema::Substitute substitutes[] = {{\n{substitutes}}};\n\n"
    return text + f"const schema::Registration registration(types{', substitutes' if substitutes else ''});\n\n}}  // namespace\n"


def names(catalogue):
    text = NOTE.format("The element and attribute names and the namespaces, by number.")
    text += "#include <schema/Registry.h>\n#include <schema/names.h>\n\nnamespace schema {\n\n"
    for function, entries in (
        ("elementNames", catalogue.names()),
        ("namespaceNames", [module.space for module in catalogue.modules]),
    ):
        rows = "".join(f"        {wide(entry)},\n" for entry in entries)
        text += (
            f"std::span<const std::u16string_view> {function}() {{\n"
            f"    static constexpr std::u16string_view all[] = {{\n        u\"\",\n{rows}    }};\n    return all;\n}}\n\n"
        )
    return text + "}  // namespace schema\n"
