#include <algorithm>

#include "contextdata/introspection.h"
#include "contextdata/namespace_names.h"
#include "host/text.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/queries.h"

namespace fuzz {

namespace {

using List = bool (*)(const std::u16string&, Wides&);

void check(const std::string& name, List list, const Wides& expected, const std::string& what) {
    Wides names = {u"kept"};
    const bool grew = list(wide(name), names);
    Wides all = {u"kept"};
    all.insert(all.end(), expected.begin(), expected.end());
    expectEqual(names, all, what + " in " + name);
    expectEqual(grew, all.size() > 1, "growth of " + what + " in " + name);
}

Wides classesIn(const Case& world, const ModelNamespace& space) {
    Wides names;
    for (const std::string& cls : space.classes) {
        if (!world.classes.find(cls)->isHidden) {
            names.push_back(wideAscii(cls));
        }
    }
    return names;
}

Wides functionsIn(const ModelNamespace& space) {
    Wides names;
    for (const ModelMethod& function : space.functions) {
        if (function.isListable && function.access == 0) {
            names.push_back(wideAscii(function.name));
        }
    }
    return names;
}

Wides namespacesIn(const ModelNamespace& space) {
    Wides names;
    std::transform(space.namespaces.begin(), space.namespaces.end(), std::back_inserter(names),
                   [](const std::string& inner) { return wideAscii(inner); });
    return names;
}

void askForAll(const Case& world) {
    const qxUniqueArray cell = ZELKContextData::getZELKAllNamespaces();
    expect(cell != nullptr, "a cell of all namespaces");
    expectEqual(qxGetClassID(cell.get()) == qxClassID::cell, true, "a cell");
    Wides names;
    for (std::size_t index = 0; index < qxGetNumberOfElements(cell.get()); ++index) {
        names.push_back(getScalarText(qxGetCell(cell.get(), index)));
    }
    Wides expected;
    for (const ModelNamespace& space : world.model.namespaces) {
        expected.push_back(wide(space.name));
    }
    expectEqual(names, expected, "all namespaces");
    expectEqual(qxGetDimensions(cell.get())[1], std::size_t{1}, "one column");
}

}  // namespace

void askAboutNamespaces(const Case& world) {
    for (const std::string& name : namespaceNames()) {
        // Names of namespaces go through ASCII.
        const std::string asked = narrowAscii(wide(name));
        const auto found = std::find_if(world.model.namespaces.begin(), world.model.namespaces.end(),
                                        [&](const ModelNamespace& space) { return space.name == asked; });
        const bool isThere = found != world.model.namespaces.end();
        expectEqual(ZELKIntrospection::isZELKNamespace(wide(name)), isThere, "a namespace: " + name);
        expectEqual(ZELKIntrospection::getNamespaceInterface(wide(name)) != nullptr, isThere, "the node of " + name);
        using namespace ZELKContextData;
        check(name, getNamespaceClassNames, isThere ? classesIn(world, *found) : Wides(), "classes");
        check(name, getNamespaceFunctionNames, isThere ? functionsIn(*found) : Wides(), "functions");
        check(name, getNamespaceNamespaceNames, isThere ? namespacesIn(*found) : Wides(), "namespaces");
    }
    askForAll(world);
}

}  // namespace fuzz
