#include "hosts/memory/intern_table.h"

#include <functional>
#include <mutex>
#include <set>
#include <shared_mutex>
#include <string>

#include "hosts/memory/watch.h"

namespace memory_host {

namespace {

struct InternTable {
    std::shared_mutex mutex;
    std::set<std::string, std::less<>> texts;  // a node never moves, so neither does its text
};

/// Never destroyed: handles stay good until the process ends, whatever is torn down before.
InternTable& table() {
    static auto* const permanent = new InternTable;
    return *permanent;
}

}  // namespace

zelk::COSInternedID intern(std::string_view name) {
    using Access = zelk::internal::InternedAccess<zelk::internal::IdEmptyPolicy>;
    InternTable& names = table();
    {
        const std::shared_lock reading(names.mutex);
        if (const auto found = names.texts.find(name); found != names.texts.end()) {
            return Access::fromEntry(found->c_str());
        }
    }
    const std::unique_lock writing(names.mutex);
    return Access::fromEntry(names.texts.emplace(name).first->c_str());
}

}  // namespace memory_host

zelk::COSInternedID zelk::internal::makeInterned(std::string_view name) {
    memory_host::enter(memory_host::Service::makeInterned, name);
    return memory_host::intern(name);
}
