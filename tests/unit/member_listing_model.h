// What a listing of members gives, and what becomes of it when a level of classes fails: written once more, apart from
// the library.
#pragma once

#include <functional>

#include "tests/unit/class_model_test.h"
#include "tests/unit/fault_sweep.h"

inline std::string narrow(const std::u16string& text) { return {text.begin(), text.end()}; }

/// A member that a class declares, as far as a listing is concerned.
struct Declared {
    enum class Fate { shown, hidden, rejected };

    std::string name;
    Fate fate;
    std::string record;  // its record as text
};

/// A class as it stands in a listing: what it declares, and which of the others it derives from.
struct Level {
    std::vector<Declared> declared;
    std::vector<std::size_t> superclasses;
};

/// The classes of Leaf(Left(Root) Right(Root)) in the order in which a listing visits them, which is that of this list:
/// a class first, then its superclasses, each with all that it inherits.
using Levels = std::vector<Level>;

/// What a listing of the first class gives. An own member takes the place of inherited namesakes when it is hidden and,
/// in a listing where `ownReplaces`, when it is shown.
inline std::vector<std::string> listing(const Levels& levels, std::size_t failedLevel, bool ownReplaces) {
    struct Member {
        std::string name;
        std::string record;
    };
    const std::function<std::vector<Member>(std::size_t)> list = [&](std::size_t each) -> std::vector<Member> {
        if (each == failedLevel) {
            return {};
        }
        std::vector<Member> members;
        for (const std::size_t superclass : levels[each].superclasses) {
            for (Member& inherited : list(superclass)) {
                members.push_back(std::move(inherited));
            }
        }
        for (const Declared& own : levels[each].declared) {
            if (own.fate == Declared::Fate::hidden || (ownReplaces && own.fate == Declared::Fate::shown)) {
                std::erase_if(members, [&own](const Member& member) { return member.name == own.name; });
            }
        }
        for (const Declared& own : levels[each].declared) {
            if (own.fate == Declared::Fate::shown) {
                members.push_back({own.name, own.record});
            }
        }
        return members;
    };
    std::vector<std::string> records;
    for (const Member& member : list(0)) {
        records.push_back(member.record);
    }
    return records;
}

/// No level.
inline constexpr std::size_t none = 99;

class MemberCollectionFaults : public ClassModelTest {
protected:
    using Records = std::vector<std::string>;

    MemberCollectionFaults() { makeDiamond(); }

    /// Without its class object, or without a definition, a class has no members of its own.
    static bool losesOwnMembers(const FailedCall& failed) {
        return failed.isNullAnswer() && (failed.call().service == memory_host::Service::getClass ||
                                         failed.call().service == memory_host::Service::classGetDefinition);
    }

    static std::size_t levelOf(const FailedCall& failed) { return failed.countOf(memory_host::Service::getClass) - 1; }
};
