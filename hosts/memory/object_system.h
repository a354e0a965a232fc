// The object system of the in-memory host.
#pragma once

#include "host/object_system.h"

namespace memory_host {

/// Relates the classes of the world that stands.
class MemoryObjectSystem final : public ObjectSystem {
public:
    std::int32_t getClassNumber(const std::string& className) override;
    bool isDerivedFrom(std::int32_t cls, std::int32_t base) override;
    bool hasPrecedenceOver(std::int32_t cls, std::int32_t other) override;
};

}  // namespace memory_host
