// What a call of the host threw, in words.
#include "Refusal.h"

#include <otx/value/COtxValue.h>
#include <velkotx/Exceptions.h>

#include <cxxabi.h>

#include <exception>
#include <stdexcept>
#include <system_error>

namespace documents {

std::string refusal() {
    try {
        throw;
    } catch (const velkotx::OTXSequenceException& exception) {
        return std::string("OTXSequenceException: ") + exception.what() + ": " + exception.text();
    } catch (const velkotx::OTXRuntimeException& failure) {
        return std::string("OTXRuntimeException: ") + failure.what();
    } catch (const COtxValue& value) {
        return std::string("COtxValue: ") + value.what();
    } catch (const std::system_error& failure) {
        return "std::system_error: " + failure.code().message();
    } catch (const std::out_of_range& failure) {
        return std::string("std::out_of_range: ") + failure.what();
    } catch (const std::runtime_error& failure) {
        return std::string("std::runtime_error: ") + failure.what();
    } catch (const std::exception& failure) {
        return std::string("std::exception: ") + failure.what();
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return "no std::exception";
    }
}

}  // namespace documents
