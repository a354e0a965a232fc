// A class as its methods of its own name show it.
#pragma once

#include "hosts/python/classes/forwarding_class.h"

namespace python_host {

/// Keeps its name to itself. Those who look for constructors compare the name of a method with the name of its class;
/// in this language a method of that name is none, and has to be offered like any other. The id stays the real one.
class UnnamedClass final : public ForwardingClass {
public:
    explicit UnnamedClass(zelk::COSClass& cls) noexcept : ForwardingClass(cls) {}

    const char* getName() const override { return ""; }
};

}  // namespace python_host
