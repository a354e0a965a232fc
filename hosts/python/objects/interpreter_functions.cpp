// The interpreter's functions that are called by name.
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "host/evaluation.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "host/text.h"
#include "hosts/python/errors.h"
#include "hosts/python/namespaces/all_namespaces.h"
#include "hosts/python/objects/object_names.h"
#include "hosts/python/objects/subscript_keys.h"
#include "hosts/python/values/values.h"

namespace {

using python_host::NameList;
using python_host::PythonFailure;

struct NamedFunction {
    std::string_view name;
    NameList (*answer)(PyObject* object);
};

constexpr NamedFunction functions[] = {
    {"methods", python_host::methodNamesOf},   {"properties", python_host::propertyNamesOf},
    {"fieldnames", python_host::fieldNamesOf}, {"keys", python_host::subscriptKeysOf},
    {"class", python_host::classNameOf},       {"denotes", python_host::denotationOf},
};

const NamedFunction& functionNamed(std::string_view name) {
    const auto* found = std::find_if(std::begin(functions), std::end(functions),
                                     [&](const NamedFunction& function) { return function.name == name; });
    if (found == std::end(functions)) {
        throw PythonFailure("there is no such function: " + std::string(name));
    }
    return *found;
}

PyObject* onlyObject(int inputCount, const qxArray* const* inputs) {
    PyObject* object = inputCount == 1 && inputs[0] != nullptr ? inputs[0]->object() : nullptr;
    if (object == nullptr) {
        throw PythonFailure("the function takes one live value");
    }
    return object;
}

qxUniqueArray answerOf(std::string_view functionName, int inputCount, const qxArray* const* inputs) {
    if (functionName == "ostrel.metadata.Namespace.getAllNamespaces") {
        return python_host::allNamespaceObjects();
    }
    const NamedFunction& function = functionNamed(functionName);
    const python_host::Ref object = python_host::Ref::share(onlyObject(inputCount, inputs));
    return python_host::makeCell(function.answer(object.get()));
}

void call(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
          std::string_view functionName) {
    const python_host::PendingErrorGuard pending;
    qxUniqueArray answer = answerOf(functionName, inputCount, inputs);
    if (outputCount > 0) {
        std::fill(outputs, outputs + outputCount, nullptr);
        outputs[0] = answer.release();
    }
}

}  // namespace

void inCallFcn(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
               const char* functionName) {
    call(outputCount, outputs, inputCount, inputs, functionName);
}

void inFullFevalFcn(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs) {
    if (inputCount < 1 || !isNonMissingScalarText(inputs[0])) {
        throw PythonFailure("the first input names the function");
    }
    const std::string name = fl::i18n::to_string(getScalarText(inputs[0]));
    call(outputCount, outputs, inputCount - 1, inputs + 1, name);
}

// There are no packages of an older object system, so the function that finds one is unknown like any other.
int inCallFcnWithTrap(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
                      const char* functionName, bool trap) {
    constexpr int failed = 1;
    try {
        call(outputCount, outputs, inputCount, inputs, functionName);
        return 0;
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (const foundation::core::except::IException&) {
        if (!trap) {
            throw;
        }
        return failed;
    }
}

// A method of a live value is its author's code, and no question about a value may run that.
qxArray* inCallMethodSingleInputSingleOutput(const qxArray* /*value*/, const char* methodName) {
    throw PythonFailure("methods are not called while completing: " + std::string(methodName));
}
