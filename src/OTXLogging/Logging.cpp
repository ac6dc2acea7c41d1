// The log of sequences: its levels and lines.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <otx/log/CLog.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxLogLevel.h>
#include <schema/Logging.h>

#include <array>
#include <cstddef>
#include <string>

namespace Logging {

namespace {

constexpr Hvt::TLogSubSys sequenceLog = 2;

// The level of the log library for each COtxLogLevel. "OFF" writes as a failure does and silences nothing; this is meant.
constexpr std::array<Hvt::TLogLevel, 8> libraryLevels{7, 5, 4, 3, 1, 0, 0, 0};

// A variable of another type may hold any number.
Hvt::TLogLevel libraryLevel(const COtxValue& level) {
    const long long number = level.Int();
    if (number < 0 || static_cast<unsigned long long>(number) >= libraryLevels.size())
        throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "Unknown log level " + std::to_string(number));
    return libraryLevels[static_cast<std::size_t>(number)];
}

COtxValue levelOf(int number) { return COtxLogLevel(static_cast<COtxLogLevel::LogLevel>(number)); }

}  // namespace

OTX_TERM(LogLevelLiteral, levelOf(value().number()))
// A severity has the number of the log level of its name.
OTX_TERM(SeverityLevelLiteral, levelOf(value().number() + 1))
OTX_TERM(LogLevelValue, otxns::valueOfVariable(*this, context))
OTX_TERM(SeverityLevelValue, otxns::valueOfVariable(*this, context))
OTX_TERM(LogLevel, otxns::initialValue(*this, context, [] { return COtxLogLevel(COtxLogLevel::All); }))
OTX_TERM(SeverityLevel, otxns::initialValue(*this, context, [] { return COtxLogLevel(COtxLogLevel::Trace); }))

// The level of the log is in the host's hands: the action does nothing, not even evaluating its term; this is meant.
OTX_ACTION(SetLogLevel, static_cast<void>(0))

// The line has no prefix of thread, place and function, unlike those of the trace; this is meant.
template <>
void WriteLog_impl<WriteLog_base>::exec(otxns::OtxContext& context) const {
    const COtxValue severity = otxns::evaluate(level(), context);
    if (target().present()) {
        const COtxValue refused = otxns::evaluate(target().get(), context);
        throw COtxException(OTX::Exceptions_e::InvalidReferenceException, refused.String());
    }
    const COtxValue text = otxns::evaluate(message(), context);
    const Hvt::TLogLevel lineLevel = libraryLevel(severity);
    if (lineLevel > Hvt::CLog::ReportingLevel(sequenceLog)) return;
    Hvt::CLog line(sequenceLog);
    std::ostream& out = line.Get(lineLevel, 0);
    otxns::lookAt(text, context, [&] { out << text; return true; });
}

}  // namespace Logging
