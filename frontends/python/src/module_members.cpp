#include "frontends/python/src/module_members.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "frontends/completion/value_members.h"
#include "frontends/python/src/bindings.h"
#include "frontends/python/src/names.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/variables.h"
#include "host/i18n.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Item;
using completion::Items;
using completion::Kind;
using completion::Subject;

namespace {

Kind kindOf(PyObject* value) {
    return python_host::isKnownFunction(value) ? Kind::function : kindOfBound(value, Kind::property);
}

Items bindingsOf(PyObject* dictionary) { return completion::sortedOnce(publicBindings(dictionary, kindOf)); }

bool isUnloaded(const Subject& subject) {
    return subject.nature == Subject::Nature::space &&
           !python_host::isLoadedNamespace(fl::i18n::to_string(subject.space));
}

Items spaces(const std::vector<std::string>& names) {
    std::vector<Item> items;
    items.reserve(names.size());
    for (const std::string& name : names) {
        items.push_back({fl::i18n::to_ustring(name), Kind::space});
    }
    return items;
}

bool isAnyClose(const Items& items, std::u16string_view text) {
    const completion::Typed typed(text);
    return std::any_of(items.begin(), items.end(),
                       [&typed](const Item& item) { return isClose(typed.match(item.name)); });
}

}  // namespace

Items membersOfModule(const qxSharedArray& value, PyObject* module) {
    Items bound = bindingsOf(PyModule_GetDict(module));
    if (PyModule_CheckExact(module)) {
        return bound;
    }
    return merged(std::move(bound), completion::sortedOnce(completion::ownMembers(value.get())));
}

Items boundNames(std::span<const std::u16string_view> module) {
    PyObject* modules = python_host::loadedModules();
    PyObject* loaded = modules == nullptr ? nullptr : findName(modules, completion::dotted(module));
    if (loaded == nullptr || !PyModule_Check(loaded)) {
        return {};
    }
    const auto keep = pybind11::reinterpret_borrow<pybind11::object>(loaded);
    return bindingsOf(PyModule_GetDict(keep.ptr()));
}

Items outermostModules(const completion::Choice& choice) {
    Items near = chosen(spaces(python_host::outermostModules(fl::i18n::to_string(choice.typed))), choice);
    if (!choice.isRanked || isAnyClose(near, choice.typed)) {
        return near;
    }
    // What was meant may begin with another letter.
    return chosen(spaces(python_host::outermostModules({})), choice);
}

bool isUnloadedModule(std::span<const std::u16string_view> chain) { return isUnloaded(completion::named(chain, {})); }

Subject namedInSession(std::span<const std::u16string_view> chain) {
    Subject subject = completion::named(chain, {});
    return isUnloaded(subject) ? Subject() : subject;
}

Items withoutPrivateModules(Items items) {
    std::erase_if(items, [](const Item& item) { return item.kind == Kind::space && item.name.starts_with(u'_'); });
    return items;
}

}  // namespace contextdata::python
