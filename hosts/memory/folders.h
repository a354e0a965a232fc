// The working folder and the search path of the in-memory host, over the real folders of the machine.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/file_system.h"

namespace memory_host {

/// A location is the path of the file system behind this mark.
inline constexpr std::u16string_view locationMark = u"memory-host:";

vfs::Location locationOf(const std::u16string& path);

class WorkingFolder final : public ICurrentFolder, public IFolder {
public:
    const IFolder& get() const override;
    vfs::Location getLocation() const override;

    std::u16string path;
};

class PathEntry final : public IPathEntry {
public:
    PathEntry(std::u16string path, std::int32_t kind) : path_(std::move(path)), kind_(kind) {}

    vfs::Location getLocation() const override;
    std::optional<vfs::Location> findFolder(const std::u16string& name) const override;
    std::int32_t getKind() const override;

private:
    std::u16string path_;
    std::int32_t kind_;
};

class SearchPath final : public ISearchPath {
public:
    void visit(const std::function<bool(const std::shared_ptr<IPathEntry>&)>& visitor) const override;

    std::vector<std::shared_ptr<IPathEntry>> entries;
};

}  // namespace memory_host
