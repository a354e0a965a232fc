#include "hosts/memory/namespace.h"

#include "hosts/memory/node_iterator.h"
#include "hosts/memory/watch.h"

namespace memory_host {

const char* Namespace::getName() const {
    enter(Service::namespaceGetName, id);
    return id.c_str();
}

zelk::COSIteratorPtr Namespace::getClasses() {
    return entersToNull(Service::namespaceGetClasses, id) ? nullptr : NodeIterator::over(classes);
}

zelk::COSIteratorPtr Namespace::getFunctions() {
    if (entersToNull(Service::namespaceGetFunctions, id)) {
        return nullptr;
    }
    std::vector<Node*> nodes;
    nodes.reserve(functions.size());
    for (Method& function : functions) {
        nodes.push_back(&function);
    }
    return NodeIterator::over(std::move(nodes));
}

zelk::COSIteratorPtr Namespace::getNamespaces() {
    return entersToNull(Service::namespaceGetNamespaces, id) ? nullptr : NodeIterator::over(namespaces);
}

std::size_t Namespace::handlesAlive() const noexcept {
    std::size_t alive = references();
    for (const Method& function : functions) {
        alive += function.references();
    }
    return alive;
}

}  // namespace memory_host
