// A question to the library beside its floor: a function written by hand that makes the same answer.
#pragma once

#include <valgrind/callgrind.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "bench/floors/answers.h"

namespace bench {

/// What is measured: each side asks once, and lets go of the answer, with the counter of instructions on.
struct Question {
    std::string family;     ///< the questions that are held to the same goal
    std::string name;       ///< unique within the family
    std::size_t parts = 1;  ///< members or paths: what the cost is told for each of
    std::function<void()> library;
    std::function<void()> floor;
    std::function<void(const std::function<void()>& look)> hold;  ///< looks while the library's answer is held
    std::function<bool()> agree;  ///< whether both sides answer the same, and more than nothing
};

/// Asks with the counter on, which counts nothing but this; a few instructions that do nothing where no counter runs.
template <class Ask>
void counted(const Ask& ask) {
    CALLGRIND_TOGGLE_COLLECT;
    {
        const auto answer = ask();
        asm volatile("" : : "g"(&answer) : "memory");  // somebody might look at it
    }
    CALLGRIND_TOGGLE_COLLECT;
}

/// Both functions are asked many times, in turns; what they need they hold, or it outlives them.
template <class Library, class Floor>
Question question(std::string family, std::string name, std::size_t parts, Library library, Floor floor) {
    return {std::move(family),
            std::move(name),
            parts,
            [library] { counted(library); },
            [floor] { counted(floor); },
            [library](const std::function<void()>& look) {
                [[maybe_unused]] const auto answer = library();
                look();
            },
            [library, floor] {
                const auto answer = library();
                return isAnswer(answer) && same(answer, floor());
            }};
}

}  // namespace bench
