// Times of every question on the in-memory host, each beside its floor.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <string>

#include "bench/floors/questions.h"

namespace {

void add(const bench::Question& question, const char* side, const std::function<void()>& ask) {
    const std::string name = question.family + "/" + question.name + "/" + side;
    benchmark::RegisterBenchmark(name.c_str(), [&question, &ask](benchmark::State& state) {
        for (auto _ : state) {
            ask();
        }
        state.counters["parts"] = static_cast<double>(question.parts);
        state.SetItemsProcessed(static_cast<std::int64_t>(question.parts) * state.iterations());
    });
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    // A large answer that is let go and made again would otherwise be taken from the system each time.
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    memory_host::World world;
    const std::vector<bench::Question> questions = bench::allQuestions(world);
    bench::requireAgreement(questions);
    for (const bench::Question& question : questions) {
        add(question, "library", question.library);
        add(question, "floor", question.floor);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
