#include "hosts/python/namespaces/namespace_object.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "hosts/python/classes/iterators.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/folders/package_folders.h"
#include "hosts/python/folders/unloaded_modules.h"
#include "hosts/python/interning.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

template <class Nodes>
zelk::COSIteratorPtr iterate(const Nodes& nodes) {
    std::vector<zelk::COSInterfacePtr> handles;
    handles.reserve(nodes.size());
    for (const auto& node : nodes) {
        handles.emplace_back(const_cast<typename Nodes::value_type*>(&node));
    }
    return NodeIterator::over(std::move(handles));
}

PyObject* findModule(std::string_view name) {
    PyObject* object = findPath(name);
    return object != nullptr && PyModule_Check(object) ? object : nullptr;
}

bool isNamespace(zelk::COSInternedID name) {
    return findModule(name.view()) != nullptr || findUnloadedModule(name.view()).has_value();
}

/// Collects inner namespaces, each once.
class InnerNames {
public:
    explicit InnerNames(std::string_view parent) : prefix_(std::string(parent) + '.') {}

    void add(std::string_view shortName) {
        const zelk::COSInternedID full = internName(prefix_ + std::string(shortName));
        if (!full.isEmpty() && seen_.insert(full).second) {
            nodes_.emplace_back(&NamespaceObject::named(full));
        }
    }

    /// Adds the modules that are loaded right below the parent, under the name that the parent calls itself.
    void addLoadedBelow(const std::string& loaded) {
        std::vector<std::string> names;
        const std::string prefix = loaded + '.';
        std::string buffer;
        eachTextItem(loadedModules(), [&](PyObject* key, PyObject* value) {
            const auto name = PyModule_Check(value) ? utf8Of(key, buffer) : std::nullopt;
            if (name && name->starts_with(prefix) && name->find('.', prefix.size()) == std::string_view::npos) {
                names.emplace_back(name->substr(prefix.size()));
            }
        });
        for (const std::string& name : names) {
            add(name);
        }
    }

    void addAllIn(const std::filesystem::path& folder) {
        std::vector<std::string> names;
        addModulesInFolder(folder, Initial(), names);
        std::sort(names.begin(), names.end());
        for (const std::string& name : names) {
            add(name);
        }
    }

    zelk::COSIteratorPtr iterator() && { return NodeIterator::over(std::move(nodes_)); }

private:
    std::string prefix_;
    std::unordered_set<zelk::COSInternedID> seen_;
    std::vector<zelk::COSInterfacePtr> nodes_;
};

}  // namespace

NamespaceObject& NamespaceObject::named(zelk::COSInternedID name) {
    // Never destroyed, as the library keeps plain pointers to namespaces.
    static auto& objects = *new std::unordered_map<zelk::COSInternedID, NamespaceObject*>;
    NamespaceObject*& object = objects[name];
    if (object == nullptr) {
        object = new NamespaceObject(name);
    }
    return *object;
}

NamespaceListing::Handle NamespaceObject::listing() {
    const PendingErrorGuard pending;
    PyObject* module = findModule(name_.view());
    if (module == nullptr) {
        return {};
    }
    if (!listing_ || !listing_->holdsFor(module)) {
        checkForInterrupt();
        const Ref keep = Ref::share(module);
        NamespaceListing::Handle fresh = NamespaceListing::read(name_, keep.get());
        previous_ = std::move(listing_);
        listing_ = std::move(fresh);
    }
    return listing_;
}

zelk::COSIteratorPtr NamespaceObject::getClasses() {
    const NamespaceListing::Handle current = listing();
    return current ? iterate(current->classes()) : zelk::COSIteratorPtr();
}

zelk::COSIteratorPtr NamespaceObject::getFunctions() {
    const NamespaceListing::Handle current = listing();
    return current ? iterate(current->functions()) : zelk::COSIteratorPtr();
}

zelk::COSIteratorPtr NamespaceObject::getNamespaces() {
    const PendingErrorGuard pending;
    const NamespaceListing::Handle current = listing();
    const Ref module = Ref::share(findModule(name_.view()));
    if (!current || !module) {
        return namespacesOfUnloaded();
    }
    InnerNames inner(name_.view());
    for (const zelk::COSInternedID bound : current->modules()) {
        inner.add(bound.view());
    }
    const std::string loaded = loadedName(module.get());
    if (!loaded.empty()) {
        inner.addLoadedBelow(loaded);
    }
    for (const std::string& name : submodulesInFolders(module.get())) {
        inner.add(name);
    }
    return std::move(inner).iterator();
}

zelk::COSIteratorPtr NamespaceObject::namespacesOfUnloaded() const {
    const auto found = findUnloadedModule(name_.view());
    if (!found) {
        return {};
    }
    InnerNames inner(name_.view());
    for (const std::filesystem::path& folder : found->folders) {
        inner.addAllIn(folder);
    }
    return std::move(inner).iterator();
}

bool isLoadedNamespace(std::string_view name) {
    const PendingErrorGuard pending;
    return findModule(name) != nullptr;
}

}  // namespace python_host

zelk::COSInterfacePtr zelk::COSPackage::getNamespaceInterface(COSInternedID name) {
    const python_host::PendingErrorGuard pending;
    if (name.isEmpty() || !python_host::isNamespace(name)) {
        return {};
    }
    return COSInterfacePtr(&python_host::NamespaceObject::named(name));
}
