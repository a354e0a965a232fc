#include "hosts/python/resolution/import_scope.h"

#include <boost/range/adaptor/reversed.hpp>

#include <string>

#include "hosts/python/dictionaries.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

PyObject* ImportScope::wholeImportOf(std::string_view name) const {
    const Ref key = Ref::steal(makeText(name));
    if (!key || startsWithUnderscore(name)) {
        return nullptr;
    }
    // Later imports cover earlier ones.
    for (const auto& module : boost::adaptors::reverse(imports_.everythingOf)) {
        if (findInModule(module, key.get()) != nullptr) {
            return findLoadedModule(module);
        }
    }
    return nullptr;
}

bool ImportScope::binds(std::string_view name) const {
    const std::string text(name);
    return imports_.names.contains(text) || imports_.definitions.contains(text) || wholeImportOf(name) != nullptr;
}

Ref ImportScope::resolve(std::string_view dotted) const {
    const SplitName split = splitFirst(dotted);
    const auto found = imports_.names.find(std::string(split.first));
    PyObject* start = nullptr;
    if (found != imports_.names.end()) {
        start = findPath(found->second);
    } else if (!imports_.definitions.contains(std::string(split.first))) {
        PyObject* module = wholeImportOf(split.first);
        start = module == nullptr ? nullptr : memberOf(module, split.first);
    }
    return Ref::share(start == nullptr ? nullptr : walkPath(start, split.rest));
}

}  // namespace python_host
