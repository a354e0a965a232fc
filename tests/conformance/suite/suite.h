// What the tests of the suite share: a provider for each, and the way in which a test says what the host lacks.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/class_system.h"
#include "host/interned.h"
#include "tests/conformance/suite/provider.h"

/// Skips the test, by the name of what is missing, unless the host has it.
#define CONFORMANCE_NEEDS(has, capability)                   \
    if (!(has)) {                                            \
        ::conformance::noteLack(capability);                 \
        GTEST_SKIP() << "this host lacks: " << (capability); \
    }                                                        \
    static_assert(true, "a semicolon follows")

namespace conformance {

using Names = std::vector<std::string>;

/// Remembers a capability that the host lacks, for the report at the end of the run.
void noteLack(const std::string& capability);

class Conformance : public testing::Test {
protected:
    Conformance() : provider_(makeProvider()) {}

    Provider& provider() const noexcept { return *provider_; }

private:
    std::unique_ptr<Provider> provider_;
};

zelk::COSInternedID id(const std::string& name);

/// The class object of a name, which must be there.
zelk::COSClass* classNamed(const std::string& name);

/// A name that no host knows anything by.
inline const std::string unknownName = "no_such_name_anywhere_9f3a";

/// The names of the nodes of a walk; an empty handle is a walk over nothing. A node that `nameOf` gives no name to
/// fails the test.
Names namesIn(const zelk::COSIteratorPtr& walk, const char* (*nameOf)(zelk::COSInterface*));

/// The name of a node by its view of that kind; null when the node has none.
const char* methodName(zelk::COSInterface* node);
const char* propertyName(zelk::COSInterface* node);
const char* enumerationName(zelk::COSInterface* node);
const char* className(zelk::COSInterface* node);
const char* namespaceName(zelk::COSInterface* node);

/// Collects handles to all nodes that it is led over.
class NodeCollector final : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    void visit(zelk::COSInterface* node) override {
        ASSERT_NE(node, nullptr);
        nodes.emplace_back(node);
    }

    std::vector<zelk::COSInterfacePtr> nodes;
};

/// The names of what a class shows to a visitor.
Names walkedNames(zelk::COSClass& cls, void (zelk::COSClass::*walk)(zelk::COSVisitor<zelk::COSInterface*>&),
                  const char* (*nameOf)(zelk::COSInterface*));

}  // namespace conformance
