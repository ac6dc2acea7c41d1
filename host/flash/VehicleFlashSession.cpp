// Flash data for one session, as a sequence sees it.
#include "flash/VehicleFlashSession.h"

#include "diag/CodedValue.h"
#include "diag/DiagFailure.h"

#include <otx/value/COtxByteField.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace velkotx::host {

namespace {

using OTX::Exceptions_e;

constexpr std::int64_t all = -1;

COtxValue integer(std::uint64_t number) { return COtxInt(static_cast<long long>(number)); }

std::int64_t compressedSize(const FlashSegmentDescription& segment) {
    return static_cast<std::int64_t>(segment.data->size());
}

template <class Part>
void requireNumber(const std::vector<Part>& parts, std::int64_t number, const char* what) {
    if (number >= 0 && static_cast<std::size_t>(number) < parts.size())
        return;
    const std::string count = parts.empty()       ? "none at all"
                              : parts.size() == 1 ? "only number 0"
                                                  : "only 0 to " + std::to_string(parts.size() - 1);
    fail(Exceptions_e::FlashException, "there is no " + std::string(what) + " number " + std::to_string(number) +
                                           " in the flash data, " + count);
}

}  // namespace

VehicleFlashSession::VehicleFlashSession(std::shared_ptr<const FlashSessionDescription> description)
    : COtxValueBehaviour(OTX::ValueType::FlashSession), description_(std::move(description)) {}

bool VehicleFlashSession::operator==(const COtxValueBehaviour* other) const {
    const auto* const session = dynamic_cast<const VehicleFlashSession*>(other);
    return session != nullptr && session->description_ == description_;
}

bool VehicleFlashSession::IsLessThan(const COtxValue& right) const {
    const auto* const session = dynamic_cast<const VehicleFlashSession*>(right.GetBehaviourReference().get());
    return session != nullptr ? std::less<>()(description_, session->description_)
                              : COtxValueBehaviour::IsLessThan(right);
}

// What all blocks can't answer is answered by the first.
const FlashBlockDescription& VehicleFlashSession::blockOf(std::int64_t block) const {
    const std::int64_t number = block == all ? 0 : block;
    requireNumber(description_->blocks, number, "block");
    return description_->blocks[static_cast<std::size_t>(number)];
}

template <class Part>
std::vector<const Part*> VehicleFlashSession::partsOf(std::int64_t block,
                                                      std::vector<Part> FlashBlockDescription::*parts) const {
    std::vector<const Part*> found;
    const auto add = [&](const FlashBlockDescription& one) {
        for (const Part& part : one.*parts)
            found.push_back(&part);
    };
    if (block == all)
        std::for_each(description_->blocks.begin(), description_->blocks.end(), add);
    else
        add(blockOf(block));
    return found;
}

template <class Part>
const Part& VehicleFlashSession::partOf(std::int64_t block, std::vector<Part> FlashBlockDescription::*parts,
                                        std::int64_t number, const char* what) const {
    const auto found = partsOf(block, parts);
    requireNumber(found, number, what);
    return *found[static_cast<std::size_t>(number)];
}

VehicleFlashSession::Segments VehicleFlashSession::segmentsOf(std::int64_t block, std::int64_t segment) const {
    if (segment == all)
        return partsOf(block, &FlashBlockDescription::segments);
    return {&partOf(block, &FlashBlockDescription::segments, segment, "segment")};
}

COtxValue VehicleFlashSession::GetSessionID() { return COtxString(description_->id); }

std::int64_t VehicleFlashSession::GetNumberOfBlocks() { return static_cast<std::int64_t>(description_->blocks.size()); }

std::int64_t VehicleFlashSession::GetNumberOfSegments(std::int64_t block) {
    return static_cast<std::int64_t>(partsOf(block, &FlashBlockDescription::segments).size());
}

std::int64_t VehicleFlashSession::GetStartAddress(std::int64_t block, std::int64_t segment) {
    const Segments segments = segmentsOf(block, segment);
    requireNumber(segments, 0, "segment");
    return static_cast<std::int64_t>(segments.front()->startAddress);
}

