// Small OTX documents for the tests, put together from texts.
#pragma once

#include <velkotx/Sequencer.h>

#include <memory>
#include <string>

namespace api {

// A whole document; the globals are `variable` elements and their like.
std::string document(const std::string& procedures, const std::string& globals = "");

std::string procedure(const std::string& name, const std::string& flow, const std::string& parameters = "",
                      const std::string& locals = "");

// A declaration of an Integer: `element` is variable, inParam, outParam and so on.
std::string integer(const std::string& element, const std::string& name, int value);

// An action that assigns an Integer.
std::string set(const std::string& id, const std::string& variable, int value);

// An action that adds one to a variable.
std::string increment(const std::string& id, const std::string& variable);

std::string call(const std::string& id, const std::string& procedureName);

// A loop that ends only when it is left.
std::string forEver(const std::string& id, const std::string& body);

// A handler that takes user exceptions.
std::string handler(const std::string& id, const std::string& tryFlow, const std::string& catchFlow,
                    const std::string& finallyFlow = "");

std::string throwUser(const std::string& id, const std::string& qualifier, const std::string& text);

std::shared_ptr<velkotx::Sequencer> load(const std::string& text);

}  // namespace api
