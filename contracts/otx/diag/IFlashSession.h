// The description of flash data for one session.
#pragma once

#include <otx/Export.h>

#include <cstdint>

class COtxValue;

namespace OTX {

// Behind COtxValue::FlashSession(). Implemented by the host, which must bear calls from several threads at once. -1 for a
// block or segment means that none was named. The order of the operations is part of the contract.
class OTX_API IFlashSession {
public:
    virtual COtxValue GetSessionID() = 0;
    virtual std::int64_t GetNumberOfBlocks() = 0;
    virtual std::int64_t GetNumberOfSegments(std::int64_t block) = 0;
    virtual std::int64_t GetStartAddress(std::int64_t block, std::int64_t segment) = 0;
    // In bytes, as are all sizes.
    virtual std::int64_t GetUncompressedSize(std::int64_t block, std::int64_t segment) = 0;
    virtual COtxValue GetDownloadData(std::int64_t block, std::int64_t segment, std::int64_t size,
                                      std::int64_t position) = 0;
    virtual std::int64_t GetNumberOfOwnIdents(std::int64_t block) = 0;
    virtual COtxValue GetOwnIdent(std::int64_t block, std::int64_t number) = 0;
    virtual std::int64_t GetNumberOfSecurities(std::int64_t block) = 0;
    virtual COtxValue GetSecurityMethod(std::int64_t block, std::int64_t security) = 0;
    virtual COtxValue GetLogicalBlockID(std::int64_t block) = 0;
    virtual std::int64_t GetCompressedSize(std::int64_t block, std::int64_t segment) = 0;
    virtual COtxValue GetLogicalBlockIndex(std::int64_t block) = 0;
    virtual COtxValue GetSecurityAccessLevel() = 0;
    virtual COtxValue GetMaxNumberOfBlockLength(std::int64_t block) = 0;
    virtual COtxValue GetCompressionEncryption(std::int64_t block, std::int64_t segment) = 0;
    virtual COtxValue GetFlashDataAddressLength(std::int64_t block) = 0;
    virtual COtxValue GetFlashDataSizeLength(std::int64_t block) = 0;
    virtual COtxValue GetChecksum(std::int64_t block, std::int64_t security) = 0;

protected:
    ~IFlashSession() = default;
};

}  // namespace OTX
