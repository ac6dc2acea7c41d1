// A document's description as text.
#include "program/DescriptionText.h"

#include "program/JsonText.h"
#include "program/Terminal.h"
#include "text/OneLine.h"

#include <velkotx/DocumentInfo.h>

#include <vector>

namespace velkotx::host {

namespace {

const char* wordFor(ParameterDirection direction) {
    switch (direction) {
        case ParameterDirection::in: return "in";
        case ParameterDirection::inout: return "inout";
        case ParameterDirection::out: return "out";
    }
    return "";
}

const char* wordFor(GlobalKind kind) {
    switch (kind) {
        case GlobalKind::constant: return "constant";
        case GlobalKind::variable: return "variable";
        case GlobalKind::context: return "context";
    }
    return "";
}

// Pads on the right, counting characters, not bytes of UTF-8.
std::string padded(std::string text, std::size_t width) {
    std::size_t length = 0;
    for (const char byte : text)
        length += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U ? 1 : 0;
    if (length < width)
        text.append(width - length, ' ');
    return text;
}

// "  -- what the author wrote", or nothing.
std::string remark(const std::string& specification) {
    return specification.empty() ? "" : "  -- " + oneLine(specification);
}

std::string nameOrNone(const std::string& name) {
    return name.empty() ? "(no name)" : oneLine(name);
}

// ": List<Float>", or nothing for a declaration without a type.
std::string typeMark(const std::string& type) {
    return type.empty() ? "" : ": " + oneLine(type);
}

void describe(const ParameterInfo& parameter, std::string& text) {
    text += "    ";
    text += padded(wordFor(parameter.direction), 6);
    text += nameOrNone(parameter.name) + typeMark(parameter.type);
    text += remark(parameter.specification);
    text += '\n';
}

void describe(const ProcedureInfo& procedure, const Paint& paint, std::string& text) {
    text += "  ";
    text += paint.name(nameOrNone(procedure.name));
    if (!procedure.visibility.empty())
        text += ' ' + oneLine(procedure.visibility);
    if (!procedure.runnable)
        text += " (can't be run)";
    text += remark(procedure.specification);
    text += '\n';
    for (const ParameterInfo& parameter : procedure.parameters)
        describe(parameter, text);
}

void describe(const GlobalInfo& global, const Paint& paint, std::string& text) {
    text += "  ";
    text += padded(wordFor(global.kind), 9);
    text += paint.name(nameOrNone(global.name)) + typeMark(global.type);
    if (!global.visibility.empty())
        text += ' ' + oneLine(global.visibility);
    text += remark(global.specification);
    text += '\n';
}

template <class Items, class Describe>
std::vector<std::string> each(const Items& items, const Describe& describeItem) {
    std::vector<std::string> texts;
    for (const auto& item : items)
        texts.push_back(describeItem(item));
    return texts;
}

std::string parameterAsJson(const ParameterInfo& parameter) {
    return JsonObject()
        .add("name", jsonText(parameter.name))
        .add("direction", jsonText(wordFor(parameter.direction)))
        .add("type", jsonText(parameter.type))
        .add("specification", jsonText(parameter.specification))
        .text();
}

std::string procedureAsJson(const ProcedureInfo& procedure) {
    return JsonObject()
        .add("name", jsonText(procedure.name))
        .add("visibility", jsonText(procedure.visibility))
        .add("specification", jsonText(procedure.specification))
        .add("runnable", jsonText(procedure.runnable))
        .add("parameters", jsonArray(each(procedure.parameters, parameterAsJson)))
        .text();
}

std::string globalAsJson(const GlobalInfo& global) {
    return JsonObject()
        .add("name", jsonText(global.name))
        .add("kind", jsonText(wordFor(global.kind)))
        .add("type", jsonText(global.type))
        .add("visibility", jsonText(global.visibility))
        .add("specification", jsonText(global.specification))
        .text();
}

}  // namespace

std::string describeAsText(const DocumentInfo& document, const Paint& paint) {
    std::string text = "name     " + paint.name(nameOrNone(document.name)) + remark(document.specification) + '\n';
    text += "package  " + oneLine(document.package) + '\n';
    text += "version  " + oneLine(document.version) + '\n';
    if (!document.procedures.empty())
        text += "procedures\n";
    for (const ProcedureInfo& procedure : document.procedures)
        describe(procedure, paint, text);
    if (!document.globals.empty())
        text += "globals\n";
    for (const GlobalInfo& global : document.globals)
        describe(global, paint, text);
    return text;
}

std::string describeAsJson(const DocumentInfo& document) {
    return JsonObject()
        .add("name", jsonText(document.name))
        .add("package", jsonText(document.package))
        .add("version", jsonText(document.version))
        .add("specification", jsonText(document.specification))
        .add("procedures", jsonArray(each(document.procedures, procedureAsJson)))
        .add("globals", jsonArray(each(document.globals, globalAsJson)))
        .text();
}

}  // namespace velkotx::host
