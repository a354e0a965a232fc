#include "hosts/python/folders/package_folders.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

namespace fs = std::filesystem;

bool isOffered(std::string_view name) { return isIdentifier(name) && !isSpecialName(name); }

/// What a folder holds that could be imported, as it was when the folder changed last.
struct FolderPicture {
    fs::file_time_type changed;
    std::vector<std::string> modules;
    std::vector<std::string> subfolders;
};

/// Two changes within one tick of the clock of files look the same, so a picture this young is not kept.
constexpr auto unsettledFor = std::chrono::seconds(2);
constexpr std::size_t pictureLimit = 256;

void addEntry(const fs::directory_entry& entry, FolderPicture& picture) {
    const std::string name = entry.path().filename().string();
    std::error_code error;
    const bool mayBeFolder = entry.is_directory(error) || entry.is_symlink(error);
    if (mayBeFolder && isOffered(name)) {
        picture.subfolders.push_back(name);
        return;
    }
    const bool isModule = !entry.is_directory(error) && (name.ends_with(".py") || name.ends_with(".so"));
    std::string shortName = name.substr(0, name.find('.'));
    if (isModule && isOffered(shortName)) {
        picture.modules.push_back(std::move(shortName));
    }
}

FolderPicture readFolder(const fs::path& folder, fs::file_time_type changed) {
    FolderPicture picture{changed, {}, {}};
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        addEntry(*entry, picture);
    }
    return picture;
}

/// Pictures of the folders that were asked for, each taken anew once its folder has changed.
class FolderPictures {
public:
    const FolderPicture& of(const fs::path& folder) {
        std::error_code error;
        const fs::file_time_type changed = fs::last_write_time(folder, error);
        const auto known = pictures_.find(folder.native());
        if (!error && known != pictures_.end() && known->second.changed == changed) {
            return known->second;
        }
        latest_ = error ? FolderPicture() : readFolder(folder, changed);
        // What a relative path means changes with the working directory.
        const bool isSettled =
            !error && folder.is_absolute() && fs::file_time_type::clock::now() - changed > unsettledFor;
        return isSettled ? keep(folder.native()) : latest_;
    }

private:
    const FolderPicture& keep(const std::string& folder) {
        if (pictures_.size() >= pictureLimit) {
            pictures_.clear();
        }
        return pictures_[folder] = std::move(latest_);
    }

    std::unordered_map<std::string, FolderPicture> pictures_;
    FolderPicture latest_;
};

const FolderPicture& pictureOf(const fs::path& folder) {
    static FolderPictures pictures;
    return pictures.of(folder);
}

}  // namespace

// A folder becomes a package by a file in it, which leaves the time of the folder around it as it was.
bool isPackageFolder(const std::string& folder) {
    struct stat status = {};
    return ::stat((folder + "/__init__.py").c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool hasModuleFile(const fs::path& folder, std::string_view name) {
    const std::vector<std::string>& modules = pictureOf(folder).modules;
    return std::find(modules.begin(), modules.end(), name) != modules.end();
}

void addModulesInFolder(const fs::path& folder, const Initial& initial, std::vector<std::string>& names) {
    const FolderPicture& picture = pictureOf(folder);
    std::copy_if(picture.modules.begin(), picture.modules.end(), std::back_inserter(names),
                 [&initial](const std::string& name) { return initial.begins(name); });
    const std::string prefix = folder.native() + '/';
    for (const std::string& subfolder : picture.subfolders) {
        if (initial.begins(subfolder) && isPackageFolder(prefix + subfolder)) {
            names.push_back(subfolder);
        }
    }
}

std::vector<fs::path> foldersOfPackage(PyObject* module) {
    std::vector<fs::path> folders;
    PyObject* path = findItem(PyModule_GetDict(module), keys().path);
    // A package without its own file has a path object that computes; only plain lists are read.
    if (path == nullptr || !PyList_CheckExact(path)) {
        return folders;
    }
    for (Py_ssize_t index = 0; index < PyList_GET_SIZE(path); ++index) {
        PyObject* folder = PyList_GET_ITEM(path, index);
        if (PyUnicode_CheckExact(folder)) {
            folders.emplace_back(lossyUtf8Of(folder));
        }
    }
    return folders;
}

std::vector<std::string> submodulesInFolders(PyObject* module) {
    std::vector<std::string> names;
    for (const fs::path& folder : foldersOfPackage(module)) {
        addModulesInFolder(folder, Initial(), names);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

}  // namespace python_host
