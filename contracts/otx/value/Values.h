// All of the value library's declarations.
#pragma once

#include <otx/value/COtxBool.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxComChannelState.h>
#include <otx/value/COtxConfirmationType.h>
#include <otx/value/COtxEnumerationItem.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxExceptions.h>
#include <otx/value/COtxFileReadHandle.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxLogLevel.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxMessageType.h>
#include <otx/value/COtxQuantity.h>
#include <otx/value/COtxResponseState.h>
#include <otx/value/COtxResultState.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxStringEncoding.h>
#include <otx/value/COtxUnit.h>
#include <otx/value/COtxValue.h>
#include <otx/value/Functions.h>
#include <otx/value/Json.h>
#include <otx/value/OtxVariable.h>
