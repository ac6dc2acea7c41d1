// What is wrong in a vehicle file.
#pragma once

#include <string>

namespace velkotx::host {

struct Mistake {
    int line = 0;       // from 1; 0: the file as a whole
    std::string place;  // as a JSON pointer, "/controlUnits/0/sessions/1/id"; empty: the file as a whole
    std::string text;
    bool endsReading = false;  // no JSON: nothing more could be read
};

}  // namespace velkotx::host
