// A document with its procedures' flows inside lanes.
#include "LaneForm.h"

#include <string_view>
#include <vector>

namespace documents {

namespace {

// One piece of markup: where it stands, and what it opens or closes.
struct Tag {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string_view prefix;  // with its colon
    std::string_view name;
    bool opens = false;
    bool closes = false;
};

// The next tag from a place on; comments, instructions and marked sections are passed over.
std::optional<Tag> nextTag(std::string_view text, std::size_t from) {
    static constexpr std::string_view passed[][2] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ">"}};
    for (std::size_t at = text.find('<', from); at != std::string_view::npos; at = text.find('<', from)) {
        bool isTag = true;
        for (const auto& [begin, end] : passed) {
            if (text.substr(at, begin.size()) != begin) continue;
            from = text.find(end, at + begin.size());
            if (from == std::string_view::npos) return std::nullopt;
            isTag = false;
            break;
        }
        if (!isTag) continue;
        Tag tag;
        tag.begin = at;
        char quote = 0;
        for (tag.end = at + 1; tag.end < text.size() && (quote != 0 || text[tag.end] != '>'); ++tag.end) {
            const char c = text[tag.end];
            if (quote != 0)
                quote = c == quote ? '\0' : quote;
            else if (c == '"' || c == '\'')
                quote = c;
        }
        if (tag.end == text.size()) return std::nullopt;
        ++tag.end;
        tag.closes = text[at + 1] == '/' || text[tag.end - 2] == '/';
        tag.opens = text[at + 1] != '/';
        const std::size_t begin = at + (tag.opens ? 1 : 2);
        const std::string_view name = text.substr(begin, text.find_first_of(" \t\r\n/>", begin) - begin);
        const std::size_t colon = name.find(':');
        tag.prefix = colon == std::string_view::npos ? "" : name.substr(0, colon + 1);
        tag.name = colon == std::string_view::npos ? name : name.substr(colon + 1);
        return tag;
    }
    return std::nullopt;
}

std::string nameIn(std::string_view tag) {
    for (std::size_t at = tag.find("name="); at != std::string_view::npos; at = tag.find("name=", at + 1)) {
        if (at == 0 || std::string_view(" \t\r\n").find(tag[at - 1]) == std::string_view::npos) continue;
        const char quote = tag[at + 5];
        return std::string(tag.substr(at + 6, tag.find(quote, at + 6) - at - 6));
    }
    return "";
}

}  // namespace

std::optional<std::string> insideLanes(const std::string& document, const std::set<std::string>& procedures) {
    const std::string_view text = document;
    std::string result;
    std::size_t copied = 0;
    std::vector<std::string_view> open;
    std::size_t wrappedDepth = 0;  // of the flow that is being wrapped
    bool isWanted = false;
    bool wrapped = false;
    std::size_t at = 0;
    while (const auto tag = nextTag(text, at)) {
        at = tag->end;
        const std::string prefix(tag->prefix);
        if (tag->opens) {
            open.push_back(tag->name);
            if (tag->name == "procedure" && open.size() == 3)
                isWanted = procedures.count(nameIn(text.substr(tag->begin, tag->end - tag->begin))) != 0;
            // otx/procedures/procedure/realisation/flow
            if (isWanted && tag->name == "flow" && open.size() == 5 && !tag->closes) {
                wrappedDepth = open.size();
                result += text.substr(copied, tag->end - copied);
                copied = tag->end;
                result += "<" + prefix + "parallel id=\"lane-mode\"><" + prefix + "realisation><" + prefix + "lane>";
                wrapped = true;
            }
        }
        if (tag->closes && !open.empty()) {
            if (open.size() == wrappedDepth) {
                result += text.substr(copied, tag->begin - copied);
                copied = tag->begin;
                result += "</" + prefix + "lane></" + prefix + "realisation></" + prefix + "parallel>" +
                          // A node behind it, at whose checkpoint a cancelled run ends.
                          "<" + prefix + "group id=\"lane-mode-end\"/>";
                wrappedDepth = 0;
            }
            open.pop_back();
        }
    }
    if (!wrapped) return std::nullopt;
    return result + std::string(text.substr(copied));
}

}  // namespace documents
