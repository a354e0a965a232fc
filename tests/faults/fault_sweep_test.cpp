// Fails every host call of every exported function, one at a time and in every way, and compares with the function's
// rule in the table.
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/faults/asking.h"
#include "tests/faults/row_names.h"

namespace faults {
namespace {

constexpr Fault kinds[] = {Fault::interrupt, Fault::hostException, Fault::standardException,
                           Fault::thrownInt, Fault::badAlloc,      Fault::nullAnswer};

struct Counts {
    std::size_t functions = 0;
    std::size_t questions = 0;
    std::size_t calls = 0;
    std::size_t cases = 0;
};

/// Of the whole program.
Counts total;

class FaultSweep : public testing::TestWithParam<Row> {
protected:
    static void SetUpTestSuite() {
        memory_host::setLeakReporter([](const std::string& report) { ADD_FAILURE() << report; });
    }

    static void TearDownTestSuite() {
        std::printf("faults: %zu functions, %zu questions, %zu host calls, %zu cases\n", total.functions,
                    total.questions, total.calls, total.cases);
    }

    void sweep(const Case& asked) {
        Asking asking(asked);
        const Undisturbed run = asking.undisturbed();
        asking.expectNothingLeft();
        EXPECT_EQ(asked.rule.objectionTo(run), "");
        ++counts_.questions;
        counts_.calls += run.calls.size();
        wholeAnswers_.push_back(run.whole.text + " " + told(run.whole.names));
        for (std::size_t index = 0; index < run.calls.size(); ++index) {
            for (const Fault fault : kinds) {
                SCOPED_TRACE(testing::Message() << "call " << index + 1 << " of " << run.calls.size() << ", "
                                                << run.calls[index] << ": " << fault);
                failCall(asking, asked.rule, run, index, fault);
                ++counts_.cases;
            }
        }
    }

    Counts counts_;
    std::vector<std::string> wholeAnswers_;

private:
    static void failCall(Asking& asking, const Rule& rule, const Undisturbed& run, std::size_t index, Fault fault) {
        const Answer answer = asking.answer([&] { asking.faults().failCall(index + 1, fault); });
        EXPECT_GT(asking.callsMade(), index) << "the call was not made";
        EXPECT_EQ(answer, rule.expected(run, index, fault));
        asking.expectNothingLeft();
        EXPECT_EQ(asking.answer(), run.whole) << "asked again";
        asking.expectNothingLeft();
    }
};

TEST_P(FaultSweep, EveryFailureOfEveryCallKeepsTheRule) {
    for (const Case& asked : GetParam().cases) {
        SCOPED_TRACE(asked.world.name);
        sweep(asked);
    }
    std::printf("%s: %zu questions, %zu host calls, %zu cases\n", GetParam().function.c_str(), counts_.questions,
                counts_.calls, counts_.cases);
    for (std::size_t index = 0; index < wholeAnswers_.size(); ++index) {
        const Case& asked = GetParam().cases[index];
        std::printf("    %s gives %s: %s\n", asked.world.name, wholeAnswers_[index].c_str(),
                    asked.rule.inWords().c_str());
    }
    ++total.functions;
    total.questions += counts_.questions;
    total.calls += counts_.calls;
    total.cases += counts_.cases;
}

INSTANTIATE_TEST_SUITE_P(Functions, FaultSweep, testing::ValuesIn(functionTable()), testNameOf);

}  // namespace
}  // namespace faults
