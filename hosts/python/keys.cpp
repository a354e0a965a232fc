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
    result.abstractMeta = key("ABCMeta");
    result.annotations = key("__annotations__");
    result.axes = key("axes");
    result.cachedProperty = key("cached_property");
    result.call = key("__call__");
    result.curframe = key("curframe");
    result.curframeLocals = key("curframe_locals");
    result.dataclassFields = key("__dataclass_fields__");
    result.dataclassParams = key("__dataclass_params__");
    result.dir = key("__dir__");
    result.doc = key("__doc__");
    result.enumType = key("EnumType");
    result.fieldKind = key("_field_type");
    result.fields = key("__fields__");
    result.fieldType = key("Field");
    result.file = key("__file__");
    result.final = key("Final");
    result.frozen = key("frozen");
    result.fset = key("fset");
    result.func = key("func");
    result.functools = key("functools");
    result.getattr = key("__getattr__");
    result.getattribute = key("__getattribute__");
    result.hasTraits = key("HasTraits");
    result.init = key("__init__");
    result.initSubclass = key("__init_subclass__");
    result.initVar = key("InitVar");
    result.make = key("__new__");
    result.manager = key("_mgr");
    result.memberMap = key("_member_map_");
    result.metadata = key("metadata");
    result.module = key("__module__");
    result.moduleName = key("__name__");
    result.mro = key("mro");
    result.ordinaryField = key("_FIELD");
    result.origin = key("__origin__");
    result.paramsType = key("_DataclassParams");
    result.partial = key("partial");
    result.path = key("__path__");
    result.priority = key("__array_priority__");
    result.searchPath = key("path");
    result.traitsModule = key("traitlets.traitlets");
    result.traitType = key("TraitType");
    result.wrapped = key("__wrapped__");
    return result;
}

}  // namespace

const Keys& keys() noexcept {
    static const Keys result = makeKeys();
    return result;
}

}  // namespace python_host
