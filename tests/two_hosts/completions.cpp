#include "frontends/completion/complete.h"
#include "host/evaluation.h"
#include "tests/two_hosts/answers.h"
#include "tests/two_hosts/texts.h"

namespace two_hosts {

namespace {

using contextdata::completion::Completions;
using contextdata::completion::Item;
using ZELKContextData::ResolvedClassID;

/// The variables of the host's own current workspace.
class HostWorkspace final : public contextdata::completion::Workspace {
public:
    qxSharedArray find(const std::u16string& name) override { return inGetValueFromCurrentWorkspace(narrow(name)); }
};

struct Typed {
    const char* text;
    const char* asker = "";  // the class in whose code it is typed
};

constexpr Typed texts[] = {
    // Objects.
    {"account."},
    {"account.de"},
    {"account.zzz"},
    {"account . d"},
    {"savings."},
    {"savings.w"},
    {"x = account."},
    {"f(account.d"},
    {"account.owner.upp"},
    {"account.deposit."},
    {"account.missing."},
    {"account.nickname.x"},
    {"missing."},
    {"Account."},
    // Insiders.
    {"account.", "bank.Account"},
    {"account._", "bank.Account"},
    {"savings._", "bank.Savings"},
    {"account._", "bank.Colour"},
    {"bank.Account._", "bank.Account"},
    // Classes, namespaces, enumerations.
    {"bank."},
    {"bank.o"},
    {"bank.A"},
    {"bank.rules."},
    {"bank.rules.c"},
    {"bank.Account."},
    {"bank.Account.p"},
    {"bank.Savings."},
    {"bank.Savings.L"},
    {"bank.Colour.g"},
    {"bank.Missing."},
    {"bank.rules.missing."},
    {"nobody.knows."},
    {"colour.r"},
    // Structures and subscripts.
    {"nested."},
    {"nested.in"},
    {"nested.inner."},
    {"nested.inner.v"},
    {"table['"},
    {"table['a"},
    {"table[\"b"},
    {"nested['"},
    {"account['"},
    // Values without members of these names.
    {"number.zzz"},
    {"matrix.zzz"},
    // Texts that offer nothing, or that are half typed.
    {""},
    {"."},
    {"account"},
    {"account.."},
    {"account.\n"},
    {"'account."},
    {"\"account."},
    {"f'{account."},
    {"# account."},
    {"'#'; account.de"},
    {"12."},
    {"1.5.x"},
    {"account().d"},
    {"(account).d"},
    {"account[0].d"},
    {"gr\u00f6\u00dfe."},
    {"\u00e4\u00f6\u00fc"},
};

std::string shown(const Item& item) {
    std::string line = narrow(item.name) + " | " + textOf(item.kind);
    return item.definingClass.empty() ? line : line + " | " + narrow(item.definingClass.text());
}

std::string quoted(std::string_view text) {
    std::string line;
    for (const char c : text) {
        line += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return line;
}

}  // namespace

void answerCompletions(std::ostream& out) {
    for (const Typed& typed : texts) {
        ask(out, "complete " + quoted(typed.text) + (*typed.asker == 0 ? "" : std::string(" inside ") + typed.asker));
        const std::u16string text = widen(typed.text);
        HostWorkspace workspace;
        const ResolvedClassID asker = ResolvedClassID::fromKnownResolvedClassID(std::string(typed.asker));
        const Completions found = complete({text, text.size(), u"", asker}, workspace);
        if (const std::string refusal = textOf(found.refusal); !refusal.empty()) {
            say(out, "refused: " + refusal);
        }
        say(out, "replaces " + std::to_string(found.start) + " to " + std::to_string(found.end));
        for (const Item& item : found.items) {
            say(out, shown(item));
        }
    }
}

}  // namespace two_hosts
