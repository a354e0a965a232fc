// The array library's questions about values.
#include "host/array_library.h"

#include <cstring>
#include <functional>
#include <numeric>

#include "host/class_objects.h"
#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/errors.h"
#include "hosts/python/interning.h"
#include "hosts/python/python_host.h"
#include "hosts/python/values/java_classes.h"
#include "hosts/python/values/value_kinds.h"
#include "hosts/python/values/values.h"

namespace {

using python_host::ClassRegistry;
using python_host::PendingErrorGuard;

/// What the host's own objects that stand for namespaces are.
constexpr const char* namespaceClassName = "ostrel.metadata.Namespace";

zelk::COSInternedID classNameOf(PyObject* object) {
    return ClassRegistry::instance().objectOf(Py_TYPE(object)).getID();
}

bool derivesFromNamed(PyObject* object, const char* className) {
    if (object == nullptr) {
        return false;
    }
    if (std::strcmp(className, "java") == 0 && python_host::isOfJava(object)) {
        return true;
    }
    const python_host::ClassObject* cls = ClassRegistry::instance().find(python_host::internName(className));
    PyTypeObject* type = cls == nullptr ? nullptr : cls->type();
    return type != nullptr && python_host::derivesFrom(Py_TYPE(object), type);
}

}  // namespace

qxClassID qxGetClassID(const qxArray* value) { return value->classId(); }

std::int32_t qxGetFullClassID(const qxArray* value) {
    const qxClassID id = value->classId();
    if (python_host::kindName(id) != nullptr || value->object() == nullptr) {
        return static_cast<std::int32_t>(id);
    }
    // Asked of the object: it may have been given another class since the value was made.
    const PendingErrorGuard pending;
    return ClassRegistry::instance().objectOf(Py_TYPE(value->object())).number();
}

const char* qxGetClassName(const qxArray* value) {
    if (const char* name = python_host::kindName(value->classId())) {
        return name;
    }
    if (value->object() == nullptr) {
        return namespaceClassName;
    }
    const PendingErrorGuard pending;
    return classNameOf(value->object()).c_str();
}

bool qxIsA(const qxArray* value, const char* className) {
    const char* kind = value->isNamespaces() ? namespaceClassName : python_host::kindName(value->classId());
    if (kind != nullptr && std::strcmp(kind, className) == 0) {
        return true;
    }
    const PendingErrorGuard pending;
    return derivesFromNamed(value->object(), className);
}

bool qxIsEmpty(const qxArray* value) { return qxGetNumberOfElements(value) == 0; }

std::size_t qxGetNumberOfElements(const qxArray* value) {
    const auto& extents = value->dimensions();
    return std::accumulate(extents.begin(), extents.end(), std::size_t{1}, std::multiplies<>());
}

std::size_t qxGetNumberOfDimensions(const qxArray* value) { return value->dimensions().size(); }

const std::size_t* qxGetDimensions(const qxArray* value) { return value->dimensions().data(); }

const qxArray* qxGetCell(const qxArray* cell, std::size_t index) {
    const PendingErrorGuard pending;
    return cell->element(index);
}

const double* qxGetDoubles(const qxArray* value) {
    const PendingErrorGuard pending;
    const double* doubles = value->object() == nullptr ? nullptr : python_host::doublesOf(value->object());
    if (doubles == nullptr) {
        throw python_host::PythonFailure("the value holds no doubles in one piece");
    }
    return doubles;
}

// Values are counted by whoever holds them; no scope ends them.
void qxSetArrayScope(qxArray* /*value*/, qxArrayScope /*scope*/) {}

bool omIsZELK(const qxArray* value) { return python_host::isInstanceID(value->classId()); }

zelk::COSInternedID omGetCOSClassID(const qxArray* value) {
    if (!omIsZELK(value)) {
        return {};
    }
    const PendingErrorGuard pending;
    return classNameOf(value->object());
}
