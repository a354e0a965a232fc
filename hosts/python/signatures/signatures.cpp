#include "hosts/python/signatures/signatures.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"
#include "hosts/python/signatures/class_signature.h"
#include "hosts/python/signatures/documented_signature.h"
#include "hosts/python/signatures/partial_signature.h"
#include "hosts/python/signatures/text_signature.h"
#include "hosts/python/values/universal_functions.h"

namespace python_host {

namespace {

using Found = std::optional<Signature>;

/// More wrappers around each other than anybody writes; a circle of them ends here.
constexpr int deepestWrapping = 32;

/// The name of one parameter of a code object; empty for one that callers cannot spell.
std::string parameterName(PyObject* names, Py_ssize_t index) {
    PyObject* name = index < PyTuple_GET_SIZE(names) ? PyTuple_GET_ITEM(names, index) : nullptr;
    return name != nullptr && isIdentifier(name) ? lossyUtf8Of(name) : std::string();
}

/// The local variables of a code begin with its parameters, those for keywords last.
Signature signatureOfCode(PyCodeObject* code) {
    Signature signature;
    const int positionals = code->co_argcount;
    for (int index = 0; index < positionals + code->co_kwonlyargcount; ++index) {
        std::string name = parameterName(code->co_localsplusnames, index);
        if (name.empty()) {
            continue;
        }
        const ParameterKind named =
            index < positionals ? ParameterKind::positionalOrKeyword : ParameterKind::keywordOnly;
        const bool hasNoKeyword = index < code->co_posonlyargcount;
        signature.push_back({std::move(name), hasNoKeyword ? ParameterKind::positionalOnly : named});
    }
    return signature;
}

Found signatureOfFunction(PyObject* function) {
    PyObject* code = reinterpret_cast<PyFunctionObject*>(function)->func_code;
    return code != nullptr && PyCode_Check(code) ? Found(signatureOfCode(reinterpret_cast<PyCodeObject*>(code)))
                                                 : std::nullopt;
}

Found signatureInText(const char* documentation, const char* name) {
    return documentation == nullptr || name == nullptr ? std::nullopt : textSignatureOf(documentation, name);
}

Found signatureInText(const PyMethodDef* method) {
    if (method == nullptr || method->ml_doc == nullptr || method->ml_name == nullptr) {
        return std::nullopt;
    }
    Found declared = textSignatureOf(method->ml_doc, method->ml_name);
    const bool takesKeywords = (method->ml_flags & METH_KEYWORDS) != 0;
    return declared || !takesKeywords ? declared : documentedSignatureOf(method->ml_doc, method->ml_name);
}

/// A method is called without the object that it is bound to.
Found withoutFirst(Found signature) {
    if (signature && !signature->empty() && signature->front().kind != ParameterKind::keywordOnly) {
        signature->erase(signature->begin());
    }
    return signature;
}

/// Functions that the interpreter or a library has in C.
Found signatureOfBuiltIn(PyObject* object) {
    const PyTypeObject* type = Py_TYPE(object);
    if (PyCFunction_Check(object)) {
        return signatureInText(reinterpret_cast<PyCFunctionObject*>(object)->m_ml);
    }
    if (type == &PyMethodDescr_Type || type == &PyClassMethodDescr_Type) {
        return signatureInText(reinterpret_cast<PyMethodDescrObject*>(object)->d_method);
    }
    if (type == &PyWrapperDescr_Type) {
        const auto* base = reinterpret_cast<PyWrapperDescrObject*>(object)->d_base;
        return signatureInText(base->doc, base->name);
    }
    return std::nullopt;
}

/// Universal functions have no names for their operands, and the same options, whatever they compute.
Signature signatureOfUniversal(const UniversalFunction& function) {
    Signature signature;
    for (int input = 1; input <= function.inputCount; ++input) {
        signature.push_back({'x' + std::to_string(input), ParameterKind::positionalOnly});
    }
    signature.push_back({"out", ParameterKind::positionalOrKeyword});
    for (const char* option : {"casting", "order", "dtype", "subok", "signature"}) {
        signature.push_back({option, ParameterKind::keywordOnly});
    }
    const std::vector<const char*> further =
        function.worksOnSubarrays ? std::vector{"axes", "axis"} : std::vector{"where"};
    for (const char* option : further) {
        signature.push_back({option, ParameterKind::keywordOnly});
    }
    return signature;
}

class Reader {
public:
    Found read(PyObject* object) {
        if (object == nullptr || depth_ >= deepestWrapping) {
            return std::nullopt;
        }
        const Ref keep = Ref::share(object);
        ++depth_;
        Found signature = PyType_Check(object) ? readClass(asType(object)) : readObject(object);
        --depth_;
        return signature;
    }

private:
    Found readClass(PyTypeObject* type) {
        const Constructor constructor = constructorOf(type);
        return constructor.function ? withoutFirst(read(constructor.function.get())) : constructor.signature;
    }

    Found readObject(PyObject* object) {
        const PyTypeObject* type = Py_TYPE(object);
        if (type == &PyMethod_Type) {
            return withoutFirst(read(PyMethod_GET_FUNCTION(object)));
        }
        if (type == &PyInstanceMethod_Type) {
            return read(PyInstanceMethod_GET_FUNCTION(object));
        }
        if (type == &PyStaticMethod_Type) {
            return read(objectMember(&PyStaticMethod_Type, object, "__func__"));
        }
        if (type == &PyClassMethod_Type) {
            return withoutFirst(read(objectMember(&PyClassMethod_Type, object, "__func__")));
        }
        Found wrapped = read(findItem(instanceDictionary(object), keys().wrapped));
        return wrapped ? wrapped : readUnwrapped(object);
    }

    Found readUnwrapped(PyObject* object) {
        if (PyFunction_Check(object)) {
            return signatureOfFunction(object);
        }
        if (const auto call = partialCallOf(object)) {
            Found signature = read(call->function.get());
            return signature ? Found(applyTo(std::move(*signature), *call)) : std::nullopt;
        }
        if (const auto universal = universalFunctionOf(object)) {
            return signatureOfUniversal(*universal);
        }
        Found builtIn = signatureOfBuiltIn(object);
        return builtIn ? builtIn : readCallMethod(object);
    }

    Found readCallMethod(PyObject* object) {
        PyObject* method = findInOrder(Py_TYPE(object), keys().call).value;
        return method != nullptr && PyFunction_Check(method) ? withoutFirst(read(method)) : std::nullopt;
    }

    int depth_ = 0;
};

}  // namespace

std::optional<Signature> signatureOf(PyObject* callable) { return Reader().read(callable); }

}  // namespace python_host
