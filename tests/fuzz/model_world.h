// Builds what a model says on the in-memory host.
#pragma once

#include "hosts/memory/world.h"
#include "tests/fuzz/model.h"

namespace fuzz {

/// What the conversion of a raw value to "any" gives.
std::string convertedText(const std::string& raw);

/// The scopes, in the order of the model's.
std::vector<FunctionScope*> build(const Model& model, memory_host::World& world);

}  // namespace fuzz
