// A described vehicle for the tests of the objects above the channel.
#pragma once

#include "DiagFakes.h"

#include "diag/VehicleDiagCom.h"

#include <vehicle/VehicleDescription.h>

#include <otx/diag/IComChannel.h>
#include <otx/diag/IDiagService.h>
#include <otx/diag/IMessage.h>
#include <otx/diag/IParameter.h>
#include <otx/diag/IParameterContainer.h>
#include <otx/diag/IRequest.h>
#include <otx/diag/IResponse.h>
#include <otx/diag/IResult.h>
#include <otx/event/Events.h>
#include <otx/value/Values.h>

#include <memory>

namespace velkotx::host::testing {

inline ParameterDescription parameterOf(const std::string& name, std::size_t bits, Coding coding = Coding::Unsigned) {
    ParameterDescription parameter;
    parameter.name = name;
    parameter.coding = coding;
    parameter.bitLength = bits;
    return parameter;
}

inline ServiceDescription serviceOf(const std::string& name, const std::string& semantic, Bytes request, Bytes response,
                                    std::vector<ParameterDescription> requestParameters = {},
                                    std::vector<ParameterDescription> responseParameters = {}) {
    ServiceDescription service;
    service.name = name;
    service.semantic = semantic;
    service.request = {name, std::move(request), std::move(requestParameters)};
    service.positive.push_back({name + "Positive", std::move(response), std::move(responseParameters)});
    service.negative.push_back({"Negative", {0x7F}, {parameterOf("service", 8), parameterOf("code", 8)}});
    return service;
}

inline std::shared_ptr<VehicleDescription> makeVehicle() {
    auto vehicle = std::make_shared<VehicleDescription>();
    vehicle->comParameters = {{"CP_P2Max", std::int64_t{60000}, {}}};
    vehicle->groups.push_back({"All", 0x7DF});
    ControlUnitDescription engine;
    engine.name = "Engine";
    engine.groups = {"All"};
    auto vin = parameterOf("vin", 136, Coding::Ascii);
    vin.extent = Extent::Rest;
    vin.semantic = "IDENT";
    engine.services.push_back(serviceOf("ReadVin", "IDENTIFICATION", {0x22, 0xF1, 0x90}, {0x62, 0xF1, 0x90}, {}, {vin}));
    engine.services.push_back(serviceOf("StartSession", "SESSION", {0x10}, {0x50}, {parameterOf("session", 8)},
                                        {parameterOf("session", 8)}));
    engine.services.push_back(serviceOf("ReadData", "DATA", {0x22}, {0x62}, {parameterOf("id", 16)},
                                        {parameterOf("id", 16), parameterOf("value", 8)}));
    engine.services.push_back(serviceOf("ReadMore", "DATA", {0x22, 0x00}, {0x62}));
    ServiceDescription all = serviceOf("ReadAll", "ALL", {0x22, 0x00, 0x01}, {0x62}, {}, {parameterOf("id", 16)});
    all.functional = true;
    engine.services.push_back(all);
    VariantDescription first;
    first.name = "Euro5";
    first.matches.push_back({0xF187, 1, {0x05}});
    first.matches.push_back({0xF188, 0, {0xAA}});
    VariantDescription second;
    second.name = "Euro6";
    second.matches.push_back({0xF187, 1, {0x06}});
    second.services.push_back(serviceOf("ReadVin", "IDENTIFICATION", {0x22, 0xF1, 0x91}, {0x62}));
    second.services.push_back(serviceOf("Regenerate", "REGENERATION", {0x31, 0x01}, {0x71}));
    engine.variants = {first, second};
    engine.comParameters = {{"CP_Retries", std::int64_t{3}, {}},
                            {"CP_Name", std::string("x"), {}},
                            {"CP_P2Max", std::int64_t{80000}, {}},
                            {"CP_Address",
                             {},
                             {{"request", std::int64_t{0x7E0}, {}}, {"response", std::int64_t{0x7E8}, {}}}}};
    vehicle->controlUnits.push_back(engine);
    ControlUnitDescription lost;
    lost.name = "Lost";
    vehicle->controlUnits.push_back(lost);
    return vehicle;
}

// What the engine answers, unless a test says otherwise.
inline std::vector<FakeAnswer> engineAnswer(const Pdu& request) {
    if (request == Pdu{0x22, 0xF1, 0x90})
        return {{{0x62, 0xF1, 0x90, 'W', 'V', 'W'}}};
    if (request == Pdu{0x22, 0xF1, 0x87})
        return {{{0x62, 0xF1, 0x87, 0x00, 0x06}}};
    if (request[0] == 0x22)
        return {{{0x62, request[1], request[2], 42}}};
    if (request[0] == 0x10 && (request[1] & 0x80) != 0)
        return {};
    if (request[0] == 0x10)
        return {{{0x50, request[1]}}};
    return {{{0x7F, request[0], 0x11}}};
}

// The host objects over a scripted network.
struct TestHost {
    std::shared_ptr<FakeNetwork> network = std::make_shared<FakeNetwork>();
    std::shared_ptr<VehicleDescription> vehicle = makeVehicle();
    VehicleDiagCom host{vehicle, std::make_shared<FakeTransport>(network), nullptr};

    TestHost() {
        network->handle([](const Pdu& request, bool) { return engineAnswer(request); });
    }
    COtxValue open(const std::string& name = "Engine", const std::string& variant = "", bool identify = false) {
        return host.GetComChannel(COtxString(name), COtxString(variant), COtxBool(identify));
    }
    COtxValue service(const std::string& name) { return open().ComChannel().CreateDiagServiceByName(COtxString(name)); }
};

inline COtxValue pathTo(const std::string& name) { return COtxList(std::vector<COtxValue>{COtxString(name)}); }

inline void setParameter(const COtxValue& service, const std::string& name, long long value) {
    service.DiagService().GetRequest().Container().GetParameterByPath(pathTo(name)).Parameter().SetParameterValue(
        COtxInt(value));
}

inline COtxValue responseParameter(const COtxValue& response, const std::string& name,
                                   OTX::ValueType type = OTX::ValueType::Empty) {
    return response.Container().GetParameterByPath(pathTo(name)).Parameter().GetParameterValue(type);
}

// As a sequence executes a service and waits for it.
inline COtxValue executed(const COtxValue& service, bool suppress = false) {
    const COtxValue source = service.DiagService().EventSource();
    service.DiagService().Execute(suppress);
    COtxValue event;
    source.EventSource().Wait(event);
    return service.DiagService().GetFirstResult();
}

}  // namespace velkotx::host::testing
