// What must come of a question when one of its host calls fails: a function's rule in words that a table can hold.
//
//     passes()                               what is thrown passes
//     guarded("false")                       the interrupt passes; any other failure gives this answer
//     swallows("false")                      everything thrown gives this answer, the interrupt included
//     ....at({getClass}, guarded("false"))   another rule at these calls
//     ....from({getClass, 2}, passes())      another rule from this call on
//     ....null({getClass}, "false")          these calls answer null, which gives this; other null answers change
//     nothing
//     ....restoring()                        the caller's names stand as before the question, not as at the failed call
//     ....namesAtOnce()                      names are appended together, not each as soon as it is found
//     ....flagBy(isStatic)                   the flag is set as soon as this call has been made, which is before any
//     name is
//                                            appended; without it, never
//     ....ownMemoryPasses()                  besides, what the function allocates between two host calls, and cannot
//                                            have, passes whatever the rule of those calls is
//     ....outputMayBeLost()                  besides, memory that is missing for what the program prints, and nobody is
//                                            to see, does no harm
#pragma once

#include <cstddef>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/memory/call_journal.h"
#include "hosts/memory/fault_plan.h"
#include "tests/faults/scene.h"

namespace faults {

using memory_host::Fault;
using memory_host::Service;

/// What has come of a question: its answer, or what came out of it instead, and what the caller then holds.
struct Answer {
    std::string text;
    Names names;
    bool flag = false;

    friend bool operator==(const Answer&, const Answer&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer);
};

/// The text of an answer that was thrown.
std::string passing(Fault fault);

/// A question as it is answered when nothing fails: the answer, the host calls that may fail, and what the caller held
/// when each was made.
struct Undisturbed {
    struct Held {
        std::size_t names;
        bool flag;
    };

    Answer whole;
    std::vector<memory_host::Call> calls;
    std::vector<Held> held;
};

/// A call by its service: all of them, or the one of that number.
struct Place {
    Place(Service service, std::size_t number = 0) : service(service), number(number) {}

    Service service;
    std::size_t number;
};
using Places = std::initializer_list<Place>;

/// An answer that is given in place of a failure.
struct Given {
    Given() = default;
    Given(const char* text) : text(text) {}
    Given(const char* text, Names added) : text(text), added(std::move(added)) {}

    std::optional<std::string> text;  ///< unset: the whole answer, as if nothing had failed
    std::optional<Names> added;       ///< unset: the names that stood when the call failed
};

/// The whole answer.
inline const Given whole;

class Rule {
public:
    Rule at(Places places, const Rule& rule) &&;
    Rule from(Place place, const Rule& rule) &&;
    Rule null(Places places, Given given) &&;
    Rule restoring() &&;
    Rule namesAtOnce() &&;
    Rule flagBy(Service service) &&;
    Rule ownMemoryPasses() &&;
    Rule outputMayBeLost() &&;

    /// What must come of the call of that index when it fails so.
    Answer expected(const Undisturbed& run, std::size_t index, Fault fault) const;

    /// What may come of memory that is missing after that many host calls have been made: what the rules of the call
    /// before and of the call after it allow.
    std::vector<Answer> expectedWithoutMemory(const Undisturbed& run, std::size_t callsMade) const;

    /// Where the caller's names and flag did not change when they had to, in words; empty when they did.
    std::string objectionTo(const Undisturbed& run) const;

    std::string inWords() const;

private:
    friend Rule passes();
    friend Rule guarded(Given given);
    friend Rule swallows(Given given);

    enum class Kind { passes, guarded, swallows };

    Rule(Kind kind, Given given) : kind_(kind), given_(std::move(given)) {}

    const Rule& ruleAt(const Undisturbed& run, std::size_t index) const;
    Answer given(const Given& given, const Undisturbed& run, Undisturbed::Held held) const;
    Answer thrown(const Undisturbed& run, Undisturbed::Held held, Fault fault) const;

    Kind kind_;
    Given given_;
    bool restores_ = false;
    bool appendsAtOnce_ = false;
    std::optional<Service> flagBy_;
    bool ownMemoryPasses_ = false;
    bool outputMayBeLost_ = false;
    std::vector<std::pair<std::vector<Place>, Rule>> at_;
    std::vector<std::pair<Place, Rule>> from_;
    std::vector<std::pair<std::vector<Place>, Given>> null_;
};

Rule passes();
Rule guarded(Given given);
Rule swallows(Given given);

}  // namespace faults
