// All of the value library's event declarations.
#pragma once

#include <otx/event/COtxEvent.h>
#include <otx/event/COtxEventSource.h>
#include <otx/event/COtxHMIScreenClosedEventSource.h>
#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/event/COtxMultiEventSource.h>
#include <otx/event/COtxSignalEventSource.h>
#include <otx/event/COtxThresholdExceededEventSource.h>
#include <otx/event/COtxTimerExpiredEventSource.h>
#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/event/ThreadGroup.h>
