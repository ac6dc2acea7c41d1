// The host's flash data.
#include "RecordingFlash.h"

#include "Answers.h"

#include <otx/value/COtxList.h>

#include <memory>
#include <vector>

namespace documents {

std::int64_t RecordingFlashSession::number(const char* operation, std::int64_t first) const {
    call(operation, first);
    return 100 * first;
}

std::int64_t RecordingFlashSession::number(const char* operation, std::int64_t first, std::int64_t second) const {
    call(operation, first, second);
    return 100 * first + second;
}

template <typename... Arguments>
COtxValue RecordingFlashSession::name(const char* operation, Arguments... arguments) const {
    call(operation, arguments...);
    return COtxString(operation);
}

COtxValue RecordingFlashSession::GetSessionID() { return name("GetSessionID"); }

std::int64_t RecordingFlashSession::GetNumberOfBlocks() {
    call("GetNumberOfBlocks");
    return 2;
}

std::int64_t RecordingFlashSession::GetNumberOfSegments(std::int64_t block) { return number("GetNumberOfSegments", block); }

std::int64_t RecordingFlashSession::GetStartAddress(std::int64_t block, std::int64_t segment) {
    return number("GetStartAddress", block, segment);
}

std::int64_t RecordingFlashSession::GetUncompressedSize(std::int64_t block, std::int64_t segment) {
    return number("GetUncompressedSize", block, segment);
}

COtxValue RecordingFlashSession::GetDownloadData(std::int64_t block, std::int64_t segment, std::int64_t size,
                                                 std::int64_t position) {
    return name("GetDownloadData", block, segment, size, position);
}

std::int64_t RecordingFlashSession::GetNumberOfOwnIdents(std::int64_t block) {
    return number("GetNumberOfOwnIdents", block);
}

COtxValue RecordingFlashSession::GetOwnIdent(std::int64_t block, std::int64_t number) {
    return name("GetOwnIdent", block, number);
}

std::int64_t RecordingFlashSession::GetNumberOfSecurities(std::int64_t block) {
    return number("GetNumberOfSecurities", block);
}

COtxValue RecordingFlashSession::GetSecurityMethod(std::int64_t block, std::int64_t security) {
    return name("GetSecurityMethod", block, security);
}

COtxValue RecordingFlashSession::GetLogicalBlockID(std::int64_t block) { return name("GetLogicalBlockID", block); }

std::int64_t RecordingFlashSession::GetCompressedSize(std::int64_t block, std::int64_t segment) {
    return number("GetCompressedSize", block, segment);
}

COtxValue RecordingFlashSession::GetLogicalBlockIndex(std::int64_t block) { return name("GetLogicalBlockIndex", block); }

COtxValue RecordingFlashSession::GetSecurityAccessLevel() { return name("GetSecurityAccessLevel"); }

COtxValue RecordingFlashSession::GetMaxNumberOfBlockLength(std::int64_t block) {
    return name("GetMaxNumberOfBlockLength", block);
}

COtxValue RecordingFlashSession::GetCompressionEncryption(std::int64_t block, std::int64_t segment) {
    return name("GetCompressionEncryption", block, segment);
}

COtxValue RecordingFlashSession::GetFlashDataAddressLength(std::int64_t block) {
    return name("GetFlashDataAddressLength", block);
}

COtxValue RecordingFlashSession::GetFlashDataSizeLength(std::int64_t block) { return name("GetFlashDataSizeLength", block); }

COtxValue RecordingFlashSession::GetChecksum(std::int64_t block, std::int64_t security) {
    return name("GetChecksum", block, security);
}

COtxValue RecordingFlash::GetListOfValidFlashSessions(const std::string& direction, int audience) {
    recorder_.call("Flash", "GetListOfValidFlashSessions", {asArgument(direction), asArgument(audience)});
    return COtxList(std::vector<COtxValue>{COtxString(direction + " 1"), COtxString(direction + " 2")});
}

COtxValue RecordingFlash::GetFlashSession(COtxValue sessionId) {
    recorder_.call("Flash", "GetFlashSession", {sessionId});
    if (isMissing(sessionId)) return nothing();
    return COtxValue(std::make_shared<RecordingFlashSession>(recorder_, textOf(sessionId)));
}

}  // namespace documents
