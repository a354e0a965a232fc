#include "hosts/python/namespaces/all_namespaces.h"

#include <Python.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/folders/package_folders.h"
#include "hosts/python/folders/search_path.h"
#include "hosts/python/folders/unloaded_modules.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"
#include "hosts/python/values/values.h"

namespace python_host {

namespace {

/// Whether code can spell the name: identifiers with dots between them.
bool isPlainName(std::string_view dotted) {
    if (dotted.empty() || dotted.ends_with('.')) {
        return false;
    }
    SplitName split{{}, dotted};
    while (!split.rest.empty()) {
        split = splitFirst(split.rest);
        if (!isIdentifier(split.first)) {
            return false;
        }
    }
    return true;
}

void addLoaded(std::vector<std::string>& names) {
    std::string buffer;
    eachTextItem(loadedModules(), [&](PyObject* key, PyObject* value) {
        const auto name = PyModule_Check(value) ? utf8Of(key, buffer) : std::nullopt;
        if (name && isPlainName(*name)) {
            names.emplace_back(*name);
        }
    });
}

void addImportable(std::vector<std::string>& names) {
    for (const std::filesystem::path& folder : searchPathEntries()) {
        checkForInterrupt();
        addModulesInFolder(folder, names);
    }
}

}  // namespace

qxUniqueArray allNamespaceObjects() {
    const PendingErrorGuard pending;
    std::vector<std::string> names;
    addLoaded(names);
    addImportable(names);
    addCompiledIn(names);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    NameList list;
    for (const std::string& name : names) {
        list.append(name);
    }
    return makeNamespaceObjects(std::move(list));
}

}  // namespace python_host
