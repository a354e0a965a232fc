// The memory of every answer of the library on the in-memory host, while the counter of the heap is preloaded.
//
// A line an answer: "family|name|the answer's own bytes|the most beyond what was held before|bytes that stayed of one
// answer", the last as the mean of many.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>

#include "bench/floors/questions.h"

// Of the counter, which is preloaded; without it, they are missing.
extern "C" {
__attribute__((weak)) void heapMark(std::size_t slot);
__attribute__((weak)) void heapNow(std::size_t slot);
__attribute__((weak)) void heapPeak(std::size_t slot);
__attribute__((weak)) std::int64_t heapNoted(std::size_t slot);
}

namespace {

enum Slot : std::size_t { before, withAnswer, peak, oneGone, allGone };

constexpr int more = 50;

void measure(const bench::Question& question) {
    // What is made at first use is not the answer's.
    for (int warming = 0; warming < 3; ++warming) {
        question.hold([] {});
    }
    heapMark(before);
    question.hold([] {
        heapPeak(peak);
        heapNow(withAnswer);
    });
    heapNow(oneGone);
    for (int asking = 0; asking < more; ++asking) {
        question.hold([] {});
    }
    heapNow(allGone);
    const auto since = [](Slot slot) { return static_cast<long>(heapNoted(slot) - heapNoted(before)); };
    const double stayed = static_cast<double>(heapNoted(allGone) - heapNoted(oneGone)) / more;
    std::printf("%s|%s|%ld|%ld|%.1f\n", question.family.c_str(), question.name.c_str(), since(withAnswer), since(peak),
                stayed);
}

}  // namespace

int main() {
    if (heapMark == nullptr) {
        std::fprintf(stderr, "answers_memory: preload the counter of the heap\n");
        return 2;
    }
    try {
        memory_host::World world;
        const std::vector<bench::Question> questions = bench::allQuestions(world);
        for (const bench::Question& question : questions) {
            measure(question);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "answers_memory: %s\n", error.what());
        return 1;
    }
}
