// The names that may follow a namespace and a dot, all namespaces, and what a function declares about its arguments.
#include <memory>

#include "bench/floors/questions.h"
#include "contextdata/argument_block_metadata.h"
#include "contextdata/namespace_names.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/dispatcher.h"
#include "host/evaluation.h"
#include "host/feature.h"
#include "host/function_metadata.h"
#include "host/i18n.h"

namespace bench {

using namespace ZELKContextData;
using zelk::COSInterface;
using zelk::COSNamespace;

namespace {

const std::u16string file = u"/project/solve.k";
const std::u16string solve = u"solveEverythingAtOnce";

constexpr fl::i18n::codecvt_ustring_to_ascii narrowing(false);
constexpr fl::i18n::codecvt_ascii_to_ustring widening(false);

/// The namespace, found once, with its list filled in by a reader of the property that shows it.
COSNamespace* filledNamespace(const std::u16string& name, const char* listProperty) {
    const zelk::COSInternedID id = zelk::internal::makeInterned(fl::i18n::to_string(name, narrowing));
    const zelk::COSInterfacePtr node = zelk::COSPackage::getNamespaceInterface(id);
    const qxUniqueArray object = omCreateZELKScalar(node);
    const qxUniqueArray list(qxGetPropertyShared(object.get(), 0, listProperty));
    return zelk::cosiToNamespace(node.get());
}

template <class NameOf>
Names namesOf(const zelk::COSIteratorPtr& members, NameOf nameOf) {
    Names names;
    while (members && members->hasMoreElements()) {
        const zelk::COSInterfacePtr member = members->nextElement();
        if (const char* name = nameOf(member.get())) {
            names.push_back(fl::i18n::to_ustring(name, widening));
        }
    }
    return names;
}

Names floorClasses(const std::u16string& space) {
    return namesOf(filledNamespace(space, "ClassList")->getClasses(), [](COSInterface* node) {
        const zelk::COSClass* cls = zelk::cosiToClass(node);
        return cls->isHidden() ? nullptr : cls->getName();
    });
}

Names floorFunctions(const std::u16string& space) {
    return namesOf(filledNamespace(space, "FunctionList")->getFunctions(), [](COSInterface* node) {
        const zelk::COSMethodInfo* function = zelk::cosiToMethod(node);
        return function->isListable() && function->getAccess() == 0 ? function->getName() : nullptr;
    });
}

Names floorNamespaces(const std::u16string& space) {
    return namesOf(filledNamespace(space, "PackageList")->getNamespaces(),
                   [](COSInterface* node) { return zelk::cosiToNamespace(node)->getName(); });
}

qxUniqueArray floorAllNamespaces() {
    const qxUniqueArray function = qxCreateString(u"ostrel.metadata.Namespace.getAllNamespaces");
    const qxArray* input = function.get();
    qxArray* output = nullptr;
    inFullFevalFcn(1, &output, 1, &input);
    const qxUniqueArray spaces(output);
    const std::size_t count = qxGetNumberOfElements(spaces.get());
    qxUniqueArray names = qxCreateCell(count, 1);
    for (std::size_t index = 0; index < count; ++index) {
        qxSetCell(names.get(), index, qxGetProperty(spaces.get(), index, "Name"));
    }
    return names;
}

ArgumentBlockMetadata floorMetadata() {
    const FunctionScope* caller =
        ComponentFeature::IsOn() ? Dispatcher::getDispatcher().getFunctionScope(file) : nullptr;
    auto [first, second, scope] =
        omGetFunctionMetadata(fl::i18n::to_string(solve, fl::i18n::codecvt_ustring_to_string(true)), caller);
    return {std::move(first), std::move(second), scope};
}

std::u16string makeNamespace(memory_host::World& world, std::size_t members) {
    const std::string name = "library" + std::to_string(members);
    memory_host::NamespaceBuilder space = world.ns(name);
    for (std::size_t number = 0; number < members; ++number) {
        const std::string digits = std::to_string(number);
        const std::string className = std::string(name).append(".ClassOfNumber").append(digits);
        space.holdsClass(className).function("functionOfNumber" + digits);
        space.holdsNamespace(std::string(name).append(".inner").append(digits));
        if (number % 10 == 9) {
            world.cls(className).hidden();
            space.unlistable();
        }
    }
    return {name.begin(), name.end()};
}

using List = bool (*)(const std::u16string& space, Names& names);

Question listing(const std::string& name, List list, Names (*floor)(const std::u16string&), const std::u16string& space,
                 std::size_t members) {
    return question(
        "namespaces", name + " of " + std::to_string(members), members,
        [list, space] {
            Names names;
            list(space, names);
            return names;
        },
        [floor, space] { return floor(space); });
}

}  // namespace

std::vector<Question> namespaceQuestions(memory_host::World& world) {
    std::vector<Question> questions;
    for (const std::size_t members : {10U, 1'000U}) {
        const std::u16string space = makeNamespace(world, members);
        questions.push_back(listing("classes", getNamespaceClassNames, floorClasses, space, members));
        questions.push_back(listing("functions", getNamespaceFunctionNames, floorFunctions, space, members));
        questions.push_back(listing("namespaces", getNamespaceNamespaceNames, floorNamespaces, space, members));
    }
    questions.push_back(question("namespaces", "all namespaces", 1, getZELKAllNamespaces, floorAllNamespaces));

    world.contextResolution(true);
    world.functionMetadata("solveEverythingAtOnce", world.scope(file), world.number(1), world.number(2));
    questions.push_back(question(
        "functions", "getArgumentBlockMetadata", 1, [] { return getArgumentBlockMetadata(file, solve); },
        floorMetadata));
    return questions;
}

}  // namespace bench
