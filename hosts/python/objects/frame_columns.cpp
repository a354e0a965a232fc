// A column that somebody has read before lies in the frame's own cache. Any other column is made by the library's own
// reader, which is Python: it is called only when all that it touches is the library's own or plain data.
#include "hosts/python/objects/frame_columns.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/objects/labels.h"
#include "hosts/python/python_text.h"
#include "hosts/python/running_code.h"
#include "hosts/python/values/numpy_values.h"

namespace python_host {

namespace {

/// Beyond these, looking through the labels would be felt.
constexpr std::size_t labelLimit = 10'000;

std::string_view classNameOf(PyObject* object) {
    return ClassRegistry::instance().objectOf(Py_TYPE(object)).getID().view();
}

Ref cachedColumn(PyObject* frame, PyObject* name) {
    const Ref cache = Ref::share(storedAttribute(frame, "_item_cache"));
    PyObject* column = cache && PyDict_CheckExact(cache.get()) ? findItem(cache.get(), name) : nullptr;
    const bool isColumn = column != nullptr && classNameOf(column) == "pandas.core.series.Series";
    return Ref::share(isColumn ? column : nullptr);
}

/// A function of a class in Python, if it is still the one that its module declared.
Ref ownFunction(PyTypeObject* type, const char* name, std::string_view module) {
    const Ref key = Ref::steal(makeText(name));
    PyObject* function = key ? findInOrder(type, key.get()).value : nullptr;
    PyObject* home = findLoadedModule(module);
    const bool isOwn = function != nullptr && PyFunction_Check(function) && home != nullptr &&
                       PyFunction_GET_GLOBALS(function) == PyModule_GetDict(home);
    return Ref::share(isOwn ? function : nullptr);
}

bool makesOwnSeries() {
    const Ref name = Ref::steal(makeText("Series"));
    PyObject* series = name ? findInModule("pandas.core.series", name.get()) : nullptr;
    return series != nullptr && PyType_Check(series) && ownFunction(asType(series), "__init__", "pandas.core.series");
}

/// Whether the labels of a plain axis are all plain texts, of which exactly one is the name.
bool isOnlyLabel(PyObject* axis, PyObject* name) {
    const Ref labels =
        Ref::share(classNameOf(axis) == "pandas.core.indexes.base.Index" ? storedAttribute(axis, "_data") : nullptr);
    const std::size_t count = labels ? numpyLengthOf(labels.get()) : 0;
    std::size_t found = 0;
    for (std::size_t index = 0; index < count && count <= labelLimit; ++index) {
        const Ref label = numpyElementOf(labels.get(), index);
        if (!label || !PyUnicode_CheckExact(label.get())) {
            return false;
        }
        found += PyUnicode_Compare(label.get(), name) == 0 ? 1U : 0U;
    }
    return found == 1;
}

using Classes = std::span<const std::string_view>;

constexpr std::string_view blockClasses[] = {
    "pandas._libs.internals.NumpyBlock", "pandas._libs.internals.NDArrayBackedBlock", "pandas._libs.internals.Block"};
constexpr std::string_view managerClasses[] = {"pandas._libs.internals.BlockManager"};

/// Whether a class is one of those that the library compiled in; a derived class cannot bear such a name itself.
bool isCompiledIn(const PyTypeObject* type, Classes classes) {
    return (type->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0 &&
           std::find(classes.begin(), classes.end(), type->tp_name) != classes.end();
}

/// What a getter in C of a compiled class of the library's gives; empty when it is anything else that has the name.
Ref compiledAttribute(PyObject* object, const char* name, Classes classes) {
    const Ref key = Ref::steal(makeText(name));
    const RawAttribute attribute = key ? findInOrder(Py_TYPE(object), key.get()) : RawAttribute{};
    const bool isKnown = attribute.value != nullptr && Py_TYPE(attribute.value) == &PyGetSetDescr_Type &&
                         isCompiledIn(attribute.owner, classes);
    if (!isKnown) {
        return {};
    }
    return orNothing(Py_TYPE(attribute.value)->tp_descr_get(attribute.value, object, asObject(Py_TYPE(object))));
}

/// Columns of types that a user added are handled by that user's code.
bool holdsOwnData(PyObject* block) {
    const Ref values = compiledAttribute(block, "values", blockClasses);
    return values &&
           (numpyKindOf(values.get()).has_value() || classNameOf(values.get()).starts_with("pandas.core.arrays."));
}

bool isStoredPlainly(PyObject* frame) {
    const Ref manager = Ref::share(findItem(instanceDictionary(frame), keys().manager));
    const Ref blocks = manager ? compiledAttribute(manager.get(), "blocks", managerClasses) : Ref();
    if (!blocks || !PyTuple_CheckExact(blocks.get())) {
        return false;
    }
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(blocks.get()); ++index) {
        if (!holdsOwnData(PyTuple_GET_ITEM(blocks.get(), index))) {
            return false;
        }
    }
    return true;
}

/// Whoever traces the program would see the library's code run.
bool isTraced() { return PyThreadState_Get()->cframe->use_tracing != 0; }

}  // namespace

Ref readFrameColumn(PyObject* frame, PyObject* name) {
    if (!PyUnicode_CheckExact(name) || classNameOf(frame) != "pandas.core.frame.DataFrame") {
        return {};
    }
    if (Ref cached = cachedColumn(frame, name)) {
        return cached;
    }
    const Ref reader = ownFunction(Py_TYPE(frame), "__getitem__", "pandas.core.frame");
    const Ref axes = reader && makesOwnSeries() && !isTraced() ? axesOf(frame) : Ref();
    const bool isSafe = axes && isOnlyLabel(PyList_GET_ITEM(axes.get(), 0), name) && isStoredPlainly(frame);
    if (!isSafe) {
        return {};
    }
    return orNothingUnlessInterrupted(
        runCode([&] { return PyObject_CallFunctionObjArgs(reader.get(), frame, name, nullptr); }));
}

}  // namespace python_host
