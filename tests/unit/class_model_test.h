// A test of the class model, in a world of its own.
#pragma once

#include <string_view>
#include <utility>

#include "contextdata/class_info.h"
#include "tests/support/world_test.h"

/// An unknown class whose structure a test fills by hand.
class OpenClassInfo : public ZELKContextData::ClassInfo {
public:
    OpenClassInfo() = default;
    OpenClassInfo(zelk::COSInternedID id, std::u16string name) {
        structure_.classID = id;
        structure_.className = std::move(name);
    }

    using ClassInfo::getMethodsOfSuperclasses;
    using ClassInfo::getPropertiesOfSuperclasses;
    using ClassInfo::structure_;
};

class ClassModelTest : public WorldTest {
protected:
    using ClassInfo = ZELKContextData::ClassInfo;
    using MethodInfo = ZELKContextData::MethodInfo;
    using PropertyInfo = ZELKContextData::PropertyInfo;
    using ResolvedClassID = ZELKContextData::ResolvedClassID;

    static zelk::COSInternedID id(std::string_view name) { return zelk::internal::makeInterned(name); }

    /// The class of an identity. Never copied on the way out: its visitors work for the object that the caller gets.
    static ClassInfo infoOf(std::string_view name) {
        return ClassInfo(ResolvedClassID::fromKnownResolvedClassID(id(name)));
    }

    template <class Info>
    static Names namesOf(const std::vector<Info>& records) {
        Names names;
        for (const Info& record : records) {
            names.push_back(record.name);
        }
        return names;
    }

    /// Leaf derives from Left and Right, which both derive from Root.
    void makeDiamond() {
        world.cls("Left").derives("Root");
        world.cls("Right").derives("Root");
        world.cls("Leaf").derives("Left").derives("Right");
    }

    static MethodInfo::GetOptions methodOptions(MethodInfo::GetContext context = MethodInfo::GetContext::anyPosition) {
        MethodInfo::GetOptions options;
        options.context = context;
        return options;
    }

    static Names methodsOf(const ClassInfo& cls, MethodInfo::GetContext context = MethodInfo::GetContext::anyPosition) {
        return namesOf(cls.getMethods(methodOptions(context)));
    }

    static Names propertiesOf(const ClassInfo& cls, const PropertyInfo::GetOptions& options = {}) {
        return namesOf(cls.getProperties(options));
    }
};
