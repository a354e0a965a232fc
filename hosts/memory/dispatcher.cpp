// The dispatcher and the feature switch.
#include "host/dispatcher.h"

#include "host/feature.h"
#include "hosts/memory/object_system.h"
#include "hosts/memory/world_state.h"

using memory_host::currentWorld;
using memory_host::enter;
using memory_host::entersToNull;
using memory_host::Service;

namespace {

class MemoryDispatcher final : public Dispatcher {
public:
    FunctionScope* getFunctionScope(const std::u16string& fileName) override {
        if (entersToNull(Service::getFunctionScope)) {
            return nullptr;
        }
        for (FunctionScope& scope : currentWorld().scopes) {
            if (scope.file == fileName) {
                return &scope;
            }
        }
        return nullptr;
    }

    FunctionScope* GetCurrentlyExecutingFunctionScope() override {
        const bool none = entersToNull(Service::getCurrentlyExecutingFunctionScope);
        return none ? nullptr : currentWorld().executing;
    }

    const ICurrentFolder& GetCurrentWorkingFolder() override {
        enter(Service::getCurrentWorkingFolder);
        return currentWorld().workingFolder;
    }

    const ISearchPath& GetCurrentPath() override {
        enter(Service::getCurrentPath);
        return currentWorld().searchPath;
    }

    ObjectSystem& getObjectSystem() override {
        enter(Service::getObjectSystem);
        return objectSystem_;
    }

    std::vector<std::u16string> getDocumentedBuiltins() override {
        enter(Service::getDocumentedBuiltins);
        return currentWorld().documentedBuiltins;
    }

private:
    memory_host::MemoryObjectSystem objectSystem_;
};

}  // namespace

Dispatcher& Dispatcher::getDispatcher() {
    static MemoryDispatcher dispatcher;
    enter(Service::getDispatcher);
    return dispatcher;
}

bool ComponentFeature::IsOn() {
    enter(Service::featureIsOn);
    return currentWorld().contextResolution;
}
