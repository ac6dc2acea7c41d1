// Flash data for one session, as a sequence sees it.
#pragma once

#include <vehicle/FlashDescription.h>

#include <otx/diag/IFlashSession.h>
#include <otx/value/COtxValue.h>
#include <otx/value/COtxValueBehaviour.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velkotx::host {

// Behind values of type FlashSession. Immutable; any thread. Numbers count from 0.
//
// Block -1 stands for all blocks of the session, one after the other: their segments, own idents and securities count
// through. Segment -1 stands for all segments of the block: sizes are sums, the data is one piece, and what can only be
// that of one is the first one's. Numbers that aren't there throw kind 26.
class VehicleFlashSession final : public COtxValueBehaviour, public OTX::IFlashSession {
public:
    explicit VehicleFlashSession(std::shared_ptr<const FlashSessionDescription> description);

    OTX::IFlashSession& FlashSession() override { return *this; }
    COtxValue ToString() override { return GetSessionID(); }
    bool operator==(const COtxValueBehaviour* other) const override;
    bool IsLessThan(const COtxValue& right) const override;

    COtxValue GetSessionID() override;
    std::int64_t GetNumberOfBlocks() override;
    std::int64_t GetNumberOfSegments(std::int64_t block) override;
    std::int64_t GetStartAddress(std::int64_t block, std::int64_t segment) override;
    std::int64_t GetUncompressedSize(std::int64_t block, std::int64_t segment) override;
    // A ByteField: so many bytes from the position on, fewer at the end of the data, none behind its last byte; size -1 is
    // all that is left. Throws kind 26 for a position beyond the data and for other negative numbers.
    COtxValue GetDownloadData(std::int64_t block, std::int64_t segment, std::int64_t size,
                              std::int64_t position) override;
    std::int64_t GetNumberOfOwnIdents(std::int64_t block) override;
    COtxValue GetOwnIdent(std::int64_t block, std::int64_t number) override;
    std::int64_t GetNumberOfSecurities(std::int64_t block) override;
    // A String.
    COtxValue GetSecurityMethod(std::int64_t block, std::int64_t security) override;
    COtxValue GetLogicalBlockID(std::int64_t block) override;
    std::int64_t GetCompressedSize(std::int64_t block, std::int64_t segment) override;
    COtxValue GetLogicalBlockIndex(std::int64_t block) override;
    // A String: the name of a level.
    COtxValue GetSecurityAccessLevel() override;
    // Integers.
    COtxValue GetMaxNumberOfBlockLength(std::int64_t block) override;
    // A String: that of the block for segment -1.
    COtxValue GetCompressionEncryption(std::int64_t block, std::int64_t segment) override;
    COtxValue GetFlashDataAddressLength(std::int64_t block) override;
    COtxValue GetFlashDataSizeLength(std::int64_t block) override;
    // A ByteField.
    COtxValue GetChecksum(std::int64_t block, std::int64_t security) override;

private:
    using Segments = std::vector<const FlashSegmentDescription*>;

    const FlashBlockDescription& blockOf(std::int64_t block) const;
    template <class Part>
    std::vector<const Part*> partsOf(std::int64_t block, std::vector<Part> FlashBlockDescription::*parts) const;
    template <class Part>
    const Part& partOf(std::int64_t block, std::vector<Part> FlashBlockDescription::*parts, std::int64_t number,
                       const char* what) const;
    Segments segmentsOf(std::int64_t block, std::int64_t segment) const;

    const std::shared_ptr<const FlashSessionDescription> description_;
};

}  // namespace velkotx::host
