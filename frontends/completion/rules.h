// By which rules the host gives the value of what stands before a dot.
#pragma once

#include <string_view>

namespace contextdata::completion {

/// How the host evaluates, as far as the engine has to know. By default members are read one by one and no code runs.
struct Rules {
    /// What people call them; empty where there are no others.
    std::u16string_view name = {};
    /// Members are read one by one, as the library reads them. Otherwise the host's evaluation decides about each.
    bool walks = true;
    /// The host evaluates whatever it is given, code that has to run included; so it is given that too.
    bool runsCode = false;
};

}  // namespace contextdata::completion
