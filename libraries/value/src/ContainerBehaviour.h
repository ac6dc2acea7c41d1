// The library's own List and Map.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "Demolition.h"
#include "NativeBehaviour.h"

namespace otx {

class ListBehaviour final : public NativeBehaviour<ListBehaviour> {
public:
    explicit ListBehaviour(std::vector<COtxValue>&& content)
        : NativeBehaviour(OTX::ValueType::List, Native::List, Scalar{0}), items(std::move(content)) {}
    ~ListBehaviour() override { demolish(items); }

    COtxValue ToString() override;
    void ToStream(std::ostream& out, int depth) const override;
    COtxValue ToJSONObject(Value2IdMap& conversion) override;
    std::vector<COtxValue>& List() override { return items; }
    COtxValue Copy(const COtxValue& self, OTX::CopyMap& copies) const override;

    bool equalTo(const COtxValueBehaviour& right) const;
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const;

    std::vector<COtxValue> items;
};

class MapBehaviour final : public NativeBehaviour<MapBehaviour> {
public:
    explicit MapBehaviour(std::map<COtxValue, COtxValue>&& content)
        : NativeBehaviour(OTX::ValueType::Map, Native::Map, Scalar{0}), entries(std::move(content)) {}
    ~MapBehaviour() override { demolish(entries); }

    COtxValue ToString() override;
    void ToStream(std::ostream& out, int depth) const override;
    COtxValue ToJSONObject(Value2IdMap& conversion) override;
    std::map<COtxValue, COtxValue>& Map() override { return entries; }
    COtxValue Copy(const COtxValue& self, OTX::CopyMap& copies) const override;

    bool equalTo(const COtxValueBehaviour& right) const;
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const;

    std::map<COtxValue, COtxValue> entries;
};

// The order of two values of any families.
std::weak_ordering compareValues(const COtxValue& left, const COtxValue& right);

}  // namespace otx
