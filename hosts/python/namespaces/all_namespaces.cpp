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
#include "hosts/python/initial.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_host.h"
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

/// Calls `take` with the full name of each loaded module of interest.
template <class Take>
void eachLoaded(const Initial& initial, Take take) {
    std::string buffer;
    eachTextItem(loadedModules(), [&](PyObject* key, PyObject* value) {
        const auto name = PyModule_Check(value) ? utf8Of(key, buffer) : std::nullopt;
        if (name && initial.begins(*name) && isPlainName(*name)) {
            take(*name);
        }
    });
}

void addImportable(const Initial& initial, std::vector<std::string>& names) {
    for (const std::filesystem::path& folder : searchPathEntries()) {
        checkForInterrupt();
        addModulesInFolder(folder, initial, names);
    }
    addCompiledIn(initial, names);
}

void sortOnce(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace

qxUniqueArray allNamespaceObjects() {
    const PendingErrorGuard pending;
    std::vector<std::string> names;
    eachLoaded(Initial(), [&names](std::string_view name) { names.emplace_back(name); });
    addImportable(Initial(), names);
    sortOnce(names);
    NameList list;
    for (const std::string& name : names) {
        list.append(name);
    }
    return makeNamespaceObjects(std::move(list));
}

std::vector<std::string> outermostModules(std::string_view typed) {
    const PendingErrorGuard pending;
    const Initial initial(typed);
    std::vector<std::string> names;
    // A package stands right before what it holds, as a rule, and need not be noted once for each.
    eachLoaded(initial, [&names](std::string_view name) {
        const std::string_view outermost = splitFirst(name).first;
        if (names.empty() || names.back() != outermost) {
            names.emplace_back(outermost);
        }
    });
    addImportable(initial, names);
    sortOnce(names);
    return names;
}

}  // namespace python_host
