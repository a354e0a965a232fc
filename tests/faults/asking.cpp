#include "tests/faults/asking.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <sstream>

#include "host/streams.h"
#include "tests/unit/question_faults.h"

namespace faults {

using memory_host::Call;
using question_faults::formerMode;
using ZELKContextData::ResolvedClassID;

namespace {

/// Restoring things never fails, so no plan counts these.
bool mayFail(Service service) {
    return service != Service::setErrorMode && service != Service::streamFlush && service != Service::streamPop;
}

/// Makes room for all calls of a question: some of them are recorded where memory must not be lacking.
void reserve(memory_host::CallJournal& journal) {
    constexpr int moreThanAnyQuestionMakes = 1024;
    for (int call = 0; call < moreThanAnyQuestionMakes; ++call) {
        journal.record(Service::makeInterned, "");
    }
    journal.clear();
}

}  // namespace

Asking::Asking(const Case& asked) : asked_(asked), scene_(std::make_unique<Scene>()) {
    memory_host::World& world = scene_->world;
    asked.world.build(*scene_);
    world.errorMode(formerMode);
    reserve(world.journal());
    values_ = world.valuesAlive();
    handles_ = world.handlesAlive();
    for (int service = 0; service <= static_cast<int>(Service::featureIsOn); ++service) {
        world.whenCalled(static_cast<Service>(service), [this, service] {
            if (held_ != nullptr && mayFail(static_cast<Service>(service))) {
                held_->push_back({caller_->names.size(), caller_->flag});
            }
        });
    }
}

Answer Asking::answer(const Step& begin, const Step& end) {
    memory_host::World& world = scene_->world;
    const Step beginCall = [&] {
        world.journal().clear();
        world.faults().clear();
        if (begin) {
            begin();
        }
    };
    const Step endCall = [&] {
        if (end) {
            end();
        }
        callsMade_ = world.faults().callsMet();
        world.faults().clear();
        held_ = nullptr;
    };
    Caller caller(beginCall, endCall);
    caller_ = &caller;
    const Outcome<std::string> outcome = outcomeOf<std::string>([&] {
        try {
            return asked_.question(*scene_, caller);
        } catch (const ResolvedClassID::BadClassNameException& unknown) {
            return told(unknown);
        }
    });
    caller_ = nullptr;
    const Fault* fault = std::get_if<Fault>(&outcome.result);
    return {fault == nullptr ? std::get<std::string>(outcome.result) : passing(*fault), std::move(caller.names),
            caller.flag};
}

Undisturbed Asking::undisturbed() {
    Undisturbed run;
    std::vector<Call> calls;
    run.whole = answer([&] { held_ = &run.held; }, [&] { calls = scene_->world.journal().calls(); });
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(run.calls),
                 [](const Call& call) { return mayFail(call.service); });
    EXPECT_EQ(run.calls.size(), run.held.size());
    EXPECT_EQ(run.calls.size(), callsMade_) << "every call that may fail is met by the fault plan";
    return run;
}

void Asking::expectNothingLeft() {
    memory_host::World& world = scene_->world;
    EXPECT_EQ(world.valuesAlive(), values_);
    EXPECT_EQ(world.handlesAlive(), handles_);
    EXPECT_EQ(world.diversions(), 0U);
    EXPECT_EQ(world.errorMode(), formerMode);
    EXPECT_TRUE(std::all_of(world.sinks().begin(), world.sinks().end(), [](const boost::weak_ptr<OutputSink>& sink) {
        return sink.expired();
    })) << "a sink lives on";
    OutputStream::standardOutput().flush();
    OutputStream::standardError().flush();
    EXPECT_EQ(world.shown(), u"");
    EXPECT_EQ(world.shownErrors(), u"");
    expectHostWorks();
}

void Asking::expectHostWorks() {
    const boost::shared_ptr<OutputCapture> sink = boost::make_shared<OutputCapture>();
    OutputStream& output = OutputStream::standardOutput();
    output.push(sink);
    scene_->world.print(u"probe");
    output.flush();
    output.pop();
    EXPECT_EQ(sink->getText(), u"probe");
    EXPECT_NE(qxCreateString(u"probe"), nullptr);
    EXPECT_EQ(zelk::internal::makeInterned("probe").view(), "probe");
}

}  // namespace faults
