// What lies in a folder. Interpreter thread.
#pragma once

#include <string>
#include <vector>

#include "contextdata/export.h"

/// Appends the entries of one kind in a folder, in the order of the listing: of every folder of that name on the search
/// path, one after the other, or of the working folder when the name is empty. A folder in an entry of private folders
/// counts only when the entry lies in the working folder.
///
/// Kinds, exact in letter case: "classes" (entries that begin with "@", which is left out), "packages" (likewise with
/// "+"), ".k" (entries that end so), ".qxe" (entries that end with ".qxew64"). Any other lists nothing.
///
/// The interrupt passes. Any other failure while the folders are read empties the whole list.
CONTEXTDATA_API void getWhatList(const std::u16string& folder, std::vector<std::u16string>& names,
                                 const std::string& kind);
