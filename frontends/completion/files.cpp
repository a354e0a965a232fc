#include "frontends/completion/files.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "frontends/completion/ask.h"
#include "frontends/completion/ranking.h"
#include "host/dispatcher.h"
#include "host/file_system.h"

namespace contextdata::completion {

namespace {

using Names = std::vector<std::u16string>;

std::u16string workingFolder() {
    return vfs::GetStringFromIRI(Dispatcher::getDispatcher().GetCurrentWorkingFolder().get().getLocation());
}

/// The folder part of a path, by its full name and with the mark at its end.
std::u16string folderOf(std::u16string_view path) {
    const std::u16string_view folder = path.substr(0, path.size() - lastOfPath(path).size());
    if (folder.starts_with(folderMark)) {
        return std::u16string(folder);
    }
    return workingFolder() + folderMark + std::u16string(folder);
}

bool isFolder(const std::u16string& path) { return is_directory(status(path)); }

Names entriesOf(const std::u16string& folder) {
    Names entries;
    if (isFolder(folder)) {
        constexpr int filesAndFolders = 1;
        ioGetDirList(folder + u"\\*", entries, filesAndFolders);
    }
    return entries;
}

std::vector<Item> filesIn(const std::u16string& folder, bool showsHidden, char16_t quote, const Language& language) {
    std::vector<Item> items;
    for (const std::u16string& entry : entriesOf(folder)) {
        const bool isHidden = entry.starts_with(u'.') && !showsHidden;
        std::u16string name = isHidden ? std::u16string() : language.escaped(entry, quote);
        if (!name.empty()) {
            // The entry itself, until it is known what it is.
            items.push_back({.name = std::move(name), .kind = Kind::file, .definingClass = SharedText(entry)});
        }
    }
    return items;
}

/// Asking the file system takes a time for each, so only what is chosen is asked about.
Items withFoldersMarked(Items items, const std::u16string& folder) {
    for (Item& item : items) {
        if (isFolder(folder + std::exchange(item.definingClass, {}).text())) {
            item.kind = Kind::folder;
            item.name += folderMark;
        }
    }
    std::sort(items.begin(), items.end(), ranksBefore);
    return items;
}

Items itemsIn(const std::u16string& folder, const Choice& choice, char16_t quote, const Language& language) {
    return withFoldersMarked(chosen(filesIn(folder, !choice.typed.empty(), quote, language), choice), folder);
}

}  // namespace

std::u16string_view lastOfPath(std::u16string_view path) noexcept { return path.substr(path.rfind(folderMark) + 1); }

Items filesOf(std::u16string_view path, char16_t quote, const Language& language, bool isRanked) {
    const bool hasEscape = path.find(u'\\') != std::u16string_view::npos;
    if (hasEscape || path.starts_with(u'~')) {
        return {};
    }
    return unlessItFails([&] { return itemsIn(folderOf(path), {lastOfPath(path), isRanked}, quote, language); });
}

}  // namespace contextdata::completion
