// Reads curves, and the sources of what a control unit sends.
#include "vehicle/ReadParts.h"

#include "vehicle/DataSource.h"

#include <algorithm>

namespace velkotx::host {

namespace {

void readPoint(const JsonPlace& place, Curve& target) {
    const auto pair = place.items();
    Curve::Point point{};
    if (pair.size() != 2) {
        if (place.is(JsonNode::Kind::List))
            place.mistake("expected a time in milliseconds and a value");
        return;
    }
    if (!readJson(pair[0], point.time) || !readJson(pair[1], point.value))
        return;
    if (!target.points.empty() && target.points.back().time >= point.time)
        pair[0].mistake("expected a later time than that of the point before");
    target.points.push_back(point);
}

void readPoints(const JsonPlace& place, Curve& target) {
    const auto points = place.items();
    if (points.empty() && place.is(JsonNode::Kind::List))
        place.mistake("expected at least one point");
    for (const JsonPlace& point : points)
        readPoint(point, target);
}

bool readLength(ObjectReader& in, std::size_t limit, std::size_t& target) {
    const auto place = in.find("length");
    if (!place)
        return true;
    std::uint64_t value = 0;
    if (!readUnsigned(*place, limit, value) || value == 0) {
        if (value == 0 && place->is(JsonNode::Kind::Integer))
            place->mistake("expected at least one byte");
        return false;
    }
    target = static_cast<std::size_t>(value);
    return true;
}

Bytes readAscii(ObjectReader& in) {
    std::string text;
    in.required("ascii", text);
    std::size_t length = text.size();
    if (readLength(in, 4095, length) && length < text.size())
        in.place().mistake("the text is longer than its length");
    Bytes bytes(text.begin(), text.end());
    if (in.place().take(length))
        bytes.resize(std::max(length, text.size()), 0);
    return bytes;
}

std::string misfit(std::size_t length) {
    return "doesn't fit into " + std::to_string(length) + (length == 1 ? " byte" : " bytes");
}

CounterSource readCounter(ObjectReader& in) {
    CounterSource source;
    in.required("counter", source.start);
    in.optional("step", source.step);
    readLength(in, 8, source.length);
    if (source.length < 8 && source.start >> (8 * source.length) != 0)
        in.find("counter")->mistake(misfit(source.length));
    return source;
}

CurveSource readCurve(ObjectReader& in, const char* key) {
    CurveSource source;
    in.required(key, source.curve);
    readLength(in, 8, source.length);
    in.optional("signed", source.isSigned);
    readScaling(in, source.scaling);
    return source;
}

// A curve may leave what the bytes can carry; a number that does so is a mistake.
CurveSource readFixed(ObjectReader& in) {
    const std::size_t mistakes = in.place().context().mistakes.size();
    CurveSource source = readCurve(in, "number");
    if (in.place().context().mistakes.size() != mistakes)
        return source;
    for (const Curve::Point& point : source.curve.points)
        if (!canCarry(source, point.value))
            in.find("number")->mistake(misfit(source.length));
    return source;
}

constexpr const char* kinds[] = {"ascii", "counter", "curve", "number"};

// False, and a mistake, for two sources in one.
bool isOne(ObjectReader& in) {
    std::vector<std::string> found;
    for (const char* const kind : kinds)
        if (in.find(kind))
            found.emplace_back(kind);
    if (found.size() > 1)
        in.place().mistake("\"" + found[0] + "\" and \"" + found[1] + "\" are two sources: put them into a list");
    return found.size() < 2;
}

}  // namespace

bool readJson(const JsonPlace& place, Curve& target) {
    target = Curve{};
    switch (place.node().kind) {
    case JsonNode::Kind::Integer:
    case JsonNode::Kind::Number:
        target.points.push_back({Clock::Time{0}, place.node().number});
        return true;
    case JsonNode::Kind::List:
        readPoints(place, target);
        return true;
    case JsonNode::Kind::Object: {
        ObjectReader in(place);
        if (const auto points = in.require("points"))
            readPoints(*points, target);
        in.optional("steps", target.steps);
        in.optional("repeats", target.repeats);
        in.finish();
        return true;
    }
    default:
        place.mistake("expected a number, a list of [milliseconds, value], or an object with \"points\"");
        return false;
    }
}

void readScaling(ObjectReader& in, Scaling& target) {
    in.optional("factor", target.factor);
    in.optional("offset", target.offset);
    if (target.factor == 0)
        in.find("factor")->mistake("a factor of 0 loses every value");
}

bool readJson(const JsonPlace& place, DataSource& target) {
    if (place.is(JsonNode::Kind::Text)) {
        Bytes bytes;
        if (!readJson(place, bytes))
            return false;
        target = std::move(bytes);
        return true;
    }
    ObjectReader in(place);
    if (!isOne(in))
        return false;
    if (in.has("ascii"))
        target = readAscii(in);
    else if (in.has("counter"))
        target = readCounter(in);
    else if (in.has("curve"))
        target = readCurve(in, "curve");
    else if (in.has("number"))
        target = readFixed(in);
    else if (place.is(JsonNode::Kind::Object))
        place.mistake("expected one of the keys \"ascii\", \"number\", \"counter\", \"curve\"");
    in.finish();
    return place.is(JsonNode::Kind::Object);
}

void readSources(ObjectReader& in, const char* key, std::vector<DataSource>& target) {
    const auto place = in.find(key);
    if (!place)
        return;
    target.clear();
    if (place->is(JsonNode::Kind::List))
        readJson(*place, target);
    else
        readJson(*place, target.emplace_back());
}

}  // namespace velkotx::host
