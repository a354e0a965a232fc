#include "hosts/python/keys.h"

#include <string>

#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"

namespace python_host {

namespace {

PyObject* key(const char* text) { return orThrow(PyUnicode_InternFromString(text)); }

/// Kept for good: a session may take the module out of the table of modules. Nothing is imported: that would run code,
/// and another thread could come here meanwhile and wait for ever.
PyObject* dictionaryOf(const char* module) {
    const Ref name = Ref::steal(key(module));
    PyObject* found = findItem(PyImport_GetModuleDict(), name.get());
    if (found == nullptr || !PyModule_Check(found)) {
        throw PythonFailure(std::string(module) + " is not loaded");
    }
    return PyModule_GetDict(Ref::share(found).release());
}

Keys makeKeys() {
    Keys names{};
    names.abstractMeta = key("ABCMeta");
    names.annotations = key("__annotations__");
    names.arrayApi = key("_ARRAY_API");
    names.axes = key("axes");
    names.builtinModuleNames = key("builtin_module_names");
    names.cachedProperty = key("cached_property");
    names.call = key("__call__");
    names.curframe = key("curframe");
    names.curframeLocals = key("curframe_locals");
    names.dataclassFields = key("__dataclass_fields__");
    names.dataclassParams = key("__dataclass_params__");
    names.dir = key("__dir__");
    names.doc = key("__doc__");
    names.enumType = key("EnumType");
    names.fieldKind = key("_field_type");
    names.fields = key("__fields__");
    names.fieldType = key("Field");
    names.file = key("__file__");
    names.final = key("Final");
    names.flush = key("flush");
    names.frozen = key("frozen");
    names.fset = key("fset");
    names.func = key("func");
    names.functools = key("functools");
    names.getattr = key("__getattr__");
    names.getattribute = key("__getattribute__");
    names.hasTraits = key("HasTraits");
    names.init = key("__init__");
    names.initSubclass = key("__init_subclass__");
    names.initVar = key("InitVar");
    names.make = key("__new__");
    names.manager = key("_mgr");
    names.memberMap = key("_member_map_");
    names.metadata = key("metadata");
    names.module = key("__module__");
    names.moduleName = key("__name__");
    names.modules = key("modules");
    names.mro = key("mro");
    names.ordinaryField = key("_FIELD");
    names.origin = key("__origin__");
    names.originalErrors = key("__stderr__");
    names.originalOutput = key("__stdout__");
    names.paramsType = key("_DataclassParams");
    names.partial = key("partial");
    names.partialMethod = key("partialmethod");
    names.path = key("__path__");
    names.priority = key("__array_priority__");
    names.searchPath = key("path");
    names.singleDispatch = key("singledispatchmethod");
    names.standardErrors = key("stderr");
    names.standardOutput = key("stdout");
    names.subclasses = key("__subclasses__");
    names.traitsModule = key("traitlets.traitlets");
    names.traitType = key("TraitType");
    names.unsupportedOperation = key("UnsupportedOperation");
    names.wrapped = key("__wrapped__");
    names.write = key("write");
    names.builtins = dictionaryOf("builtins");
    names.system = dictionaryOf("sys");
    return names;
}

/// Made once; a failure leaves it unmade.
const Keys& made() {
    static const Keys names = makeKeys();
    return names;
}

}  // namespace

const Keys& keys() noexcept { return made(); }

void prepareKeys() { made(); }

Ref systemValue(PyObject* name) noexcept { return Ref::share(findItem(keys().system, name)); }

}  // namespace python_host
