// What the bombs are thrown at.
#include "Bomb.h"

#include <objects/SilentEventSink.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxValue.h>
#include <otx/value/IException.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>
#include <velkotx/Sequencer.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <sstream>

namespace bombs {

namespace {

// What the work gives, or what it threw in words.
template <class Work>
std::string inWords(const Work& work) {
    try {
        return work();
    } catch (const velkotx::BoundaryException& failure) {
        return std::string(failure.what()) + ": " + failure.text();
    } catch (const COtxValue& exception) {
        const OTX::IException& thrown = exception.Exception();
        return "exception " + thrown.Name() + ": " + thrown.Text();
    } catch (const std::exception& failure) {
        return failure.what();
    }
}

std::string loadAndRun(const std::string& text) {
    std::istringstream stream(text);
    const auto sequencer = velkotx::CreateSequencer(stream);
    const auto host = std::make_shared<velkotx::host::SilentEventSink>();
    sequencer->SetHost(host);
    return "finished " + std::string(sequencer->Run("main", COtxValue(), false).ToJSON().String());
}

}  // namespace

std::string outcomeOfDocument(const std::string& text) {
    return inWords([&] { return loadAndRun(text); });
}

std::string outcomeOfJson(const std::string& text) {
    return inWords([&] {
        const COtxValue value = OTX::FromJSON(text);
        const std::string written = value.ToJSON().String();
        return std::string(value == OTX::FromJSON(written) ? "read" : "another value when it is read again");
    });
}

std::string outcomeOfMatch(const std::string& input) {
    const std::size_t end = input.find('\n');
    return inWords([&] {
        const COtxValue answer = COtxString(input.substr(end + 1)).String().Match(COtxString(input.substr(0, end)));
        return "answer " + std::string(answer.ToString().String());
    });
}

std::string outcomeOfWords(const std::string& compiled) {
    constexpr std::size_t words = 200;
    std::string bytes = compiled;
    for (std::size_t place = 0; place < std::min(words, compiled.size() / sizeof(std::uint32_t)); ++place) {
        char* const word = bytes.data() + place * sizeof(std::uint32_t);
        for (const std::uint32_t value : {0xFFFFFFFFU, 0x7FFFFFFFU, 0x80000000U, 0x01000000U, 0x00FFFFFFU}) {
            std::memcpy(word, &value, sizeof value);
            const std::string outcome = inWords([&] {
                std::istringstream stream(bytes);
                velkotx::CreateSequencer(stream);
                return std::string("VelkOTX CDR Parsing Exception: ");
            });
            if (!outcome.starts_with("VelkOTX CDR Parsing Exception: ")) return outcome;
        }
        std::memcpy(word, compiled.data() + place * sizeof(std::uint32_t), sizeof(std::uint32_t));
    }
    return "held";
}

}  // namespace bombs
