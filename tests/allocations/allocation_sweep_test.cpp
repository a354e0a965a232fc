// Refuses every block of memory that an exported function asks for, one at a time, and compares with the function's
// rule for memory that is missing. The rules are those of the table of the fault sweep.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <optional>

#include "tests/allocations/failing_memory.h"
#include "tests/faults/asking.h"
#include "tests/faults/row_names.h"

namespace faults {
namespace {

/// What came of a question one of whose blocks was refused, and how many host calls had been made by then.
struct Refusal {
    std::size_t number;
    Answer answer;
    std::size_t callsMade;
};

struct Counts {
    std::size_t functions = 0;
    std::size_t questions = 0;
    std::size_t refused = 0;
};

/// Of the whole program.
Counts total;

class AllocationSweep : public testing::TestWithParam<Row> {
protected:
    static void SetUpTestSuite() {
        memory_host::setLeakReporter([](const std::string& report) { ADD_FAILURE() << report; });
    }

    static void TearDownTestSuite() {
        std::printf("allocations: %zu functions, %zu questions, %zu blocks refused\n", total.functions, total.questions,
                    total.refused);
    }

    void sweep(const Case& asked) {
        // What is built on first use is built in the first of these, and must be built by the next when it cannot be.
        const std::vector<Refusal> cold = refusals([&](std::size_t number) { return refused(asked, number); });
        const Undisturbed run = undisturbed(asked);
        expectRule(cold, asked.rule, run);
        expectRule(refusals([&](std::size_t number) { return refusedAndAskedAgain(asked, number, run); }), asked.rule,
                   run);
        ++counts_.questions;
    }

    Counts counts_;

private:
    /// Refuses the first block, the second, and so on, until there is no more of them.
    template <class Ask>
    std::vector<Refusal> refusals(const Ask& ask) {
        std::vector<Refusal> all;
        for (std::size_t number = 1;; ++number) {
            std::optional<Refusal> refusal = ask(number);
            if (!refusal) {
                return all;
            }
            all.push_back(*std::move(refusal));
            ++counts_.refused;
        }
    }

    static Undisturbed undisturbed(const Case& asked) {
        Asking asking(asked);
        Undisturbed run = asking.undisturbed();
        asking.expectNothingLeft();
        return run;
    }

    static std::optional<Refusal> refused(const Case& asked, std::size_t number) {
        Asking asking(asked);
        return askRefusing(asking, number);
    }

    static std::optional<Refusal> refusedAndAskedAgain(const Case& asked, std::size_t number, const Undisturbed& run) {
        SCOPED_TRACE(testing::Message() << "block " << number);
        const std::size_t blocks = failing_memory::blocksAlive();
        std::optional<Refusal> refusal;
        std::size_t kept = 0;
        {
            Asking asking(asked);
            refusal = askRefusing(asking, number);
            asking.expectNothingLeft();
            EXPECT_EQ(asking.answer(), run.whole) << "asked again";
            asking.expectNothingLeft();
            kept = blocksOf(refusal);
        }
        EXPECT_EQ(failing_memory::blocksAlive(), blocks + kept) << "blocks of memory";
        return refusal;
    }

    /// The blocks that a refusal itself holds.
    static std::size_t blocksOf(const std::optional<Refusal>& refusal) {
        const std::size_t before = failing_memory::blocksAlive();
        const std::optional<Refusal> copy = refusal;
        return failing_memory::blocksAlive() - before;
    }

    static std::optional<Refusal> askRefusing(Asking& asking, std::size_t number) {
        std::optional<std::size_t> callsMade;
        Answer answer =
            asking.answer([&] { failing_memory::arm(number, [&] { callsMade = asking.faults().callsMet(); }); },
                          [] { failing_memory::disarm(); });
        if (!callsMade) {
            return std::nullopt;
        }
        return Refusal{number, std::move(answer), *callsMade};
    }

    static void expectRule(const std::vector<Refusal>& refusals, const Rule& rule, const Undisturbed& run) {
        for (const Refusal& refusal : refusals) {
            SCOPED_TRACE(testing::Message() << "block " << refusal.number << ", after " << refusal.callsMade << " of "
                                            << run.calls.size() << " host calls");
            EXPECT_THAT(rule.expectedWithoutMemory(run, refusal.callsMade), testing::Contains(refusal.answer));
        }
    }
};

TEST_P(AllocationSweep, EveryBlockThatIsMissingKeepsTheRule) {
    for (const Case& asked : GetParam().cases) {
        SCOPED_TRACE(asked.world.name);
        sweep(asked);
    }
    std::printf("%s: %zu questions, %zu blocks refused\n", GetParam().function.c_str(), counts_.questions,
                counts_.refused);
    ++total.functions;
    total.questions += counts_.questions;
    total.refused += counts_.refused;
}

INSTANTIATE_TEST_SUITE_P(Functions, AllocationSweep, testing::ValuesIn(functionTable()), testNameOf);

}  // namespace
}  // namespace faults
