// The host's flash data.
#pragma once

#include "Handle.h"

#include <otx/diag/IFlashSession.h>
#include <otx/host/FlashHost.h>

namespace documents {

// Labelled with its identifier. Every number that it answers is 100 times the first argument plus the second, every other
// answer the name of the operation.
class RecordingFlashSession : public Handle, public OTX::IFlashSession {
public:
    RecordingFlashSession(CallRecorder& recorder, std::string label)
        : Handle(recorder, std::move(label), OTX::ValueType::FlashSession) {}

    OTX::IFlashSession& FlashSession() override { return *this; }

    COtxValue GetSessionID() override;
    std::int64_t GetNumberOfBlocks() override;
    std::int64_t GetNumberOfSegments(std::int64_t block) override;
    std::int64_t GetStartAddress(std::int64_t block, std::int64_t segment) override;
    std::int64_t GetUncompressedSize(std::int64_t block, std::int64_t segment) override;
    COtxValue GetDownloadData(std::int64_t block, std::int64_t segment, std::int64_t size, std::int64_t position) override;
    std::int64_t GetNumberOfOwnIdents(std::int64_t block) override;
    COtxValue GetOwnIdent(std::int64_t block, std::int64_t number) override;
    std::int64_t GetNumberOfSecurities(std::int64_t block) override;
    COtxValue GetSecurityMethod(std::int64_t block, std::int64_t security) override;
    COtxValue GetLogicalBlockID(std::int64_t block) override;
    std::int64_t GetCompressedSize(std::int64_t block, std::int64_t segment) override;
    COtxValue GetLogicalBlockIndex(std::int64_t block) override;
    COtxValue GetSecurityAccessLevel() override;
    COtxValue GetMaxNumberOfBlockLength(std::int64_t block) override;
    COtxValue GetCompressionEncryption(std::int64_t block, std::int64_t segment) override;
    COtxValue GetFlashDataAddressLength(std::int64_t block) override;
    COtxValue GetFlashDataSizeLength(std::int64_t block) override;
    COtxValue GetChecksum(std::int64_t block, std::int64_t security) override;

private:
    std::int64_t number(const char* operation, std::int64_t first) const;
    std::int64_t number(const char* operation, std::int64_t first, std::int64_t second) const;
    template <typename... Arguments>
    COtxValue name(const char* operation, Arguments... arguments) const;
};

class RecordingFlash : public FlashHost {
public:
    explicit RecordingFlash(CallRecorder& recorder) : recorder_(recorder) {}

    COtxValue GetListOfValidFlashSessions(const std::string& direction, int audience) override;
    COtxValue GetFlashSession(COtxValue sessionId) override;

private:
    CallRecorder& recorder_;
};

}  // namespace documents
