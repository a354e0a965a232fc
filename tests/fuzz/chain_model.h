// A workspace whose values are known, and the rule by which a text leads to one of them, written a second time.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "hosts/memory/world.h"

namespace fuzz {

/// What is known of a value of the workspace.
struct KnownValue {
    enum class Kind { fields, object, opaque, other };

    const qxArray* value = nullptr;
    Kind kind = Kind::other;
    bool isScalar = true;
    std::map<std::string, KnownValue*> members;  // fields or properties; null for one without a value
    std::set<std::string> methods;
};

/// Builds the workspace in a world, and answers for it.
class ChainModel {
public:
    explicit ChainModel(memory_host::World& world);

    struct Answer {
        enum class Kind { nothing, value, evaluation };
        Kind kind = Kind::nothing;
        const qxArray* value = nullptr;
    };
    /// Where the whole text leads; "evaluation" when the interpreter has to be asked.
    Answer follow(const std::string& text) const;

    /// Names that occur in the workspace, for texts that lead somewhere.
    static const std::vector<std::string>& names();

private:
    using Kind = KnownValue::Kind;

    KnownValue* known(const qxUniqueArray& value, Kind kind, bool isScalar = true);
    KnownValue* addNumber(const qxUniqueArray& structure, const char* field, double number);
    void variable(const char* name, qxUniqueArray value, KnownValue* known);
    void buildStructures();
    void buildObjects();
    void buildOthers();
    qxUniqueArray texts(const std::set<std::string>& names);

    memory_host::World& world_;
    std::vector<std::unique_ptr<KnownValue>> values_;
    std::map<std::string, KnownValue*> variables_;
};

}  // namespace fuzz
