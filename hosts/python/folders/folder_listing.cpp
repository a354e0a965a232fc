// What lies in a folder.
#include <Python.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "host/file_system.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/file_names.h"

namespace python_host {

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::u16string>;

constexpr std::size_t entriesBetweenInterrupts = 1024;

fs::path folderOfPattern(const std::u16string& pattern) {
    const std::size_t divide = pattern.rfind(u'\\');
    if (divide == std::u16string::npos || pattern.compare(divide + 1, std::u16string::npos, u"*") != 0) {
        throw PythonFailure("a pattern is a folder, a backslash and *");
    }
    auto folder = pathOfText(pattern.substr(0, divide));
    if (!folder) {
        throw PythonFailure("the name of a folder is no text");
    }
    return std::move(*folder);
}

[[noreturn]] void throwUnlistable(const std::error_code& reason) {
    throw PythonFailure("the folder cannot be listed: " + reason.message());
}

/// By name, since the file system has no order of its own. A name that is no UTF-8 has none in the host's text.
Names namesIn(const fs::path& folder) {
    Names names;
    std::error_code failed;
    std::size_t count = 0;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed)) {
        if (auto name = textOfPath(entry->path().filename())) {
            names.push_back(std::move(*name));
        }
        if (++count % entriesBetweenInterrupts == 0) {
            checkForInterrupt();
        }
    }
    if (failed) {
        throwUnlistable(failed);
    }
    std::sort(names.begin(), names.end());
    return names;
}

FileStatus statusOf(const std::u16string& path) {
    const auto file = pathOfText(path);
    if (!file) {
        return {};
    }
    std::error_code failed;
    const fs::file_status found = fs::status(*file, failed);
    return {fs::exists(found), fs::is_directory(found)};
}

}  // namespace

}  // namespace python_host

FileStatus status(const std::u16string& path) {
    const FileStatus found = python_host::statusOf(path);
    // Where there are no drives, a name that ends so may be that of any folder, asked for as if it were one.
    const bool isLikeDrive = !found.exists && path.ends_with(u":\\");
    return isLikeDrive ? python_host::statusOf(path.substr(0, path.size() - 1)) : found;
}

void ioGetDirList(const std::u16string& pattern, std::vector<std::u16string>& list, int flag) {
    constexpr int filesAndFolders = 1;
    const python_host::PendingErrorGuard pending;
    if (flag != filesAndFolders) {
        throw python_host::PythonFailure("only files and folders alike can be listed");
    }
    std::vector<std::u16string> names = python_host::namesIn(python_host::folderOfPattern(pattern));
    list.insert(list.end(), std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
}
