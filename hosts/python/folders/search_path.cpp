#include "hosts/python/folders/search_path.h"

#include <Python.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "hosts/python/errors.h"
#include "hosts/python/folders/file_names.h"
#include "hosts/python/folders/locations.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

namespace fs = std::filesystem;

/// Where Python finds modules, no folder is closed to anybody.
constexpr std::int32_t plainPathEntry = 0;

class WorkingFolder final : public ICurrentFolder, public IFolder {
public:
    const IFolder& get() const override { return *this; }
    vfs::Location getLocation() const override { return locationOf(workingDirectory()); }
};

/// Whether a name says where it lies below a folder, without a step up or a root of its own.
bool leadsDownwards(const fs::path& name) {
    return name.is_relative() &&
           std::none_of(name.begin(), name.end(), [](const fs::path& part) { return part == "." || part == ".."; });
}

bool isFolder(const fs::path& path) {
    std::error_code failed;
    return fs::is_directory(path, failed);
}

class PathEntry final : public IPathEntry {
public:
    explicit PathEntry(fs::path folder) : folder_(std::move(folder)) {}

    vfs::Location getLocation() const override { return locationOf(folder_); }
    std::int32_t getKind() const override { return plainPathEntry; }

    std::optional<vfs::Location> findFolder(const std::u16string& name) const override {
        const auto path = name.empty() ? std::nullopt : pathOfText(name);
        if (!path) {
            return std::nullopt;
        }
        if (leadsDownwards(*path) && isFolder(folder_ / *path)) {
            return locationOf(folder_ / *path);
        }
        return isNameOfEntry(*path) && isFolder(folder_) ? std::optional(locationOf(folder_)) : std::nullopt;
    }

private:
    bool isNameOfEntry(const fs::path& name) const {
        return name.is_absolute() ? name.lexically_normal() == folder_ : name == folder_.filename();
    }

    fs::path folder_;
};

/// Without a folder at its end, and so without an empty last part.
fs::path trimmed(const fs::path& path) {
    fs::path normal = path.lexically_normal();
    return normal.has_filename() || !normal.has_relative_path() ? normal : normal.parent_path();
}

fs::path absolutePath(const fs::path& entry, const fs::path& working) { return trimmed(working / entry); }

/// The texts first: finding the working directory may run a signal handler of the session's.
std::vector<fs::path> spelledEntries() {
    std::vector<fs::path> entries;
    PyObject* list = findInModule("sys", keys().searchPath);
    if (list == nullptr || !PyList_CheckExact(list)) {
        return entries;
    }
    std::string buffer;
    for (Py_ssize_t index = 0; index < PyList_GET_SIZE(list); ++index) {
        PyObject* item = PyList_GET_ITEM(list, index);
        const auto text = PyUnicode_CheckExact(item) ? utf8Of(item, buffer) : std::nullopt;
        if (auto path = text ? pathOfText(*text) : std::nullopt) {
            entries.push_back(std::move(*path));
        }
    }
    return entries;
}

class SearchPath final : public ISearchPath {
public:
    void visit(const std::function<bool(const std::shared_ptr<IPathEntry>&)>& visitor) const override {
        for (fs::path& entry : searchPathEntries()) {
            if (!visitor(std::make_shared<PathEntry>(std::move(entry)))) {
                return;
            }
        }
    }
};

}  // namespace

fs::path workingDirectory() {
    std::error_code failed;
    fs::path path = fs::current_path(failed);
    if (failed) {
        throw PythonFailure("there is no working directory: " + failed.message());
    }
    return path;
}

std::vector<fs::path> searchPathEntries() {
    const PendingErrorGuard pending;
    std::vector<fs::path> entries = spelledEntries();
    // A working directory that was removed matters to those entries alone that lie in it.
    std::error_code noWorkingDirectory;
    const fs::path working = fs::current_path(noWorkingDirectory);
    if (noWorkingDirectory) {
        std::erase_if(entries, [](const fs::path& entry) { return entry.is_relative(); });
    }
    for (fs::path& entry : entries) {
        entry = absolutePath(entry, working);
    }
    // A relative entry is as unnameable as the directory that it lies in.
    std::erase_if(entries, [](const fs::path& entry) { return !textOfPath(entry); });
    return entries;
}

const ICurrentFolder& currentFolder() {
    static const WorkingFolder folder;
    return folder;
}

const ISearchPath& searchPath() {
    static const SearchPath path;
    return path;
}

}  // namespace python_host
