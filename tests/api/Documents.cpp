// Small OTX documents for the tests, put together from texts.
#include "Documents.h"

#include <sstream>

namespace api {

namespace {

std::string wrapped(const std::string& element, const std::string& content) {
    return content.empty() ? "" : '<' + element + '>' + content + "</" + element + '>';
}

std::string loop(const std::string& id, const std::string& configuration, const std::string& body) {
    return "<loop id=\"" + id + "\"><realisation><configuration id=\"" + id + "c\">" + configuration +
           "</configuration><flow>" + body + "</flow></realisation></loop>";
}

}  // namespace

std::string document(const std::string& procedures, const std::string& globals) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<otx xmlns=\"http://iso.org/OTX/1.0.0\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" id=\"o\" "
           "name=\"x\" package=\"test\" version=\"1\" timestamp=\"2026-01-15T10:00:00\">" +
           wrapped("declarations", globals) + wrapped("procedures", procedures) + "</otx>\n";
}

std::string procedure(const std::string& name, const std::string& flow, const std::string& parameters,
                      const std::string& locals) {
    return "<procedure id=\"p-" + name + "\" name=\"" + name + "\"><realisation>" + wrapped("parameters", parameters) +
           wrapped("declarations", locals) + "<flow>" + flow + "</flow></realisation></procedure>";
}

std::string integer(const std::string& element, const std::string& name, int value) {
    return '<' + element + " id=\"d-" + name + "\" name=\"" + name +
           "\"><realisation><dataType xsi:type=\"Integer\"><init value=\"" + std::to_string(value) +
           "\"/></dataType></realisation></" + element + '>';
}

std::string set(const std::string& id, const std::string& variable, int value) {
    return "<action id=\"" + id + "\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" name=\"" +
           variable + "\"/><term xsi:type=\"IntegerLiteral\" value=\"" + std::to_string(value) +
           "\"/></realisation></action>";
}

std::string increment(const std::string& id, const std::string& variable) {
    return "<action id=\"" + id + "\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" name=\"" +
           variable + "\"/><term xsi:type=\"Add\"><numeral xsi:type=\"IntegerValue\" valueOf=\"" + variable +
           "\"/><numeral xsi:type=\"IntegerLiteral\" value=\"1\"/></term></realisation></action>";
}

std::string call(const std::string& id, const std::string& procedureName) {
    return "<action id=\"" + id + "\"><realisation xsi:type=\"ProcedureCall\" procedure=\"" + procedureName +
           "\"/></action>";
}

std::string forEver(const std::string& id, const std::string& body) {
    return loop(id,
                "<realisation xsi:type=\"WhileLoop\"><test xsi:type=\"BooleanLiteral\" value=\"true\"/></realisation>", body);
}

std::string handler(const std::string& id, const std::string& tryFlow, const std::string& catchFlow,
                    const std::string& finallyFlow) {
    return "<handler id=\"" + id + "\"><realisation><try>" + tryFlow + "</try><catch><exception id=\"" + id +
           "e\"><realisation><type xsi:type=\"UserException\"/></realisation></exception><flow>" + catchFlow +
           "</flow></catch>" + wrapped("finally", finallyFlow) + "</realisation></handler>";
}

std::string throwUser(const std::string& id, const std::string& qualifier, const std::string& text) {
    return "<throw id=\"" + id + "\"><realisation xsi:type=\"UserExceptionCreate\"><qualifier xsi:type=\"StringLiteral\" "
           "value=\"" + qualifier + "\"/><text xsi:type=\"StringLiteral\" value=\"" + text + "\"/></realisation></throw>";
}

std::shared_ptr<velkotx::Sequencer> load(const std::string& text) {
    std::istringstream stream(text);
    return velkotx::CreateSequencer(stream);
}

}  // namespace api
