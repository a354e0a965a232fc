// Visibility of the symbols that cross the boundary between the library and its host.
#pragma once

/// Marks a type or function that the host defines in its own shared library and that contextdata resolves
/// when both are loaded. It keeps default visibility in a build that hides everything else, so that one type
/// has one identity on both sides (exceptions are caught by type).
#define CONTEXTDATA_HOST_API __attribute__((visibility("default")))
