// The services of a simulated control unit, as ISO 14229-1 names them. Each relies on what its line in the table promises:
// the minimum length, and a subfunction that is supported.
#pragma once

#include <vehicle/Exchange.h>

namespace velkotx::host::services {

ResponseCode diagnosticSessionControl(Exchange& exchange);
ResponseCode ecuReset(Exchange& exchange);
ResponseCode testerPresent(Exchange& exchange);
ResponseCode communicationControl(Exchange& exchange);
ResponseCode controlDtcSetting(Exchange& exchange);
ResponseCode securityAccess(Exchange& exchange);
ResponseCode readDataByIdentifier(Exchange& exchange);
ResponseCode writeDataByIdentifier(Exchange& exchange);
ResponseCode inputOutputControl(Exchange& exchange);
ResponseCode readDtcInformation(Exchange& exchange);
ResponseCode clearDiagnosticInformation(Exchange& exchange);
ResponseCode routineControl(Exchange& exchange);
ResponseCode readMemoryByAddress(Exchange& exchange);
ResponseCode writeMemoryByAddress(Exchange& exchange);
ResponseCode requestDownload(Exchange& exchange);
ResponseCode requestUpload(Exchange& exchange);
ResponseCode transferData(Exchange& exchange);
ResponseCode requestTransferExit(Exchange& exchange);

}  // namespace velkotx::host::services
