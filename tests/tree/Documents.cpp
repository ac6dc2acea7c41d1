// Makes, loads, saves the documents of the tests.
#include "Documents.h"

#include <schema/CompiledForm.h>
#include <schema/Document.h>

#include <pthread.h>

#include <sstream>
#include <stdexcept>
#include <vector>

namespace tree_tests {

std::string document(const std::string& flow, const std::string& beforeFlow) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<otx xmlns="http://iso.org/OTX/1.0.0" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" id="o" name="doc"
     package="test" version="1" timestamp="2026-01-15T10:00:00">
<procedures><procedure id="p" name="main"><realisation>)" +
           beforeFlow + "<flow>" + flow + "</flow></realisation></procedure></procedures></otx>";
}

std::string nestedGroups(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += "<group id=\"g\"><realisation>";
    for (std::size_t i = 0; i < count; ++i) text += "</realisation></group>";
    return document(text);
}

std::unique_ptr<otxns::Otx> load(const std::string& text) {
    std::istringstream stream(text);
    return otxns::otx(stream, schema::flags::dont_validate);
}

std::string failure(const std::string& text) {
    try {
        load(text);
        return {};
    } catch (const schema::Exception& exception) {
        std::ostringstream out;
        out << exception;
        return out.str();
    }
}

const otxns::Flow& flowOf(const otxns::Otx& document) {
    return document.procedures()->procedure().front().realisation()->flow();
}

const otxns::ActionRealisation& realisationOf(const otxns::Node& action) {
    return dynamic_cast<const otxns::Action&>(action).realisation().front();
}

std::string compiled(const otxns::Otx& document) {
    std::ostringstream out;
    otxns::writeCompiled(document, out);
    return out.str();
}

std::unique_ptr<otxns::Otx> fromCompiled(const std::string& bytes) {
    // A copy of its own size: what reads behind the end is seen by the address sanitizer.
    const std::vector<char> file(bytes.begin(), bytes.end());
    return otxns::readCompiled(file);
}

namespace {

void* call(void* work) {
    (*static_cast<const std::function<void()>*>(work))();
    return nullptr;
}

}  // namespace

void onThread(std::size_t stackSize, const std::function<void()>& work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t thread;
    if (pthread_create(&thread, &attributes, call, const_cast<std::function<void()>*>(&work)) != 0)
        throw std::runtime_error("no thread");
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

}  // namespace tree_tests
