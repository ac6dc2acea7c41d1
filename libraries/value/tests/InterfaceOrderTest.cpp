// The order of virtual operations, on which hosts and library agree though they are built apart.
#include <otx/diag/IComChannel.h>
#include <otx/diag/IComInterface.h>
#include <otx/diag/IDiagService.h>
#include <otx/diag/IFlashSession.h>
#include <otx/diag/IMessage.h>
#include <otx/diag/IParameter.h>
#include <otx/diag/IParameterContainer.h>
#include <otx/diag/IRequest.h>
#include <otx/diag/IResponse.h>
#include <otx/diag/IResult.h>
#include <otx/diag/IServiceProvider.h>
#include <otx/event/Events.h>
#include <otx/provider/HostInterface.h>
#include <otx/provider/Provider.h>
#include <otx/provider/ServiceProviderFactory.h>
#include <otx/value/COtxValueBehaviour.h>
#include <otx/value/IByteField.h>
#include <otx/value/IException.h>
#include <otx/value/IFileHandle.h>
#include <otx/value/IQuantity.h>
#include <otx/value/IString.h>
#include <otx/value/IUnit.h>
#include <otx/value/OtxVariable.h>

#include "Slots.h"

TEST(InterfaceOrder, Behaviour) {
    using B = COtxValueBehaviour;
    expectOrder(3, static_cast<bool (B::*)(const B*) const>(&B::operator==), &B::IsEqual, &B::IsNotEqual,
                &B::IsLessThan, &B::IsLessThanOrEqual, &B::IsGreaterThan, &B::IsGreaterThanOrEqual, &B::Multiply,
                &B::Divide, &B::Add, &B::Subtract, &B::Modulo, &B::Abs, &B::ToBoolean, &B::ToInteger, &B::ToString,
                &B::ToHexBinaryString, &B::ToFloat, &B::ToByteField, &B::ToQuantity, &B::ToStream, &B::SetOtxJSON,
                &B::ToJSON, static_cast<COtxValue (B::*)(Value2IdMap&)>(&B::ToJSONObject),
                static_cast<COtxValue (B::*)()>(&B::ToJSONObject), &B::IsContainer, &B::IsInt, &B::Bool, &B::Int,
                &B::Float, &B::Precision, &B::IString, &B::IMessage, &B::IResult, &B::IResponse, &B::IParameter,
                &B::IException, &B::IEventSource, &B::IEvent, &B::List, &B::Map, &B::ByteField, &B::Quantity,
                &B::IUnit, &B::Request, &B::Container, &B::ComChannel, &B::DiagService, &B::ServiceProviderService,
                &B::ServiceProvider, &B::FlashSession, &B::ComInterface, &B::FileHandle, &B::FileReadHandle, &B::what);
}

TEST(InterfaceOrder, ValueInterfaces) {
    using namespace OTX;
    expectOrder(1, &IByteField::Not, &IByteField::And, &IByteField::Or, &IByteField::Xor, &IByteField::SetBit,
                &IByteField::GetBit, &IByteField::Clear, &IByteField::ShiftLeft, &IByteField::ShiftRight,
                &IByteField::ReplaceSubByteField, &IByteField::Append);
    expectOrder(1, &IException::Kind, &IException::Name, &IException::Qualifier, &IException::Text, &IException::Type);
    expectOrder(1, &IString::Length, &IString::IndexOf, &IString::SubString, &IString::Replace, &IString::Split,
                &IString::ToUpper, &IString::ToLower, &IString::Match);
    expectOrder(1, &IQuantity::GetDisplayValue, &IQuantity::GetDisplayUnit, &IQuantity::GetPrecision,
                &IQuantity::GetBaseUnit, static_cast<COtxValue (IQuantity::*)() const>(&IQuantity::Localize),
                static_cast<COtxValue (IQuantity::*)(const std::string&) const>(&IQuantity::Localize));
    expectOrder(1, &IFileHandle::Close);
    expectOrder(1, &IFileReadHandle::IsEof, &IFileReadHandle::ReadBytes, &IFileReadHandle::ReadLine);
    expectOrder(3, static_cast<void (OtxVariable::*)(const COtxValue&)>(&OtxVariable::Set));
}

TEST(InterfaceOrder, Providers) {
    using namespace ExternalServiceProvider;
    expectOrder(1, &HostInterface::sendRequest);
    expectOrder(3, &ServiceProviderFactory::Create, &ServiceProviderFactory::Get);
    expectOrder(3, &Provider::Execute, &Provider::Event);
}

TEST(InterfaceOrder, Events) {
    using namespace OTX;
    expectOrder(1, &IEvent::Value, &IEvent::Kind, &IEvent::Name);
    expectOrder(3, &IEventSource::Wait, &IEventSource::Changed, &IEventSource::Put, &IEventSource::Signal,
                &IEventSource::Add, &IEventSource::Close);
}

