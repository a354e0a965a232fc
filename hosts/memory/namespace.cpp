#include "hosts/memory/namespace.h"

#include <utility>

#include "hosts/memory/node_iterator.h"
#include "hosts/memory/watch.h"

namespace memory_host {

const char* Namespace::getName() const {
    enter(Service::namespaceGetName, id);
    return id.c_str();
}

zelk::COSIteratorPtr Namespace::getClasses() {
    return entersToNull(Service::namespaceGetClasses, id) || !classesFilled ? nullptr : NodeIterator::over(classes);
}

zelk::COSIteratorPtr Namespace::getFunctions() {
    const bool none = entersToNull(Service::namespaceGetFunctions, id) || !functionsFilled;
    return none ? nullptr : NodeIterator::over(functionNodes);
}

zelk::COSIteratorPtr Namespace::getNamespaces() {
    const bool none = entersToNull(Service::namespaceGetNamespaces, id) || !namespacesFilled;
    return none ? nullptr : NodeIterator::over(namespaces);
}

bool Namespace::fillList(std::string_view property) {
    const std::pair<std::string_view, bool*> lists[] = {
        {"ClassList", &classesFilled}, {"FunctionList", &functionsFilled}, {"PackageList", &namespacesFilled}};
    for (const auto& [name, filled] : lists) {
        if (name == property) {
            *filled = true;
            return true;
        }
    }
    return false;
}

std::size_t Namespace::handlesAlive() const noexcept {
    std::size_t alive = references();
    for (const Method& function : functions) {
        alive += function.references();
    }
    for (const EnumerationMember& stranger : strangers) {
        alive += stranger.references();
    }
    return alive;
}

}  // namespace memory_host
