// Reads the memory of a control unit, and how it is transferred.
#include "vehicle/ReadParts.h"

namespace velkotx::host {

namespace {

constexpr std::uint64_t largestMemory = 64U << 20U;

}  // namespace

bool readJson(const JsonPlace& place, MemoryDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    in.required("start", target.start);
    in.required("size", target.size);
    in.optional("fill", target.fill);
    if (const auto content = in.find("content"))
        readData(*content, target.content);
    in.optional("readable", target.readable);
    in.optional("writable", target.writable);
    in.optional("upload", target.upload);
    in.optional("download", target.download);
    in.optional("needsErase", target.needsErase);
    if (in.has("formats"))
        in.required("formats", target.formats);
    readCondition(in, target.condition);
    if (target.size == 0 || target.size > largestMemory || target.start > UINT64_MAX - target.size) {
        place.mistake("expected a size from 1 byte to 64 MB, inside the addresses of 64 bits");
        target.size = 0;
    } else if (target.content.size() > target.size) {
        place.mistake("the content is larger than the memory");
    }
    if (!place.take(target.size))
        target.size = 0;
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, TransferDescription& target) {
    ObjectReader in(place);
    in.optional("maxBlockLength", target.maxBlockLength);
    in.optional("blockTime", target.blockTime);
    if (target.maxBlockLength < 3 || target.maxBlockLength > 0xFFFFFF)
        place.mistake("maxBlockLength lies between 3 and 0xFFFFFF: it counts the service identifier and the counter");
    in.finish();
    return true;
}

}  // namespace velkotx::host
