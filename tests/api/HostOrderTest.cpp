// The order of virtual operations of the host's objects and of the sequencer, on which both agree though they are built apart.
#include <otx/host/ComInterfaceHost.h>
#include <otx/host/DiagComHost.h>
#include <otx/host/FlashHost.h>
#include <otx/host/HvtFileStore.h>
#include <otx/host/PersistenceHost.h>
#include <velkotx/HostEventSink.h>
#include <velkotx/Sequencer.h>

#include <Slots.h>

TEST(HostOrder, EventSink) { expectOrder(1, &velkotx::HostEventSink::sendRequest); }

TEST(HostOrder, Diagnostics) {
    expectOrder(1, &DiagComHost::Reserved1, &DiagComHost::Reserved2, &DiagComHost::GetComChannel,
                &DiagComHost::GetComChannelFromComInterface, &DiagComHost::CreateComChannel,
                &DiagComHost::CreateComChannelFromComInterface);
}

TEST(HostOrder, FlashData) {
    expectOrder(1, &FlashHost::Reserved1, &FlashHost::Reserved2, &FlashHost::GetListOfValidFlashSessions,
                &FlashHost::GetFlashSession);
}

TEST(HostOrder, Interfaces) {
    expectOrder(1, &ComInterfaceHost::Reserved1, &ComInterfaceHost::Reserved2, &ComInterfaceHost::Reserved3,
                &ComInterfaceHost::Reserved4, &ComInterfaceHost::GetModuleList,
                &ComInterfaceHost::GetDefaultComInterfaceName, &ComInterfaceHost::Reserved7,
                &ComInterfaceHost::GetComInterface);
}

TEST(HostOrder, Stores) {
    expectOrder(1, &PersistenceHost::Reserved1, &PersistenceHost::Reserved2, &PersistenceHost::Load,
                &PersistenceHost::Save);
    expectOrder(1, &HvtFileStore::Open, &HvtFileStore::Decode, &HvtFileStore::MetaData);
}

// The destructor has the first two slots.
TEST(HostOrder, Sequencer) {
    using velkotx::Sequencer;
    expectOrder(3, &Sequencer::Save, &Sequencer::SetHost, &Sequencer::SetDiagCom, &Sequencer::SetFlash,
                &Sequencer::SetPersistence, &Sequencer::SetFileStore, &Sequencer::SetComInterface,
                &Sequencer::SetContextVariables, &Sequencer::SetTranslations, &Sequencer::Run, &Sequencer::Control,
                &Sequencer::SendEvent);
}
