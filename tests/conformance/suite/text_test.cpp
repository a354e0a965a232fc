#include "host/text.h"

#include "tests/conformance/suite/exception_transport.h"
#include "tests/conformance/suite/suite.h"
#include "tests/conformance/suite/value_kinds.h"

namespace {

using conformance::nameOf;
using conformance::ValueKind;

class Texts : public conformance::Conformance {
protected:
    /// Why a value gives no text; "none" when it gives one.
    static std::string complaintAbout(const qxUniqueArray& value) {
        try {
            getScalarText(value.get());
        } catch (const TextException& failure) {
            EXPECT_STREQ(failure.getComponent(), "OSTREL:string");
            return failure.getIdentifier();
        }
        return "none";
    }
};

TEST_F(Texts, AreRead) {
    const qxUniqueArray value = provider().value(ValueKind::text);
    CONFORMANCE_NEEDS(value, nameOf(ValueKind::text));
    EXPECT_TRUE(isNonMissingScalarText(value.get()));
    EXPECT_EQ(getScalarText(value.get()), u"some text");
}

TEST_F(Texts, BeyondAsciiAreRead) {
    const std::u16string text = u"Gr\u00f6\u00dfe \U0001F600";
    const qxUniqueArray value = qxCreateString(text);
    ASSERT_TRUE(value);
    EXPECT_EQ(getScalarText(value.get()), text);
}

TEST_F(Texts, ThatAreMissingSaySo) {
    const qxUniqueArray value = provider().value(ValueKind::missingText);
    CONFORMANCE_NEEDS(value, nameOf(ValueKind::missingText));
    EXPECT_FALSE(isNonMissingScalarText(value.get()));
    EXPECT_EQ(complaintAbout(value), "MissingNotSupported");
}

TEST_F(Texts, AreNotMadeOfOtherValues) {
    for (const ValueKind other :
         {ValueKind::doubleScalar, ValueKind::doubleRow, ValueKind::logicalTrue, ValueKind::textMatrix, ValueKind::cell,
          ValueKind::structure, ValueKind::functionHandle}) {
        if (const qxUniqueArray value = provider().value(other)) {
            EXPECT_FALSE(isNonMissingScalarText(value.get())) << nameOf(other);
            EXPECT_EQ(complaintAbout(value), "MustBeStringScalarOrCharacterVector") << nameOf(other);
        }
    }
    const qxUniqueArray cell = qxCreateCell(1, 1);
    ASSERT_TRUE(cell);
    EXPECT_FALSE(isNonMissingScalarText(cell.get()));
    EXPECT_EQ(complaintAbout(cell), "MustBeStringScalarOrCharacterVector");
}

TEST_F(Texts, FailuresTravel) {
    const TextException failure("MissingNotSupported");
    conformance::expectToTravel(failure);
    EXPECT_STREQ(failure.getComponent(), "OSTREL:string");
    const TextException copy(failure);
    EXPECT_STREQ(copy.getIdentifier(), "MissingNotSupported");
}

}  // namespace
