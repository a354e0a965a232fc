// Variables of every kind, and what becomes of expressions over them.
#pragma once

#include <algorithm>
#include <vector>

#include "contextdata/workspace.h"
#include "host/streams.h"
#include "tests/support/world_test.h"

class WorkspaceValueTest : public WorldTest {
protected:
    qxUniqueArray structureWith(std::string_view field, qxUniqueArray value) {
        qxUniqueArray made = world.structure();
        world.setField(made, field, std::move(value));
        return made;
    }

    qxUniqueArray objectWith(std::string_view className, std::string_view property, qxUniqueArray value) {
        qxUniqueArray made = world.object(className);
        world.setProperty(made, property, std::move(value));
        return made;
    }

    /// A foreign value of which the interpreter knows these names.
    qxUniqueArray opaqueWith(std::initializer_list<std::u16string_view> methods,
                             std::initializer_list<std::u16string_view> fields) {
        world.function("methods", [this, names = std::vector(methods)](const qxArray*) { return cellOf(names); });
        world.function("fieldnames", [this, names = std::vector(fields)](const qxArray*) { return cellOf(names); });
        return world.opaque("java.lang.String");
    }

    qxUniqueArray cellOf(const std::vector<std::u16string_view>& texts) {
        std::vector<qxUniqueArray> elements;
        for (const std::u16string_view text : texts) {
            elements.push_back(world.charRow(text));
        }
        return world.cellOf(std::move(elements));
    }

    /// The number that an expression denotes; fails the test when it denotes none.
    double numberOf(const std::u16string& expression) {
        const qxSharedArray value = GetValueFromCurrentWorkspace(expression);
        if (!value || qxGetClassID(value.get()) != qxClassID::float64) {
            ADD_FAILURE() << "no number";
            return -1;
        }
        return *qxGetDoubles(value.get());
    }

    void expectWalked(const std::u16string& expression, double number) {
        EXPECT_EQ(numberOf(expression), number);
        EXPECT_THAT(world.evaluations(), testing::IsEmpty()) << "evaluated";
    }

    void expectStopped(const std::u16string& expression) {
        const std::size_t before = world.evaluations().size();
        EXPECT_EQ(GetValueFromCurrentWorkspace(expression), nullptr);
        EXPECT_EQ(world.evaluations().size(), before) << "evaluated";
    }

    void expectEvaluatedInVain(const std::u16string& expression) {
        const std::size_t before = world.evaluations().size();
        EXPECT_EQ(GetValueFromCurrentWorkspace(expression), nullptr);
        ASSERT_EQ(world.evaluations().size(), before + 1) << "evaluations";
        EXPECT_EQ(world.evaluations().back().expression, expression);
    }

    void expectEvaluated(const std::u16string& expression, double number) {
        const std::size_t before = world.evaluations().size();
        EXPECT_EQ(numberOf(expression), number);
        ASSERT_EQ(world.evaluations().size(), before + 1) << "evaluations";
        EXPECT_EQ(world.evaluations().back().expression, expression);
    }

    /// What reached the person, once nothing is held back any more.
    std::u16string seen() {
        OutputStream::standardOutput().flush();
        OutputStream::standardError().flush();
        return world.shown() + world.shownErrors();
    }
};
