// Places in the file system by the host's own identifier.
#pragma once

#include <filesystem>

#include "host/file_system.h"

namespace python_host {

/// The location of an absolute path; throws a host failure for a path whose name is no UTF-8.
vfs::Location locationOf(const std::filesystem::path& path);

/// The path of a location that the host made; throws a host failure for any other.
std::filesystem::path pathOf(const vfs::Location& location);

}  // namespace python_host
