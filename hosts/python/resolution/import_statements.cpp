#include "hosts/python/resolution/import_statements.h"

#include <Python.h>

#include <string_view>
#include <utility>

#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"
#include "hosts/python/streams/output_capture.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

/// A field of a syntax node, read from the node's own dictionary; borrowed, null when absent.
PyObject* field(PyObject* node, const char* name) {
    const Ref key = Ref::steal(makeText(name));
    return key ? findItem(instanceDictionary(node), key.get()) : nullptr;
}

std::string textField(PyObject* node, const char* name) {
    PyObject* value = field(node, name);
    return value != nullptr && PyUnicode_Check(value) ? lossyUtf8Of(value) : std::string();
}

bool isNode(PyObject* node, const char* kind) { return isNamedType(Py_TYPE(node), kind); }

template <class Visit>
void eachInList(PyObject* list, Visit visit) {
    if (list == nullptr || !PyList_CheckExact(list)) {
        return;
    }
    for (Py_ssize_t index = 0; index < PyList_GET_SIZE(list); ++index) {
        visit(PyList_GET_ITEM(list, index));
    }
}

/// Gathers what the statements of a module bind; bodies of functions and classes have names of their own.
class ImportCollector {
public:
    explicit ImportCollector(const std::string& package) : package_(package) {}

    void visit(PyObject* node) {
        if (isNode(node, "Import")) {
            addImport(node);
        } else if (isNode(node, "ImportFrom")) {
            addImportFrom(node);
        } else if (isNode(node, "FunctionDef") || isNode(node, "AsyncFunctionDef") || isNode(node, "ClassDef")) {
            imports_.definitions.insert(textField(node, "name"));
        } else {
            visitInner(node);
        }
    }

    Imports take() && { return std::move(imports_); }

private:
    void visitInner(PyObject* node) {
        for (const char* name : {"body", "handlers", "orelse", "finalbody", "cases"}) {
            eachInList(field(node, name), [this](PyObject* inner) { visit(inner); });
        }
    }

    void addImport(PyObject* node) {
        eachInList(field(node, "names"), [this](PyObject* alias) {
            const std::string name = textField(alias, "name");
            const std::string bound = textField(alias, "asname");
            const std::string top = name.substr(0, name.find('.'));
            bind(bound.empty() ? top : bound, bound.empty() ? top : name);
        });
    }

    void addImportFrom(PyObject* node) {
        const auto module = sourceModule(node);
        if (!module) {
            return;
        }
        eachInList(field(node, "names"), [&](PyObject* alias) {
            const std::string name = textField(alias, "name");
            const std::string bound = textField(alias, "asname");
            if (name == "*") {
                imports_.everythingOf.push_back(*module);
            } else {
                bind(bound.empty() ? name : bound, *module + '.' + name);
            }
        });
    }

    /// The full name of the module that an import takes from; nothing when it leads out of the package.
    std::optional<std::string> sourceModule(PyObject* node) const {
        const std::string module = textField(node, "module");
        PyObject* level = field(node, "level");
        long dots = level != nullptr && PyLong_CheckExact(level) ? PyLong_AsLong(level) : 0;
        if (dots == 0) {
            return module.empty() ? std::nullopt : std::optional(module);
        }
        std::string base = package_;
        for (; dots > 1 && !base.empty(); --dots) {
            const std::size_t dot = base.rfind('.');
            base = dot == std::string::npos ? std::string() : base.substr(0, dot);
        }
        if (base.empty()) {
            return std::nullopt;
        }
        return module.empty() ? base : base + '.' + module;
    }

    void bind(const std::string& name, std::string target) { imports_.names[name] = std::move(target); }

    const std::string& package_;
    Imports imports_;
};

/// Text that is no UTF-8 is taken for Latin-1: what matters here is ASCII, and asking for the codec that the file names
/// might run anything.
std::string asUtf8(const std::string& source) {
    const Ref decoded = Ref::steal(makeText(source));
    if (decoded) {
        return source;
    }
    const Ref latin =
        Ref::steal(orThrow(PyUnicode_DecodeLatin1(source.data(), static_cast<Py_ssize_t>(source.size()), nullptr)));
    return lossyUtf8Of(latin.get());
}

Ref parse(const std::string& source) {
    PyCompilerFlags flags{};
    flags.cf_feature_version = PY_MINOR_VERSION;
    flags.cf_flags = PyCF_ONLY_AST | PyCF_IGNORE_COOKIE;
    constexpr int keepOptimisation = -1;
    return Ref::steal(Py_CompileStringExFlags(source.c_str(), "<imports>", Py_file_input, &flags, keepOptimisation));
}

/// An error is what half-typed text gives; only the interrupt is more.
void containSyntaxError() {
    try {
        throwPythonError();
    } catch (const PythonFailure&) {
    }
}

}  // namespace

std::optional<Imports> parseImports(const std::string& source, const std::string& package) {
    if (source.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    const std::string text = asUtf8(source);
    // The parser warns of odd literals; that is not news to somebody who waits for a list of names.
    const OutputCapture capture;
    const Ref tree = parse(text);
    if (!tree) {
        containSyntaxError();
        return std::nullopt;
    }
    ImportCollector collector(package);
    collector.visit(tree.get());
    return std::move(collector).take();
}

}  // namespace python_host
