#include "contextdata/class_info.h"
#include "contextdata/class_member_names.h"
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/namespace_names.h"
#include "contextdata/other_object_systems.h"
#include "contextdata/resolved_class_id.h"
#include "contextdata/values.h"
#include "contextdata/workspace.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/queries.h"

namespace fuzz {

namespace {

using memory_host::Fault;
using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

/// One question, with an answer that can be compared.
std::string answerTo(const Case& world, std::size_t question, const std::string& name) {
    Wides names;
    bool flag = false;
    const std::u16string wideName = wide(name);
    switch (question) {
        case 0:
            ZELKContextData::getClassMethodNames(wideName, names, flag);
            return shown(names);
        case 1:
            ZELKContextData::getClassPropertyNames(ResolvedClassID::fromKnownResolvedClassID(name), names, flag);
            return shown(names) + shown(flag);
        case 2:
            ZELKContextData::getClassEnumerationNames(wideName, names, flag);
            return shown(names);
        case 3: {
            const ClassInfo info(u"/a.code", wideName);
            MethodInfo::GetOptions options;
            options.context = MethodInfo::GetContext(3);
            options.accessingClass = &info;
            return std::to_string(info.getMethods(options).size());
        }
        case 4: {
            const ClassInfo info(ResolvedClassID::fromKnownResolvedClassID(name));
            PropertyInfo::GetOptions options;
            options.accessingClass = &info;
            return std::to_string(info.getProperties(options).size());
        }
        case 5:
            return shown(ClassInfo(ResolvedClassID::fromKnownResolvedClassID(name)).getAttributes(true).ofMethods);
        case 6:
            ZELKContextData::getNamespaceClassNames(u"pkg", names);
            ZELKContextData::getNamespaceFunctionNames(u"pkg.inner", names);
            ZELKContextData::getNamespaceNamespaceNames(u"pkg", names);
            return shown(names);
        case 7:
            return shown(ZELKContextData::getZELKAllNamespaces() != nullptr);
        case 8:
            return shown(GetValueFromCurrentWorkspace(u"s.a") != nullptr) +
                   shown(GetValueFromCurrentWorkspace(u"s(1)") != nullptr);
        case 9: {
            const qxUniqueArray object = world.world.object(name.empty() ? "A" : name);
            return shown(getSizeFromQxArray(object.get())) +
                   shown(ZELKIntrospection::hasMethod(object.get(), std::string("work"))) +
                   shown(ZELKIntrospection::isNoDotMethodClass(object.get()));
        }
        case 10:
            return shown(IsXOBPackage(wideName)) + shown(XOBContextData::getPackageStrings(wideName, names)) +
                   shown(names);
        default:
            return shown(ZELKIntrospection::hasMethod(wideName, std::string("work"), flag)) +
                   shown(std::int64_t{GetClassPrecedence(wideName, u"A")});
    }
}

constexpr std::size_t questionCount = 12;

/// What came out, when it is of no interest what.
std::string outcome(const Case& world, std::size_t question, const std::string& name) {
    try {
        return answerTo(world, question, name);
    } catch (const foundation::core::except::InterruptException&) {
        return "interrupt";
    } catch (const foundation::core::except::IException&) {
        return "failure";
    } catch (const std::exception&) {
        return "standard exception";
    } catch (int) {
        return "int";
    }
}

}  // namespace

void askWhileTheHostFails(const Case& world) {
    memory_host::World& host = world.world;
    qxUniqueArray inner = host.structure();
    qxUniqueArray outer = host.structure();
    host.setField(outer, "a", std::move(inner));
    host.variable("s", std::move(outer));
    constexpr Fault faults[] = {Fault::interrupt, Fault::hostException, Fault::standardException,
                                Fault::thrownInt, Fault::badAlloc,      Fault::nullAnswer};
    for (std::size_t round = world.input.below(5); round > 0; --round) {
        const std::size_t question = world.input.below(questionCount);
        const std::string name = world.model.classes.empty() || world.input.once(4)
                                     ? world.input.oneOf(classNames())
                                     : world.input.oneOf(world.model.classes).name;
        const std::string usual = outcome(world, question, name);
        const std::size_t values = host.valuesAlive();
        const std::size_t call = 1 + world.input.below(world.input.once(4) ? 1000 : 40);
        host.faults().failCall(call, world.input.oneOf(faults));
        outcome(world, question, name);
        host.faults().clear();
        const std::string what = " after question " + std::to_string(question) + " about " + name;
        expectEqual(host.valuesAlive(), values, "values alive" + what);
        expectEqual(host.handlesAlive(), std::size_t{0}, "handles alive" + what);
        expectEqual(host.diversions(), std::size_t{0}, "diversions" + what);
        expect(host.errorMode() == qxErrorMode{}, "the error mode" + what);
        expectEqual(outcome(world, question, name), usual, "the answer" + what);
    }
}

}  // namespace fuzz
