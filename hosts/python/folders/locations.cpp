#include "hosts/python/folders/locations.h"

#include <string_view>
#include <system_error>

#include "hosts/python/errors.h"
#include "hosts/python/folders/file_names.h"

namespace python_host {

namespace {

namespace fs = std::filesystem;

/// A location is a path behind this mark.
constexpr std::u16string_view locationMark = u"file:";

std::u16string textOf(const fs::path& path) {
    auto text = textOfPath(path);
    if (!text) {
        throw PythonFailure("the name of a folder is no text");
    }
    return std::move(*text);
}

}  // namespace

vfs::Location locationOf(const fs::path& path) { return {std::u16string(locationMark) + textOf(path)}; }

fs::path pathOf(const vfs::Location& location) {
    const std::u16string_view iri = location.iri;
    auto path = iri.starts_with(locationMark) ? pathOfText(iri.substr(locationMark.size())) : std::nullopt;
    if (!path) {
        throw PythonFailure("the location is none of the file system");
    }
    return std::move(*path);
}

}  // namespace python_host

namespace fs = std::filesystem;
using python_host::locationOf;
using python_host::pathOf;

std::u16string vfs::GetName(const Location& location) { return python_host::textOf(pathOf(location).filename()); }

vfs::Location vfs::GetParent(const Location& location) { return locationOf(pathOf(location).parent_path()); }

bool vfs::AreSame(const Location& first, const Location& second) {
    const fs::path firstPath = pathOf(first).lexically_normal();
    const fs::path secondPath = pathOf(second).lexically_normal();
    // One folder may have several names, through links.
    std::error_code failed;
    return firstPath == secondPath || (fs::equivalent(firstPath, secondPath, failed) && !failed);
}

std::u16string vfs::GetStringFromIRI(const Location& location) { return python_host::textOf(pathOf(location)); }
