// The worlds that golden files name: classes, namespaces and variables on the in-memory host.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "frontends/completion/item.h"
#include "frontends/completion/subject.h"
#include "hosts/memory/world.h"

namespace golden {

/// A world with variables, whose values may answer the interpreter's questions ("class", "denotes", "methods",
/// "properties", "fieldnames", "keys") one by one.
class GoldenWorld final : public contextdata::completion::Workspace {
public:
    using Names = std::vector<std::u16string>;

    GoldenWorld();

    memory_host::World& world() noexcept { return world_; }

    /// Makes a variable and answers its value.
    const qxArray* variable(std::u16string_view name, qxUniqueArray value);

    /// What a value answers to a question; it fails at all others.
    void answers(const qxArray* value, std::string_view question, Names names);

    /// What the host's evaluator makes of an expression; it fails at all others once there is one.
    void evaluates(std::u16string_view expression, std::function<qxUniqueArray()> make);

    qxSharedArray find(const std::u16string& name) override;

    /// What a front end holds that is named without a dot: the variables, and a few words of a language.
    std::vector<contextdata::completion::Item> names() const;

private:
    qxUniqueArray answer(const qxArray* value, const std::string& question);

    memory_host::World world_;
    std::map<std::u16string, qxSharedArray, std::less<>> variables_;
    std::map<std::pair<const qxArray*, std::string>, Names> answers_;
    std::map<std::u16string, std::function<qxUniqueArray()>, std::less<>> expressions_;
};

/// Fills a world of a golden file's choice; false when there is no world of that name.
bool build(GoldenWorld& world, std::string_view name);

}  // namespace golden
