#include "host/function_metadata.h"

#include "hosts/python/errors.h"
#include "hosts/python/signatures/function_lookup.h"
#include "hosts/python/signatures/signatures.h"
#include "hosts/python/values/values.h"

namespace python_host {

namespace {

qxUniqueArray makeNames(const Signature& signature, ParameterKind leftOut) {
    NameList names;
    for (const Parameter& parameter : signature) {
        if (parameter.kind != leftOut) {
            names.append(parameter.name);
        }
    }
    return makeCell(std::move(names));
}

}  // namespace

}  // namespace python_host

// The first array has the names of the arguments that a position reaches, the second those that a keyword does.
std::tuple<qxUniqueArray, qxUniqueArray, FunctionScope*> omGetFunctionMetadata(const std::string& functionName,
                                                                               const FunctionScope* scope) {
    using python_host::ParameterKind;
    const python_host::PendingErrorGuard pending;
    auto* const asked = const_cast<FunctionScope*>(scope);
    const python_host::Ref function = python_host::findFunction(functionName, scope);
    const auto signature = function ? python_host::signatureOf(function.get()) : std::nullopt;
    if (!signature) {
        return {nullptr, nullptr, asked};
    }
    return {python_host::makeNames(*signature, ParameterKind::keywordOnly),
            python_host::makeNames(*signature, ParameterKind::positionalOnly), asked};
}
