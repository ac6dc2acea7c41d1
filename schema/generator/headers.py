"""The generated headers: forward declarations, classes, names."""

from cpp import OPERATIONS, holder, identifier, in_namespace, member_class, operation

NOTE = "// Generated from the catalogue. {}\n#pragma once\n\n"


# Objects lie in the arena of their document.
MEMORY = (
    "    static void* operator new(std::size_t size) { return schema::Arena::allocate(size); }\n"
    "    static void operator delete(void* object) { schema::Arena::release(object); }"
)


def forward(catalogue, module):
    lines = []
    for t in module.types:
        lines.append(f"class {t.data_class};")
        if t.custom:
            lines.append(f"template <typename Base>\nclass {t.name}_impl;\nusing {t.name} = {t.name}_impl<{t.data_class}>;")
    return NOTE.format(f"The classes of module {module.name}, declared.") + in_namespace(module, "\n".join(lines) + "\n")


def classes(catalogue, module):
    needed = {catalogue.types[m.type].module.file for t in module.types for m in t.members if m.type in catalogue.types}
    includes = [f"<schema/{file}.h>" for file in catalogue.module_dependencies(module)]
    includes += [f"<schema/{file}-forward.h>" for file in sorted(needed | {module.file, "core"})]
    includes += [
        "<schema/Arena.h>",
        "<schema/Enumeration.h>",
        "<schema/InternedString.h>",
        "<schema/Runtime.h>",
        "<schema/Table.h>",
    ]
    text = NOTE.format(f"The classes of module {module.name}.")
    text += "".join(f"#include {name}\n" for name in includes) + "\n#include <memory>\n#include <string>\n#include <vector>\n\n"
    text += "class COtxValue;\n\nnamespace otxns {\nclass OtxContext;\nclass Name;\nstruct CallArguments;\n}  // namespace otxns\n\n"
    body = "\n".join(one_class(catalogue, t) for t in catalogue.base_first(module.types))
    return text + in_namespace(module, body)


def one_class(catalogue, t):
    if t.kind == "enumeration":
        return enumeration(t)
    if t.kind == "string":
        return string_class(t)
    return data_class(catalogue, t) + (behaviour(catalogue, t) if t.custom else "")


def simple_constructors(name):
    return MEMORY + "\n" + (
        f"    explicit {name}(const std::string& text, const schema::DomElement* element = nullptr,\n"
        f"        schema::flags f = 0, schema::container* owner = nullptr);\n"
        f"    explicit {name}(const schema::DomElement& element, schema::flags f = 0, schema::container* owner = nullptr);\n"
        f"    {name}(const {name}& other, schema::flags f = 0, schema::container* owner = nullptr);\n"
        f"    {name}& operator=(const {name}&) = default;\n"
        f"    {name}* _clone(schema::flags f = 0, schema::container* owner = nullptr) const override;\n"
    )


def enumeration(t):
    return f"class {t.name} : public schema::Enumeration {{\npublic:\n{simple_constructors(t.name)}    static Literals literals();\n}};\n"


def string_class(t):
    base = "schema::InternedString" if t.interned else "schema::string"
    return f"class {t.name} : public {base} {{\npublic:\n    {t.name}() = default;\n{simple_constructors(t.name)}}};\n"


def base_class(catalogue, t):
    return t.base if t.base else "schema::type"


def data_class(catalogue, t):
    name = t.data_class
    lines = [f"class {name} : public {base_class(catalogue, t)} {{", "public:"]
    if not t.base:
        lines.append(MEMORY)
    lines += [
        f"    explicit {name}(const schema::DomElement& element, schema::flags f = 0, schema::container* owner = nullptr);",
        f"    explicit {name}(schema::InputStream& stream, schema::flags f = 0, schema::container* owner = nullptr);",
        f"    {name}(const {name}& other, schema::flags f = 0, schema::container* owner = nullptr);",
        f"    {name}& operator=(const {name}&) = delete;",
        f"    ~{name}() override;",
    ]
    clone = f"_clone(schema::flags f = 0, schema::container* owner = nullptr) const override"
    if t.abstract or t.custom:
        lines.append(f"    {name}* {clone} = 0;")
    else:
        lines.append(f"    {name}* {clone};")
    lines.append("    static const schema::ClassTable& table();")
    if t.members:
        lines.append("")
    for m in t.members:
        lines.append(f"    {accessor(m)}")
    if t.ordered:
        lines.append("    // The elements in document order: kind from 1, position within the kind's sequence.")
        lines.append("    const std::vector<schema::content_order>& order() const { return order_; }")
    if t.members:
        lines += ["", "private:"]
    for m in t.members:
        lines.append(f"    {holder(m)} {m.spelled}_member;")
    if t.ordered:
        lines.append("    std::vector<schema::content_order> order_;")
    return "\n".join(lines) + "\n};\n"


def accessor(m):
    name = identifier(m.spelled)
    if m.cardinality in ("one", "required", "default"):
        return f"const {member_class(m)}& {name}() const {{ return {m.spelled}_member.get(); }}"
    return f"const {holder(m)}& {name}() const {{ return {m.spelled}_member; }}"


def behaviour(catalogue, t):
    name = f"{t.name}_impl"
    lines = [
        "\ntemplate <typename Base>",
        f"class {name} : public Base {{",
        "public:",
        "    using Base::Base;",
        f"    {name}(const {name}& other, schema::flags f = 0, schema::container* owner = nullptr) : Base(other, f, owner) {{}}",
    ]
    clone = f"    {name}* _clone(schema::flags f = 0, schema::container* owner = nullptr) const override"
    lines.append(clone + (" = 0;" if t.abstract else f" {{ return new {name}(*this, f, owner); }}"))
    specialisations = []
    for word in t.operations:
        (result, parameters), overrides = operation(catalogue, t, word)
        lines.append(f"    {'' if overrides else 'virtual '}{result} {word}({parameters}) const{' override' if overrides else ''};")
        specialisations.append(f"template <>\n{result} {name}<{t.data_class}>::{word}({parameters}) const;")
    return "\n".join(lines) + "\n};\n" + "".join(s + "\n" for s in specialisations)


def names(catalogue):
    text = NOTE.format("The element and attribute names and the namespaces, by number.")
    text += "#include <schema/Table.h>\n\nnamespace schema::names {\n\n"
    for number, name in enumerate(catalogue.names(), 1):
        text += f"inline constexpr NameId {identifier(name)} = {number};\n"
    text += "\n}  // namespace schema::names\n\nnamespace schema::spaces {\n\n"
    for number, module in enumerate(catalogue.modules, 1):
        text += f"inline constexpr NamespaceId {module.name} = {number};\n"
    text += "\n}  // namespace schema::spaces\n\nnamespace schema::groups {\n\n"
    for number, head in enumerate(catalogue.groups(), 1):
        text += f"inline constexpr std::uint8_t {head} = {number};\n"
    return text + "\n}  // namespace schema::groups\n"
