// Fails every host call of a question, one at a time and in every way, and compares with the question's rule.
#pragma once

#include <ostream>
#include <string>
#include <variant>

#include "host/exceptions.h"
#include "tests/support/world_test.h"

/// What a question gave: an answer, or the fault that came out of it.
template <class Answer>
struct Outcome {
    std::variant<Answer, memory_host::Fault> result;

    friend bool operator==(const Outcome&, const Outcome&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
        if (const auto* fault = std::get_if<memory_host::Fault>(&outcome.result)) {
            return out << "passes: " << *fault;
        }
        return out << testing::PrintToString(std::get<Answer>(outcome.result));
    }
};

template <class Answer, class Question>
Outcome<Answer> outcomeOf(const Question& question) {
    using foundation::core::except::IException;
    using foundation::core::except::InterruptException;
    using memory_host::Fault;
    try {
        return {question()};
    } catch (const InterruptException&) {
        return {Fault::interrupt};
    } catch (const IException&) {
        return {Fault::hostException};
    } catch (const std::bad_alloc&) {
        return {Fault::badAlloc};
    } catch (const std::runtime_error&) {
        return {Fault::standardException};
    } catch (int) {
        return {Fault::thrownInt};
    }
}

/// A call that a sweep fails: `calls[index]` is the call, as the question makes it when nothing fails.
struct FailedCall {
    const std::vector<memory_host::Call>& calls;
    std::size_t index;
    memory_host::Fault fault;

    const memory_host::Call& call() const { return calls[index]; }
    bool isNullAnswer() const { return fault == memory_host::Fault::nullAnswer; }
    bool isInterrupt() const { return fault == memory_host::Fault::interrupt; }

    /// How many calls of a service were made up to this one, itself included, since the call at `first`.
    std::size_t countOf(memory_host::Service service, std::size_t first = 0) const {
        return static_cast<std::size_t>(std::count_if(
            calls.begin() + static_cast<std::ptrdiff_t>(first), calls.begin() + static_cast<std::ptrdiff_t>(index) + 1,
            [service](const memory_host::Call& each) { return each.service == service; }));
    }

    /// The place of the last call of a service up to this one; there has been one.
    std::size_t last(memory_host::Service service) const {
        std::size_t place = index;
        while (calls.at(place).service != service) {
            --place;
        }
        return place;
    }
};

/// `question` answers with an `Answer`; `rule` says what must come of it when a call fails. After each failure nothing
/// may be left behind, and the same question must be answered in full.
template <class Answer, class Question, class Rule>
void sweepFaults(memory_host::World& world, const Question& question, const Rule& rule) {
    using memory_host::Fault;
    const std::size_t values = world.valuesAlive();
    const std::size_t handles = world.handlesAlive();
    world.faults().clear();
    world.journal().clear();
    const Answer full = question();
    const std::vector<memory_host::Call> calls = world.journal().calls();
    ASSERT_FALSE(calls.empty());
    for (std::size_t index = 0; index < calls.size(); ++index) {
        for (const Fault fault : {Fault::interrupt, Fault::hostException, Fault::standardException, Fault::thrownInt,
                                  Fault::badAlloc, Fault::nullAnswer}) {
            SCOPED_TRACE(testing::Message()
                         << "call " << index + 1 << " of " << calls.size() << ", " << calls[index] << ": " << fault);
            world.faults().failCall(index + 1, fault);
            const Outcome<Answer> outcome = outcomeOf<Answer>(question);
            EXPECT_GT(world.faults().callsMet(), index) << "the call was not made";
            world.faults().clear();
            EXPECT_EQ(outcome, rule(FailedCall{calls, index, fault}, full));
            EXPECT_EQ(world.handlesAlive(), handles);
            EXPECT_EQ(world.valuesAlive(), values);
            EXPECT_EQ(outcomeOf<Answer>(question), Outcome<Answer>{full});
        }
    }
}
