// Asking a value something through the interpreter, and living with hosts that fail.
#pragma once

#include <string>
#include <vector>

#include "host/array_library.h"
#include "host/exceptions.h"

namespace contextdata::completion {

/// The texts that a function of the interpreter answers for a value; empty when there is no such function, when it
/// fails, or when it answers no cell of texts. The value is not null. Only the interrupt passes: a person who stops
/// a listing that hangs wants it to stop, which is why this is not `ZELKIntrospection::callFunctionOnObject`.
std::vector<std::u16string> ask(const qxArray* value, const char* function);

/// The result of one source of names; a default-made one when the host fails in it. The interrupt passes.
template <class Source>
auto unlessItFails(Source source) -> decltype(source()) {
    try {
        return source();
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (...) {
        return {};
    }
}

}  // namespace contextdata::completion
