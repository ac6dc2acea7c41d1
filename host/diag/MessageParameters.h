// The parameters of a request or response: what every handle on one of them asks.
#pragma once

#include "diag/CodedValue.h"
#include "diag/ParameterTree.h"

#include <otx/value/COtxValue.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace velkotx::host {

// Shared by the message and all handles on its parameters. Any thread.
class MessageParameters {
public:
    MessageParameters(const MessageParameters&) = delete;
    MessageParameters& operator=(const MessageParameters&) = delete;
    virtual ~MessageParameters() = default;

    // The parameter that a step names: a String or an Integer. Throws kind 8.
    ParameterPlace child(ParameterPlace parent, const COtxValue& step);
    // Throws kind 8 or 9.
    ParameterPlace bySemantic(ParameterPlace from, const COtxValue& semantic) const;
    std::vector<ParameterPlace> children(ParameterPlace parent) const;

    const ParameterDescription* description(ParameterPlace place) const;
    std::string nameOf(ParameterPlace place) const;
    bool isComplex(ParameterPlace place) const;

    // A structure is to be had as a Map of names, a repetition as a List. Throws kind 5 for what it can't become.
    COtxValue value(ParameterPlace place, OTX::ValueType type) const;
    // The other way, from the same forms. Throws kind 7 for a value that it can't carry, or when it can't be set at all.
    void set(ParameterPlace place, const COtxValue& value);

protected:
    // The name is the message's and must outlive the object.
    explicit MessageParameters(const std::string& name) : tree_(name) {}

    // Called under the lock.
    virtual CodedValue coded(ParameterPlace place) const = 0;
    virtual void assign(ParameterPlace place, CodedValue&& value) = 0;
    // A repetition is asked for an item that isn't there; may make it.
    virtual void missing(ParameterPlace repetition, std::int64_t index) = 0;

    // Guards the tree and what subclasses have beside it.
    mutable std::mutex parametersLock_;
    ParameterTree tree_;

private:
    COtxValue complexValue(ParameterPlace place, OTX::ValueType type) const;
    void setComplex(ParameterPlace place, const COtxValue& value);
};

}  // namespace velkotx::host
