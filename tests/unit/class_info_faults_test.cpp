// Every host call of the making of class information, of its attributes and of the no-dot question fails in turn.
#include <array>
#include <set>

#include "contextdata/class_info.h"
#include "contextdata/introspection.h"
#include "tests/unit/class_model_test.h"
#include "tests/unit/fault_sweep.h"

namespace {

using memory_host::Service;
using ZELKContextData::ClassInfo;

/// A tree as text: the name of a class, its id, its superclasses; a dash for an unknown class.
std::string treeOf(const ClassInfo& cls) {
    if (cls.getSuperclassInfo().classID.isEmpty() && cls.getClass().empty()) {
        return cls.getSuperclassInfo().superclasses.empty() ? "-" : "an unknown class with superclasses";
    }
    std::string text(cls.getClass().begin(), cls.getClass().end());
    text.append("=").append(cls.getSuperclassInfo().classID.view()).append("(");
    for (const auto& superclass : cls.getSuperclassInfo().superclasses) {
        text += treeOf(*superclass) + " ";
    }
    return text + ")";
}

/// What the making of a tree asks the host, step by step, and what becomes of the tree when one step answers null.
class TreeModel {
public:
    explicit TreeModel(std::size_t nullStep) : nullStep_(nullStep) {}

    /// A class that is made of an identity, or as a superclass.
    std::string withBaseName(const std::string& id) {
        step();  // the name without its package
        step();  // its conversion
        return id.substr(id.find(':') + 1) + "=" + id + "(" + superclasses(id) + ")";
    }

    /// A class that is made of a value.
    std::string withFullName(const std::string& id) {
        step();  // the conversion of the name
        return id + "=" + id + "(" + superclasses(id) + ")";
    }

    std::size_t steps() const { return step_; }

private:
    bool step() { return ++step_ == nullStep_; }

    std::string superclasses(const std::string& id) {
        const bool hasNoClassObject = step();
        if (hasNoClassObject) {
            return "";
        }
        const bool hasNoWalk = step();
        if (hasNoWalk) {
            return "";
        }
        std::string text;
        for (const std::string& superclass : directSuperclasses(id)) {
            step();  // whether there are more
            step();  // the next one
            text += (step() ? "-" : named(superclass)) + " ";
        }
        step();  // whether there are more: no
        return text;
    }

    std::string named(const std::string& id) {
        step();  // the class object's own id
        return withBaseName(id);
    }

    static std::vector<std::string> directSuperclasses(const std::string& id) {
        if (id == "p:Leaf") {
            return {"Left", "Right"};
        }
        return id == "Root" ? std::vector<std::string>{} : std::vector<std::string>{"Root"};
    }

    std::size_t nullStep_;
    std::size_t step_ = 0;
};

class ClassInfoFaults : public ClassModelTest {
protected:
    ClassInfoFaults() {
        world.cls("p:Leaf").derives("Left").derives("Right");
        world.cls("Left").derives("Root");
        world.cls("Right").derives("Root");
        world.cls("Other");
    }

