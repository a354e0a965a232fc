#include "frontends/completion/superclass_tree.h"

#include <unordered_set>

#include "frontends/completion/ask.h"
#include "frontends/completion/superclasses.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace contextdata::completion {

namespace {

class TreeBuilder {
public:
    /// Depth first, so that a class shows its superclasses where a reader meets it first.
    std::vector<Superclass> superclassesBelow(zelk::COSInternedID id, std::size_t depth) {
        shown_.insert(id);
        std::vector<Superclass> nodes;
        for (const zelk::COSInternedID superclass : superclassesOf(id)) {
            nodes.push_back(nodeOf(superclass, depth + 1));
        }
        return nodes;
    }

private:
    Superclass nodeOf(zelk::COSInternedID id, std::size_t depth) {
        Superclass node;
        node.name = unlessItFails(
            [&] { return fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(id.view())); });
        if (shown_.contains(id)) {
            node.isRepeated = true;
        } else if (depth == deepestSuperclass) {
            node.isCut = !superclassesOf(id).empty();
        } else {
            node.superclasses = superclassesBelow(id, depth);
        }
        return node;
    }

    std::unordered_set<zelk::COSInternedID> shown_;
};

}  // namespace

std::vector<Superclass> superclassTree(zelk::COSInternedID id) {
    return id.isEmpty() ? std::vector<Superclass>() : TreeBuilder().superclassesBelow(id, 0);
}

}  // namespace contextdata::completion
