#include "contextdata/namespace_names.h"

#include "contextdata/introspection.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/i18n.h"

namespace ZELKContextData {

using Names = std::vector<std::u16string>;
using zelk::COSNamespace;

namespace {

/// Has the host fill in a list of a namespace, which it does when somebody reads the property that shows the list.
void touchList(const std::u16string& namespaceName, const char* listProperty) {
    zelk::COSInterface* node = ZELKIntrospection::getNamespaceInterface(namespaceName);
    if (node == nullptr) {
        return;
    }
    const qxUniqueArray object = omCreateZELKScalar(zelk::COSInterfacePtr(node));
    const qxUniqueArray list(qxGetPropertyShared(object.get(), 0, listProperty));
}

const char* nameOfShownClass(zelk::COSInterface* node) {
    const zelk::COSClass* cls = zelk::cosiToClass(node);
    return cls == nullptr || cls->isHidden() ? nullptr : cls->getName();
}

const char* nameOfPublicFunction(zelk::COSInterface* node) {
    const zelk::COSMethodInfo* function = zelk::cosiToMethod(node);
    const bool isOffered = function != nullptr && function->isListable() && function->getAccess() == zelk::publicAccess;
    return isOffered ? function->getName() : nullptr;
}

const char* nameOfNamespace(zelk::COSInterface* node) {
    const COSNamespace* inner = zelk::cosiToNamespace(node);
    return inner == nullptr ? nullptr : inner->getName();
}

/// What differs between the listings. `nameOf` answers null for a member that is not to be listed.
struct Listing {
    const char* listProperty;
    zelk::COSIteratorPtr (COSNamespace::*members)();
    const char* (*nameOf)(zelk::COSInterface* member);
};

bool append(const std::u16string& namespaceName, Names& names, const Listing& listing) {
    touchList(namespaceName, listing.listProperty);
    COSNamespace* space = zelk::cosiToNamespace(ZELKIntrospection::getNamespaceInterface(namespaceName));
    if (space == nullptr) {
        return false;
    }
    const std::size_t before = names.size();
    const fl::i18n::codecvt_ascii_to_ustring widening(false);
    const zelk::COSIteratorPtr members = (space->*listing.members)();
    while (members && members->hasMoreElements()) {
        const zelk::COSInterfacePtr member = members->nextElement();
        if (const char* name = listing.nameOf(member.get())) {
            names.push_back(fl::i18n::to_ustring(name, widening));
        }
    }
    return names.size() != before;
}

}  // namespace

bool getNamespaceClassNames(const std::u16string& namespaceName, Names& names) {
    return append(namespaceName, names, {"ClassList", &COSNamespace::getClasses, nameOfShownClass});
}

bool getNamespaceFunctionNames(const std::u16string& namespaceName, Names& names) {
    return append(namespaceName, names, {"FunctionList", &COSNamespace::getFunctions, nameOfPublicFunction});
}

bool getNamespaceNamespaceNames(const std::u16string& namespaceName, Names& names) {
    return append(namespaceName, names, {"PackageList", &COSNamespace::getNamespaces, nameOfNamespace});
}

}  // namespace ZELKContextData
