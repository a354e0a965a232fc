// Typed text: what the completion engine offers for it, and which value it denotes in the workspace.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "contextdata/workspace.h"
#include "frontends/completion/complete.h"
#include "host/evaluation.h"
#include "host/exceptions.h"
#include "tests/fuzz/chain_model.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/target.h"

namespace {

using namespace fuzz;
using contextdata::completion::Completions;
using contextdata::completion::Item;
using contextdata::completion::Items;
using contextdata::completion::ParsedText;
using contextdata::completion::Request;
using contextdata::completion::Wanted;
using memory_host::World;

class HostWorkspace final : public contextdata::completion::Workspace {
public:
    qxSharedArray find(const std::u16string& name) override {
        return inGetValueFromCurrentWorkspace(narrowAscii(name));
    }
};

constexpr std::u16string_view pieces[] = {
    u".",      u".",      u".",    u".",   u" ",  u"(",  u")",   u"[",         u"]",       u"['",
    u"[\"",    u"'",      u"\"",   u"'''", u"#",  u"\n", u"=",   u", ",        u"import ", u"from ",
    u"as ",    u"f'",     u"{",    u"}",   u"\\", u"0",  u"1.5", u"1e",        u":",       u"gr\u00f6\u00dfe",
    u"\xD800", u"open('", u"\r\n", u";",   u"@",  u"-",  u"pkg", u"pkg.Thing",
};

std::u16string typedText(Input& input) {
    if (input.once(4)) {
        return input.text(200);
    }
    std::u16string text;
    for (std::size_t count = input.below(24); count > 0; --count) {
        if (input.below(2) == 0) {
            text += wide(input.oneOf(ChainModel::names()));
        } else {
            text += input.oneOf(pieces);
        }
    }
    return text;
}

std::vector<std::u16string> namesOf(const Items& items) {
    std::vector<std::u16string> names;
    for (const Item& item : items) {
        names.push_back(item.name);
    }
    return names;
}

/// What holds for every answer.
void checkForm(const Completions& found, std::size_t cursor) {
    expect(found.start <= found.end && found.end <= cursor, "the range lies before the cursor");
    const std::vector<std::u16string> names = namesOf(found.items);
    expect(std::is_sorted(names.begin(), names.end()), "names are sorted: " + shown(names));
    expect(std::adjacent_find(names.begin(), names.end()) == names.end(), "each name once: " + shown(names));
}

/// How the interpreter takes a text: what it does depends on the text alone.
enum class Manner { succeeds, fails, failsWithAResult, throws, interrupted };

Manner mannerOf(const std::u16string& text) { return static_cast<Manner>(text.size() % 5); }

class WatchedEvaluator {
public:
    explicit WatchedEvaluator(World& world) : world_(world) {
        world_.evaluatedBy([this](const memory_host::Evaluation& asked, qxArray** outputs) {
            expect(world_.diversions() == 2, "both streams are diverted while something is evaluated");
            expect(world_.errorMode() == qxErrorMode::disabled, "errors are disabled meanwhile");
            world_.print(u"printed");
            world_.printError(u"complained");
            return evaluate(mannerOf(asked.expression), outputs);
        });
    }

    /// How often an evaluation was interrupted.
    std::size_t interrupts() const { return interrupts_; }

private:
    inExecutionStatus evaluate(Manner manner, qxArray** outputs) {
        switch (manner) {
            case Manner::succeeds:
            case Manner::failsWithAResult:
                outputs[0] = world_.number(0).release();
                return static_cast<inExecutionStatus>(manner == Manner::succeeds ? 0 : 3);
            case Manner::throws:
                throw 7;
            case Manner::interrupted:
                ++interrupts_;
                throw foundation::core::except::InterruptException();
            case Manner::fails:
                break;
        }
        return static_cast<inExecutionStatus>(2);
    }

    World& world_;
    std::size_t interrupts_ = 0;
};

/// A person at the prompt of a world.
class Session {
public:
    explicit Session(const WatchedEvaluator& evaluator) : evaluator_(evaluator) {}

