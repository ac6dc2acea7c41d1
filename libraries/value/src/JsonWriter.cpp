// JSON text from values.
#include "JsonWriter.h"

#include <algorithm>
#include <cmath>
#include <ostream>

#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Json.h>

#include "ContainerBehaviour.h"
#include "Descent.h"
#include "JsonTags.h"
#include "Numbers.h"
#include "Refusal.h"
#include "TypeNames.h"
#include "Utf8.h"

namespace otx {

namespace {

using Native = COtxValueBehaviour::Native;
using Entries = std::map<COtxValue, COtxValue>;

enum class Flags { Heed, Ignore };

// How a map is written: as an object, as an array of pairs, or as pairs under the tag "Map".
enum class MapForm { Object, Pairs, TaggedPairs };

MapForm formOfMap(const Entries& entries, bool otxForm) {
    const bool hasTextKeys = std::all_of(entries.begin(), entries.end(), [](const auto& entry) {
        return entry.first.Type() == OTX::ValueType::String;
    });
    if (!otxForm) return hasTextKeys ? MapForm::Object : MapForm::Pairs;
    const bool readsAsType = hasTextKeys && entries.size() == 1 && jsonTag(entries.begin()->first.String()).has_value();
    return hasTextKeys && !readsAsType ? MapForm::Object : MapForm::TaggedPairs;
}

class JsonWriter {
public:
    JsonWriter(std::string& out, Flags flags) : out_(out), flags_(flags) {}

    void write(COtxValueBehaviour* value, bool otxForm) {
        if (value == nullptr) {
            out_ += "null";
            return;
        }
        if (writeScalar(*value)) return;
        const Descent descent;
        otxForm = otxForm || (flags_ == Flags::Heed && value->OtxJSON());
        if (value->NativeKind() == Native::Map) {
            writeMap(static_cast<MapBehaviour*>(value)->entries, otxForm);
        } else if (value->NativeKind() == Native::List) {
            writeArray(static_cast<ListBehaviour*>(value)->items, otxForm);
        } else {
            Value2IdMap conversion(otxForm);
            writeObject(value->ToJSONObject(conversion), otxForm);
        }
    }

private:
    void write(const COtxValue& value, bool otxForm) { write(value.GetBehaviourReference().get(), otxForm); }

    // What JSON carries natively, but for maps, which may have to be escaped.
    bool writeNative(COtxValueBehaviour& value, bool otxForm) {
        if (value.NativeKind() != Native::List) return writeScalar(value);
        writeArray(static_cast<ListBehaviour&>(value).items, otxForm);
        return true;
    }

    bool writeScalar(COtxValueBehaviour& value) {
        switch (value.NativeKind()) {
            case Native::Boolean: out_ += value.Bool() ? "true" : "false"; return true;
            case Native::Integer: out_ += std::to_string(value.Int()); return true;
            case Native::Float:
                if (!std::isfinite(value.Float())) return false;
                out_ += floatText(value.Float());
                return true;
            case Native::String: out_ += quoted(value.IString()); return true;
            default: return false;
        }
    }

    // The answer of ToJSONObject: its outermost level stands as it is.
    void writeObject(const COtxValue& value, bool otxForm) {
        COtxValueBehaviour* const behaviour = value.GetBehaviourReference().get();
        if (behaviour == nullptr) {
            out_ += "null";
        } else if (behaviour->NativeKind() == Native::Map && formOfMap(value.Map(), false) == MapForm::Object) {
            writeEntries(value.Map(), otxForm);
        } else if (!writeNative(*behaviour, otxForm)) {
            refuse("ToJSONObject", value.Type());
        }
    }

    void writeMap(const Entries& entries, bool otxForm) {
        switch (formOfMap(entries, otxForm)) {
            case MapForm::Object: writeEntries(entries, otxForm); break;
            case MapForm::Pairs: writePairs(entries, otxForm); break;
            case MapForm::TaggedPairs:
                out_ += "{\"Map\":";
                writePairs(entries, otxForm);
                out_ += '}';
                break;
        }
    }

    void writeEntries(const Entries& entries, bool otxForm) {
        out_ += '{';
        bool first = true;
        for (const auto& [key, value] : entries) {
            if (!first) out_ += ',';
            first = false;
            out_ += quoted(key.String());
            out_ += ':';
            write(value, otxForm);
        }
        out_ += '}';
    }

    void writePairs(const Entries& entries, bool otxForm) {
        out_ += '[';
        bool first = true;
        for (const auto& [key, value] : entries) {
            out_ += first ? "[" : ",[";
            first = false;
            write(key, otxForm);
            out_ += ',';
            write(value, otxForm);
            out_ += ']';
        }
        out_ += ']';
    }

    void writeArray(const std::vector<COtxValue>& items, bool otxForm) {
        out_ += '[';
        bool first = true;
        for (const COtxValue& item : items) {
            if (!first) out_ += ',';
            first = false;
            write(item, otxForm);
        }
        out_ += ']';
    }

    std::string& out_;
    const Flags flags_;
};

}  // namespace

std::string jsonText(COtxValueBehaviour& value) {
    std::string text;
    JsonWriter(text, Flags::Heed).write(&value, false);
    return text;
}

std::string plainJsonText(COtxValueBehaviour& value) {
    std::string text;
    JsonWriter(text, Flags::Ignore).write(&value, false);
    return text;
}

void streamJson(std::ostream& out, const COtxValueBehaviour& value) {
    std::string text;
    try {
        // Writing changes nothing; ToJSONObject is not const for the sake of the contract.
        text = plainJsonText(const_cast<COtxValueBehaviour&>(value));
    } catch (const COtxValue&) {
        text = typeMark(value.Type());
    }
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

COtxValue taggedJson(OTX::ValueType type, const COtxValue& content) {
    return COtxMap(std::map<COtxValue, COtxValue>{{COtxString(OTX::typeName(type)), content}});
}

COtxValue jsonOfMap(const Entries& entries, bool otxForm) {
    const MapForm form = formOfMap(entries, otxForm);
    if (form == MapForm::Object) return COtxMap(entries);
    std::vector<COtxValue> pairs;
    for (const auto& [key, value] : entries) pairs.push_back(COtxList(std::vector<COtxValue>{key, value}));
    COtxList list(std::move(pairs));
    return form == MapForm::Pairs ? COtxValue(list) : taggedJson(OTX::ValueType::Map, list);
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    result.reserve(text.size() + 2);
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.front());
        if (byte >= 0x80) {
            appendUtf8(result, takeCharacter(text).value_or(replacementCharacter));
            continue;
        }
        text.remove_prefix(1);
        switch (byte) {
            case '"': result += "\\\""; break;
            case '\\': result += "\\\\"; break;
            case '\b': result += "\\b"; break;
            case '\f': result += "\\f"; break;
            case '\n': result += "\\n"; break;
            case '\r': result += "\\r"; break;
            case '\t': result += "\\t"; break;
            default:
                if (byte < 0x20) {
                    result += "\\u00";
                    result += "0123456789abcdef"[byte >> 4];
                    result += "0123456789abcdef"[byte & 15];
                } else {
                    result += static_cast<char>(byte);
                }
        }
    }
    return result += '"';
}

}  // namespace otx
