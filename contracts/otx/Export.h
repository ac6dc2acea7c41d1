// Marks what the shared library exports; everything else stays hidden.
#pragma once

#if defined(_WIN32)
#define OTX_API __declspec(dllexport)
#else
#define OTX_API __attribute__((visibility("default")))
#endif
