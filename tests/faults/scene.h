// A question to the library as a caller asks it: the world it is asked in, what the caller holds out, and the one call
// that a sweep may disturb.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "contextdata/class_info.h"
#include "hosts/memory/world.h"
#include "tests/faults/told.h"
#include "tests/support/temporary_folder.h"

namespace faults {

using Names = std::vector<std::u16string>;

/// A world, and what a question in it is about. What is held of the world goes before the world does.
struct Scene {
    memory_host::World world;
    std::unique_ptr<TemporaryFolder> disk;
    qxUniqueArray value;
    zelk::COSClass* cls = nullptr;
    zelk::COSInterfacePtr node;
    FunctionScope* scope = nullptr;
    std::unique_ptr<ZELKContextData::ClassInfo> info;
    std::unique_ptr<ZELKContextData::ClassInfo> asker;
};

/// Who asks. The library's call goes through it, so that whoever sweeps knows when it begins and ends.
class Caller {
public:
    /// `begin` and `end` run around the call, `end` also when something is thrown.
    Caller(std::function<void()> begin, std::function<void()> end) : begin_(std::move(begin)), end_(std::move(end)) {}

    template <class Call>
    decltype(auto) operator()(const Call& call) {
        begin_();
        const AtEnd atEnd{end_};
        return call();
    }

    Names names = {u"kept"};  ///< the vector that names are appended to
    bool flag = false;        ///< the flag that some questions set

private:
    struct AtEnd {
        const std::function<void()>& run;
        ~AtEnd() { run(); }
    };

    std::function<void()> begin_;
    std::function<void()> end_;
};

/// Asks through the caller and tells the result as text.
using Question = std::function<std::string(Scene& scene, Caller& caller)>;

/// The question that consists of one call, whose arguments are ready before it begins.
template <class Call>
Question asks(Call call) {
    return [call](Scene& scene, Caller& caller) -> std::string {
        using Result = std::invoke_result_t<const Call&, Scene&, Caller&>;
        if constexpr (std::is_void_v<Result>) {
            caller([&] { call(scene, caller); });
            return {};
        } else {
            const Result result = caller([&] { return call(scene, caller); });
            return told(result);
        }
    };
}

}  // namespace faults
