// What the host answers to which message.
#include "AnswerRule.h"

#include <otx/value/COtxMap.h>
#include <otx/value/Json.h>

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace documents {

namespace {

constexpr std::string_view arrow = " -> ";

COtxValue jsonIn(std::string_view text) {
    try {
        return OTX::FromJSON(std::string(text));
    } catch (const COtxValue& failure) {
        throw std::runtime_error("no JSON: " + std::string(text) + ": " + failure.what());
    }
}

// Takes the word from the front of the text if it stands there.
bool take(std::string_view word, std::string_view& text) {
    if (!text.starts_with(word)) return false;
    text.remove_prefix(word.size());
    return true;
}

Reply readReply(std::string_view text) {
    Reply reply;
    if (text == "expire") {
        reply.kind = Reply::Kind::expire;
    } else if (take("control ", text)) {
        reply.kind = Reply::Kind::control;
        const auto end = std::min(text.find(' '), text.size());
        reply.command = text.substr(0, end);
        reply.value = end == text.size() ? COtxMap() : jsonIn(text.substr(end));
    } else {
        reply.value = jsonIn(text);
    }
    return reply;
}

}  // namespace

AnswerRule readAnswer(const std::string& line) {
    AnswerRule rule;
    std::string_view text = line;
    rule.inside = take("inside ", text);
    int number = 0;
    if (const auto read = std::from_chars(text.data(), text.data() + text.size(), number); read.ec == std::errc()) {
        rule.nth = number;
        text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    }
    auto end = text.find(arrow);
    if (end == std::string_view::npos) throw std::runtime_error("no answer: " + line);
    rule.pattern = jsonIn(text.substr(0, end));
    while (end != std::string_view::npos) {
        text.remove_prefix(end + arrow.size());
        end = text.find(arrow);
        rule.replies.push_back(readReply(text.substr(0, end)));
    }
    return rule;
}

bool matches(const COtxValue& pattern, const COtxValue& message) {
    if (pattern.Type() != OTX::ValueType::Map || message.Type() != OTX::ValueType::Map) return pattern == message;
    const auto& entries = message.Map();
    return std::all_of(pattern.Map().begin(), pattern.Map().end(), [&](const auto& wanted) {
        const auto found = entries.find(wanted.first);
        return found != entries.end() && matches(wanted.second, found->second);
    });
}

}  // namespace documents
