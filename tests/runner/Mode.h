// The ways in which the documents are run.
#pragma once

#include <optional>
#include <string>

namespace documents {

enum class Mode { xml, compiled, stepped, lane };

inline std::optional<Mode> modeNamed(const std::string& name) {
    if (name == "xml") return Mode::xml;
    if (name == "compiled") return Mode::compiled;
    if (name == "stepped") return Mode::stepped;
    if (name == "lane") return Mode::lane;
    return std::nullopt;
}

inline const char* nameOf(Mode mode) {
    switch (mode) {
        case Mode::compiled: return "compiled";
        case Mode::stepped: return "stepped";
        case Mode::lane: return "lane";
        case Mode::xml: break;
    }
    return "xml";
}

}  // namespace documents
