// The terms of the clock and of times as texts.
#include <OTXCoreTerms/Asking.h>
#include <OTXDateTimeTerms/DateFormatter.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <schema/DateTime.h>

#include <chrono>
#include <ctime>
#include <ratio>
#include <string>

namespace DateTime {

namespace {

constexpr const char* patternOfDates = "yyyy-MM-dd'T'HH:mm:ss'.'SSSZ";
constexpr const char* patternOfDurations = "'P'yyyy-MM-dd'T'HH:mm:ss'.'SSS";

using BreakDown = std::tm*(const std::time_t*, std::tm*);

// A pattern that is left out or empty is the default one.
template <class Optional>
std::string patternIn(const Optional& format, otxns::OtxContext& context, const char* standard) {
    // Up to the first NUL.
    std::string pattern = format.present() ? otxns::evaluate(format.get(), context).String().c_str() : "";
    return pattern.empty() ? standard : pattern;
}

// The pattern isn't evaluated for a negative time.
template <class Optional>
COtxValue formatted(const otxns::Term& time, const Optional& format, otxns::OtxContext& context, const char* standard,
                    BreakDown breakDown, bool isDuration) {
    const long long milliseconds = otxns::evaluate(time, context).Int();
    if (milliseconds < 0) throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "Time is negative");
    const std::string pattern = patternIn(format, context, standard);
    const std::time_t seconds = milliseconds / 1000;
    Moment moment;
    moment.milliseconds = static_cast<int>(milliseconds % 1000);
    moment.isDuration = isDuration;
    // It can't fail: no number of milliseconds has a year beyond 32 bits.
    breakDown(&seconds, &moment.fields);
    return COtxString(formatMoment(pattern, moment));
}

COtxValue now() {
    using Ticks = std::chrono::duration<long long, std::ratio<1, 10'000'000>>;
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return COtxInt(std::chrono::duration_cast<Ticks>(sinceEpoch).count() / 10'000);
}

}  // namespace

OTX_TERM(GetTimestamp, now())
OTX_TERM(FormatDate, formatted(timestamp(), format(), context, patternOfDates, ::localtime_r, false))
OTX_TERM(FormatDuration, formatted(duration(), format(), context, patternOfDurations, ::gmtime_r, true))

}  // namespace DateTime
