#include "tests/faults/rule.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace faults {

namespace {

/// How many calls of a service were made up to the one of that index, itself included.
std::size_t countOf(const Undisturbed& run, std::size_t index, Service service) {
    const auto end = run.calls.begin() + static_cast<std::ptrdiff_t>(index) + 1;
    return static_cast<std::size_t>(std::count_if(
        run.calls.begin(), end, [service](const memory_host::Call& call) { return call.service == service; }));
}

bool isAt(const std::vector<Place>& places, const Undisturbed& run, std::size_t index) {
    const Service service = run.calls[index].service;
    return std::any_of(places.begin(), places.end(), [&](const Place& place) {
        return place.service == service && (place.number == 0 || place.number == countOf(run, index, service));
    });
}

std::string inWords(const std::vector<Place>& places) {
    std::string words;
    for (const Place& place : places) {
        words += (words.empty() ? "" : ", ") + std::string(nameOf(place.service)) +
                 (place.number == 0 ? "" : " #" + std::to_string(place.number));
    }
    return words;
}

std::string inWords(const Given& given) {
    if (!given.text) {
        return "the whole answer";
    }
    std::string words = "\"" + *given.text + "\"";
    if (given.added) {
        words += " with the names " + told(*given.added);
    }
    return words;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    return out << "\"" << answer.text << "\" " << told(answer.names) << (answer.flag ? " flag" : "");
}

std::string passing(Fault fault) {
    std::ostringstream text;
    text << "passes: " << fault;
    return text.str();
}

Rule passes() { return {Rule::Kind::passes, {}}; }
Rule guarded(Given given) { return {Rule::Kind::guarded, std::move(given)}; }
Rule swallows(Given given) { return {Rule::Kind::swallows, std::move(given)}; }

Rule Rule::at(Places places, const Rule& rule) && {
    at_.emplace_back(places, rule);
    return std::move(*this);
}

Rule Rule::from(Place place, const Rule& rule) && {
    from_.emplace_back(place, rule);
    return std::move(*this);
}

Rule Rule::null(Places places, Given given) && {
    null_.emplace_back(places, std::move(given));
    return std::move(*this);
}

Rule Rule::restoring() && {
    restores_ = true;
    return std::move(*this);
}

Rule Rule::namesAtOnce() && {
    appendsAtOnce_ = true;
    return std::move(*this);
}

Rule Rule::flagBy(Service service) && {
    flagBy_ = service;
    return std::move(*this);
}

Rule Rule::ownMemoryPasses() && {
    ownMemoryPasses_ = true;
    return std::move(*this);
}

Rule Rule::outputMayBeLost() && {
    outputMayBeLost_ = true;
    return std::move(*this);
}

const Rule& Rule::ruleAt(const Undisturbed& run, std::size_t index) const {
    for (const auto& [places, rule] : at_) {
        if (isAt(places, run, index)) {
            return rule;
        }
    }
    const auto begun = std::find_if(from_.rbegin(), from_.rend(), [&](const auto& each) {
        return countOf(run, index, each.first.service) >= each.first.number;
    });
    return begun == from_.rend() ? *this : begun->second.ruleAt(run, index);
}

Answer Rule::given(const Given& given, const Undisturbed& run, Undisturbed::Held held) const {
    if (!given.text) {
        return run.whole;
    }
    Names names = {u"kept"};
    if (given.added) {
        names.insert(names.end(), given.added->begin(), given.added->end());
    } else if (!restores_) {
        names.assign(run.whole.names.begin(), run.whole.names.begin() + static_cast<std::ptrdiff_t>(held.names));
    }
    return {*given.text, std::move(names), held.flag};
}

Answer Rule::thrown(const Undisturbed& run, Undisturbed::Held held, Fault fault) const {
    const bool isPassed = kind_ == Kind::passes || (kind_ == Kind::guarded && fault == Fault::interrupt);
    return isPassed ? given(Given(passing(fault).c_str()), run, held) : given(given_, run, held);
}

Answer Rule::expected(const Undisturbed& run, std::size_t index, Fault fault) const {
    if (fault != Fault::nullAnswer) {
        Rule rule = ruleAt(run, index);
        rule.restores_ = restores_;
        return rule.thrown(run, run.held[index], fault);
    }
    for (const auto& [places, answer] : null_) {
        if (isAt(places, run, index)) {
            return given(answer, run, run.held[index]);
        }
    }
    return run.whole;
}

std::vector<Answer> Rule::expectedWithoutMemory(const Undisturbed& run, std::size_t callsMade) const {
    const Undisturbed::Held atStart = {1, false};
    const Undisturbed::Held atEnd = {run.whole.names.size(), run.whole.flag};
    const Undisturbed::Held before = callsMade == 0 ? atStart : run.held[callsMade - 1];
    const Undisturbed::Held after = callsMade == run.calls.size() ? atEnd : run.held[callsMade];

    std::vector<Rule> rules;
    if (callsMade > 0) {
        rules.push_back(ruleAt(run, callsMade - 1));
    }
    if (callsMade < run.calls.size()) {
        rules.push_back(ruleAt(run, callsMade));
    }
    if (run.calls.empty()) {
        rules.push_back(*this);
    }
    if (ownMemoryPasses_) {
        rules.push_back(passes());
    }
    std::vector<Answer> allowed;
    for (Rule& rule : rules) {
        rule.restores_ = restores_;
        for (std::size_t names = before.names; names <= after.names; ++names) {
            allowed.push_back(rule.thrown(run, {names, before.flag}, Fault::badAlloc));
        }
        allowed.push_back(rule.thrown(run, after, Fault::badAlloc));
    }
    if (outputMayBeLost_) {
        allowed.push_back(run.whole);
    }
    return allowed;
}

std::string Rule::objectionTo(const Undisturbed& run) const {
    std::vector<Undisturbed::Held> held = run.held;
    held.push_back({run.whole.names.size(), run.whole.flag});
    Undisturbed::Held before = {1, false};
    bool isFlagDue = false;
    for (std::size_t index = 0; index < held.size(); ++index) {
        const std::string place = " before call " + std::to_string(index + 1);
        if (!appendsAtOnce_ && !restores_ && held[index].names > before.names + 1) {
            return "several names are appended" + place;
        }
        if (held[index].flag != (isFlagDue && run.whole.flag)) {
            return "the flag is wrong" + place;
        }
        if (flagBy_ && !isFlagDue && held[index].names > 1) {
            return "a name is appended before the flag is set" + place;
        }
        before = held[index];
        isFlagDue = isFlagDue || (index < run.calls.size() && run.calls[index].service == flagBy_);
    }
    return "";
}

std::string Rule::inWords() const {
    std::string words;
    switch (kind_) {
        case Kind::passes:
            words = "everything passes";
            break;
        case Kind::guarded:
            words = "the interrupt passes, other failures give " + faults::inWords(given_);
            break;
        case Kind::swallows:
            words = "every failure gives " + faults::inWords(given_);
            break;
    }
    for (const auto& [places, rule] : at_) {
        words += "; at " + faults::inWords(places) + ": " + rule.inWords();
    }
    for (const auto& [place, rule] : from_) {
        words += "; from " + faults::inWords({place}) + " on: " + rule.inWords();
    }
    for (const auto& [places, answer] : null_) {
        words += "; null of " + faults::inWords(places) + " gives " + faults::inWords(answer);
    }
    words += restores_ ? "; the names are as before" : "";
    words += appendsAtOnce_ ? "; names are appended at once" : "";
    words += flagBy_ ? "; the flag is set by " + std::string(nameOf(*flagBy_)) : "";
    words += ownMemoryPasses_ ? "; lack of memory of its own passes" : "";
    words += outputMayBeLost_ ? "; output that is thrown away needs no memory" : "";
    return words;
}

}  // namespace faults