    /// What is offered; nothing when it was interrupted, which it is exactly when its evaluation was.
    std::optional<Completions> complete(const std::u16string& text, std::size_t cursor) const {
        HostWorkspace workspace;
        const std::size_t before = evaluator_.interrupts();
        std::optional<Completions> found;
        try {
            found = contextdata::completion::complete(Request{text, cursor, u""}, workspace);
        } catch (const foundation::core::except::InterruptException&) {
            // Nothing to tell.
        }
        expectEqual(found.has_value(), evaluator_.interrupts() == before,
                    "interrupted evaluations pass in " + shown(text));
        return found;
    }

private:
    const WatchedEvaluator& evaluator_;
};

/// What is offered for a part of a name is what is offered for nothing of it, without what begins otherwise.
void checkNarrowing(const Session& session, const std::u16string& text, const Completions& found) {
    const std::u16string fragment = text.substr(found.start, found.end - found.start);
    const std::u16string before = text.substr(0, found.start);
    std::optional<Completions> all = session.complete(before, before.size());
    expect(all.has_value(), "the same expression stands before the name");
    std::erase_if(all->items, [&](const Item& item) { return !item.name.starts_with(fragment); });
    expectEqual(namesOf(found.items), namesOf(all->items),
                "what begins with " + shown(fragment) + " in " + shown(text));
}

void checkCompletion(const Session& session, const std::u16string& text, std::size_t cursor) {
    const std::optional<Completions> found = session.complete(text, cursor);
    const std::size_t end = std::min(cursor, text.size());
    const std::optional<Completions> again = session.complete(text, cursor);
    const std::optional<Completions> cut = session.complete(text.substr(0, end), end);
    expectEqual(again.has_value(), found.has_value(), "interrupted again for " + shown(text));
    expectEqual(cut.has_value(), found.has_value(), "what follows the cursor interrupts nothing: " + shown(text));
    if (!found) {
        return;
    }
    checkForm(*found, end);
    expectEqual(namesOf(again->items), namesOf(found->items), "the same answer again for " + shown(text));
    expectEqual(namesOf(cut->items), namesOf(found->items),
                "what follows the cursor counts for nothing: " + shown(text));
    const ParsedText parsed = contextdata::completion::parse(text, cursor);
    const bool isPlain = parsed.wanted == Wanted::members && parsed.refusal == contextdata::completion::Refusal::none;
    if (isPlain && found->end == end) {
        checkNarrowing(session, text.substr(0, end), *found);
    }
}

void checkValue(World& world, const ChainModel& model, const std::u16string& text) {
    const ChainModel::Answer expected = model.follow(narrowAscii(text));
    const std::size_t before = world.evaluations().size();
    const qxSharedArray found = GetValueFromCurrentWorkspace(text);
    const std::size_t evaluated = world.evaluations().size() - before;
    const std::string what = " of " + shown(text);
    const bool evaluates = expected.kind == ChainModel::Answer::Kind::evaluation;
    expectEqual(evaluated, std::size_t{evaluates ? 1U : 0U}, "evaluations" + what);
    if (!evaluates) {
        expectEqual(static_cast<const void*>(found.get()), static_cast<const void*>(expected.value),
                    "the value" + what);
        return;
    }
    expect(world.evaluations().back().expression == text, "the text is evaluated as it is" + what);
    expectEqual(found != nullptr, mannerOf(text) == Manner::succeeds, "a value by evaluation" + what);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    World world;
    world.unwatched();
    world.ns("pkg").holdsClass("pkg.Thing").function("start");
    const ChainModel model(world);
    const WatchedEvaluator evaluator(world);
    const std::u16string text = typedText(input);
    const std::size_t cursor = input.once(4) ? input.below(300) : text.size();
    const std::size_t values = world.valuesAlive();

    checkValue(world, model, text);
    checkCompletion(Session(evaluator), text, cursor);

    expectEqual(world.valuesAlive(), values, "values alive");
    expectEqual(world.handlesAlive(), std::size_t{0}, "handles alive");
    expectEqual(world.diversions(), std::size_t{0}, "diversions");
    expectEqual(world.shown() + world.shownErrors(), std::u16string(), "what the person saw");
    expect(world.errorMode() == qxErrorMode{}, "the error mode is as it was");
    return 0;
}
