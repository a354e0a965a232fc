#include "hosts/python/package_folders.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>

#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> foldersOf(PyObject* module) {
    std::vector<std::string> folders;
    PyObject* path = findItem(PyModule_GetDict(module), keys().path);
    // A package without its own file has a path object that computes; only plain lists are read.
    if (path == nullptr || !PyList_CheckExact(path)) {
        return folders;
    }
    for (Py_ssize_t index = 0; index < PyList_GET_SIZE(path); ++index) {
        PyObject* folder = PyList_GET_ITEM(path, index);
        if (PyUnicode_CheckExact(folder)) {
            folders.push_back(lossyUtf8Of(folder));
        }
    }
    return folders;
}

bool isPackageFolder(const fs::path& folder) {
    std::error_code error;
    return fs::is_regular_file(folder / "__init__.py", error);
}

/// The name under which a file or folder can be imported.
std::optional<std::string> moduleNameOf(const fs::directory_entry& entry) {
    const std::string name = entry.path().filename().string();
    std::error_code error;
    if (entry.is_directory(error)) {
        return isPackageFolder(entry.path()) ? std::optional(name) : std::nullopt;
    }
    if (name.ends_with(".py") || name.ends_with(".so")) {
        return name.substr(0, name.find('.'));
    }
    return std::nullopt;
}

bool isOffered(const std::string& name) {
    const Ref text = Ref::steal(makeText(name));
    return text && isIdentifier(text.get()) && !isSpecialName(name);
}

}  // namespace

std::vector<std::string> submodulesInFolders(PyObject* module) {
    std::set<std::string> names;
    for (const std::string& folder : foldersOf(module)) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
            const auto name = moduleNameOf(*entry);
            if (name && isOffered(*name)) {
                names.insert(*name);
            }
        }
    }
    return {names.begin(), names.end()};
}

}  // namespace python_host
