// What a call of the host threw, in words.
#pragma once

#include <string>

namespace documents {

// "TYPE: what" of the exception that is being handled; that of a sequence has its text behind. Of a failure of the
// operating system the code's words, since what() may say more.
std::string refusal();

}  // namespace documents
