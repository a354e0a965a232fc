#include "frontends/python/src/own_names.h"

#include <string>

#include "frontends/completion/ask.h"
#include "frontends/completion/value_members.h"
#include "host/i18n.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Item;
using completion::Kind;

std::vector<Item> ownNames(const qxSharedArray& value, PyObject* object) {
    if (qxGetClassID(value.get()) == qxClassID::structure) {
        return completion::ownMembers(value.get());
    }
    std::vector<Item> items;
    for (const std::string& name : completion::unlessItFails([&] { return python_host::namesOf(object); })) {
        items.push_back({fl::i18n::to_ustring(name), Kind::property, {}});
    }
    return items;
}

}  // namespace contextdata::python
