#include "bench/floors/questions.h"

#include <iterator>
#include <stdexcept>
#include <utility>

namespace bench {

std::vector<Question> allQuestions(memory_host::World& world) {
    std::vector<Question> questions;
    for (const auto family :
         {nameListQuestions, memberRecordQuestions, classTreeQuestions, namespaceQuestions, workspaceQuestions,
          valueQuestions, otherSystemQuestions, identityQuestions, introspectionQuestions, fixedQuestions}) {
        std::vector<Question> more = family(world);
        questions.insert(questions.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    }
    world.unwatched();
    return questions;
}

void requireAgreement(const std::vector<Question>& questions) {
    for (const Question& question : questions) {
        if (!question.agree()) {
            throw std::logic_error("the floor answers something else, or nobody answers: " + question.family + ", " +
                                   question.name);
        }
    }
}

}  // namespace bench
