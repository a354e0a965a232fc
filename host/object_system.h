// The object system: classes by number, and how they relate. Interpreter thread; every operation may throw any host
// failure or the interrupt.
#pragma once

#include <cstdint>
#include <string>

/// Numbers for the classes of all object systems, and what the host knows by them.
class ObjectSystem {
public:
    /// The number of a class by its full name, ASCII; the number of no class (0) for an unknown name.
    virtual std::int32_t getClassNumber(const std::string& className) = 0;

    /// Whether the first class is the second or derives from it. False when either is no class.
    virtual bool isDerivedFrom(std::int32_t cls, std::int32_t base) = 0;

    /// Whether methods of the first class run when values of both meet in one operation. False when the host cannot
    /// tell, and for a class and itself.
    virtual bool hasPrecedenceOver(std::int32_t cls, std::int32_t other) = 0;

protected:
    ~ObjectSystem() = default;
};
