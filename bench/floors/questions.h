// All questions that are measured, by family. Each function adds what it asks about to the world, which outlives the
// questions; once all are made, `World::unwatched` makes host services cost what they cost.
#pragma once

#include <vector>

#include "bench/floors/question.h"
#include "hosts/memory/world.h"

namespace bench {

std::vector<Question> nameListQuestions(memory_host::World& world);
std::vector<Question> memberRecordQuestions(memory_host::World& world);
std::vector<Question> classTreeQuestions(memory_host::World& world);
std::vector<Question> namespaceQuestions(memory_host::World& world);
std::vector<Question> workspaceQuestions(memory_host::World& world);
std::vector<Question> valueQuestions(memory_host::World& world);
std::vector<Question> otherSystemQuestions(memory_host::World& world);
std::vector<Question> identityQuestions(memory_host::World& world);
std::vector<Question> introspectionQuestions(memory_host::World& world);
std::vector<Question> fixedQuestions(memory_host::World& world);

std::vector<Question> allQuestions(memory_host::World& world);

/// Throws `std::logic_error` for a question whose two sides do not answer the same.
void requireAgreement(const std::vector<Question>& questions);

}  // namespace bench