TEST(InterfaceOrder, Diagnostics) {
    using namespace OTX;
    expectOrder(1, &IComChannel::CloseComChannel, &IComChannel::CreateDiagServiceByName,
                &IComChannel::CreateDiagServiceBySemantic, &IComChannel::GetDiagServiceListBySemantic,
                &IComChannel::IdentifyAndSelectVariant, &IComChannel::GetComChannelEcuVariantName,
                &IComChannel::Reserved7, &IComChannel::IsVariant, &IComChannel::SetComParameter,
                &IComChannel::GetComParameterValue, &IComChannel::GetDefaultComParameterValue,
                &IComChannel::ExecuteHexDiagService, &IComChannel::ExecuteHexDiagServiceFunctional,
                &IComChannel::SetComplexComParameter, &IComChannel::GetComplexComParameter,
                &IComChannel::GetDefaultComplexComParameter, &IComChannel::GetComChannelState,
                &IComChannel::StartCommunication, &IComChannel::StopCommunication);
    expectOrder(1, &IDiagService::EventSource, &IDiagService::Execute, &IDiagService::GetAllResultsAndClear,
                &IDiagService::GetDiagServiceName, &IDiagService::GetRequest, &IDiagService::GetFirstResult,
                &IDiagService::GetAllResults, &IDiagService::StartRepeatedExecution,
                &IDiagService::StopRepeatedExecution, &IDiagService::SetRepetitionTime,
                &IDiagService::GetRepetitionTime);
    expectOrder(1, &IResult::GetDiagServiceFromResult, &IResult::GetResultState, &IResult::GetFirstResponse,
                &IResult::GetAllResponses);
    expectOrder(1, &IResponse::GetComChannelIdentifier, &IResponse::GetResponseName, &IResponse::GetResponseState,
                &IResponse::GetResponseTimestamp, &IResponse::IsPositive);
    expectOrder(1, &IParameterContainer::SetParameterValueBySemantic, &IParameterContainer::GetParameterBySemantic,
                &IParameterContainer::Reserved3, &IParameterContainer::GetParameterByPath,
                &IParameterContainer::GetParameterByStep, &IParameterContainer::GetParameterAsList);
    expectOrder(1, &IParameter::GetParameterName, &IParameter::Reserved2, &IParameter::SetParameterValue,
                &IParameter::Reserved4, &IParameter::IsStringParameter, &IParameter::IsBooleanParameter,
                &IParameter::IsNumericParameter, &IParameter::IsComplexParameter, &IParameter::IsByteFieldParameter,
                &IParameter::GetParameterValue, &IParameter::Reserved11, &IParameter::GetParameterDefaultValue);
    expectOrder(1, &IRequest::SetPdu);
    expectOrder(1, &IMessage::GetPdu);
}

TEST(InterfaceOrder, InterfacesFlashAndProviders) {
    using namespace OTX;
    expectOrder(1, &IComInterface::ActivateEthernet, &IComInterface::DeactivateEthernet,
                &IComInterface::IsEthernetActivated, &IComInterface::GetComInterfaceNameListFromEthernet,
                &IComInterface::IsInterfaceConnected, &IComInterface::GetComInterfaceProperties,
                &IComInterface::GetComInterfaceResourceNameList, &IComInterface::GetBatteryVoltage,
                &IComInterface::GetIgnitionState, &IComInterface::CloseComInterface);
    expectOrder(1, &IFlashSession::GetSessionID, &IFlashSession::GetNumberOfBlocks,
                &IFlashSession::GetNumberOfSegments, &IFlashSession::GetStartAddress,
                &IFlashSession::GetUncompressedSize, &IFlashSession::GetDownloadData,
                &IFlashSession::GetNumberOfOwnIdents, &IFlashSession::GetOwnIdent,
                &IFlashSession::GetNumberOfSecurities, &IFlashSession::GetSecurityMethod,
                &IFlashSession::GetLogicalBlockID, &IFlashSession::GetCompressedSize,
                &IFlashSession::GetLogicalBlockIndex, &IFlashSession::GetSecurityAccessLevel,
                &IFlashSession::GetMaxNumberOfBlockLength, &IFlashSession::GetCompressionEncryption,
                &IFlashSession::GetFlashDataAddressLength, &IFlashSession::GetFlashDataSizeLength,
                &IFlashSession::GetChecksum);
    expectOrder(1, &IServiceProvider::Execute, &IServiceProvider::Event, &IServiceProvider::Reserved3,
                &IServiceProvider::Reserved4, &IServiceProvider::Dispose, &IServiceProvider::IsDisposed);
    expectOrder(1, &IServiceProviderService::Terminate, &IServiceProviderService::IsRunning,
                &IServiceProviderService::FinishedEventSource);
}
