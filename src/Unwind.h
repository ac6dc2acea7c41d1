// Lets the forced unwinding of a cancelled thread pass a catch of everything.
#pragma once

#include <cxxabi.h>

// Stands between the try block and its `catch (...)`. A thread that pthread_cancel ends unwinds with an exception that
// nobody may swallow: the process is aborted otherwise.
#define OTX_PASS_FORCED_UNWIND     \
    catch (abi::__forced_unwind&) { \
        throw;                      \
    }
