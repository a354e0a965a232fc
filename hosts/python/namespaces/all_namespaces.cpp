#include "hosts/python/namespaces/all_namespaces.h"

#include <Python.h>

#include <set>
#include <string>
#include <string_view>

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

using Names = std::set<std::string>;

bool isIdentifierText(std::string_view name) {
    const Ref text = Ref::steal(makeText(name));
    return text && isIdentifier(text.get());
}

/// Whether code can spell the name: identifiers with dots between them.
bool isPlainName(std::string_view dotted) {
    if (dotted.empty() || dotted.ends_with('.')) {
        return false;
    }
    SplitName split{{}, dotted};
    while (!split.rest.empty()) {
        split = splitFirst(split.rest);
        if (!isIdentifierText(split.first)) {
            return false;
        }
    }
    return true;
}

void addLoaded(Names& names) {
    std::string buffer;
    eachTextItem(loadedModules(), [&](PyObject* key, PyObject* value) {
        const auto name = PyModule_Check(value) ? utf8Of(key, buffer) : std::nullopt;
        if (name && isPlainName(*name)) {
            names.emplace(*name);
        }
    });
}

void addImportable(Names& names) {
    for (const std::filesystem::path& folder : searchPathEntries()) {
        checkForInterrupt();
        addModulesInFolder(folder, names);
    }
}

}  // namespace

qxUniqueArray allNamespaceObjects() {
    const PendingErrorGuard pending;
    Names names;
    addLoaded(names);
    addImportable(names);
    addCompiledIn(names);
    NameList list;
    for (const std::string& name : names) {
        list.append(name);
    }
    return makeNamespaceObjects(std::move(list));
}

}  // namespace python_host
