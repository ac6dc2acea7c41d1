// What can be flashed: sessions, blocks, segments, with their data. Plain data.
#pragma once

#include <vehicle/ServiceDescription.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velkotx::host {

struct FlashSegmentDescription {
    std::string name;
    std::uint64_t startAddress = 0;
    std::uint64_t uncompressedSize = 0;  // as the file says; else the size of the data
    std::shared_ptr<const Bytes> data;   // as it is downloaded; never empty of an object; its size is the compressed size
    std::string compressionEncryption;   // a method, hexadecimal digits for the data format identifier: "00" for none
};

struct FlashOwnIdentDescription {
    std::string name;
    PlainValue value;
};

struct FlashSecurityDescription {
    std::string method;
    Bytes checksum;
    Bytes signature;
};

struct FlashBlockDescription {
    std::string id;
    std::int64_t index = 0;                // of the logical block; else its place in the session
    std::uint64_t maxBlockLength = 0;      // bytes of one transfer request; 0: not told
    unsigned addressLength = 4;            // bytes of an address in a download request
    unsigned sizeLength = 4;
    std::string compressionEncryption = "00";  // of the segments that tell none
    std::vector<FlashSegmentDescription> segments;
    std::vector<FlashOwnIdentDescription> ownIdents;
    std::vector<FlashSecurityDescription> securities;
};

enum class FlashDirection { Upload, Download };

struct FlashSessionDescription {
    std::string id;
    FlashDirection direction = FlashDirection::Download;
    std::vector<int> audiences;  // 0 SUPPLIER, 1 DEVELOPMENT, 2 MANUFACTURING, 3 AFTERSALES, 4 AFTERMARKET; empty: all
    std::string securityAccessLevel;  // name of a level of the control unit; may be empty
    std::string controlUnit;          // whom it is for; may be empty
    std::vector<FlashBlockDescription> blocks;
};

}  // namespace velkotx::host
