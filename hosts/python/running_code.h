// Running Python code from within the host.
#pragma once

#include <Python.h>
#include <cxxabi.h>
#include <unistd.h>

namespace python_host {

/// The result of a call that may run Python code; the call itself owns nothing.
///
/// While code runs, the interpreter may end in another thread. It then ends this thread by unwinding it, without the
/// lock under which all that the frames of the host own is given up, and through frames that let nothing pass: the
/// process would crash at its end. So the thread stays here, for the moment that the process still has.
///
/// What is caught there is no object, which a sanitizer would mind.
template <class Call>
__attribute__((no_sanitize("undefined"))) auto runCode(Call call) -> decltype(call()) {
    try {
        return call();
    } catch (const abi::__forced_unwind&) {
        for (;;) {
            pause();
        }
    }
}

}  // namespace python_host
