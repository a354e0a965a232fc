#include "frontends/completion/namespace_members.h"

#include <string_view>

#include "contextdata/introspection.h"
#include "frontends/completion/ask.h"
#include "host/class_system.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace contextdata::completion {

namespace {

using Iteration = zelk::COSIteratorPtr (zelk::COSNamespace::*)();

std::u16string lastPart(std::string_view dottedName) {
    return fl::i18n::to_ustring(dottedName.substr(dottedName.rfind('.') + 1));
}

// Each of these answers the name to offer, empty for a node that is not offered.

std::u16string classToOffer(zelk::COSInterface* node) {
    const zelk::COSClass* cls = zelk::cosiToClass(node);
    if (cls == nullptr || cls->isHidden()) {
        return {};
    }
    return lastPart(zelk::nameresolution::getBaseClassNameFromFullName(cls->getName()));
}

std::u16string functionToOffer(zelk::COSInterface* node) {
    const zelk::COSMethodInfo* function = zelk::cosiToMethod(node);
    const bool isOffered = function != nullptr && function->isListable() && function->getAccess() == zelk::publicAccess;
    return isOffered ? lastPart(function->getName()) : std::u16string();
}

std::u16string namespaceToOffer(zelk::COSInterface* node) {
    const zelk::COSNamespace* inner = zelk::cosiToNamespace(node);
    return inner == nullptr ? std::u16string() : lastPart(inner->getName());
}

template <class Selection>
std::vector<Item> listed(zelk::COSNamespace& space, Iteration iteration, Kind kind, Selection nameToOffer) {
    std::vector<Item> items;
    const zelk::COSIteratorPtr nodes = (space.*iteration)();
    while (nodes && nodes->hasMoreElements()) {
        const zelk::COSInterfacePtr node = nodes->nextElement();
        std::u16string name = nameToOffer(node.get());
        if (!name.empty()) {
            items.push_back({std::move(name), kind, {}});
        }
    }
    return items;
}

template <class Selection>
void append(std::vector<Item>& items, zelk::COSNamespace& space, Iteration iteration, Kind kind,
            Selection nameToOffer) {
    std::vector<Item> source = unlessItFails([&] { return listed(space, iteration, kind, nameToOffer); });
    items.insert(items.end(), std::make_move_iterator(source.begin()), std::make_move_iterator(source.end()));
}

}  // namespace

Items membersOfNamespace(const std::u16string& name) {
    const zelk::COSInterfacePtr node =
        unlessItFails([&] { return zelk::COSInterfacePtr(ZELKIntrospection::getNamespaceInterface(name)); });
    zelk::COSNamespace* space = zelk::cosiToNamespace(node.get());
    if (space == nullptr) {
        return {};
    }
    std::vector<Item> items;
    append(items, *space, &zelk::COSNamespace::getClasses, Kind::classType, classToOffer);
    append(items, *space, &zelk::COSNamespace::getFunctions, Kind::function, functionToOffer);
    append(items, *space, &zelk::COSNamespace::getNamespaces, Kind::space, namespaceToOffer);
    return sortedOnce(std::move(items));
}

}  // namespace contextdata::completion
