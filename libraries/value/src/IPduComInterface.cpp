// Where the class of interfaces for channels has its home, so that it is the same in host and library.
#include <otx/host/IPduComInterface.h>

ComInterface::IPduComInterface::~IPduComInterface() = default;
