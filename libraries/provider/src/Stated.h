// Calls what others wrote, so that a failure of it has a kind and a text.
#pragma once

#include <cxxabi.h>
#include <otx/value/COtxException.h>

#include <exception>
#include <string>

namespace otx {

// Gives what the work gives. OTX exceptions pass, and so does the forced unwinding of a cancelled thread; everything else
// becomes an exception of the kind, whose text begins with the subject.
//
// A forced unwinding has no object that the reference could be bound to, which the sanitizer takes for a fault.
template <class Work>
__attribute__((no_sanitize("undefined"))) auto stated(OTX::Exceptions_e kind, const std::string& subject,
                                                      const Work& work) -> decltype(work()) {
    try {
        return work();
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (const COtxValue& thrown) {
        if (thrown.Type() == OTX::ValueType::Exception) throw;
        throw COtxException(kind, subject + ": threw a value of type " + thrown.stringType());
    } catch (const std::exception& failure) {
        throw COtxException(kind, subject + ": " + failure.what());
    } catch (...) {
        throw COtxException(kind, subject + ": threw something that is no exception");
    }
}

}  // namespace otx
