#include "frontends/python/src/own_names.h"

#include <string>

#include "frontends/completion/ask.h"
#include "host/i18n.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Item;
using completion::Kind;

std::vector<Item> ownNames(const qxSharedArray& value, PyObject* object) {
    const python_host::OwnNames own = completion::unlessItFails([&] { return python_host::ownNamesOf(object); });
    const bool isRecord = qxGetClassID(value.get()) == qxClassID::structure;
    std::vector<Item> items;
    items.reserve(own.names.size());
    for (const std::string& name : own.names) {
        const bool isField = isRecord && items.size() < own.attributeCount;
        items.push_back({fl::i18n::to_ustring(name), isField ? Kind::field : Kind::property, {}});
    }
    return items;
}

}  // namespace contextdata::python
