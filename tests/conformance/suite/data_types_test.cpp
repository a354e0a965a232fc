#include "host/data_types.h"

#include <algorithm>

#include "host/class_system.h"
#include "tests/conformance/suite/suite.h"

namespace {

using conformance::id;
using conformance::MemberSubject;
using conformance::MemberTrait;
using conformance::Names;

class DataTypes : public conformance::Conformance {
protected:
    static zelk::COSDataTypePtr typeOf(const MemberSubject& subject) {
        const zelk::COSInterfacePtr node = conformance::classNamed(subject.className)->findProperty(id(subject.name));
        const zelk::COSPropInfo* property = zelk::cosiToProp(node.get());
        EXPECT_NE(property, nullptr) << subject.name;
        return property == nullptr ? nullptr : property->getDataType();
    }

    /// The values of a type as texts: their own, or what the conversion to "any" makes of them.
    struct ValueTexts final : zelk::COSVisitor<const zelk::COSTypeValue*> {
        explicit ValueTexts(const zelk::COSDataType& type)
            : conversion(zelk::COSTypeRepository::getConversion(type.getID(), id("any"))) {
            type.visitValues(*this);
        }
        void visit(const zelk::COSTypeValue* value) override {
            ASSERT_NE(value, nullptr);
            if (const char* text = value->getText()) {
                texts.emplace_back(text);
                return;
            }
            ++convertedCount;
            ASSERT_NE(conversion, nullptr) << "a value that is no text needs a conversion";
            texts.push_back(conversion->convert(*value));
        }
        const zelk::COSConversion* conversion;
        Names texts;
        std::size_t convertedCount = 0;
    };
};

TEST_F(DataTypes, AreMissingWhereNothingIsDeclared) {
    const auto subject = provider().memberWith(MemberTrait::untypedProperty);
    CONFORMANCE_NEEDS(subject, "properties without a type");
    EXPECT_FALSE(typeOf(*subject));
}

TEST_F(DataTypes, HaveAnIdentifier) {
    const auto subject = provider().memberWith(MemberTrait::typedProperty);
    CONFORMANCE_NEEDS(subject, "properties with a type");
    const zelk::COSDataTypePtr type = typeOf(*subject);
    ASSERT_TRUE(type);
    EXPECT_EQ(type->getID(), id(subject->texts.at(0)));
    EXPECT_EQ(zelk::COSValidationType::get(*type), nullptr);
    EXPECT_FALSE(type->hasValueList());
    EXPECT_EQ(ValueTexts(*type).texts, Names{}) << "a type without a list shows no values";
}

TEST_F(DataTypes, OfValidationsSayWhatTheyDemand) {
    const auto subject = provider().memberWith(MemberTrait::validatedProperty);
    CONFORMANCE_NEEDS(subject, "properties with a validation");
    const zelk::COSDataTypePtr type = typeOf(*subject);
    ASSERT_TRUE(type);
    const zelk::COSValidationType* validation = zelk::COSValidationType::get(*type);
    ASSERT_NE(validation, nullptr);
    ASSERT_NE(validation->getClassName(), nullptr);
    Names found = {validation->getClassName()};
    const Names dimensions = validation->getDimensions();
    const Names validators = validation->getValidators();
    found.insert(found.end(), dimensions.begin(), dimensions.end());
    found.emplace_back("|");
    found.insert(found.end(), validators.begin(), validators.end());
    EXPECT_EQ(found, subject->texts);
}

TEST_F(DataTypes, ListTheirTexts) {
    const auto subject = provider().memberWith(MemberTrait::listedProperty);
    CONFORMANCE_NEEDS(subject, "types with a list of texts");
    const zelk::COSDataTypePtr type = typeOf(*subject);
    ASSERT_TRUE(type);
    EXPECT_TRUE(type->hasValueList());
    const ValueTexts values(*type);
    EXPECT_EQ(values.texts, subject->texts);
    EXPECT_EQ(values.convertedCount, 0U);
}

TEST_F(DataTypes, ListValuesThatHaveToBeConverted) {
    const auto subject = provider().memberWith(MemberTrait::convertedProperty);
    CONFORMANCE_NEEDS(subject, "types with a list of values that are no texts");
    const zelk::COSDataTypePtr type = typeOf(*subject);
    ASSERT_TRUE(type);
    EXPECT_TRUE(type->hasValueList());
    const ValueTexts values(*type);
    EXPECT_EQ(values.texts, subject->texts);
    EXPECT_EQ(values.convertedCount, subject->texts.size());
}

TEST_F(DataTypes, LetTheirVisitorEndTheWalk) {
    struct Thrower final : zelk::COSVisitor<const zelk::COSTypeValue*> {
        void visit(const zelk::COSTypeValue* /*value*/) override { throw 3; }
    } thrower;
    const auto subject = provider().memberWith(MemberTrait::listedProperty);
    CONFORMANCE_NEEDS(subject, "types with a list of texts");
    const zelk::COSDataTypePtr type = typeOf(*subject);
    ASSERT_TRUE(type);
    EXPECT_THROW(type->visitValues(thrower), int);
}

TEST_F(DataTypes, OutliveTheirProperty) {
    const auto subject = provider().memberWith(MemberTrait::typedProperty);
    CONFORMANCE_NEEDS(subject, "properties with a type");
    zelk::COSDataTypePtr type = typeOf(*subject);
    const zelk::COSDataTypePtr second = type;
    type.reset();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->getID(), id(subject->texts.at(0)));
}

TEST_F(DataTypes, OfNoNameAreNotConverted) {
    EXPECT_EQ(zelk::COSTypeRepository::getConversion({}, id("any")), nullptr);
    EXPECT_EQ(zelk::COSTypeRepository::getConversion(id("any"), {}), nullptr);
    EXPECT_EQ(zelk::COSTypeRepository::getConversion({}, {}), nullptr);
}

}  // namespace
