#include "contextdata/what_list.h"

#include <memory>
#include <optional>
#include <string_view>

#include "host/dispatcher.h"
#include "host/exceptions.h"
#include "host/file_system.h"

namespace {

using Names = std::vector<std::u16string>;

/// A path that ends so is a drive, which is a folder by its root alone.
constexpr char16_t driveMark = u':';

bool isFolder(const std::u16string& path) {
    return is_directory(status(path.ends_with(driveMark) ? path + u'\\' : path));
}

/// Appends the names of all that lies in a folder; nothing when there is no such folder.
void listFolder(const std::u16string& path, Names& entries) {
    constexpr int filesAndFolders = 1;
    if (isFolder(path)) {
        ioGetDirList(path + u"\\*", entries, filesAndFolders);
    }
}

vfs::Location workingFolder() { return Dispatcher::getDispatcher().GetCurrentWorkingFolder().get().getLocation(); }

/// An entry of private folders is open to code of the folder that it lies in.
bool isOpenToWorkingFolder(const IPathEntry& entry) {
    return entry.getKind() != privatePathEntry || vfs::AreSame(vfs::GetParent(entry.getLocation()), workingFolder());
}

void listFolderOfPath(const IPathEntry& entry, const std::u16string& folder, Names& entries) {
    const std::optional<vfs::Location> location = entry.findFolder(folder);
    if (location && isOpenToWorkingFolder(entry)) {
        listFolder(vfs::GetStringFromIRI(*location), entries);
    }
}

Names contentOf(const std::u16string& folder) {
    Names entries;
    if (folder.empty()) {
        listFolder(vfs::GetStringFromIRI(workingFolder()), entries);
        return entries;
    }
    Dispatcher::getDispatcher().GetCurrentPath().visit([&](const std::shared_ptr<IPathEntry>& entry) {
        listFolderOfPath(*entry, folder, entries);
        constexpr bool goOn = true;
        return goOn;
    });
    return entries;
}

Names contentUnlessItFails(const std::u16string& folder) {
    try {
        return contentOf(folder);
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (...) {
        return {};
    }
}

void appendMarked(const Names& entries, char16_t mark, Names& names) {
    for (const std::u16string& entry : entries) {
        if (entry.size() > 1 && entry.front() == mark) {
            names.push_back(entry.substr(1));
        }
    }
}

void appendEndingWith(const Names& entries, std::u16string_view suffix, Names& names) {
    for (const std::u16string& entry : entries) {
        if (entry.ends_with(suffix)) {
            names.push_back(entry);
        }
    }
}

}  // namespace

void getWhatList(const std::u16string& folder, Names& names, const std::string& kind) {
    const Names entries = contentUnlessItFails(folder);
    if (kind == "classes") {
        appendMarked(entries, u'@', names);
    } else if (kind == "packages") {
        appendMarked(entries, u'+', names);
    } else if (kind == ".k") {
        appendEndingWith(entries, u".k", names);
    } else if (kind == ".qxe") {
        // Compiled extensions count for the processor that the host runs on.
        appendEndingWith(entries, u".qxew64", names);
    }
}
