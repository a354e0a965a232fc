// Folders: the virtual file system, the search path, the working folder, and the listing of a folder. Interpreter
// thread; every operation may throw any host failure or the interrupt.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/visibility.h"

namespace vfs {

/// A place in the virtual file system, by the host's own identifier. A plain value.
struct Location {
    std::u16string iri;  ///< of any form; the library hands it back unread
};

/// The last part of a location's name.
CONTEXTDATA_HOST_API std::u16string GetName(const Location& location);

/// The folder that a location lies in; the location itself for a root.
CONTEXTDATA_HOST_API Location GetParent(const Location& location);

/// Whether two locations are the same place.
CONTEXTDATA_HOST_API bool AreSame(const Location& first, const Location& second);

/// The path of a location, as the listing of folders takes it.
CONTEXTDATA_HOST_API std::u16string GetStringFromIRI(const Location& location);

}  // namespace vfs

/// A folder that knows where it is.
class IFolder {
public:
    /// Where it is at this moment.
    virtual vfs::Location getLocation() const = 0;

protected:
    ~IFolder() = default;
};

/// The working folder.
class ICurrentFolder {
public:
    /// Borrowed until the working folder changes.
    virtual const IFolder& get() const = 0;

protected:
    ~ICurrentFolder() = default;
};

/// Kind of a search-path entry that holds private folders: they count for code of the working folder alone.
inline constexpr std::int32_t privatePathEntry = 3;

/// One entry of the search path.
class IPathEntry {
public:
    virtual ~IPathEntry() = default;

    /// Where the entry itself lies.
    virtual vfs::Location getLocation() const = 0;

    /// The folder of that name which lies in the entry, or which the entry is; empty when there is none.
    virtual std::optional<vfs::Location> findFolder(const std::u16string& name) const = 0;

    /// The kind of the entry; all but `privatePathEntry` are the host's own.
    virtual std::int32_t getKind() const = 0;

protected:
    IPathEntry() = default;
    IPathEntry(const IPathEntry&) = default;
    IPathEntry& operator=(const IPathEntry&) = default;
};

/// The folders in which the host looks for code.
class ISearchPath {
public:
    /// Shows the entries in the order in which they are searched, until the function answers false. What the function
    /// throws passes out.
    virtual void visit(const std::function<bool(const std::shared_ptr<IPathEntry>&)>& visitor) const = 0;

protected:
    ~ISearchPath() = default;
};

/// What the file system says about a path.
struct FileStatus {
    bool exists = false;       ///< false also for a path that cannot be looked at
    bool isDirectory = false;  ///< only what exists is one
};

/// What the file system says about a path, as `vfs::GetStringFromIRI` gives it. Nothing there is an answer, not a
/// failure.
CONTEXTDATA_HOST_API FileStatus status(const std::u16string& path);

/// Whether a status is that of a folder.
inline bool is_directory(const FileStatus& status) noexcept { return status.isDirectory; }

/// Appends the names of the entries that match a pattern, itself and its parent left out.
///
/// The pattern is a folder's path, a backslash and the wildcard "*", on every system: the last backslash divides the
/// two whatever else stands in the path. `flag` 1 asks for files and folders alike, hidden ones included.
CONTEXTDATA_HOST_API void ioGetDirList(const std::u16string& pattern, std::vector<std::u16string>& list, int flag);
