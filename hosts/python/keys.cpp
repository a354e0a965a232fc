#include "hosts/python/keys.h"

namespace python_host {

namespace {

PyObject* key(const char* text) noexcept {
    PyObject* result = PyUnicode_InternFromString(text);
    if (result == nullptr) {
        Py_FatalError("no memory for the names that introspection looks for");
    }
    return result;
}

Keys makeKeys() noexcept {
    Keys result{};
    result.annotations = key("__annotations__");
    result.axes = key("axes");
    result.curframe = key("curframe");
    result.dataclassFields = key("__dataclass_fields__");
    result.dir = key("__dir__");
    result.doc = key("__doc__");
    result.enumType = key("EnumType");
    result.file = key("__file__");
    result.final = key("Final");
    result.fields = key("__fields__");
    result.fset = key("fset");
    result.getattr = key("__getattr__");
    result.getattribute = key("__getattribute__");
    result.initVar = key("InitVar");
    result.manager = key("_mgr");
    result.memberMap = key("_member_map_");
    result.module = key("__module__");
    result.moduleName = key("__name__");
    result.mro = key("mro");
    result.origin = key("__origin__");
    result.path = key("__path__");
    return result;
}

}  // namespace

const Keys& keys() noexcept {
    static const Keys result = makeKeys();
    return result;
}

}  // namespace python_host
