// Reads flash sessions with their data.
#include "vehicle/ReadParts.h"

namespace velkotx::host {

namespace {

bool isMethod(const std::string& text) {
    return text.size() == 2 && text.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos;
}

void readMethod(ObjectReader& in, std::string& target) {
    const auto place = in.find("compressionEncryption");
    if (place && readJson(*place, target) && !isMethod(target))
        place->mistake("expected a data format identifier, two hexadecimal digits");
}

bool readJson(const JsonPlace& place, FlashSegmentDescription& target) {
    ObjectReader in(place);
    in.optional("name", target.name);
    in.required("startAddress", target.startAddress);
    Bytes data;
    if (const auto member = in.require("data"))
        readData(*member, data);
    target.uncompressedSize = data.size();
    in.optional("uncompressedSize", target.uncompressedSize);
    target.data = std::make_shared<const Bytes>(std::move(data));
    readMethod(in, target.compressionEncryption);
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, FlashOwnIdentDescription& target) {
    ObjectReader in(place);
    in.optional("name", target.name);
    in.required("value", target.value);
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, FlashSecurityDescription& target) {
    ObjectReader in(place);
    in.required("method", target.method);
    in.optional("checksum", target.checksum);
    in.optional("signature", target.signature);
    in.finish();
    return true;
}

template <typename Item>
void readList(ObjectReader& in, const char* key, std::vector<Item>& target) {
    if (const auto list = in.find(key))
        for (const JsonPlace& item : list->items())
            readJson(item, target.emplace_back());
}

void readNumberLength(ObjectReader& in, const char* key, unsigned& target) {
    const auto place = in.find(key);
    if (place && readJson(*place, target) && (target == 0 || target > 8))
        place->mistake("expected 1 to 8 bytes");
}

bool fitsBytes(std::uint64_t number, unsigned bytes) {
    return bytes == 0 || bytes >= 8 || number >> (8 * bytes) == 0;
}

// What a download request couldn't carry.
void checkSegments(ObjectReader& in, const FlashBlockDescription& block) {
    const auto list = in.find("segments");
    if (!list || !list->is(JsonNode::Kind::List))
        return;
    const auto places = list->items();
    const auto inBytes = [](unsigned bytes) { return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes"); };
    for (std::size_t index = 0; index < block.segments.size(); ++index) {
        if (!fitsBytes(block.segments[index].startAddress, block.addressLength))
            places[index].mistake("the startAddress doesn't fit into an addressLength of " + inBytes(block.addressLength));
        if (!fitsBytes(block.segments[index].uncompressedSize, block.sizeLength))
            places[index].mistake("the size doesn't fit into a sizeLength of " + inBytes(block.sizeLength));
    }
}

// The index that it brings is its place in the session, which holds unless the file tells another.
bool readBlock(const JsonPlace& place, FlashBlockDescription& target) {
    ObjectReader in(place);
    in.required("id", target.id);
    std::uint32_t index = static_cast<std::uint32_t>(target.index);
    in.optional("index", index);
    target.index = index;
    in.optional("maxBlockLength", target.maxBlockLength);
    readNumberLength(in, "addressLength", target.addressLength);
    readNumberLength(in, "sizeLength", target.sizeLength);
    readMethod(in, target.compressionEncryption);
    in.require("segments");
    readList(in, "segments", target.segments);
    checkSegments(in, target);
    readList(in, "ownIdents", target.ownIdents);
    readList(in, "securities", target.securities);
    for (FlashSegmentDescription& segment : target.segments)
        if (segment.compressionEncryption.empty())
            segment.compressionEncryption = target.compressionEncryption;
    in.finish();
    return true;
}

void readBlocks(ObjectReader& in, std::vector<FlashBlockDescription>& target) {
    const auto list = in.require("blocks");
    if (!list)
        return;
    for (const JsonPlace& item : list->items()) {
        target.emplace_back().index = static_cast<std::int64_t>(target.size()) - 1;
        readBlock(item, target.back());
    }
    if (list->is(JsonNode::Kind::List))
        expectUnique(*list, target, [](const auto& block) { return block.id; }, "id");
}

void readAudiences(ObjectReader& in, std::vector<int>& target) {
    const auto list = in.find("audiences");
    if (!list)
        return;
    for (const JsonPlace& item : list->items()) {
        int audience = 0;
        if (readWord<int>(item,
                          {{"SUPPLIER", 0}, {"DEVELOPMENT", 1}, {"MANUFACTURING", 2}, {"AFTERSALES", 3}, {"AFTERMARKET", 4}},
                          audience))
            target.push_back(audience);
    }
}

}  // namespace

bool readJson(const JsonPlace& place, FlashSessionDescription& target) {
    ObjectReader in(place);
    in.required("id", target.id);
    if (const auto direction = in.find("direction"))
        readWord<FlashDirection>(*direction, {{"UPLOAD", FlashDirection::Upload}, {"DOWNLOAD", FlashDirection::Download}},
                                 target.direction);
    readAudiences(in, target.audiences);
    in.optional("securityAccessLevel", target.securityAccessLevel);
    in.optional("controlUnit", target.controlUnit);
    readBlocks(in, target.blocks);
    in.finish();
    return true;
}

}  // namespace velkotx::host
