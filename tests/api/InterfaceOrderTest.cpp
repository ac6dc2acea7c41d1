// The order of the virtual operations that hosts call and implement.
#include <velkotx/Sequencer.h>

#include "Slots.h"

namespace {

TEST(InterfaceOrder, OfTheSequencerAndTheHostsSink) {
    using S = velkotx::Sequencer;
    expectOrder(3, &S::Save, &S::SetHost, &S::SetDiagCom, &S::SetFlash, &S::SetPersistence, &S::SetFileStore,
                &S::SetComInterface, &S::SetContextVariables, &S::SetTranslations, &S::Run, &S::Control, &S::SendEvent);
    expectOrder(3, &velkotx::HostEventSink::sendRequest);
}

}  // namespace