std::int64_t VehicleFlashSession::GetUncompressedSize(std::int64_t block, std::int64_t segment) {
    std::uint64_t size = 0;
    for (const FlashSegmentDescription* const one : segmentsOf(block, segment))
        size += one->uncompressedSize;
    return static_cast<std::int64_t>(size);
}

std::int64_t VehicleFlashSession::GetCompressedSize(std::int64_t block, std::int64_t segment) {
    std::int64_t size = 0;
    for (const FlashSegmentDescription* const one : segmentsOf(block, segment))
        size += compressedSize(*one);
    return size;
}

COtxValue VehicleFlashSession::GetDownloadData(std::int64_t block, std::int64_t segment, std::int64_t size,
                                               std::int64_t position) {
    if (position < 0)
        fail(Exceptions_e::FlashException, "position " + std::to_string(position) + " in flash data is negative");
    if (size < all)
        fail(Exceptions_e::FlashException,
             "size " + std::to_string(size) + " of flash data is negative; -1 is all that is left");
    std::int64_t left = size == all ? std::numeric_limits<std::int64_t>::max() : size;
    std::vector<unsigned char> bytes;
    for (const FlashSegmentDescription* const one : segmentsOf(block, segment)) {
        const std::int64_t here = compressedSize(*one);
        if (position > here) {
            position -= here;
            continue;
        }
        const std::int64_t count = std::min(left, here - position);
        const auto begin = one->data->begin() + position;
        bytes.insert(bytes.end(), begin, begin + count);
        left -= count;
        position = 0;
    }
    if (position > 0)
        fail(Exceptions_e::FlashException,
             "the position lies " + std::to_string(position) + " bytes behind the end of the flash data");
    return COtxByteField(std::move(bytes));
}

std::int64_t VehicleFlashSession::GetNumberOfOwnIdents(std::int64_t block) {
    return static_cast<std::int64_t>(partsOf(block, &FlashBlockDescription::ownIdents).size());
}

COtxValue VehicleFlashSession::GetOwnIdent(std::int64_t block, std::int64_t number) {
    return toValue(partOf(block, &FlashBlockDescription::ownIdents, number, "own ident").value);
}

std::int64_t VehicleFlashSession::GetNumberOfSecurities(std::int64_t block) {
    return static_cast<std::int64_t>(partsOf(block, &FlashBlockDescription::securities).size());
}

COtxValue VehicleFlashSession::GetSecurityMethod(std::int64_t block, std::int64_t security) {
    return COtxString(partOf(block, &FlashBlockDescription::securities, security, "security").method);
}

COtxValue VehicleFlashSession::GetChecksum(std::int64_t block, std::int64_t security) {
    return COtxByteField(partOf(block, &FlashBlockDescription::securities, security, "security").checksum);
}

COtxValue VehicleFlashSession::GetLogicalBlockID(std::int64_t block) { return COtxString(blockOf(block).id); }
COtxValue VehicleFlashSession::GetLogicalBlockIndex(std::int64_t block) { return COtxInt(blockOf(block).index); }
COtxValue VehicleFlashSession::GetSecurityAccessLevel() { return COtxString(description_->securityAccessLevel); }

COtxValue VehicleFlashSession::GetMaxNumberOfBlockLength(std::int64_t block) {
    return integer(blockOf(block).maxBlockLength);
}

COtxValue VehicleFlashSession::GetCompressionEncryption(std::int64_t block, std::int64_t segment) {
    if (segment == all)
        return COtxString(blockOf(block).compressionEncryption);
    const std::string& own =
        partOf(block, &FlashBlockDescription::segments, segment, "segment").compressionEncryption;
    return COtxString(own.empty() ? blockOf(block).compressionEncryption : own);
}

COtxValue VehicleFlashSession::GetFlashDataAddressLength(std::int64_t block) {
    return integer(blockOf(block).addressLength);
}

COtxValue VehicleFlashSession::GetFlashDataSizeLength(std::int64_t block) { return integer(blockOf(block).sizeLength); }

}  // namespace velkotx::host
