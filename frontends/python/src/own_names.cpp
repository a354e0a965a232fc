#include "frontends/python/src/own_names.h"

#include <string>

#include "frontends/completion/ask.h"
#include "frontends/python/src/bindings.h"
#include "host/i18n.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Item;
using completion::Kind;

Kind kindOfOwnNames(const qxSharedArray& value) {
    return qxGetClassID(value.get()) == qxClassID::structure ? Kind::field : Kind::property;
}

std::vector<Item> ownNames(const qxSharedArray& value, PyObject* object) {
    const Kind kind = kindOfOwnNames(value);
    std::vector<Item> items = publicBindings(python_host::attributesOf(object), [kind](PyObject*) { return kind; });
    for (const std::string& name : completion::unlessItFails([&] { return python_host::directoryNamesOf(object); })) {
        items.push_back({fl::i18n::to_ustring(name), Kind::property});
    }
    return items;
}

}  // namespace contextdata::python
