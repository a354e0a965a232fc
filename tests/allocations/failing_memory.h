// Memory that runs out on demand: the program's operators new and delete, which count and may refuse.
#pragma once

#include <cstddef>
#include <functional>

namespace failing_memory {

/// Blocks that somebody holds, in the whole program.
std::size_t blocksAlive() noexcept;

/// Refuses the `number`-th block asked for from now on, once, and tells `refused` of it, which must not throw. 0
/// refuses none, and counts.
void arm(std::size_t number, std::function<void()> refused = {});

/// Refuses nothing any more. Answers how many blocks were asked for since `arm`.
std::size_t disarm() noexcept;

}  // namespace failing_memory
