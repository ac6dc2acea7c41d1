// Breakpoints as run control takes them.
#pragma once

#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

#include <map>
#include <string>
#include <vector>

namespace velkotx::host {

// The parameters of "setbp" and "clearbp" for these nodes, by their ids.
template <class Ids>
COtxValue breakpointParameters(const Ids& ids) {
    std::vector<COtxValue> items;
    for (const std::string& id : ids)
        items.push_back(COtxString(id));
    return COtxMap(std::map<const std::string, COtxValue>{{"breakpoints", COtxList(std::move(items))}});
}

}  // namespace velkotx::host
