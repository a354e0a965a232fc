// Asks the question of one case, undisturbed or disturbed, and looks at what is left behind.
#pragma once

#include <functional>
#include <memory>

#include "tests/faults/function_table.h"

namespace faults {

class Asking {
public:
    using Step = std::function<void()>;

    /// Builds the world of the case.
    explicit Asking(const Case& asked);

    /// The answer; `begin` and `end` run right around the library's call.
    Answer answer(const Step& begin = {}, const Step& end = {});

    /// The answer of a question that nothing disturbs, with all its calls.
    Undisturbed undisturbed();

    /// How many host calls that may fail the last question made.
    std::size_t callsMade() const { return callsMade_; }
    memory_host::FaultPlan& faults() { return scene_->world.faults(); }

    /// Fails the test when a value, a handle or a diversion is left that was not there before the first question, when
    /// the error mode is another, when anything reached the person, or when the host does not work any more.
    void expectNothingLeft();

private:
    void expectHostWorks();

    const Case& asked_;
    std::unique_ptr<Scene> scene_;
    std::size_t values_;
    std::size_t handles_;
    std::size_t callsMade_ = 0;
    Caller* caller_ = nullptr;
    std::vector<Undisturbed::Held>* held_ = nullptr;
};

}  // namespace faults
