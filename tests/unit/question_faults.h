// Fails every host call of a question in turn and in every way, and looks at all that a failure may leave behind.
#pragma once

#include <algorithm>
#include <functional>
#include <sstream>

#include "host/text.h"
#include "tests/support/world_test.h"
#include "tests/unit/fault_sweep.h"

namespace question_faults {

using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;

inline constexpr auto formerMode = static_cast<qxErrorMode>(7);

/// What a question gives: a text, and values that are looked at once it is over.
struct Reply {
    std::string text;
    std::vector<qxSharedArray> values;
};

/// What has come of a question: its answer or the fault that came out of it, the names in the caller's vector, and
/// whether anything was evaluated.
struct Answer {
    std::string text;
    std::vector<std::u16string> names = {u"kept"};
    bool evaluated = false;

    friend bool operator==(const Answer&, const Answer&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
        out << answer.text << (answer.evaluated ? ", evaluated" : "") << ":";
        for (const std::u16string& name : answer.names) {
            out << " " << testing::PrintToString(name);
        }
        return out;
    }
};

using Names = std::vector<std::u16string>;
using Ask = std::function<Reply(Names& names)>;
using Rule = std::function<Answer(const FailedCall& failed, const Answer& full)>;

inline bool wasEvaluatedBefore(const FailedCall& failed) {
    return failed.call().service != Service::inEvalExp && failed.countOf(Service::inEvalExp) > 0;
}

inline Answer passing(const FailedCall& failed, Names names = {u"kept"}) {
    std::ostringstream text;
    text << "passes: " << failed.fault;
    return {text.str(), std::move(names), wasEvaluatedBefore(failed)};
}

inline Answer everythingPasses(const FailedCall& failed, const Answer& full) {
    return failed.isNullAnswer() ? full : passing(failed);
}

/// The names that stood when the call failed, where each is appended as soon as it has been converted.
inline Names namesBefore(const FailedCall& failed, const Answer& full, Service conversion) {
    const std::size_t converted = failed.countOf(conversion) - (failed.call().service == conversion ? 1 : 0);
    return {full.names.begin(), full.names.begin() + 1 + static_cast<std::ptrdiff_t>(converted)};
}

inline bool isOneOf(Service service, std::initializer_list<Service> services) {
    return std::find(services.begin(), services.end(), service) != services.end();
}

inline qxSharedArray shared(qxUniqueArray value) {
    constexpr bool addReference = false;
    return {value.release(), addReference};
}

inline std::string described(const qxArray* value) {
    if (value == nullptr) {
        return "nothing";
    }
    std::ostringstream text;
    switch (qxGetClassID(value)) {
        case qxClassID::float64:
            text << *qxGetDoubles(value);
            break;
        case qxClassID::character:
            text << testing::PrintToString(getScalarText(value));
            break;
        case qxClassID::cell:
            text << "cell of " << qxGetDimensions(value)[0] << " by " << qxGetDimensions(value)[1] << ":";
            for (std::size_t index = 0; index < qxGetNumberOfElements(value); ++index) {
                text << " " << described(qxGetCell(value, index));
            }
            break;
        default:
            text << "a value of kind " << static_cast<int>(qxGetClassID(value));
    }
    return text.str();
}

class QuestionFaults : public WorldTest {
protected:
    QuestionFaults() { world.errorMode(formerMode); }

    /// `rule` says what must come of a question when one call fails. After each failure nothing may be left behind,
    /// streams and error mode must be as before, and the same question must be answered in full.
    void sweep(const Ask& ask, const Rule& rule) {
        const std::size_t values = world.valuesAlive();
        std::vector<Call> calls;
        const Answer full = answerTo(ask, &calls);
        ASSERT_FALSE(calls.empty());
        for (std::size_t index = 0; index < calls.size(); ++index) {
            for (const Fault fault : {Fault::interrupt, Fault::hostException, Fault::standardException,
                                      Fault::thrownInt, Fault::badAlloc, Fault::nullAnswer}) {
                SCOPED_TRACE(testing::Message() << "call " << index + 1 << " of " << calls.size() << ", "
                                                << calls[index] << ": " << fault);
                world.faults().failCall(index + 1, fault);
                EXPECT_EQ(answerTo(ask), rule(FailedCall{calls, index, fault}, full));
                EXPECT_GT(callsMet, index) << "the call was not made";
                EXPECT_EQ(world.valuesAlive(), values);
                EXPECT_EQ(world.handlesAlive(), 0U);
                EXPECT_EQ(world.diversions(), 0U);
                EXPECT_EQ(world.errorMode(), formerMode);
                for (const auto& sink : world.sinks()) {
                    EXPECT_TRUE(sink.expired());
                }
                EXPECT_EQ(answerTo(ask), full) << "the question asked again";
            }
        }
    }

    Answer answerTo(const Ask& ask, std::vector<Call>* calls = nullptr) {
        const std::size_t evaluations = world.evaluations().size();
        world.journal().clear();
        Answer answer;
        Reply reply;
        const Outcome<bool> outcome = outcomeOf<bool>([&] {
            reply = ask(answer.names);
            return true;
        });
        if (calls != nullptr) {
            *calls = callsThatMayFail();
        }
        callsMet = world.faults().callsMet();
        world.faults().clear();
        answer.evaluated = world.evaluations().size() != evaluations;
        std::ostringstream text;
        if (std::holds_alternative<Fault>(outcome.result)) {
            text << outcome;
        } else {
            text << reply.text;
            for (const qxSharedArray& value : reply.values) {
                text << " " << described(value.get());
            }
        }
        answer.text = text.str();
        return answer;
    }

    /// What the fault plan counts; restoring things cannot fail.
    std::vector<Call> callsThatMayFail() {
        std::vector<Call> calls = world.journal().calls();
        std::erase_if(calls, [](const Call& call) {
            return isOneOf(call.service, {Service::setErrorMode, Service::streamFlush, Service::streamPop});
        });
        return calls;
    }

    std::size_t callsMet = 0;  // in the last question
};

}  // namespace question_faults
