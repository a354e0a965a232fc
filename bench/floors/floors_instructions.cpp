// Asks every question a few times, for an instruction counter: floors_instructions [PART OF A NAME]
//
// Each asking is a dump of callgrind, labelled "family|name|parts|library" or "...|floor".
#include <malloc.h>

#include <cstdio>
#include <exception>
#include <string>

#include "bench/floors/questions.h"

namespace {

constexpr int warmings = 2;  // tables of first use are built here, and the allocator finds its ways
constexpr int countings = 5;

void count(const std::string& label, const std::function<void()>& ask) {
    CALLGRIND_ZERO_STATS;
    ask();
    CALLGRIND_DUMP_STATS_AT(label.c_str());
}

void countBothSides(const bench::Question& question) {
    const std::string label = question.family + "|" + question.name + "|" + std::to_string(question.parts) + "|";
    for (int turn = 0; turn < warmings + countings; ++turn) {
        const bool warm = turn >= warmings;
        if (warm) {
            count(label + "library", question.library);
            count(label + "floor", question.floor);
        } else {
            question.library();
            question.floor();
        }
    }
}

int run(const std::string& wanted) {
    // Memory that large answers give back would otherwise be taken from the system at each asking.
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    memory_host::World world;
    const std::vector<bench::Question> questions = bench::allQuestions(world);
    bench::requireAgreement(questions);
    CALLGRIND_START_INSTRUMENTATION;
    for (const bench::Question& question : questions) {
        if ((question.family + " " + question.name).find(wanted) != std::string::npos) {
            countBothSides(question);
        }
    }
    CALLGRIND_STOP_INSTRUMENTATION;
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc > 1 ? argv[1] : "");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "floors_instructions: %s\n", error.what());
        return 1;
    }
}
