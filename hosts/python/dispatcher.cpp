#include "host/dispatcher.h"

#include <memory>
#include <string>

#include "host/i18n.h"
#include "hosts/python/builtins.h"
#include "hosts/python/classes/object_system.h"
#include "hosts/python/debugger/debugger.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/search_path.h"
#include "hosts/python/resolution/file_scopes.h"
#include "hosts/python/resolution/scopes.h"

namespace python_host {

namespace {

/// The globals of the frame at which the debugger holds the program: code typed at a prompt has no file to go by.
///
/// Without a debugger there is no function whose names a person could mean. The frames that are active while names are
/// completed are those of the front end, and whoever types is at the prompt.
class FocusedScope {
public:
    FunctionScope* find() {
        const Ref frame = focusedFrame();
        if (!frame) {
            scope_.reset();
            return nullptr;
        }
        auto* object = reinterpret_cast<PyFrameObject*>(frame.get());
        scope_ = std::make_unique<GlobalsScope>(Ref::steal(PyFrame_GetGlobals(object)));
        return scope_.get();
    }

private:
    std::unique_ptr<GlobalsScope> scope_;
};

class PythonDispatcher final : public Dispatcher {
public:
    FunctionScope* getFunctionScope(const std::u16string& fileName) override {
        const PendingErrorGuard pending;
        return scopeOfFile(fl::i18n::to_string(fileName));
    }

    FunctionScope* GetCurrentlyExecutingFunctionScope() override {
        const PendingErrorGuard pending;
        return focused_.find();
    }

    const ICurrentFolder& GetCurrentWorkingFolder() override { return currentFolder(); }
    const ISearchPath& GetCurrentPath() override { return searchPath(); }

    ObjectSystem& getObjectSystem() override { return objectSystem(); }

    std::vector<std::u16string> getDocumentedBuiltins() override {
        const PendingErrorGuard pending;
        return documentedBuiltins();
    }

private:
    FocusedScope focused_;
};

}  // namespace

}  // namespace python_host

Dispatcher& Dispatcher::getDispatcher() {
    // Never destroyed: it holds references, and the interpreter may be gone first.
    static python_host::PythonDispatcher& dispatcher = *new python_host::PythonDispatcher;
    return dispatcher;
}
