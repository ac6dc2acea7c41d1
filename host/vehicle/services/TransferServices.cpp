// Download and upload: request, blocks, exit.
#include "vehicle/services/Services.h"

#include "vehicle/Crc32.h"
#include "vehicle/services/AddressAndSize.h"

#include <algorithm>

namespace velkotx::host::services {

namespace {

// The bytes that it takes to write the number.
std::size_t lengthOf(std::uint64_t number) {
    std::size_t length = 1;
    while (number > 0xFF) {
        number >>= 8U;
        ++length;
    }
    return length;
}

ResponseCode checkArea(const Exchange& exchange, const MemoryState* memory, bool upload) {
    if (memory == nullptr || !exchange.state.sessionFits(memory->description->condition))
        return ResponseCode::RequestOutOfRange;
    const auto& formats = memory->description->formats;
    if (std::find(formats.begin(), formats.end(), exchange.request[1]) == formats.end())
        return ResponseCode::RequestOutOfRange;
    if (!exchange.state.securityFits(memory->description->condition))
        return ResponseCode::SecurityAccessDenied;
    if (upload ? !memory->description->upload : !memory->description->download)
        return ResponseCode::UploadDownloadNotAccepted;
    return ResponseCode::Positive;
}

ResponseCode begin(Exchange& exchange, bool upload) {
    AddressAndSize range;
    if (const ResponseCode code = readAddressAndSize(exchange, 2, range); code != ResponseCode::Positive)
        return code;
    if (exchange.request.size() != range.end)
        return ResponseCode::IncorrectLength;
    MemoryState* memory = exchange.state.findMemory(range.address, range.size);
    if (const ResponseCode code = checkArea(exchange, memory, upload); code != ResponseCode::Positive)
        return code;
    if (exchange.state.transfer.active)
        return ResponseCode::ConditionsNotCorrect;
    TransferState transfer;
    transfer.active = true;
    transfer.upload = upload;
    transfer.mayEndEarly = exchange.request[1] != 0;
    transfer.memory = memory;
    transfer.offset = range.address - memory->description->start;
    transfer.remaining = range.size;
    exchange.state.transfer = std::move(transfer);
    exchange.state.downloadCrc = 0;
    const std::size_t length = lengthOf(exchange.unit.transfer.maxBlockLength);
    exchange.put(length << 4U, 1);
    exchange.put(exchange.unit.transfer.maxBlockLength, length);
    return ResponseCode::Positive;
}

ResponseCode store(Exchange& exchange, std::span<const std::uint8_t> data) {
    TransferState& transfer = exchange.state.transfer;
    if (data.empty())
        return ResponseCode::IncorrectLength;
    if (data.size() > transfer.remaining)
        return ResponseCode::TransferDataSuspended;
    const auto target = transfer.memory->bytes.begin() + static_cast<std::ptrdiff_t>(transfer.offset);
    const auto size = static_cast<std::ptrdiff_t>(data.size());
    const auto isWritten = [](std::uint8_t byte) { return byte != 0xFF; };
    if (transfer.memory->description->needsErase && std::any_of(target, target + size, isWritten))
        return ResponseCode::GeneralProgrammingFailure;
    std::copy(data.begin(), data.end(), target);
    exchange.state.downloadCrc = crc32(data, exchange.state.downloadCrc);
    transfer.offset += data.size();
    transfer.remaining -= data.size();
    return ResponseCode::Positive;
}

ResponseCode fetch(Exchange& exchange, std::span<const std::uint8_t> data) {
    TransferState& transfer = exchange.state.transfer;
    if (!data.empty())
        return ResponseCode::IncorrectLength;
    const std::uint64_t longest =
        std::min<std::uint64_t>(exchange.unit.maxResponseLength, exchange.unit.transfer.maxBlockLength);
    const auto size = static_cast<std::size_t>(std::min(transfer.remaining, longest - 2));
    const std::span<const std::uint8_t> bytes(transfer.memory->bytes);
    exchange.put(bytes.subspan(static_cast<std::size_t>(transfer.offset), size));
    transfer.offset += size;
    transfer.remaining -= size;
    return ResponseCode::Positive;
}

// The next block.
ResponseCode transferBlock(Exchange& exchange, std::uint8_t counter) {
    TransferState& transfer = exchange.state.transfer;
    if (transfer.remaining == 0)
        return ResponseCode::RequestSequenceError;
    exchange.put(counter, 1);
    const auto data = exchange.request.subspan(2);
    const ResponseCode code = transfer.upload ? fetch(exchange, data) : store(exchange, data);
    if (code != ResponseCode::Positive)
        return code;
    exchange.processing = exchange.unit.transfer.blockTime;
    transfer.begun = true;
    transfer.lastCounter = counter;
    transfer.lastAnswer = exchange.answer;
    return ResponseCode::Positive;
}

}  // namespace

ResponseCode requestDownload(Exchange& exchange) {
    return begin(exchange, false);
}

ResponseCode requestUpload(Exchange& exchange) {
    return begin(exchange, true);
}

// The counter begins with 1 and goes from 0xFF to 0. A block that comes again is answered again, and nothing more: its
// answer was lost. ISO 14229-1, 14.5.
ResponseCode transferData(Exchange& exchange) {
    TransferState& transfer = exchange.state.transfer;
    if (!transfer.active)
        return ResponseCode::RequestSequenceError;
    if (exchange.request.size() > exchange.unit.transfer.maxBlockLength)
        return ResponseCode::IncorrectLength;
    const std::uint8_t counter = exchange.request[1];
    if (transfer.begun && counter == transfer.lastCounter) {
        exchange.answer = transfer.lastAnswer;
        return ResponseCode::Positive;
    }
    if (counter != static_cast<std::uint8_t>(transfer.lastCounter + 1))
        return ResponseCode::WrongBlockSequenceCounter;
    return transferBlock(exchange, counter);
}

ResponseCode requestTransferExit(Exchange& exchange) {
    TransferState& transfer = exchange.state.transfer;
    if (exchange.request.size() != 1)
        return ResponseCode::IncorrectLength;
    const bool complete = transfer.remaining == 0 || (transfer.mayEndEarly && transfer.begun);
    if (!transfer.active || !complete)
        return ResponseCode::RequestSequenceError;
    transfer = {};
    return ResponseCode::Positive;
}

}  // namespace velkotx::host::services
