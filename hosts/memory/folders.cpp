#include "hosts/memory/folders.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>

#include "hosts/memory/encoding.h"
#include "hosts/memory/failure.h"
#include "hosts/memory/watch.h"

namespace memory_host {

namespace {

namespace fs = std::filesystem;

fs::path pathOf(const vfs::Location& location) { return fs::path(location.iri.substr(locationMark.size())); }

/// A path as the journal shows it; empty when it is invalid text.
std::string shown(const std::u16string& path) { return utf8Of(path).value_or(""); }

/// A name of the file system that is no UTF-8 has no UTF-16 form; the world does not know it.
void appendName(const fs::path& name, std::vector<std::u16string>& names) {
    try {
        names.push_back(name.u16string());
    } catch (const std::system_error&) {
        return;
    }
}

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

[[noreturn]] void failToList() { throw HostFailure(std::generic_category().message(errno)); }

/// The names in a folder. By the system's own calls: the library's iterator ends the process when memory is lacking.
std::vector<std::u16string> namesIn(const fs::path& path) {
    const std::unique_ptr<DIR, FolderCloser> folder(opendir(path.c_str()));
    if (!folder) {
        failToList();
    }
    std::vector<std::u16string> names;
    errno = 0;
    while (const dirent* entry = readdir(folder.get())) {
        const fs::path name(entry->d_name);
        if (name != "." && name != "..") {
            appendName(name, names);
        }
        errno = 0;
    }
    if (errno != 0) {
        failToList();
    }
    return names;
}

}  // namespace

vfs::Location locationOf(const std::u16string& path) { return {std::u16string(locationMark) + path}; }

const IFolder& WorkingFolder::get() const {
    enter(Service::currentFolderGet);
    return *this;
}

vfs::Location WorkingFolder::getLocation() const {
    enter(Service::folderGetLocation);
    return memory_host::locationOf(path);
}

vfs::Location PathEntry::getLocation() const {
    enter(Service::pathEntryGetLocation);
    return memory_host::locationOf(path_);
}

std::optional<vfs::Location> PathEntry::findFolder(const std::u16string& name) const {
    enter(Service::pathEntryFindFolder);
    const fs::path entry(path_);
    const fs::path inside = entry / fs::path(name);
    std::error_code failed;
    if (fs::is_directory(inside, failed)) {
        return memory_host::locationOf(inside.u16string());
    }
    const bool isEntry = fs::path(name) == entry.filename() && fs::is_directory(entry, failed);
    return isEntry ? std::optional(memory_host::locationOf(path_)) : std::nullopt;
}

std::int32_t PathEntry::getKind() const {
    enter(Service::pathEntryGetKind);
    return kind_;
}

void SearchPath::visit(const std::function<bool(const std::shared_ptr<IPathEntry>&)>& visitor) const {
    enter(Service::searchPathVisit);
    for (const std::shared_ptr<IPathEntry>& entry : entries) {
        if (!visitor(entry)) {
            return;
        }
    }
}

}  // namespace memory_host

using memory_host::enter;
using memory_host::Service;

std::u16string vfs::GetName(const Location& location) {
    enter(Service::vfsGetName);
    return memory_host::pathOf(location).filename().u16string();
}

vfs::Location vfs::GetParent(const Location& location) {
    enter(Service::vfsGetParent);
    return memory_host::locationOf(memory_host::pathOf(location).parent_path().u16string());
}

bool vfs::AreSame(const Location& first, const Location& second) {
    enter(Service::vfsAreSame);
    return memory_host::pathOf(first).lexically_normal() == memory_host::pathOf(second).lexically_normal();
}

std::u16string vfs::GetStringFromIRI(const Location& location) {
    enter(Service::vfsGetStringFromIRI);
    return memory_host::pathOf(location).u16string();
}

FileStatus status(const std::u16string& path) {
    enter(Service::fileStatus, std::string_view(memory_host::shown(path)));
    std::error_code failed;
    const std::filesystem::file_status found = std::filesystem::status(path, failed);
    return {std::filesystem::exists(found), std::filesystem::is_directory(found)};
}

void ioGetDirList(const std::u16string& pattern, std::vector<std::u16string>& list, int flag) {
    enter(Service::ioGetDirList, std::string_view(memory_host::shown(pattern)));
    if (flag != 1) {
        throw memory_host::HostFailure("only files and folders alike can be listed");
    }
    const std::size_t divide = pattern.rfind(u'\\');
    if (divide == std::u16string::npos || pattern.substr(divide + 1) != u"*") {
        throw memory_host::HostFailure("a pattern is a folder, a backslash and *");
    }
    std::vector<std::u16string> names = memory_host::namesIn(pattern.substr(0, divide));
    // The file system has no order of its own, and a test wants one.
    std::sort(names.begin(), names.end());
    list.insert(list.end(), names.begin(), names.end());
}
