// The end of a run as one line of JSON.
#include "Outcome.h"

#include <otx/value/IString.h>
#include <velkotx/DocumentException.h>
#include <velkotx/Exceptions.h>
#include <velkotx/LoopExceptions.h>

#include <nlohmann/json.hpp>

#include <cxxabi.h>

#include <exception>

namespace documents {

namespace {

nlohmann::ordered_json object(const char* outcome, const std::string& what, const std::string& text) {
    return {{"outcome", outcome}, {"what", what}, {"text", text}};
}

std::string line(const char* outcome, const std::string& what, const std::string& text) {
    return object(outcome, what, text).dump();
}

std::string placedLine(const velkotx::DocumentException& failure) {
    nlohmann::ordered_json made = object("unloadable", failure.what(), "");
    if (failure.line() != 0) {
        made["line"] = failure.line();
        made["column"] = failure.column();
    }
    return made.dump();
}

}  // namespace

std::string finishedOutcome(const COtxValue& outParameters) {
    const std::string json = outParameters.ToJSON().String();
    return R"({"outcome":"finished","out":)" + json + '}';
}

std::string unloadableOutcome() {
    try {
        throw;
    } catch (const velkotx::DocumentException& failure) {
        return placedLine(failure);
    } catch (const std::exception& failure) {
        return line("unloadable", failure.what(), "");
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return line("escaped", "no std::exception", "");
    }
}

std::string failedOutcome() {
    try {
        throw;
    } catch (const velkotx::OTXSequenceException& exception) {
        return line("exception", exception.what(), exception.text());
    } catch (const velkotx::OTXRuntimeException& failure) {
        const bool cancelled = std::string(failure.what()) == "cancelled";
        return line(cancelled ? "cancelled" : "failed", failure.what(), failure.text());
    } catch (const velkotx::BreakException& exception) {
        return line("failed", "BreakException", exception.target());
    } catch (const velkotx::ContinueException& exception) {
        return line("failed", "ContinueException", exception.target());
    } catch (const COtxValue& value) {
        return line("escaped", value.what(), "");  // no value may leave a run as such
    } catch (const std::exception& failure) {
        return line("failed", failure.what(), "");
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return line("escaped", "no std::exception", "");
    }
}

}  // namespace documents
