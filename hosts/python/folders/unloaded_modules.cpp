#include "hosts/python/folders/unloaded_modules.h"

#include <Python.h>

#include <utility>

#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/folders/package_folders.h"
#include "hosts/python/folders/search_path.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

namespace fs = std::filesystem;

using Folders = std::vector<fs::path>;
using Found = std::optional<UnloadedModule>;

template <class Take>
void eachCompiledIn(Take take) {
    const Ref names = Ref::share(findInModule("sys", keys().builtinModuleNames));
    if (!names || !PyTuple_CheckExact(names.get())) {
        return;
    }
    for (Py_ssize_t place = 0; place < PyTuple_GET_SIZE(names.get()); ++place) {
        PyObject* name = PyTuple_GET_ITEM(names.get(), place);
        if (PyUnicode_CheckExact(name) && isIdentifier(name)) {
            take(lossyUtf8Of(name));
        }
    }
}

bool isCompiledIn(std::string_view name) {
    bool isFound = false;
    eachCompiledIn([&](const std::string& each) { isFound = isFound || each == name; });
    return isFound;
}

/// A module of one name in the first of the folders that has it. A package wins over a file in the same folder.
Found findIn(const Folders& folders, std::string_view name) {
    for (const fs::path& folder : folders) {
        checkForInterrupt();
        if (fs::path own = folder / name; isPackageFolder(own.native())) {
            return UnloadedModule{{std::move(own)}};
        }
        if (hasModuleFile(folder, name)) {
            return UnloadedModule{};
        }
    }
    return std::nullopt;
}

Found findOutermost(std::string_view name) {
    return isCompiledIn(name) ? Found(UnloadedModule{}) : findIn(searchPathEntries(), name);
}

}  // namespace

Found findUnloadedModule(std::string_view dotted) {
    // Even an entry that is no module keeps the interpreter from importing one of that name.
    const Ref full = Ref::steal(makeText(dotted));
    if (!full || findItem(loadedModules(), full.get()) != nullptr) {
        return std::nullopt;
    }
    const std::size_t dot = dotted.rfind('.');
    const std::string_view name = dotted.substr(dot + 1);
    if (!isIdentifier(name)) {
        return std::nullopt;
    }
    if (dot == std::string_view::npos) {
        return findOutermost(name);
    }
    const std::string_view outer = dotted.substr(0, dot);
    if (const Ref package = Ref::share(findLoadedModule(outer))) {
        return findIn(foldersOfPackage(package.get()), name);
    }
    const Found package = findUnloadedModule(outer);
    return package ? findIn(package->folders, name) : std::nullopt;
}

void addCompiledIn(const Initial& initial, std::vector<std::string>& names) {
    eachCompiledIn([&](std::string name) {
        if (initial.begins(name) && !isSpecialName(name)) {
            names.push_back(std::move(name));
        }
    });
}

}  // namespace python_host
