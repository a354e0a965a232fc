// Every host call of a listing of methods fails in turn.
#include "tests/unit/member_listing_model.h"

namespace {

using memory_host::Service;
using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;

std::vector<std::string> recordsOf(const std::vector<MethodInfo>& methods) {
    std::vector<std::string> records;
    for (const MethodInfo& method : methods) {
        records.push_back(narrow(method.definingClass) + "." + narrow(method.name) +
                          (method.isStatic ? " static" : ""));
    }
    return records;
}

class MethodFaults : public MemberCollectionFaults {};

TEST_F(MethodFaults, AFailureEmptiesItsClassAndWhatThatInherits) {
    using enum Declared::Fate;
    world.cls("Leaf").method("Leaf").method("fall").isStatic().method("plus").method("shed").visibility(0);
    world.cls("Leaf").method("secret").access(2).method("guarded").access(7).openTo("Other").openTo("Gardener");
    world.cls("Left").method("lean").method("shed").method("own").access(2);
    world.cls("Right").method("stand").method("grow").method("sway").visibility(0);
    world.cls("Root").method("grow").method("rest").visibility(0).method("sway");
    const Level root = {{{"grow", shown, "Root.grow"}, {"rest", hidden, ""}, {"sway", shown, "Root.sway"}}, {}};
    const Levels levels = {
        {{{"Leaf", rejected, ""},
          {"fall", shown, "Leaf.fall static"},
          {"plus", rejected, ""},
          {"shed", hidden, ""},
          {"secret", shown, "Leaf.secret"},
          {"guarded", shown, "Leaf.guarded"}},
         {1, 3}},
        {{{"lean", shown, "Left.lean"}, {"shed", shown, "Left.shed"}, {"own", rejected, ""}}, {2}},
        root,
        {{{"stand", shown, "Right.stand"}, {"grow", shown, "Right.grow"}, {"sway", hidden, ""}}, {4}},
        root,
    };
    const ClassInfo leaf = infoOf("Leaf");
    const ClassInfo gardener = infoOf("Gardener");
    const auto rule = [&](const FailedCall& failed, const Records& full) -> Outcome<Records> {
        EXPECT_EQ(full, listing(levels, none, false));
        if (failed.isInterrupt()) {
            return {failed.fault};
        }
        const std::size_t level = levelOf(failed);
        if (!failed.isNullAnswer()) {
            return {listing(levels, level, false)};
        }
        Levels changed = levels;
        if (losesOwnMembers(failed)) {
            changed[level].declared.clear();
        } else if (failed.call().service == Service::classOfMember) {
            // A method of no class. The class's own methods are visited first, before those that it inherits.
            const std::size_t place = failed.countOf(Service::methodGetName, failed.last(Service::getClass)) - 1;
            if (place < changed[level].declared.size()) {
                changed[level].declared[place].fate = rejected;
            }
        }
        return {listing(changed, none, false)};
    };
    for (const auto context : {MethodInfo::GetContext::anyPosition, MethodInfo::GetContext::afterDot}) {
        sweepFaults<Records>(
            world,
            [&] {
                return recordsOf(leaf.getMethods({0, 2}, context, &gardener));
            },
            rule);
    }
}

}  // namespace