    static std::string leafOfIdentity(std::size_t nullStep = 0) { return TreeModel(nullStep).withBaseName("p:Leaf"); }
    static std::string leafOfValue(std::size_t nullStep = 0) { return TreeModel(nullStep).withFullName("p:Leaf"); }
};

TEST_F(ClassInfoFaults, OfAnIdentityEverythingPassesAndANullAnswerCutsItsBranch) {
    const ResolvedClassID identity = ResolvedClassID::fromKnownResolvedClassID(id("p:Leaf"));
    sweepFaults<std::string>(
        world, [&] { return treeOf(ClassInfo(identity)); },
        [](const FailedCall& failed, const std::string& full) -> Outcome<std::string> {
            EXPECT_EQ(full, leafOfIdentity());
            if (failed.isNullAnswer()) {
                return {leafOfIdentity(failed.index + 1)};
            }
            return {failed.fault};
        });
}

TEST_F(ClassInfoFaults, OfAnIdentityTheHostIsAskedNoMoreThanTheRuleSays) {
    const ResolvedClassID identity = ResolvedClassID::fromKnownResolvedClassID(id("p:Leaf"));
    world.journal().clear();
    const ClassInfo leaf(identity);
    TreeModel model(0);
    EXPECT_EQ(treeOf(leaf), model.withBaseName("p:Leaf"));
    EXPECT_EQ(world.journal().calls().size(), model.steps());
}

TEST_F(ClassInfoFaults, OfANameOnlyTheResolutionIsGuardedAndFallsBackToTheNameAsItStands) {
    world.contextResolution(true);
    world.imports(world.scope(u"sale.k"), "Shown", "p:Leaf");
    const std::vector<Service> resolution = {Service::toString,          Service::featureIsOn,
                                             Service::getDispatcher,     Service::getFunctionScope,
                                             Service::omResolveAnyClass, Service::makeInterned};
    sweepFaults<std::string>(
        world, [&] { return treeOf(ClassInfo(u"sale.k", u"Shown")); },
        [&](const FailedCall& failed, const std::string& full) -> Outcome<std::string> {
            EXPECT_EQ(full, leafOfIdentity());
            if (failed.index >= resolution.size()) {
                if (failed.isNullAnswer()) {
                    return {leafOfIdentity(failed.index + 1 - resolution.size())};
                }
                return {failed.fault};
            }
            const Service service = failed.call().service;
            EXPECT_EQ(service, resolution[failed.index]);
            if (failed.isNullAnswer()) {
                // Without the file's scope, and without any other, the name means nothing.
                return {service == Service::getFunctionScope ? "-" : full};
            }
            if (failed.isInterrupt() || service == Service::toString) {
                return {failed.fault};
            }
            return {"Shown=Shown()"};
        });
}

TEST_F(ClassInfoFaults, OfAValueOnlyTheLookUpOfItsClassIsGuarded) {
    const qxUniqueArray value = world.object("p:Leaf");
    const std::vector<Service> questions = {Service::omIsZELK, Service::omGetCOSClassID, Service::getClass,
                                            Service::classGetDefinition, Service::omGetCOSClassID};
    sweepFaults<std::string>(
        world, [&] { return treeOf(ClassInfo(value.get())); },
        [&](const FailedCall& failed, const std::string& full) -> Outcome<std::string> {
            EXPECT_EQ(full, leafOfValue());
            if (failed.index >= questions.size()) {
                if (failed.isNullAnswer()) {
                    return {leafOfValue(failed.index + 1 - questions.size())};
                }
                return {failed.fault};
            }
            const Service service = failed.call().service;
            EXPECT_EQ(service, questions[failed.index]);
            const bool isLookUp = service == Service::getClass || service == Service::classGetDefinition;
            if (failed.isNullAnswer()) {
                return {isLookUp ? "-" : full};
            }
            if (isLookUp && !failed.isInterrupt()) {
                return {"-"};
            }
            return {failed.fault};
        });
}

// Attributes.

using Attributes = std::array<std::set<std::u16string>, 4>;

Attributes attributesOf(const ClassInfo& cls) {
    const ZELKContextData::AttributeInfo attributes = cls.getAttributes(true);
    return {attributes.ofClasses, attributes.ofProperties, attributes.ofMethods, attributes.ofEvents};
}

TEST_F(ClassInfoFaults, OfAttributesEveryFailureEmptiesTheWholeAnswerAndTheInterruptPasses) {
    world.cls("p:Leaf").classAttribute("Sealed").classAttribute("Leafy").eventAttribute("Fall");
    world.cls("Left").propertyAttribute("Lean").methodAttribute("Static");
    world.cls("Root").classAttribute("Sealed").propertyAttribute("Deep").methodAttribute("Grow", true);
    world.cls("Right").methodAttribute("Stand").eventAttribute("Rise");
    // What each class adds itself, in the order in which the classes are asked.
    const std::vector<Attributes> own = {
        Attributes{{{u"Sealed", u"Leafy"}, {}, {}, {u"Fall"}}}, Attributes{{{}, {u"Lean"}, {u"Static"}, {}}},
        Attributes{{{u"Sealed"}, {u"Deep"}, {u"Grow"}, {}}},    Attributes{{{}, {}, {u"Stand"}, {u"Rise"}}},
        Attributes{{{u"Sealed"}, {u"Deep"}, {u"Grow"}, {}}},
    };
    const auto without = [&own](std::size_t silent) {
        Attributes all;
        for (std::size_t cls = 0; cls < own.size(); ++cls) {
            for (std::size_t set = 0; cls != silent && set < all.size(); ++set) {
                all[set].insert(own[cls][set].begin(), own[cls][set].end());
            }
        }
        return all;
    };
    const ClassInfo leaf = infoOf("p:Leaf");
    sweepFaults<Attributes>(
        world, [&] { return attributesOf(leaf); },
        [&](const FailedCall& failed, const Attributes& full) -> Outcome<Attributes> {
            EXPECT_EQ(full, without(own.size()));
            if (failed.isInterrupt()) {
                return {failed.fault};
            }
            if (!failed.isNullAnswer()) {
                return {Attributes()};
            }
            const bool losesClass = failed.call().service == Service::getClass;
            return {losesClass ? without(failed.countOf(Service::getClass) - 1) : full};
        });
}

// Values without method names after a dot.

TEST_F(ClassInfoFaults, OfTheNoDotQuestionEverythingPasses) {
    world.cls("Table").derives("tall");
    world.cls("Plain");
    for (const char* cls : {"Table", "Plain"}) {
        const qxUniqueArray value = world.object(cls);
        sweepFaults<bool>(
            world, [&] { return ZELKIntrospection::isNoDotMethodClass(value.get()); },
            [&](const FailedCall& failed, bool full) -> Outcome<bool> {
                EXPECT_EQ(full, std::string_view(cls) == "Table");
                if (failed.isNullAnswer()) {
                    return {full};
                }
                return {failed.fault};
            });
    }
}

}  // namespace
