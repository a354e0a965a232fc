#include "frontends/python/src/insider_items.h"

#include <string>
#include <utility>
#include <vector>

#include "frontends/completion/ask.h"
#include "frontends/completion/insider_members.h"
#include "frontends/completion/lineage.h"
#include "frontends/python/src/private_names.h"
#include "host/i18n.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Item;
using completion::Items;
using completion::Kind;
using completion::Lineage;
using ZELKContextData::ResolvedClassID;

namespace {

std::vector<Item> ownAttributes(const ResolvedClassID& cls, PyObject* object, const Lineage& asker) {
    const Lineage lineage(cls);
    const bool isOfAsker = lineage.isA(asker.getSuperclassInfo().classID);
    if (!isOfAsker && !asker.isA(lineage.getSuperclassInfo().classID)) {
        return {};
    }
    const PrivateNames ofAsker(asker.getClass());
    std::vector<Item> items;
    for (const std::string& text : completion::unlessItFails([&] { return python_host::concealedNamesOf(object); })) {
        std::u16string name = fl::i18n::to_ustring(text);
        if (ofAsker.holds(name) ? isOfAsker : !isPrivateToOneOf(lineage, name)) {
            items.push_back({std::move(name), Kind::property});
        }
    }
    return items;
}

std::vector<Item> spelledAsTyped(std::vector<Item> items, const PrivateNames& names) {
    std::erase_if(items, [&](const Item& item) { return names.isRespelled(item.name); });
    for (Item& item : items) {
        if (names.holds(item.name)) {
            item.name = names.asTyped(item.name);
        }
    }
    return items;
}

}  // namespace

Items insiderItems(const ResolvedClassID& cls, PyObject* object, const Asker& asker) {
    if (asker.cls.isNull() || cls.isNull()) {
        return {};
    }
    const Lineage asking(asker.cls);
    if (asking.classes().empty()) {
        return {};
    }
    std::vector<Item> items = completion::insiderMembersOf(cls, asker.cls);
    if (object != nullptr) {
        std::vector<Item> own = ownAttributes(cls, object, asking);
        items.insert(items.end(), std::make_move_iterator(own.begin()), std::make_move_iterator(own.end()));
    }
    if (asker.writesSource) {
        items = spelledAsTyped(std::move(items), PrivateNames(asking.getClass()));
    }
    return completion::sortedOnce(std::move(items));
}

}  // namespace contextdata::python
