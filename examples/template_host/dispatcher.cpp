// The dispatcher leads to the rest: scopes, folders, classes by number, documented functions. It knows of none yet.
#include "host/dispatcher.h"

#include "object_system.h"

namespace {

/// Nowhere: a location without an identifier, whose path is no folder.
class Nowhere final : public ICurrentFolder, public IFolder {
public:
    const IFolder& get() const override { return *this; }
    vfs::Location getLocation() const override { return {}; }
};

class EmptyPath final : public ISearchPath {
public:
    void visit(const std::function<bool(const std::shared_ptr<IPathEntry>&)>& /*visitor*/) const override {}
};

class TemplateDispatcher final : public Dispatcher {
public:
    FunctionScope* getFunctionScope(const std::u16string& /*fileName*/) override { return nullptr; }
    FunctionScope* GetCurrentlyExecutingFunctionScope() override { return nullptr; }
    const ICurrentFolder& GetCurrentWorkingFolder() override { return folder_; }
    const ISearchPath& GetCurrentPath() override { return path_; }
    ObjectSystem& getObjectSystem() override { return template_host::objectSystem(); }
    std::vector<std::u16string> getDocumentedBuiltins() override { return {}; }

private:
    Nowhere folder_;
    EmptyPath path_;
};

}  // namespace

Dispatcher& Dispatcher::getDispatcher() {
    static TemplateDispatcher dispatcher;
    return dispatcher;
}
