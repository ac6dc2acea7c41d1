// How a run ended.
#include "program/Outcome.h"

#include "program/ExitStatus.h"
#include "program/JsonText.h"

#include <velkotx/LoopExceptions.h>
#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <exception>
#include <string_view>

namespace velkotx::host {

namespace {

Outcome failure(Outcome::Kind kind, std::string what, std::string text = {}) {
    return {kind, COtxValue(), std::move(what), std::move(text)};
}

// "cancelled" is the one word that tells a cancelled run from other failures of the machinery.
Outcome runtimeFailure(const OTXRuntimeException& exception) {
    const bool cancelled = std::string_view(exception.what()) == "cancelled";
    return failure(cancelled ? Outcome::Kind::cancelled : Outcome::Kind::failed, exception.what(), exception.text());
}

}  // namespace

const char* nameOf(Outcome::Kind kind) {
    switch (kind) {
        case Outcome::Kind::finished: return "finished";
        case Outcome::Kind::exception: return "exception";
        case Outcome::Kind::failed: return "failed";
        case Outcome::Kind::cancelled: return "cancelled";
        case Outcome::Kind::unloadable: return "unloadable";
    }
    return "";
}

int exitStatus(Outcome::Kind kind) {
    switch (kind) {
        case Outcome::Kind::finished: return ExitStatus::finished;
        case Outcome::Kind::exception: return ExitStatus::exception;
        case Outcome::Kind::failed: return ExitStatus::failed;
        case Outcome::Kind::cancelled: return ExitStatus::cancelled;
        case Outcome::Kind::unloadable: return ExitStatus::badInput;
    }
    return ExitStatus::failed;
}

std::string toJson(const Outcome& outcome) {
    JsonObject object;
    object.add("outcome", jsonText(nameOf(outcome.kind)));
    if (outcome.kind == Outcome::Kind::finished) {
        object.add("out", jsonText(outcome.out));
    } else {
        object.add("what", jsonText(outcome.what));
        object.add("text", jsonText(outcome.text));
        if (outcome.line != 0)
            object.add("line", std::to_string(outcome.line)).add("column", std::to_string(outcome.column));
    }
    return object.text();
}

Outcome runProcedure(Sequencer& sequencer, const std::string& procedure, const COtxValue& arguments,
                     bool startStopped) {
    try {
        Outcome outcome;
        outcome.out = sequencer.Run(procedure, arguments, startStopped);
        return outcome;
    } catch (const OTXSequenceException& exception) {
        return failure(Outcome::Kind::exception, exception.what(), exception.text());
    } catch (const OTXRuntimeException& exception) {
        return runtimeFailure(exception);
    } catch (const BreakException& exception) {
        return failure(Outcome::Kind::failed, "BreakException", exception.target());
    } catch (const ContinueException& exception) {
        return failure(Outcome::Kind::failed, "ContinueException", exception.target());
    } catch (const std::exception& exception) {
        return failure(Outcome::Kind::failed, exception.what());
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return failure(Outcome::Kind::failed, "unknown exception");
    }
}

}  // namespace velkotx::host
