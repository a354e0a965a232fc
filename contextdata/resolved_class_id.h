// The identity of a class: one canonical interned name for the many forms in which a class is known.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "contextdata/export.h"
#include "host/array_library.h"
#include "host/exceptions.h"
#include "host/interned.h"

class FunctionScope;

namespace ZELKContextData {

/// Names one class of the class system by its full interned name, or none (null).
///
/// An immutable value of pointer size: it may be copied freely and between threads. It does not promise that the
/// class exists; only `fromLegacyString` checks that. A moved-from identity keeps its value. Every construction
/// asks the host again; nothing is kept. Functions that ask the host run on the interpreter thread.
class CONTEXTDATA_API ResolvedClassID {
public:
    /// Where the debugger is; `fileName` is empty when it is nowhere.
    struct DebuggerFocus {
        std::u16string fileName;          ///< empty without a focus
        std::int32_t focusPosition1 = 0;  ///< as the interpreter reports it; zero without a focus
        std::int32_t focusPosition2 = 0;  ///< as the interpreter reports it; zero without a focus
    };

    class BadClassNameException;

    /// The null identity.
    ResolvedClassID() noexcept = default;

    /// Resolves a class name as code in `contextFile` would see it.
    ///
    /// The scope is that of the file, else that of the file in the debugger's focus, else the one that runs now.
    /// Null for an empty name, for a name that begins with a dot (the host is then not asked at all), and for a
    /// name that the host resolves to nothing. With the feature switch off, and when the host fails, the name
    /// itself is the identity. Throws only the interrupt, and whatever conversion and interning of the name throw.
    ResolvedClassID(const std::u16string& contextFile, const std::u16string& className);

    /// Resolves a class name in a scope, which is borrowed and may be null; otherwise as above, save that a
    /// failure of the feature switch itself passes out.
    ResolvedClassID(const FunctionScope* scope, const std::u16string& className);

    /// The class that the host reports for a value; the value is not null. Catches nothing.
    explicit ResolvedClassID(const qxArray* value);

    /// Take a name for canonical as it stands: no resolution, no check. Empty gives null.
    /// @{
    static ResolvedClassID fromKnownResolvedClassID(const zelk::COSInternedID& id) noexcept;
    static ResolvedClassID fromKnownResolvedClassID(const std::string& name);
    static ResolvedClassID fromKnownResolvedClassID(const std::u16string& name);
    /// @}

    /// The identity of the defined class that a name, perhaps of an older form, denotes.
    ///
    /// Throws `BadClassNameException` when there is none; host failures and the interrupt pass.
    /// @{
    static ResolvedClassID fromLegacyString(const std::string& name);
    static ResolvedClassID fromLegacyString(const std::u16string& name);
    /// @}

    /// Whether a name carries a software-package qualification already. Interns nothing.
    /// @{
    static bool isAlreadyResolved(const std::string& name);
    static bool isAlreadyResolved(const std::u16string& name);
    /// @}

    /// The debugger's focus; empty when there is no interpreter or when the debugger is not stopped.
    static DebuggerFocus GetDebuggerFocus();

    /// The canonical name; the empty handle for null. Any thread.
    const zelk::COSInternedID& get() const noexcept { return id_; }
    /// Whether it names no class. Any thread.
    bool isNull() const noexcept { return id_.isEmpty(); }

    /// The full name with its software-package qualification; empty for null.
    std::u16string getComponentQualifiedName() const;

    /// The full name without its software-package qualification; empty for null.
    std::u16string getNonComponentQualifiedName() const;

private:
    explicit ResolvedClassID(zelk::COSInternedID id) noexcept : id_(id) {}

    zelk::COSInternedID id_;
};

/// Says that a name denotes no defined class. Travels through the host's exception transport.
class CONTEXTDATA_API ResolvedClassID::BadClassNameException final
    : public foundation::core::except::IInternalException {
public:
    /// `badClassName` is what `getBadClassName` answers.
    explicit BadClassNameException(std::string badClassName);
    BadClassNameException(const BadClassNameException& other);
    BadClassNameException(BadClassNameException&& other) noexcept;
    ~BadClassNameException() noexcept override;

    /// The name as it was passed; for UTF-16 names, after conversion to ASCII.
    const std::string& getBadClassName() const noexcept { return badClassName_; }

    const boost::exception_detail::clone_base* clone() const override;
    [[noreturn]] void rethrow() const override;

private:
    std::string badClassName_;
};

}  // namespace ZELKContextData
