// The matcher's header, for texts in UTF-8.
#pragma once

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
