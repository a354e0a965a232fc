#include "hosts/python/values/java_classes.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"
#include "hosts/python/running_code.h"

namespace python_host {

namespace {

/// The part of the bridge that is in C.
constexpr std::string_view bridge = "_jpype";

/// A function of the bridge; empty when the session put another one in its place, which might be anybody's code.
Ref bridgeFunction(const char* name) {
    const Ref key = Ref::steal(makeText(name));
    PyObject* found = key ? findInModule(bridge, key.get()) : nullptr;
    if (found == nullptr || !PyCFunction_CheckExact(found)) {
        return {};
    }
    const auto* function = reinterpret_cast<PyCFunctionObject*>(found);
    const bool isItself = std::string_view(function->m_ml->ml_name) == name && function->m_module != nullptr &&
                          PyUnicode_CheckExact(function->m_module) && lossyUtf8Of(function->m_module) == bridge;
    return isItself ? Ref::share(found) : Ref();
}

bool isMachineRunning() {
    const Ref isStarted = bridgeFunction("isStarted");
    const Ref answer = isStarted ? orNothingUnlessInterrupted(PyObject_CallNoArgs(isStarted.get())) : Ref();
    return answer.get() == Py_True;
}

/// The classes that derive from a class directly, as the interpreter itself remembers them.
Ref subclassesOf(PyTypeObject* type) {
    PyObject* method = findItem(PyType_Type.tp_dict, keys().subclasses);
    const bool isItself = method != nullptr && Py_TYPE(method) == &PyMethodDescr_Type;
    return isItself ? orNothingUnlessInterrupted(PyObject_CallOneArg(method, asObject(type))) : Ref();
}

/// Looks among the classes that exist below a class.
class KnownClassSearch {
public:
    explicit KnownClassSearch(std::string_view name) : name_(name) {}

    Ref below(PyTypeObject* root) {
        std::vector<Ref> waiting = {Ref::share(root)};
        while (!waiting.empty()) {
            Ref type = std::move(waiting.back());
            waiting.pop_back();
            if (name_ == asType(type.get())->tp_name && isJavaClass(asType(type.get()))) {
                return type;
            }
            addNew(subclassesOf(asType(type.get())), waiting);
        }
        return {};
    }

private:
    void addNew(const Ref& types, std::vector<Ref>& waiting) {
        for (Py_ssize_t index = 0; types && index < PyList_GET_SIZE(types.get()); ++index) {
            PyObject* type = PyList_GET_ITEM(types.get(), index);
            if (PyType_Check(type) && seen_.insert(type).second) {
                waiting.push_back(Ref::share(type));
            }
        }
    }

    std::string_view name_;
    std::unordered_set<PyObject*> seen_;  ///< identity only
};

bool isLowerCase(char c) { return c >= 'a' && c <= 'z'; }
bool isUpperCase(char c) { return c >= 'A' && c <= 'Z'; }

/// Whether the name is one of a class of the platform: packages in lower case, then a class.
bool looksLikePlatformClass(std::string_view name) {
    if (!name.starts_with("java.")) {
        return false;
    }
    const std::size_t last = name.rfind('.') + 1;
    const std::string_view packages = name.substr(0, last);
    const std::string_view simple = name.substr(last);
    const bool hasPlainPackages =
        packages.find("..") == std::string_view::npos &&
        std::all_of(packages.begin(), packages.end(), [](char c) { return isLowerCase(c) || c == '.'; });
    const bool hasPlainName = std::all_of(simple.begin(), simple.end(), [](char c) {
        return isLowerCase(c) || isUpperCase(c) || (c >= '0' && c <= '9') || c == '_';
    });
    return hasPlainPackages && hasPlainName && !simple.empty() && isUpperCase(simple.front());
}

Ref loadPlatformClass(std::string_view name) {
    const Ref load = bridgeFunction("_getClass");
    const Ref text = Ref::steal(makeText(name));
    Ref cls = load && text
                  ? orNothingUnlessInterrupted(runCode([&] { return PyObject_CallOneArg(load.get(), text.get()); }))
                  : Ref();
    return cls && PyType_Check(cls.get()) && isJavaClass(asType(cls.get())) ? cls : Ref();
}

}  // namespace

Ref findJavaClass(const std::string& name) {
    PyTypeObject* root = loadedClass(bridge, "_JObject");
    if (root == nullptr || name.empty() || !isMachineRunning()) {
        return {};
    }
    Ref known = KnownClassSearch(name).below(root);
    return known || !looksLikePlatformClass(name) ? known : loadPlatformClass(name);
}

bool isJavaClass(PyTypeObject* type) {
    return loadedClass(bridge, "_JClass") != nullptr && isOfLoadedClass(asObject(type), bridge, "_JClass");
}

bool isOfJava(PyObject* object) {
    return isOfLoadedClass(object, bridge, "_JObject") || isOfLoadedClass(object, bridge, "_JMethod");
}

}  // namespace python_host
