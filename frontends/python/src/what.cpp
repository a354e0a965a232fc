#include "frontends/python/src/what.h"

#include <memory>
#include <string>
#include <vector>

#include "contextdata/what_list.h"
#include "frontends/completion/ask.h"
#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/python_text.h"
#include "host/dispatcher.h"
#include "host/file_system.h"
#include "host/i18n.h"

namespace contextdata::python {

namespace {

std::u16string textOf(const pybind11::str& text) { return utf16Of(text.ptr(), PyUnicode_GET_LENGTH(text.ptr())); }

bool isOnPath(const std::u16string& folder) {
    bool isFound = false;
    Dispatcher::getDispatcher().GetCurrentPath().visit([&](const std::shared_ptr<IPathEntry>& entry) {
        isFound = entry->findFolder(folder).has_value();
        return !isFound;
    });
    return isFound;
}

}  // namespace

pybind11::object what(const pybind11::str& folder, const pybind11::str& kind) {
    const std::u16string name = textOf(folder);
    if (!name.empty() && !completion::unlessItFails([&] { return isOnPath(name); })) {
        return pybind11::none();
    }
    std::vector<std::u16string> names;
    getWhatList(name, names, fl::i18n::to_string(textOf(kind)));
    pybind11::list list = newList();
    for (const std::u16string& each : names) {
        append(list, strOf(each));
    }
    return list;
}

}  // namespace contextdata::python
